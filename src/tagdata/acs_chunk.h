#pragma once

#include <cstdint>
#include <string_view>

#include "engine/pstring.h"
#include "engine/reference.h"
#include "tagdata/chunk_kind.h"
#include "tagdata/raw.h"

namespace morvex {

// A node of a soup, which is a tree of named tags: a container, a leaf with data, or a view of a loaded
// file. An ACSChunk itself is the null chunk, which answers every look-up that finds nothing.
//
// Counts are atomic and any thread may release a chunk; everything else is for one thread at a time, but
// for reading, which several threads may do at once as long as nobody changes the soup.
class ACSChunk : public Nox::ReferenceCountMP {
 public:
  ~ACSChunk() override;

  // The first child of that name (compared exactly), else the null chunk; never an empty reference.
  virtual Nox::Ref<ACSChunk> GetChunk(const Nox::PString& name) const;
  virtual Nox::Ref<ACSChunk> GetChunk(const Nox::PString& name);
  virtual uint32_t GetChildCount() const;
  // Empty past the end.
  virtual Nox::PString GetChildName(uint32_t index) const;
  // By name, ascending by unsigned byte value.
  virtual void Sort();
  // Exchanges the places of two children; the names stay where they are.
  virtual void SwapChildren(const ACSChunk* a, const ACSChunk* b);
  // Appends, whether or not the name is taken. Does nothing for an empty reference.
  virtual void AddChild(const Nox::PString& name, Nox::Ref<ACSChunk> chunk);
  virtual void RemoveChild(const ACSChunk* chunk);
  // A new chunk that suits this soup, not added to anything. `data` is ignored for a container.
  virtual Nox::Ref<ACSChunk> CreateChunk(ChunkKind kind, const Raw& data);
  // The data of a leaf, valid as long as the chunk lives and its data isn't set; null if there is none.
  virtual const uint8_t* GetData() const;
  virtual uint32_t GetDataSize() const;
  virtual ChunkKind GetKind() const;
  virtual void SetData(ChunkKind kind, const Raw& data);

  // Takes out the tag of that name, the first if there are several.
  virtual void RemoveNamed(const Nox::PString& name);
  // RemoveNamed, then AddChild: the tag moves to the end. Costs the same however many children there are.
  virtual void SetChild(const Nox::PString& name, Nox::Ref<ACSChunk> chunk);

  // The data of a leaf, kept alive by what it is part of.
  Raw GetRawData() const;
  // The text of a leaf of any kind: its bytes up to the first NUL.
  std::string_view DataText() const;

  // Becomes a copy of `source`: the tree is new, the bytes of the leaves are shared.
  void CopyFrom(const ACSChunk& source);

 protected:
  // What keeps the data alive; the chunk itself unless a class knows better.
  virtual Raw ShareData() const;
};

using ChunkRef = Nox::Ref<ACSChunk>;

// The one null chunk.
const ChunkRef& NullChunk();
inline bool IsNullChunk(const ACSChunk* chunk) {
  return chunk == NullChunk().Get();
}

}  // namespace morvex

#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "tagdata/acs_chunk.h"
#include "tagdata/binary_file.h"
#include "tagdata/chunk_walker.h"

namespace morvex {

class SoupIndex;
struct SoupChanges;

// A soup of a loaded file, seen where it lies: the chunks of the body that weren't removed, then the
// additions, which the file keeps. Every look-up makes a new view, so views are told apart by the place of
// their data. A long soup is indexed by name when it is searched for the second time.
class TDBBinarySoup final : public ACSChunk {
 public:
  TDBBinarySoup(Nox::Ref<TDBBinaryFile> file, ByteSpan data);
  ~TDBBinarySoup() override;

  ChunkRef GetChunk(const Nox::PString& name) const override;
  ChunkRef GetChunk(const Nox::PString& name) override;
  uint32_t GetChildCount() const override;
  Nox::PString GetChildName(uint32_t index) const override;
  // Nothing if `chunk` is an addition of this soup already.
  void AddChild(const Nox::PString& name, ChunkRef chunk) override;
  // A chunk of the body is known by the place of its data.
  void RemoveChild(const ACSChunk* chunk) override;
  ChunkRef CreateChunk(ChunkKind kind, const Raw& data) override;
  ChunkKind GetKind() const override { return ChunkKind::kContainer; }
  void RemoveNamed(const Nox::PString& name) override;

  const uint8_t* Place() const { return data_.data(); }

 private:
  // Survivors in front of an offset, with which the walk by number goes on.
  struct alignas(8) Cursor {
    uint32_t index = 0;
    uint32_t offset = 0;
  };
  static constexpr uint32_t kUncounted = 0xFFFFFFFF;

  SoupChanges* Changes() const;
  uint32_t BodyCount() const;
  // Walkers that stand on a surviving chunk of the body, or nothing.
  std::optional<ChunkWalker> FindNamed(std::string_view name) const;
  std::optional<ChunkWalker> FindIndexed(std::string_view name) const;
  std::optional<ChunkWalker> FindPlace(const uint8_t* place) const;
  const SoupIndex& Index() const;
  ChunkRef ViewOf(const ChunkView& chunk) const;
  void RemoveFromBody(const ChunkWalker& at);

  Nox::Ref<TDBBinaryFile> file_;
  ByteSpan data_;
  // Found out on first use; several readers may do so at once.
  mutable std::atomic<SoupIndex*> index_{nullptr};
  mutable std::atomic<bool> searchedFar_{false};
  mutable std::atomic<uint32_t> bodyCount_{kUncounted};
  mutable std::atomic<Cursor> cursor_;
  mutable std::atomic<uint32_t> cursorRemovals_{0};  // the removals that cursor_ knows of
};

}  // namespace morvex

#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

#include "tagdata/acs_chunk.h"
#include "tagdata/place_table.h"

namespace morvex {

// A node in memory: named children in the order they were added. Names needn't be unique here; a look-up
// finds the first. A handful of children is searched one by one, more of them through an index of names.
class TDBContainerTag final : public ACSChunk {
 public:
  TDBContainerTag() = default;
  ~TDBContainerTag() override;

  ChunkRef GetChunk(const Nox::PString& name) const override;
  ChunkRef GetChunk(const Nox::PString& name) override;
  uint32_t GetChildCount() const override { return count_; }
  Nox::PString GetChildName(uint32_t index) const override;
  void Sort() override;
  void SwapChildren(const ACSChunk* a, const ACSChunk* b) override;
  void AddChild(const Nox::PString& name, ChunkRef chunk) override;
  void RemoveChild(const ACSChunk* chunk) override;
  ChunkRef CreateChunk(ChunkKind kind, const Raw& data) override;
  ChunkKind GetKind() const override { return ChunkKind::kContainer; }
  void RemoveNamed(const Nox::PString& name) override;
  void SetChild(const Nox::PString& name, ChunkRef chunk) override;

  // The child at a number below the count.
  const ChunkRef& GetChildAt(uint32_t index) const { return children_[PlaceOf(index)].chunk; }
  bool Holds(const ACSChunk* chunk) const { return LocateChunk(chunk) != kNone; }
  // What CreateChunk gives, for any soup.
  static ChunkRef Create(ChunkKind kind, const Raw& data);

 private:
  struct Child {
    Nox::PString name;
    ChunkRef chunk;  // empty: a hole where a child was taken out
  };
  // A place in the list, and how many children stand in front of it.
  struct alignas(8) Cursor {
    uint32_t index = 0;
    uint32_t place = 0;
  };

  // Where names stand in the list of children.
  struct Index {
    explicit Index(size_t expected) : firsts(expected) {}

    PlaceTable firsts;                                // the first child of each name
    std::unordered_map<uint32_t, uint32_t> nextTwin;  // from a child to the next one of its name
    std::unordered_map<uint32_t, uint32_t> lastTwin;  // from the first child of a name to the last one
  };

  static constexpr size_t kFirstCapacity = 8;
  static constexpr size_t kIndexFrom = 24;
  static constexpr size_t kNone = static_cast<size_t>(-1);

  size_t Locate(const Nox::PString& name) const;
  size_t LocateChunk(const ACSChunk* chunk) const;
  size_t PlaceOf(uint32_t index) const;
  void TakeOut(size_t place);
  void Forget(size_t place);
  void CloseHoles();
  void BuildIndex();
  void AddToIndex(size_t place);

  std::vector<Child> children_;
  uint32_t count_ = 0;  // children, not counting holes
  // Only in a big container, and only there holes are left: they are closed many at once, so that taking out
  // a child costs the same however many there are.
  std::unique_ptr<Index> index_;
  mutable std::atomic<Cursor> cursor_;  // where the last look-up by number ended
};

}  // namespace morvex

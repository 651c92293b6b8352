#include "tagdata/binary_soup.h"

#include <memory>
#include <utility>

#include "tagdata/binary_changes.h"
#include "tagdata/code_page.h"
#include "tagdata/data_chunk.h"
#include "tagdata/soup_index.h"

namespace morvex {
namespace {

constexpr size_t kIndexFrom = 64;

// A view of a file that became an addition to the same file. It doesn't hold the file, which would hold
// itself for ever.
class OwnSoup final : public ACSChunk {
 public:
  explicit OwnSoup(ByteSpan soup) : data(soup) {}
  ChunkKind GetKind() const override { return ChunkKind::kContainer; }

  const ByteSpan data;
};

const uint8_t* PlaceOf(const ACSChunk* chunk) {
  if (const auto* soup = dynamic_cast<const TDBBinarySoup*>(chunk)) return soup->Place();
  if (const auto* leaf = dynamic_cast<const TDBDataChunk*>(chunk)) return leaf->Place();
  return nullptr;
}

// The addition that is this chunk, or that was made of this view.
ChunkRef FindAddition(const SoupChanges& changes, const ACSChunk* chunk) {
  const auto* view = dynamic_cast<const TDBBinarySoup*>(chunk);
  if (view == nullptr)
    return changes.added->Holds(chunk) ? ChunkRef(const_cast<ACSChunk*>(chunk)) : ChunkRef();
  for (uint32_t i = 0; i < changes.added->GetChildCount(); ++i) {
    ChunkRef child = changes.added->GetChildAt(i);
    const auto* own = dynamic_cast<const OwnSoup*>(child.Get());
    if (child.Get() == chunk || (own != nullptr && own->data.data() == view->Place())) return child;
  }
  return ChunkRef();
}

bool IsRemoved(const SoupChanges* changes, const ChunkView& chunk) {
  return changes != nullptr && changes->removed.contains(chunk.data.data());
}

}  // namespace

TDBBinarySoup::TDBBinarySoup(Nox::Ref<TDBBinaryFile> file, ByteSpan data)
    : file_(std::move(file)), data_(data) {}

TDBBinarySoup::~TDBBinarySoup() {
  delete index_.load();
}

SoupChanges* TDBBinarySoup::Changes() const {
  BinaryChanges* changes = file_->Changes();
  return changes == nullptr ? nullptr : changes->Find(data_.data());
}

uint32_t TDBBinarySoup::BodyCount() const {
  uint32_t count = bodyCount_.load(std::memory_order_relaxed);
  if (count != kUncounted) return count;
  count = 0;
  for (ChunkWalker walker(data_); walker.Next();)
    ++count;
  bodyCount_.store(count, std::memory_order_relaxed);
  return count;
}

uint32_t TDBBinarySoup::GetChildCount() const {
  const SoupChanges* changes = Changes();
  if (changes == nullptr) return BodyCount();
  return BodyCount() - static_cast<uint32_t>(changes->removed.size()) + changes->added->GetChildCount();
}

Nox::PString TDBBinarySoup::GetChildName(uint32_t index) const {
  const SoupChanges* changes = Changes();
  const uint32_t removals = changes == nullptr ? 0 : changes->removals;
  Cursor at = cursor_.load(std::memory_order_relaxed);
  if (index < at.index || cursorRemovals_.load(std::memory_order_acquire) != removals) at = Cursor();
  for (ChunkWalker walker(data_, at.offset); walker.Next();) {
    if (IsRemoved(changes, walker.Chunk())) continue;
    if (at.index++ < index) continue;
    cursor_.store({index, static_cast<uint32_t>(walker.Offset())}, std::memory_order_relaxed);
    cursorRemovals_.store(removals, std::memory_order_release);
    return Nox::PString(walker.Chunk().Name());
  }
  return changes == nullptr ? Nox::PString() : changes->added->GetChildName(index - at.index);
}

const SoupIndex& TDBBinarySoup::Index() const {
  if (const SoupIndex* index = index_.load(std::memory_order_acquire)) return *index;
  auto made = std::make_unique<SoupIndex>(data_);
  SoupIndex* present = nullptr;
  if (index_.compare_exchange_strong(present, made.get(), std::memory_order_acq_rel))
    present = made.release();
  return *present;
}

std::optional<ChunkWalker> TDBBinarySoup::FindIndexed(std::string_view name) const {
  const SoupIndex& index = Index();
  const SoupChanges* changes = Changes();
  for (uint32_t i = index.First(name); i != PlaceTable::kNone; i = index.Next(i)) {
    ChunkWalker walker(data_, index.Offset(i));
    walker.Next();
    if (!IsRemoved(changes, walker.Chunk())) return walker;
  }
  return std::nullopt;
}

std::optional<ChunkWalker> TDBBinarySoup::FindNamed(std::string_view name) const {
  if (searchedFar_.load(std::memory_order_relaxed)) return FindIndexed(name);
  const SoupChanges* changes = Changes();
  size_t passed = 0;
  for (ChunkWalker walker(data_); walker.Next(); ++passed) {
    if (passed == kIndexFrom) searchedFar_.store(true, std::memory_order_relaxed);
    if (walker.Chunk().NameIs(name) && !IsRemoved(changes, walker.Chunk())) return walker;
  }
  return std::nullopt;
}

std::optional<ChunkWalker> TDBBinarySoup::FindPlace(const uint8_t* place) const {
  const SoupChanges* changes = Changes();
  for (ChunkWalker walker(data_); walker.Next();) {
    if (walker.Chunk().data.data() == place && !IsRemoved(changes, walker.Chunk())) return walker;
  }
  return std::nullopt;
}

ChunkRef TDBBinarySoup::ViewOf(const ChunkView& chunk) const {
  if (chunk.IsContainer()) return ChunkRef(new TDBBinarySoup(file_, chunk.data));
  if (chunk.type != ChunkType::kString || file_->Version() != kChumpAnsiVersion || chunk.data.empty())
    return ChunkRef(new TDBDataChunk(file_->BodyBlock(), chunk));
  return ChunkRef(new TDBDataChunk(chunk, TextRaw(AnsiAsUtf8(chunk.Text()))));
}

ChunkRef TDBBinarySoup::GetChunk(const Nox::PString& name) const {
  if (const auto found = FindNamed(name)) return ViewOf(found->Chunk());
  const SoupChanges* changes = Changes();
  if (changes == nullptr) return NullChunk();
  ChunkRef added = changes->added->GetChunk(name);
  const auto* own = dynamic_cast<const OwnSoup*>(added.Get());
  return own == nullptr ? added : ChunkRef(new TDBBinarySoup(file_, own->data));
}

ChunkRef TDBBinarySoup::GetChunk(const Nox::PString& name) {
  return std::as_const(*this).GetChunk(name);
}

void TDBBinarySoup::AddChild(const Nox::PString& name, ChunkRef chunk) {
  if (!chunk) return;
  SoupChanges& changes = file_->MakeChanges().Of(data_.data());
  // What nobody else holds can't be an addition yet.
  if (!chunk->IsUnique() && FindAddition(changes, chunk.Get())) return;
  const auto* view = dynamic_cast<const TDBBinarySoup*>(chunk.Get());
  if (view != nullptr && view->file_ == file_) chunk = ChunkRef(new OwnSoup(view->data_));
  changes.added->AddChild(name, std::move(chunk));
}

void TDBBinarySoup::RemoveFromBody(const ChunkWalker& at) {
  SoupChanges& changes = file_->MakeChanges().Of(data_.data());
  changes.removed.insert(at.Chunk().data.data());
  // The remembered number stays true if this view knew of all removals before.
  Cursor cursor = cursor_.load(std::memory_order_relaxed);
  if (cursorRemovals_.load(std::memory_order_relaxed) == changes.removals++) {
    if (at.Offset() < cursor.offset) --cursor.index;
    cursor_.store(cursor, std::memory_order_relaxed);
    cursorRemovals_.store(changes.removals, std::memory_order_relaxed);
  }
}

void TDBBinarySoup::RemoveChild(const ACSChunk* chunk) {
  if (chunk == nullptr || IsNullChunk(chunk)) return;
  SoupChanges* changes = Changes();
  if (changes != nullptr) {
    if (const ChunkRef added = FindAddition(*changes, chunk)) return changes->added->RemoveChild(added.Get());
  }
  const uint8_t* place = PlaceOf(chunk);
  if (place == nullptr) return;
  if (const auto found = FindPlace(place)) RemoveFromBody(*found);
}

void TDBBinarySoup::RemoveNamed(const Nox::PString& name) {
  if (const auto found = FindNamed(name)) return RemoveFromBody(*found);
  if (SoupChanges* changes = Changes()) changes->added->RemoveNamed(name);
}

ChunkRef TDBBinarySoup::CreateChunk(ChunkKind kind, const Raw& data) {
  return TDBContainerTag::Create(kind, data);
}

}  // namespace morvex

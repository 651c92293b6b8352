#include "tagdata/container_tag.h"

#include <algorithm>
#include <utility>

#include "tagdata/data_tag.h"

namespace morvex {
namespace {

// Equal names are one node, so the address of the text stands for the name, and nobody can choose names
// that fall together.
uint32_t HashOf(Nox::PString name) {
  const auto address = reinterpret_cast<uintptr_t>(name.c_str());
  return static_cast<uint32_t>((uint64_t{address} * 0x9E3779B97F4A7C15u) >> 32);
}

// Chunks waiting to be released on this thread, while a soup is being destroyed. Soups may be of any depth,
// so a container in a container isn't destroyed inside the other's destructor.
thread_local std::vector<ChunkRef>* waiting = nullptr;

}  // namespace

TDBContainerTag::~TDBContainerTag() {
  std::vector<ChunkRef> own;
  const bool outermost = waiting == nullptr;
  if (outermost) waiting = &own;
  for (Child& child : children_) {
    if (child.chunk && child.chunk->GetKind() == ChunkKind::kContainer)
      waiting->push_back(std::move(child.chunk));
  }
  if (!outermost) return;
  while (!own.empty()) {
    const ChunkRef last = std::move(own.back());
    own.pop_back();
  }
  waiting = nullptr;
}

size_t TDBContainerTag::Locate(const Nox::PString& name) const {
  if (index_ != nullptr) {
    const uint32_t place =
        index_->firsts.Find(HashOf(name), [&](uint32_t at) { return children_[at].name == name; });
    return place == PlaceTable::kNone ? kNone : place;
  }
  for (size_t i = 0; i < children_.size(); ++i) {
    if (children_[i].name == name) return i;
  }
  return kNone;
}

ChunkRef TDBContainerTag::GetChunk(const Nox::PString& name) const {
  const size_t place = Locate(name);
  return place == kNone ? NullChunk() : children_[place].chunk;
}

ChunkRef TDBContainerTag::GetChunk(const Nox::PString& name) {
  return std::as_const(*this).GetChunk(name);
}

size_t TDBContainerTag::LocateChunk(const ACSChunk* chunk) const {
  if (chunk == nullptr) return kNone;
  for (size_t i = 0; i < children_.size(); ++i) {
    if (children_[i].chunk.Get() == chunk) return i;
  }
  return kNone;
}

// Walks from where the last call ended, since numbers are asked for in a row.
size_t TDBContainerTag::PlaceOf(uint32_t index) const {
  if (children_.size() == count_) return index;
  Cursor at = cursor_.load(std::memory_order_relaxed);
  if (index < at.index / 2) at = Cursor();
  while (at.index > index) {
    if (children_[--at.place].chunk) --at.index;
  }
  while (at.index < index || !children_[at.place].chunk) {
    if (children_[at.place++].chunk) ++at.index;
  }
  cursor_.store(at, std::memory_order_relaxed);
  return at.place;
}

Nox::PString TDBContainerTag::GetChildName(uint32_t index) const {
  return index < count_ ? children_[PlaceOf(index)].name : Nox::PString();
}

void TDBContainerTag::Sort() {
  CloseHoles();
  std::stable_sort(children_.begin(), children_.end(),
                   [](const Child& a, const Child& b) { return a.name < b.name; });
  if (index_ != nullptr) BuildIndex();
}

void TDBContainerTag::SwapChildren(const ACSChunk* a, const ACSChunk* b) {
  const size_t first = LocateChunk(a);
  const size_t second = LocateChunk(b);
  if (first != kNone && second != kNone) std::swap(children_[first].chunk, children_[second].chunk);
}

void TDBContainerTag::AddChild(const Nox::PString& name, ChunkRef chunk) {
  if (!chunk) return;
  if (children_.empty()) children_.reserve(kFirstCapacity);
  children_.push_back({name, std::move(chunk)});
  ++count_;
  if (index_ != nullptr) {
    AddToIndex(children_.size() - 1);
  } else if (children_.size() > kIndexFrom) {
    BuildIndex();
  }
}

void TDBContainerTag::RemoveChild(const ACSChunk* chunk) {
  TakeOut(LocateChunk(chunk));
}

void TDBContainerTag::RemoveNamed(const Nox::PString& name) {
  TakeOut(Locate(name));
}

void TDBContainerTag::SetChild(const Nox::PString& name, ChunkRef chunk) {
  TakeOut(Locate(name));
  AddChild(name, std::move(chunk));
}

void TDBContainerTag::TakeOut(size_t place) {
  if (place == kNone) return;
  const ChunkRef taken = std::move(children_[place].chunk);
  --count_;
  if (index_ == nullptr) {
    children_.erase(children_.begin() + static_cast<ptrdiff_t>(place));
    return;
  }
  if (Locate(children_[place].name) != place) return CloseHoles();  // a later twin
  Forget(place);
  Cursor at = cursor_.load(std::memory_order_relaxed);
  if (place < at.place) --at.index;
  while (!children_.empty() && !children_.back().chunk)
    children_.pop_back();
  if (at.place > children_.size()) at = Cursor();
  cursor_.store(at, std::memory_order_relaxed);
  if (children_.size() > 2 * count_ + kIndexFrom) CloseHoles();
}

// Takes the first place of a name, just emptied, out of the index; the next child of that name becomes the first.
void TDBContainerTag::Forget(size_t place) {
  const auto at = static_cast<uint32_t>(place);
  const uint32_t hash = HashOf(children_[place].name);
  index_->firsts.Remove(hash, at);
  const auto last = index_->lastTwin.extract(at);
  const auto next = index_->nextTwin.extract(at);
  if (next.empty()) return;
  index_->firsts.Add(hash, next.mapped());
  index_->lastTwin.emplace(next.mapped(), last.mapped());
}

void TDBContainerTag::CloseHoles() {
  if (children_.size() == count_) return;
  std::erase_if(children_, [](const Child& child) { return !child.chunk; });
  cursor_.store(Cursor(), std::memory_order_relaxed);
  BuildIndex();
}

void TDBContainerTag::BuildIndex() {
  index_ = std::make_unique<Index>(children_.size());
  for (size_t i = 0; i < children_.size(); ++i)
    AddToIndex(i);
}

void TDBContainerTag::AddToIndex(size_t place) {
  const Nox::PString name = children_[place].name;
  const auto at = static_cast<uint32_t>(place);
  const size_t found = Locate(name);
  if (found == kNone) return index_->firsts.Add(HashOf(name), at);
  const auto first = static_cast<uint32_t>(found);
  uint32_t& last = index_->lastTwin.try_emplace(first, first).first->second;
  index_->nextTwin[last] = at;
  last = at;
}

ChunkRef TDBContainerTag::Create(ChunkKind kind, const Raw& data) {
  if (kind == ChunkKind::kContainer) return ChunkRef(new TDBContainerTag);
  return TDBDataTag::MakeShared(kind, data);
}

ChunkRef TDBContainerTag::CreateChunk(ChunkKind kind, const Raw& data) {
  return Create(kind, data);
}

}  // namespace morvex

#include "engine/pstring.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <mutex>
#include <new>

#include "engine/text.h"

namespace Nox {
namespace {

using Node = PString::Node;
using Slot = std::atomic<const Node*>;

// An open-addressed table. Readers walk it without a lock: slots go from null to a node once and never change
// again, and a table that was outgrown is kept, because a reader may still be in it.
struct Table {
  explicit Table(std::size_t size, const Table* old)
      : mask(size - 1), slots(std::make_unique<Slot[]>(size)), outgrown(old) {}

  // The slot of a text: the one that holds it, or the empty one where it belongs.
  Slot& Place(std::uint32_t hash, std::string_view text) const {
    std::size_t at = hash & mask;
    for (;; at = (at + 1) & mask) {
      const Node* node = slots[at].load(std::memory_order_acquire);
      if (node == nullptr) return slots[at];
      if (node->hash == hash && std::string_view(node->Text(), node->length) == text) return slots[at];
    }
  }

  const std::size_t mask;
  const std::unique_ptr<Slot[]> slots;
  const Table* const outgrown;
};

// One of several tables, each with a lock of its own for those that add to it.
class Shard {
 public:
  const Node* Find(std::uint32_t hash, std::string_view text) const {
    const Table* table = table_.load(std::memory_order_acquire);
    return table == nullptr ? nullptr : table->Place(hash, text).load(std::memory_order_acquire);
  }

  const Node* Add(std::uint32_t hash, std::string_view text) {
    const std::lock_guard lock(mutex_);
    if (const Node* node = Find(hash, text)) return node;  // another thread came first
    Table* table = table_.load(std::memory_order_relaxed);
    if (table == nullptr || count_ * 2 > table->mask) table = Grow(table);
    const Node* node = Make(hash, text);
    table->Place(hash, text).store(node, std::memory_order_release);
    ++count_;
    return node;
  }

 private:
  Table* Grow(const Table* old) {
    auto* grown = new Table(old == nullptr ? 64 : (old->mask + 1) * 2, old);
    for (std::size_t i = 0; old != nullptr && i <= old->mask; ++i) {
      const Node* node = old->slots[i].load(std::memory_order_relaxed);
      if (node == nullptr) continue;
      grown->Place(node->hash, {node->Text(), node->length}).store(node, std::memory_order_relaxed);
    }
    table_.store(grown, std::memory_order_release);
    return grown;
  }

  const Node* Make(std::uint32_t hash, std::string_view text) {
    constexpr std::size_t kBlock = 8192;
    const std::size_t size = (sizeof(Node) + text.size() + 1 + 7) & ~std::size_t{7};
    if (size > left_) {
      left_ = std::max(size, kBlock);
      free_ = static_cast<char*>(::operator new(left_));
    }
    char* const place = free_;
    free_ += size;
    left_ -= size;
    const Node* node = new (place) Node{hash, static_cast<std::uint32_t>(text.size()), nullptr};
    std::memcpy(place + sizeof(Node), text.data(), text.size());
    place[sizeof(Node) + text.size()] = '\0';
    return node;
  }

  std::mutex mutex_;
  std::atomic<Table*> table_{nullptr};
  std::size_t count_ = 0;
  char* free_ = nullptr;
  std::size_t left_ = 0;
};

// Ready before any constructor of a file-scope constant runs, and never destroyed.
constinit std::array<Shard, 64> shards;

}  // namespace

const Node* PString::Intern(std::string_view text) {
  const std::size_t wide = std::hash<std::string_view>()(text);
  const auto hash = static_cast<std::uint32_t>(wide ^ (wide >> 32));
  Shard& shard = shards[hash >> 26];
  const Node* node = shard.Find(hash, text);
  return node != nullptr ? node : shard.Add(hash, text);
}

PString PString::ToLower() const {
  if (node_ == nullptr) return *this;
  const Node* lower = node_->lower.load(std::memory_order_acquire);
  if (lower == nullptr) {
    lower = Intern(Nox::ToLower(View()));
    node_->lower.store(lower, std::memory_order_release);
  }
  return PString(lower);
}

bool PString::EqualsIgnoreCase(std::string_view other) const {
  return Nox::EqualsIgnoreCase(View(), other);
}

int PString::CompareIgnoreCase(std::string_view other) const {
  return Nox::CompareIgnoreCase(View(), other);
}

}  // namespace Nox

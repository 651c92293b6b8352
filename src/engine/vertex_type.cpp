#include "engine/vertex_type.h"

#include <algorithm>
#include <map>
#include <mutex>

namespace Nox {
namespace {

struct NameTable {
  std::mutex mutex;
  std::map<std::uint32_t, PString> names;
};

NameTable& Names() {
  static NameTable table;
  return table;
}

}  // namespace

VertexType& VertexType::AddItem(std::uint32_t block, StreamId id, std::uint32_t bytes) {
  if (block >= strides_.size()) strides_.resize(block + 1);
  items_.push_back({id, block, strides_[block], bytes});
  strides_[block] += bytes;
  return *this;
}

const VertexType::Item* VertexType::Find(StreamId id) const {
  const auto found =
      std::find_if(items_.begin(), items_.end(), [id](const Item& item) { return item.id == id; });
  return found == items_.end() ? nullptr : &*found;
}

void VertexType::RegisterName(std::uint32_t number, PString name) {
  NameTable& table = Names();
  const std::lock_guard lock(table.mutex);
  table.names[number] = name;
}

PString VertexType::RegisteredName(std::uint32_t number) {
  NameTable& table = Names();
  const std::lock_guard lock(table.mutex);
  const auto found = table.names.find(number);
  return found == table.names.end() ? PString() : found->second;
}

}  // namespace Nox

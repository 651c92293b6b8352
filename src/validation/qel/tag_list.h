#pragma once

#include <memory>
#include <unordered_map>
#include <vector>

#include "validation/qel/tag.h"

namespace QELLib {

// The tags of a container in order. Owns them. A long list is searched through an index.
class TagList {
 public:
  void Add(std::unique_ptr<Tag> tag) {
    if (tags_.size() >= kIndexFrom) Index();
    tags_.push_back(std::move(tag));
  }

  // The first of that name, null if there is none.
  Tag* Find(Nox::PString name) const {
    if (indexed_ != 0) {
      const auto found = byName_.find(name);
      if (found != byName_.end()) return found->second;
    }
    for (size_t i = indexed_; i < tags_.size(); ++i) {
      if (tags_[i]->name == name) return tags_[i].get();
    }
    return nullptr;
  }

  void Remove(Nox::PString name) {
    for (size_t i = 0; i < tags_.size(); ++i) {
      if (tags_[i]->name != name) continue;
      tags_.erase(tags_.begin() + static_cast<ptrdiff_t>(i));
      indexed_ = 0;
      byName_.clear();
      return;
    }
  }

  size_t Size() const { return tags_.size(); }
  auto begin() const { return tags_.begin(); }
  auto end() const { return tags_.end(); }

 private:
  static constexpr size_t kIndexFrom = 32;

  void Index() {
    for (; indexed_ < tags_.size(); ++indexed_)
      byName_.emplace(tags_[indexed_]->name, tags_[indexed_].get());
  }

  std::vector<std::unique_ptr<Tag>> tags_;
  std::unordered_map<Nox::PString, Tag*> byName_;
  size_t indexed_ = 0;  // so many tags from the front stand in `byName_`
};

}  // namespace QELLib

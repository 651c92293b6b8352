#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "tagdata/kuid.h"
#include "tagdata/tag_container.h"

namespace morvex {

// Notes about assets: a container for each author's number, in it one for each KUID. They lie in the index file
// as a chunk file, which is only opened up when a note is to go.
class AssetNotes {
 public:
  // An image of a chunk file, validated, which must stay where it is until Clear.
  void Adopt(std::span<const uint8_t> image);
  void Clear();

  // True if there was a note.
  bool Forget(const KUID& kuid);
  const TagContainer& Container();

  // The chunk file to be stored.
  std::string Image() const;
  std::span<const uint8_t> Adopted() const { return adopted_; }
  // What was adopted can be stored as it is.
  bool IsUnchanged() const { return !changed_ && !adopted_.empty(); }

 private:
  void Open();

  std::span<const uint8_t> adopted_;
  bool opened_ = false;
  bool changed_ = false;
  TagContainer container_;
};

}  // namespace morvex

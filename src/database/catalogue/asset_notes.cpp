#include "database/catalogue/asset_notes.h"

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/database.h"
#include "engine/format.h"
#include "tagdata/chump_file.h"
#include "tagdata/raw.h"

namespace morvex {

void AssetNotes::Adopt(std::span<const uint8_t> image) {
  Clear();
  adopted_ = image;
}

void AssetNotes::Clear() {
  *this = AssetNotes();
}

bool AssetNotes::Forget(const KUID& kuid) {
  Open();
  const Nox::PString author(Nox::FormatText("%d", kuid.userId));
  TagContainer notes = container_.GetContainer(author);
  const Nox::PString key = kuid.ToTagString();
  const uint32_t count = notes.GetCount();
  notes.Remove(key);
  if (notes.GetCount() == count) return false;
  if (notes.GetCount() == 0) container_.Remove(author);
  changed_ = true;
  return true;
}

const TagContainer& AssetNotes::Container() {
  Open();
  return container_;
}

// Changes need a tree of its own: views of a file don't take changes of their children.
void AssetNotes::Open() {
  if (opened_) return;
  opened_ = true;
  const TagContainer stored = ReadChumpImage(ACSRawDataCore::CopyBytes(adopted_.data(), adopted_.size()));
  if (!stored.IsEmpty()) container_.CopyFrom(stored);
}

std::string AssetNotes::Image() const {
  if (IsUnchanged()) return {reinterpret_cast<const char*>(adopted_.data()), adopted_.size()};
  return ChumpImage(container_);
}

void ZEBForgetAssetNotes(const KUID& kuid) {
  ZEBAssetCache::Instance().notes.Forget(kuid);
  ZEBMarkChanged(kContentChanged);
}

}  // namespace morvex

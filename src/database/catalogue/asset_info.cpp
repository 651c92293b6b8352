#include "database/catalogue/asset_info.h"

#include <utility>

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/index_format.h"
#include "database/catalogue/record_codec.h"
#include "engine/byte_reader.h"
#include "validation/categories/keyword_index.h"

namespace morvex {
namespace {

static_assert(kAssetFixedSize == kFixedSize);

// The presence bit of each text in front of the fixed part.
constexpr std::array<uint8_t, kTextsBeforeFixed> kPresenceOf = [] {
  std::array<uint8_t, kTextsBeforeFixed> bits{};
  bits[static_cast<size_t>(AssetText::kEditPath)] = ZEBAssetInfo::kHasEdit;
  bits[static_cast<size_t>(AssetText::kLocalPath)] = ZEBAssetInfo::kHasLocal;
  bits[static_cast<size_t>(AssetText::kPackPath)] = ZEBAssetInfo::kHasPack;
  return bits;
}();

std::string_view DisplayNameOf(const AssetTexts& texts) {
  const std::string_view local = texts[static_cast<size_t>(AssetText::kLocalName)];
  return local.empty() ? texts[static_cast<size_t>(AssetText::kUsername)] : local;
}

}  // namespace

ZEBAssetInfo::ZEBAssetInfo(ZEBAssetInfo&& other) noexcept {
  *this = std::move(other);
}

ZEBAssetInfo& ZEBAssetInfo::operator=(ZEBAssetInfo&& other) noexcept {
  kuid_ = other.kuid_;
  ordinal_ = other.ordinal_;
  bytes_ = std::exchange(other.bytes_, nullptr);
  own_ = std::move(other.own_);
  size_ = std::exchange(other.size_, 0);
  numbersAt_ = other.numbersAt_;
  folderSize_ = other.folderSize_;
  stateFlags_ = other.StateFlags();
  statusFlags_ = other.StatusFlags();
  edited_ = other.edited_.load();
  obsoleted_ = other.obsoleted_.load();
  presence_ = std::exchange(other.presence_, uint8_t{0});
  rating_ = other.rating_;
  permitListing_ = other.permitListing_;
  kept_ = other.kept_;
  removed_ = other.removed_;
  viewPlace_ = other.viewPlace_;
  return *this;
}

std::string_view ZEBAssetInfo::Text(AssetText which) const {
  return bytes_ == nullptr ? std::string_view() : TextIn(bytes_, numbersAt_, static_cast<size_t>(which));
}

AssetTexts ZEBAssetInfo::Texts() const {
  return bytes_ == nullptr ? AssetTexts() : TextsIn(bytes_, numbersAt_);
}

void ZEBAssetInfo::SetText(AssetText which, std::string_view text) {
  AssetTexts texts = Texts();
  if (texts[static_cast<size_t>(which)] == text) return;
  texts[static_cast<size_t>(which)] = text;
  SetTexts(texts);
}

void ZEBAssetInfo::SetTexts(const AssetTexts& texts) {
  SetTextsAndNumbers(texts, Numbers());
}

void ZEBAssetInfo::SetTextsAndNumbers(const AssetTexts& texts, const AssetNumbers& numbers) {
  if (kept_ && DisplayNameOf(texts) != DisplayName()) ZEBAssetCache::Instance().NoteRename(*this);
  const bool wasInstalled = IsInstalled();
  Encode(texts, numbers);
  if (kept_ && IsInstalled() != wasInstalled) ZEBAssetCache::Instance().ForgetDependants(kuid_);
}

std::string_view ZEBAssetInfo::DisplayName() const {
  const std::string_view local = Text(AssetText::kLocalName);
  return local.empty() ? Username() : local;
}

std::string ZEBAssetInfo::SearchWords() const {
  return RebuildKeywordIndex({Text(AssetText::kKeywords), DisplayName(), CategoryClass()});
}

AssetNumbers ZEBAssetInfo::Numbers() const {
  return bytes_ == nullptr ? AssetNumbers() : DecodeFixed(bytes_ + numbersAt_).numbers;
}

void ZEBAssetInfo::SetNumbers(const AssetNumbers& numbers) {
  Encode(Texts(), numbers);
}

void ZEBAssetInfo::SetPermitListing(bool value) {
  permitListing_ = value;
  edited_ = true;
}
void ZEBAssetInfo::SetFolderSize(uint32_t bytes) {
  folderSize_ = bytes;
  edited_ = true;
}
void ZEBAssetInfo::SetRating(int8_t rating) {
  rating_ = rating;
  edited_ = true;
}

bool ZEBAssetInfo::Adopt(Nox::ByteReader& in) {
  const size_t begin = in.Position();
  const auto kuid = in.Bytes(KUID::kBinarySize);
  uint8_t presence = 0;
  for (size_t i = 0; i < kTextsBeforeFixed; ++i) {
    const uint32_t count = in.U32();
    const auto text = in.Bytes(count);
    if (count > 0 && count <= kMaxIndexString && !text.empty() && text[0] != 0) presence |= kPresenceOf[i];
  }
  const size_t fixedAt = in.Position() - begin;
  const auto fixed = in.Bytes(kFixedSize);
  for (size_t i = kTextsBeforeFixed; i < kAssetTextCount; ++i)
    in.Skip(in.U32());
  if (in.Failed()) return false;

  kuid_ = KuidAt(kuid.data());
  bytes_ = kuid.data();
  size_ = static_cast<uint32_t>(in.Position() - begin);
  numbersAt_ = static_cast<uint32_t>(fixedAt);
  presence_ = presence;
  const FixedPart part = DecodeFixed(fixed.data());
  stateFlags_ = part.stateFlags;
  statusFlags_ = part.statusFlags;
  permitListing_ = part.permitListing;
  folderSize_ = part.folderSize;
  rating_ = part.rating;
  edited_ = !part.plainFlags;
  return !kuid_.IsNull();
}

bool ZEBAssetInfo::EncodeTo(Encoded& out) const {
  if (removed_) return false;
  out.bytes = {bytes_, size_};
  out.fixedAt = numbersAt_;
  out.fixedIsNew = edited_;
  if (!out.fixedIsNew) return true;
  FixedPart part;
  part.numbers = Numbers();
  part.stateFlags = StateFlags();
  part.statusFlags = StatusFlags();
  part.permitListing = permitListing_;
  part.folderSize = folderSize_;
  part.rating = rating_;
  EncodeFixed(part, out.fixed.data());
  return true;
}

// Gives the record a block of its own. The texts may be views of the old one, which goes last.
void ZEBAssetInfo::Encode(const AssetTexts& texts, const AssetNumbers& numbers) {
  size_t size = KUID::kBinarySize + kFixedSize;
  for (const std::string_view text : texts)
    size += IndexStringSize(text);

  auto block = std::make_unique<uint8_t[]>(size);
  uint8_t* at = PutIndexKuid(block.get(), kuid_);
  for (size_t i = 0; i < kTextsBeforeFixed; ++i)
    at = PutIndexString(at, texts[i]);
  numbersAt_ = static_cast<uint32_t>(at - block.get());
  FixedPart part;
  part.numbers = numbers;
  EncodeFixed(part, at);
  at += kFixedSize;
  for (size_t i = kTextsBeforeFixed; i < kAssetTextCount; ++i)
    at = PutIndexString(at, texts[i]);

  NotePresence(texts);
  edited_ = true;
  size_ = static_cast<uint32_t>(size);
  bytes_ = block.get();
  own_ = std::move(block);
}

void ZEBAssetInfo::NotePresence(const AssetTexts& texts) {
  presence_ = 0;
  for (size_t i = 0; i < kTextsBeforeFixed; ++i) {
    if (!texts[i].empty()) presence_ |= kPresenceOf[i];
  }
}

}  // namespace morvex

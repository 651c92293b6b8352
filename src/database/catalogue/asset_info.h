#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "tagdata/kuid.h"

namespace Nox {
class ByteReader;
}

namespace morvex {

class TagContainer;

// The texts of a record, in the order of the index file. kPackName is the name of the pack that holds
// kPackPath; kEditPath and kLocalPath are relative to the root; an empty path means there is no such copy.
enum class AssetText : uint8_t {
  kCategoryClass,
  kUsername,
  kRegionList,
  kEraList,
  kKeywords,
  kEditPath,
  kPackPath,
  kPackName,
  kLocalPath,
  kDescription,
  kLocalName,
};
inline constexpr size_t kAssetTextCount = 11;
// Bytes of the part of an encoded record that has a fixed size.
inline constexpr size_t kAssetFixedSize = 50;

// Bits of `stateFlags`.
enum class AssetState : uint8_t {
  kPinned = 0x01,
  kEnabled = 0x02,
  kCloned = 0x04,
  kReskin = 0x08,
  kArchived = 0x10,
  kArchivedKnown = 0x20,
  kOnStation = 0x40,
  kDlsItem = 0x80,
};

// Bits of `statusFlags`.
enum class AssetFlag : uint8_t {
  kBuiltIn = 0x01,
  kMissingDeps = 0x02,
  kMissingDepsKnown = 0x04,
  kHasErrors = 0x08,
  kFaultyDeps = 0x10,
  kFaultyDepsKnown = 0x20,
  kPermitCommit = 0x40,
  kPermitEdit = 0x80,
};

// The numbers of a record that aren't looked at in a walk over all records.
struct AssetNumbers {
  KUID mapKuid;                // for a session, the KUID of its map
  float build = 0;             // 0: not known
  uint64_t installedTime = 0;  // seconds since 1970; 0: not known
  uint64_t modifiedTime = 0;
};

// All texts of a record as views.
using AssetTexts = std::array<std::string_view, kAssetTextCount>;

// What the database knows of one KUID without opening the asset's folder. Owned by ZEBAssetCache, at a fixed
// address until the tables are cleared.
//
// A record is its encoded bytes, as they stand in the index file: those of a loaded record lie in the loaded
// file, those of a new or changed one in a block of its own. The fields that walks test are kept beside them.
//
// Guarded by the database lock: reading under a read hold, changing under a write hold. The flag bytes are
// atomic, since the remembered answers among them are also filled in under read holds.
class ZEBAssetInfo {
 public:
  static constexpr uint32_t kSizeUnknown = 0xFFFFFFFF;
  static constexpr uint32_t kSizeNotYetKnown = 0xFFFFFFFE;

  // How the sorted view has the record: not at all, in its sorted part, there under a former name, or behind it.
  enum class ViewPlace : uint8_t { kNone, kSorted, kRenamed, kTail };

  // Which copies there are.
  enum Presence : uint8_t { kHasEdit = 1, kHasLocal = 2, kHasPack = 4 };

  ZEBAssetInfo() = default;  // blank, with the null KUID
  explicit ZEBAssetInfo(const KUID& kuid) : kuid_(kuid) {}
  ZEBAssetInfo(ZEBAssetInfo&& other) noexcept;
  ZEBAssetInfo& operator=(ZEBAssetInfo&& other) noexcept;

  const KUID& Kuid() const { return kuid_; }

  // Views are valid until the next change of a text of this record.
  std::string_view Text(AssetText which) const;
  AssetTexts Texts() const;
  void SetText(AssetText which, std::string_view text);
  void SetTexts(const AssetTexts& texts);

  std::string_view CategoryClass() const { return Text(AssetText::kCategoryClass); }
  std::string_view Username() const { return Text(AssetText::kUsername); }
  std::string_view EditPath() const { return Text(AssetText::kEditPath); }
  std::string_view LocalPath() const { return Text(AssetText::kLocalPath); }
  std::string_view PackPath() const { return Text(AssetText::kPackPath); }
  std::string_view PackName() const { return Text(AssetText::kPackName); }
  // The local name if there is one, else the name from the configuration.
  std::string_view DisplayName() const;
  // The words that a keyword search looks through, separated by ';'. Computed from the other fields.
  std::string SearchWords() const;

  // Cheaper than looking at the texts.
  bool IsOpen() const { return (presence_ & kHasEdit) != 0; }
  bool HasLocalCopy() const { return (presence_ & kHasLocal) != 0; }
  bool IsInPack() const { return (presence_ & kHasPack) != 0; }
  bool IsCommitted() const { return (presence_ & (kHasLocal | kHasPack)) != 0; }
  bool IsInstalled() const { return (presence_ & (kHasEdit | kHasLocal | kHasPack)) != 0; }

  AssetNumbers Numbers() const;
  void SetNumbers(const AssetNumbers& numbers);
  void SetTextsAndNumbers(const AssetTexts& texts, const AssetNumbers& numbers);

  bool Has(AssetState bit) const { return (StateFlags() & static_cast<uint8_t>(bit)) != 0; }
  bool Has(AssetFlag bit) const { return (StatusFlags() & static_cast<uint8_t>(bit)) != 0; }
  void Set(AssetState bit, bool value) { Store(stateFlags_, static_cast<uint8_t>(bit), value); }
  void Set(AssetFlag bit, bool value) { Store(statusFlags_, static_cast<uint8_t>(bit), value); }
  uint8_t StateFlags() const { return stateFlags_.load(std::memory_order_relaxed); }
  uint8_t StatusFlags() const { return statusFlags_.load(std::memory_order_relaxed); }

  bool PermitListing() const { return permitListing_; }
  void SetPermitListing(bool value);
  uint32_t FolderSize() const { return folderSize_; }  // bytes, or one of the two unknowns
  bool FolderSizeKnown() const { return folderSize_ < kSizeNotYetKnown; }
  void SetFolderSize(uint32_t bytes);
  int8_t Rating() const { return rating_; }  // 0 to 5, -1: none
  void SetRating(int8_t rating);

  // Becomes the record that begins at the reader's place. Its bytes stay where they are and must outlive it. False
  // if they aren't a record.
  bool Adopt(Nox::ByteReader& in);
  // The bytes for the index file are `bytes` with the fixed part at `fixedAt` replaced by `fixed`, if that is new.
  struct Encoded {
    std::span<const uint8_t> bytes;
    size_t fixedAt = 0;
    bool fixedIsNew = false;
    std::array<uint8_t, kAssetFixedSize> fixed;
  };
  // False for a record that was taken out of the tables.
  bool EncodeTo(Encoded& out) const;

  // Takes over what a configuration says; the record's paths, flags and known size and build stay. With
  // `readKuid` the KUID too. False, and no change, for an empty configuration or a missing KUID.
  bool Fill(const TagContainer& config, bool readKuid);

 private:
  friend class ZEBAssetCache;
  friend class IndexReader;
  friend class SortedView;

  void Encode(const AssetTexts& texts, const AssetNumbers& numbers);
  void NotePresence(const AssetTexts& texts);
  void Store(std::atomic<uint8_t>& flags, uint8_t bit, bool value) {
    if (value) {
      flags.fetch_or(bit, std::memory_order_relaxed);
    } else {
      flags.fetch_and(static_cast<uint8_t>(~bit), std::memory_order_relaxed);
    }
    edited_.store(true, std::memory_order_relaxed);
  }

  KUID kuid_;
  uint32_t ordinal_ = 0;            // place in the record store
  const uint8_t* bytes_ = nullptr;  // encoded record; null for a blank one
  std::unique_ptr<uint8_t[]> own_;  // the block of `bytes_`, if it isn't the loaded file
  uint32_t size_ = 0;               // of `bytes_`
  uint32_t numbersAt_ = 0;          // where the fixed part begins in `bytes_`
  uint32_t folderSize_ = kSizeUnknown;
  std::atomic<uint8_t> stateFlags_{0x22};
  std::atomic<uint8_t> statusFlags_{0xC0};
  std::atomic<bool> edited_{true};  // the fixed part of `bytes_` is out of date
  std::atomic<bool> obsoleted_{false};
  uint8_t presence_ = 0;
  int8_t rating_ = -1;
  bool permitListing_ = true;
  bool kept_ = false;  // in the tables of ZEBAssetCache, which hears of changes
  bool removed_ = false;
  ViewPlace viewPlace_ = ViewPlace::kNone;
};

}  // namespace morvex

#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace Nox {
class PString;
}

namespace morvex {

class TStream;

// The identity of an asset: its author, a number that the author chose, and a version. A plain value of
// three words. Whatever can't be read or isn't valid becomes the null KUID; nothing here reports an error.
//
// Both binary forms hold a packed word: the version in bits 25 to 31, the low 25 bits of the user id below.
// A version-less KUID packs into its bare user id, so that records older than versions read the same.
struct KUID {
  static constexpr uint32_t kMaxVersion = 127;
  static constexpr int32_t kMaxUserId = 33554431;
  static constexpr int32_t kMinUserId = -33554432;
  static constexpr int32_t kTemporaryAuthor = -2;  // the local author as long as nobody knows who that is
  static constexpr size_t kBinarySize = 8;

  using Bytes = std::array<uint8_t, kBinarySize>;

  int32_t userId = -1;
  int32_t contentId = -1;
  uint32_t version = kMaxVersion;

  // The null KUID.
  constexpr KUID() = default;

  // The null KUID if `user` lies outside kMinUserId to kMaxUserId. The version is taken as it is.
  constexpr KUID(int32_t user, int32_t content, uint32_t kuidVersion) {
    if (user < kMinUserId || user > kMaxUserId) return;
    userId = user;
    contentId = content;
    version = kuidVersion;
  }

  // Reads any of the text forms: "<kuid:1:2>", "<kuid2:1:2:3>" and, unless `strict`, also the bare forms
  // "1:2", "<1:2>" and "2" and bracketed forms with loose ends. Keywords match in any case.
  KUID(std::string_view text, bool strict);
  // The same; an absent text is the null KUID.
  KUID(const char* text, bool strict);

  // The version-less KUID of an author's number.
  static constexpr KUID Make(int32_t user, int32_t content) {
    return KUID(user, content, VersionlessVersion(user));
  }

  // Held beside the null KUID; a dependency query looks up neither.
  static constexpr KUID SecondReserved() { return KUID(-1, -2, kMaxVersion); }

  friend constexpr bool operator==(const KUID&, const KUID&) = default;

  constexpr bool IsNull() const { return *this == KUID(); }
  constexpr bool IsVersionless() const { return version == VersionlessVersion(userId); }
  constexpr bool IsTemporaryAuthor() const { return userId == kTemporaryAuthor; }
  // The temporary author or the author of this installation.
  bool IsLocalAuthor() const;

  // The hash of the asset catalogue.
  constexpr uint32_t Hash() const {
    return (static_cast<uint32_t>(contentId) << 5) ^ version ^ static_cast<uint32_t>(userId);
  }

  void Pack(uint32_t& word, int32_t& content) const;
  void Unpack(uint32_t word, int32_t content);

  // Chunk data: packed word, then content id, both little-endian.
  Bytes ToChunkData() const;
  static KUID FromChunkData(const Bytes& bytes);

  // Stream form: content id, then packed word. Reading past the end of the stream gives the null KUID.
  void WriteTo(TStream& stream) const;
  void ReadFrom(TStream& stream);

  Nox::PString ToTagString() const;               // "<kuid:1:2>", "<kuid2:1:2:3>", "<NULL>"
  std::string TagText() const;                    // the same, not interned
  std::string ToFileName() const;                 // "kuid 1 2", "kuid2 1 2 3", "NULLKUID"
  std::string ToDelimited(char separator) const;  // "1:2", "1:2:3", "NULLKUID"
  std::string ToHtml() const;                     // ToTagString with its brackets escaped

 private:
  static constexpr uint32_t VersionlessVersion(int32_t user) { return user < 0 ? kMaxVersion : 0; }
};

// The author of this installation, from the base KUID; kTemporaryAuthor until that is known.
extern std::atomic<int32_t> currentAuthorId;

}  // namespace morvex

// For the standard hash tables. Mixes all bits, so that ids chosen to collide in Hash() don't collide here.
template <>
struct std::hash<morvex::KUID> {
  size_t operator()(const morvex::KUID& kuid) const noexcept {
    uint64_t mixed = (static_cast<uint64_t>(static_cast<uint32_t>(kuid.userId)) << 32) |
                     static_cast<uint32_t>(kuid.contentId);
    mixed = (mixed ^ (mixed >> 32) ^ kuid.version) * 0x9E3779B97F4A7C15u;
    mixed = (mixed ^ (mixed >> 29)) * 0xBF58476D1CE4E5B9u;
    return static_cast<size_t>(mixed ^ (mixed >> 32));
  }
};

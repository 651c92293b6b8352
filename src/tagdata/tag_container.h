#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "engine/pstring.h"
#include "tagdata/acs_chunk.h"
#include "tagdata/kuid.h"
#include "tagdata/raw.h"

namespace morvex {

// The forms of a soup on disk.
enum class SoupFormat { kNone, kText, kBinary };

// By extension: "txt" is text; "chump", "cdp" and "cdp2" are binary. The path decides where the extension is
// empty. What a file holds is never looked at.
SoupFormat SoupFormatOf(std::string_view path, std::string_view extension);

// The handle through which soups are read and written: one counted reference to a container, or nothing.
// A copy of a handle is the same soup. Reading an empty handle is allowed and finds nothing.
class TagContainer {
 public:
  TagContainer() = default;
  explicit TagContainer(ChunkRef chunk) : chunk_(std::move(chunk)) {}

  // Reading. A tag that is missing or holds nothing counts as absent. Data of another kind is converted
  // through its text, so that the string "42" reads as a number; what can't be converted, or has the wrong
  // size, gives the default. (A string that is no KUID reads as the null KUID and not as the default.)
  Nox::PString GetString(const Nox::PString& name) const;
  // The same, not interned: for long or countless texts.
  std::string GetText(const Nox::PString& name) const;
  int32_t GetInt(const Nox::PString& name, int32_t otherwise = 0) const;
  bool GetBool(const Nox::PString& name, bool otherwise = false) const;
  float GetFloat(const Nox::PString& name, float otherwise = 0) const;
  // False, and `out` empty, if there is no number.
  bool GetFloatArray(const Nox::PString& name, std::vector<float>& out) const;
  KUID GetKUID(const Nox::PString& name, const KUID& otherwise = KUID()) const;
  // The bytes of a tag of any kind, as they are.
  Raw GetRaw(const Nox::PString& name) const;
  ChunkKind GetKind(const Nox::PString& name) const;
  // False for a tag without a value.
  bool HasTag(const Nox::PString& name) const;
  // A handle on a nested soup, empty if the tag is none.
  TagContainer GetContainer(const Nox::PString& name) const;
  TagContainer GetContainerAt(uint32_t index) const;

  uint32_t GetCount() const;
  // Empty past the end.
  Nox::PString GetName(uint32_t index) const;
  bool IsValid() const;
  bool IsEmpty() const { return !IsValid(); }

  // Writing. An empty handle gets a new container first. A tag of that name is taken out, and the new one
  // stands at the end.
  void SetString(const Nox::PString& name, std::string_view value);
  void SetInt(const Nox::PString& name, int32_t value);
  void SetBool(const Nox::PString& name, bool value);
  void SetFloat(const Nox::PString& name, float value);
  // An empty array only takes the tag out.
  void SetFloatArray(const Nox::PString& name, const std::vector<float>& values);
  void SetKUID(const Nox::PString& name, const KUID& value);
  // Shares the bytes.
  void SetRaw(const Nox::PString& name, const Raw& data);
  void SetNull(const Nox::PString& name);
  // Shares the soup: a change through `container` shows here. An empty handle gets a new container first.
  void SetContainer(const Nox::PString& name, TagContainer& container);
  void SetContainer(const Nox::PString& name, TagContainer&& container);

  void Remove(const Nox::PString& name);
  void RemoveChunk(const ACSChunk* chunk);
  // Lets go of the soup.
  void Clear() { chunk_ = ChunkRef(); }
  // The chunk; an empty handle gets a new container first.
  const ChunkRef& GetRoot();
  // The chunk as it is, null for an empty handle. The handle keeps it.
  const ACSChunk* Chunk() const { return chunk_.Get(); }
  // Gets a tree of its own with the other's tags; the bytes of the leaves are shared.
  void CopyFrom(const TagContainer& other);

  // Load returns false, and leaves the handle alone, if the file can't be opened or has no known extension.
  // A file that opens always reads: a damaged binary file gives an empty handle, a text its readable tags.
  [[nodiscard]] bool Load(const Nox::PString& base, std::string_view path, std::string_view extension = {});
  // Writes beside the file, flushes and renames, so that what stands under the final name is whole. False if
  // the extension is unknown or the file can't be written; an old file then stays as it was.
  [[nodiscard]] bool Save(const Nox::PString& base, std::string_view path,
                          std::string_view extension = {}) const;

  // Writes the text form and a line end to standard output.
  void Print() const;
  // Logs each tag's name and text.
  void DebugPrint() const;

 private:
  // The tag, or null if it counts as absent.
  ChunkRef Find(const Nox::PString& name) const;
  void Set(const Nox::PString& name, ChunkRef chunk);

  ChunkRef chunk_;
};

}  // namespace morvex

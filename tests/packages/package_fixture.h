#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "engine/file.h"
#include "frontend/messages/results_log.h"
#include "packages/package_tags.h"
#include "tagdata/tag_container.h"
#include "tests/scratch_folder.h"
#include "tests/test_files.h"

namespace morvex {

// A scratch folder with `source/` and `target/` for the tests of files, and short forms of what came out.
class PackageTest : public testing::Test {
 protected:
  PackageTest() { MountTexts(texts_.path()); }

  void AddSource(const std::string& name, std::string_view text = "text") {
    PutFile(Source() + "/" + name, text);
  }
  std::string Source() const { return scratch_ / "source"; }
  std::string Target() const { return scratch_ / "target"; }

  // All entries below a folder, sorted, folders with a slash: "art/ art/b.im a.txt".
  static std::string Tree(const std::string& folder) {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
      names.insert(std::filesystem::relative(entry.path(), folder).string() +
                   (entry.is_directory() ? "/" : ""));
    return Join(names);
  }

  // A soup in one line, leaves with their size: "a.txt:5 art{b.im:7}".
  static std::string Show(const TagContainer& soup) {
    std::vector<std::string> tags;
    for (uint32_t i = 0; i < soup.GetCount(); ++i) {
      const Nox::PString name = soup.GetName(i);
      const bool nested = soup.GetKind(name) == ChunkKind::kContainer;
      tags.push_back(name.Text() + (nested ? "{" + Show(soup.GetContainer(name)) + "}"
                                           : ":" + std::to_string(RawSize(soup.GetRaw(name)))));
    }
    return Join(tags);
  }

  // The log's entries as "<severity> <text>", one a line, with the scratch folder left out of the paths.
  std::string Words(const ResultsLog& log) const {
    std::string words;
    log.ForEach([&](const ResultsLog::Entry& entry) {
      std::string text = entry.text;
      for (size_t at; (at = text.find(scratch_.path() + "/")) != std::string::npos;)
        text.erase(at, scratch_.path().size() + 1);
      words += std::to_string(static_cast<int>(entry.severity)) + " " + text + "\n";
    });
    return words;
  }

  static Raw Bytes(std::string_view text) { return ACSRawDataCore::CopyBytes(text.data(), text.size()); }

  ScratchFolder scratch_;

 private:
  ScratchFolder texts_;

  // Short texts for all messages of this room. The first look-up of the process reads them.
  static void MountTexts(const std::string& folder) {
    std::string texts;
    for (const char* key :
         {"file_bad_name", "file_bad_ext", "file_read_err", "folder_err", "folder_read_err"})
      texts += std::string("$zeb_package_") + key + " \"" + key + " %s\"\n";
    PutFile(folder + "/interfacetext.txt",
            texts + "$zeb_package_unknown_compression \"unknown_compression %s %s\"");
    Nox::File::Subst(Nox::PString("data"), folder, true);
  }

  template <typename Names>
  static std::string Join(const Names& names) {
    std::string joined;
    for (const std::string& name : names)
      joined += (joined.empty() ? "" : " ") + name;
    return joined;
  }
};

}  // namespace morvex

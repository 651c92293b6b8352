#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "packages/target_folder.h"
#include "tagdata/raw.h"
#include "tagdata/tag_container.h"

namespace morvex {

// One thing to be done to write a `files` soup out.
struct ExtractionStep {
  enum class Kind {
    kWrite,    // a file; all of these are different files, so that they may be written in any order
    kRewrite,  // a file that differs from an earlier one by case alone, so that it takes that one's place
    kBlocked,  // nothing can be written under this name
    kUnknown,  // a child that is neither a folder nor a file
  };

  Kind kind;
  std::string path = {};
  Raw raw = {};
};

// Walks a `files` soup, makes its folders in the target and lists the rest as steps, in the order of the soup. What
// the file rules don't allow is passed over. Each name of a folder counts once: a second child of the same name
// reads as the first.
class ExtractionPlan {
 public:
  ExtractionPlan(const TagContainer& files, TargetFolder& target);

  const std::vector<ExtractionStep>& Steps() const { return steps_; }

 private:
  struct Folder {
    TagContainer soup;
    std::string path;
    uint32_t next = 0;
    std::unordered_set<Nox::PString> seen = {};
  };
  enum class Use { kFolder, kFile };

  void Visit(Folder& folder, Nox::PString name);
  void AddFolder(TagContainer soup, const std::string& path);
  void AddFile(Raw raw, std::string path);

  TargetFolder& target_;
  std::vector<Folder> open_;                      // the way down to where the walk stands
  std::unordered_map<std::string, Use> claimed_;  // by lowered path
  std::vector<ExtractionStep> steps_;
};

}  // namespace morvex

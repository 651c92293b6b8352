#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "engine/location.h"

namespace Nox {
struct DirEntry;
}

namespace morvex {

// Keeps a walk through a folder inside that folder and finite, whatever links lie in it. The walk tells it of each
// folder on the way down; it asks the disk nothing as long as there is no link on the way.
class LinkGuard {
 public:
  enum class Verdict {
    kEntered,  // the walk may go into it, and calls Leave behind it
    kOutside,  // a link out of the folder that is walked
    kEndless,  // the walk is in this folder already, or has seen too much behind links
  };

  // Links inside an asset can make few folders look like very many. Behind this many entries reached through
  // links no further link to a folder is followed.
  static constexpr size_t kMaxLinkedEntries = 16384;

  explicit LinkGuard(Nox::LocationView root);

  Verdict Enter(const Nox::DirEntry& folder);
  // How many entries the folder entered last has.
  void CountEntries(size_t count);
  void Leave() { way_.pop_back(); }

  // True if a link in the folder entered last leads to something that lies in the folder that is walked.
  bool LeadsInside(const std::string& name);

 private:
  // A folder that the walk is in.
  struct Step {
    std::string name;
    bool behindLink;   // it is a link, or a folder above it is
    std::string real;  // where it truly lies; empty until asked for
  };

  const std::string& RealPathOfLast();
  // Where an entry of the last folder truly lies; empty for a link to nowhere.
  std::string RealPathOf(const std::string& name, bool isLink);
  bool IsInsideRoot(const std::string& real) const;
  bool IsOnWay(const std::string& real) const;

  Nox::Location root_;
  std::vector<Step> way_;  // the root first
  size_t linkedEntries_ = 0;
};

}  // namespace morvex

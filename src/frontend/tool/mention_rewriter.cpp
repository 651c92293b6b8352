#include "frontend/tool/mention_rewriter.h"

#include <algorithm>
#include <vector>

#include "frontend/tool/asset_folder_updater.h"

namespace morvex {

namespace {

constexpr std::size_t kShortestMention = 5;
constexpr std::size_t kWindowSize = 512;  // how far back a mention may reach
constexpr std::size_t kBlockSize = 65536;

}  // namespace

bool MentionRewriter::Run(const std::function<void(std::string_view)>& found) {
  bool changed = false;
  std::vector<char> block(kBlockSize);
  while (const std::size_t count = in_.Read(block.data(), block.size())) {
    for (std::size_t i = 0; i < count; ++i) {
      window_ += block[i];
      const std::string_view end =
          std::string_view(window_).substr(window_.size() - std::min(window_.size(), kWindowSize));
      const std::size_t length = names_.MatchAtEnd(end);
      if (length < kShortestMention) continue;
      found(end.substr(end.size() - length));
      changed = MakeSafe(window_.size() - length) || changed;
    }
    Flush(kWindowSize);
  }
  Flush(0);
  return changed;
}

bool MentionRewriter::MakeSafe(std::size_t start) {
  bool changed = false;
  for (std::size_t i = start; i < window_.size(); ++i) {
    const char old = window_[i];
    const char safe = FixNameChar(old);
    window_[i] = safe >= 'A' && safe <= 'Z' ? static_cast<char>(safe - 'A' + 'a') : safe;
    changed = changed || window_[i] != old;
  }
  return changed;
}

void MentionRewriter::Flush(std::size_t keep) {
  if (window_.size() <= keep) return;
  const std::size_t count = window_.size() - keep;
  complete_ = out_.Write(window_.data(), count) == count && complete_;
  window_.erase(0, count);
}

}  // namespace morvex

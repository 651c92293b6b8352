#include "validation/categories/numbered_tags.h"

#include "tagdata/tag_container.h"

namespace morvex {

void ForEachNumberedTag(const TagContainer& config, std::string_view name,
                        const std::function<void(const std::string&)>& use) {
  for (int number = 0;; ++number) {
    const std::string text = config.GetText(Nox::PString(std::string(name) + std::to_string(number)));
    if (text.empty()) return;
    use(text);
  }
}

}  // namespace morvex

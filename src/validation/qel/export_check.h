#pragma once

#include "validation/qel/tag.h"

namespace QELLib {

// Runs all rules of a tag, whatever the first ones say. True if all of them hold.
inline bool PassesRules(const Tag& tag) {
  bool holds = true;
  for (size_t i = 0; i < tag.rules.size(); ++i)
    holds &= tag.rules[i](tag, tag.ruleArguments[i]);
  return holds;
}

}  // namespace QELLib

#include "validation/qel/tag.h"

#include "validation/qel/data_manager.h"
#include "validation/qel/error_handler.h"

namespace QELLib {

Tag::~Tag() {
  if (ErrorHandler* handler = ErrorHandler::Get()) handler->RemoveTag(this);
  if (DataManager* manager = DataManager::Get()) manager->RemoveTag(*this);
}

void Tag::SetupRules(const morvex::TagContainer& entry) {
  if (entry.IsEmpty()) return;
  for (const BoundTagRule& bound : DataManager::Get()->GetDefinitionCache().Entry(entry).rules) {
    rules.push_back(bound.rule);
    ruleArguments.push_back(bound.parameters);
  }
}

}  // namespace QELLib

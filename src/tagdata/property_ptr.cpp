#include "tagdata/property_ptr.h"

namespace morvex {

void MorvexPropertyPtr::GetValue(std::string& text) const {
  text.clear();
  if (property_ != nullptr) property_->GetValue(text);
}

void MorvexPropertyList::GetValue(Nox::PString name, std::string& text) const {
  text.clear();
  for (const MorvexPropertyPtr& property : properties_) {
    if (!property || property->name != name) continue;
    property->GetValue(text);
    return;
  }
}

void MorvexPropertyList::SetValue(Nox::PString name, const char* text) const {
  for (const MorvexPropertyPtr& property : properties_)
    if (property && property->name == name) property->SetValue(text);
}

void MorvexPropertyList::Notify(Nox::PString name, void* context) const {
  for (const MorvexPropertyPtr& property : properties_)
    if (property && property->name == name) property->Notify(context);
}

}  // namespace morvex

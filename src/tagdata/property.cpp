#include "tagdata/property.h"

namespace morvex {

IdentifiableType::~IdentifiableType() = default;

void MorvexProperty::Release() {}
void MorvexProperty::SetValue(const char*) {}
void MorvexProperty::GetValue(std::string& text) const {
  text.clear();
}
void MorvexProperty::Notify(void*) {}

MorvexProperty* MorvexPropertyRefCounted::AddRef() {
  ++count_;
  return this;
}

void MorvexPropertyRefCounted::Release() {
  if (--count_ == 0) delete this;
}

}  // namespace morvex

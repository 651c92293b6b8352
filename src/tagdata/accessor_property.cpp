#include "tagdata/accessor_property.h"

namespace morvex {

CXCallback::~CXCallback() = default;

int CXCallback::Call(NameAndText& pair) const {
  return target_ ? target_->Call(pair) : -1;
}

void AccessorProperty::SetValue(const char* text) {
  NameAndText pair{name, text == nullptr ? "" : text};
  setter_.Call(pair);
}

void AccessorProperty::GetValue(std::string& text) const {
  NameAndText pair{name, {}};
  getter_.Call(pair);
  text = std::move(pair.text);
}

}  // namespace morvex

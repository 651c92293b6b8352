#pragma once

#include <string>

#include "engine/reference.h"
#include "tagdata/property.h"

namespace morvex {

// What a callback is given and may change.
struct NameAndText {
  Nox::PString name;
  std::string text;
};

// The receiving end of a CXCallback.
class CXCallbackTarget : public Nox::ReferenceCountMP {
 public:
  virtual int Call(NameAndText& pair) = 0;
};

// A small callable: a counted reference to its target, or to none.
class CXCallback {
 public:
  CXCallback() = default;
  explicit CXCallback(Nox::Ref<CXCallbackTarget> target) : target_(std::move(target)) {}
  CXCallback(const CXCallback&) = default;
  CXCallback& operator=(const CXCallback&) = default;
  virtual ~CXCallback();

  // The target's answer; -1 without a target.
  virtual int Call(NameAndText& pair) const;

 private:
  Nox::Ref<CXCallbackTarget> target_;
};

// A value that is reached through calls: the setter gets the name and the text, the getter the name and an
// empty text that it fills in.
class AccessorProperty final : public MorvexPropertyRefCounted {
 public:
  AccessorProperty(Nox::PString propertyName, CXCallback getter, CXCallback setter)
      : MorvexPropertyRefCounted(propertyName), getter_(std::move(getter)), setter_(std::move(setter)) {}

  void SetValue(const char* text) override;
  void GetValue(std::string& text) const override;

 private:
  CXCallback getter_;
  CXCallback setter_;
};

}  // namespace morvex

#pragma once

#include <cstdint>
#include <string>

#include "engine/pstring.h"

namespace morvex {

// The root of what can be told apart by its type at run time.
class IdentifiableType {
 public:
  virtual ~IdentifiableType();
};

// A named value that is read and set as text, whatever its type. Counted by hand or through a
// MorvexPropertyPtr. The counts aren't atomic: a property and its references belong to whoever holds the lock
// of the log they stand in.
class MorvexProperty : public IdentifiableType {
 public:
  explicit MorvexProperty(Nox::PString propertyName) : name(propertyName) {}
  MorvexProperty(const MorvexProperty&) = delete;
  MorvexProperty& operator=(const MorvexProperty&) = delete;

  virtual MorvexProperty* AddRef() = 0;
  virtual void Release();
  // An absent text is the empty one.
  virtual void SetValue(const char* text);
  virtual void GetValue(std::string& text) const;
  // For subclasses that react to a change around them; nothing here does.
  virtual void Notify(void* context);

  const Nox::PString name;
};

// Supplies the count, which starts at 1 for the maker; the object deletes itself at 0.
class MorvexPropertyRefCounted : public MorvexProperty {
 public:
  using MorvexProperty::MorvexProperty;

  MorvexProperty* AddRef() override;
  void Release() override;

 private:
  uint32_t count_ = 1;
};

}  // namespace morvex

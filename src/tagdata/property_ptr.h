#pragma once

#include <string>
#include <utility>
#include <vector>

#include "tagdata/property.h"

namespace morvex {

// A counted reference to a property, or null. Not for several threads at once, not even copies of one.
class MorvexPropertyPtr {
 public:
  MorvexPropertyPtr() = default;
  // Takes a reference of its own.
  explicit MorvexPropertyPtr(MorvexProperty* property)
      : property_(property == nullptr ? nullptr : property->AddRef()) {}
  MorvexPropertyPtr(const MorvexPropertyPtr& other) : MorvexPropertyPtr(other.property_) {}
  MorvexPropertyPtr(MorvexPropertyPtr&& other) noexcept
      : property_(std::exchange(other.property_, nullptr)) {}
  // By value: the new reference is held before the old one goes.
  MorvexPropertyPtr& operator=(MorvexPropertyPtr other) noexcept {
    std::swap(property_, other.property_);
    return *this;
  }
  ~MorvexPropertyPtr() {
    if (property_ != nullptr) property_->Release();
  }

  MorvexProperty* Get() const { return property_; }
  MorvexProperty* operator->() const { return property_; }
  explicit operator bool() const { return property_ != nullptr; }

  // The text of the property; empty for null.
  void GetValue(std::string& text) const;

 private:
  MorvexProperty* property_ = nullptr;
};

// A new property of class T, held by the result alone.
template <typename T, typename... Args>
[[nodiscard]] MorvexPropertyPtr MakeProperty(Args&&... args) {
  MorvexProperty* made = new T(std::forward<Args>(args)...);
  MorvexPropertyPtr held(made);
  made->Release();
  return held;
}

// Properties by name. A name may stand on several of them.
class MorvexPropertyList {
 public:
  void Add(MorvexPropertyPtr property) { properties_.push_back(std::move(property)); }

  // The text of the first of that name; empty if there is none.
  void GetValue(Nox::PString name, std::string& text) const;
  // Sets every one of that name.
  void SetValue(Nox::PString name, const char* text) const;
  void Notify(Nox::PString name, void* context) const;

 private:
  std::vector<MorvexPropertyPtr> properties_;
};

}  // namespace morvex

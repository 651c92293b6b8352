#pragma once

#include <cstdint>

#include "tagdata/property.h"

namespace morvex {

// Properties of variables that live elsewhere and must outlive them. Text that is no number sets 0.

class FloatProperty final : public MorvexPropertyRefCounted {
 public:
  FloatProperty(Nox::PString propertyName, float* value)
      : MorvexPropertyRefCounted(propertyName), value_(value) {}
  void SetValue(const char* text) override;
  void GetValue(std::string& text) const override;

 private:
  float* value_;
};

class PStringProperty final : public MorvexPropertyRefCounted {
 public:
  PStringProperty(Nox::PString propertyName, Nox::PString* value)
      : MorvexPropertyRefCounted(propertyName), value_(value) {}
  void SetValue(const char* text) override;
  void GetValue(std::string& text) const override;

 private:
  Nox::PString* value_;
};

class IntProperty final : public MorvexPropertyRefCounted {
 public:
  IntProperty(Nox::PString propertyName, int32_t* value)
      : MorvexPropertyRefCounted(propertyName), value_(value) {}
  void SetValue(const char* text) override;
  void GetValue(std::string& text) const override;

 private:
  int32_t* value_;
};

// Keeps the low 8 bits of a number.
class Uint8Property final : public MorvexPropertyRefCounted {
 public:
  Uint8Property(Nox::PString propertyName, uint8_t* value)
      : MorvexPropertyRefCounted(propertyName), value_(value) {}
  void SetValue(const char* text) override;
  void GetValue(std::string& text) const override;

 private:
  uint8_t* value_;
};

// "true", "t" and "1" in any case set true, everything else false.
class BoolProperty final : public MorvexPropertyRefCounted {
 public:
  BoolProperty(Nox::PString propertyName, uint8_t* value)
      : MorvexPropertyRefCounted(propertyName), value_(value) {}
  void SetValue(const char* text) override;
  void GetValue(std::string& text) const override;

 private:
  uint8_t* value_;
};

// The bits of a mask in a word, set and cleared together; true if all of them are set.
class FlagProperty final : public MorvexPropertyRefCounted {
 public:
  FlagProperty(Nox::PString propertyName, uint32_t* word, uint32_t mask)
      : MorvexPropertyRefCounted(propertyName), word_(word), mask_(mask) {}
  void SetValue(const char* text) override;
  void GetValue(std::string& text) const override;

 private:
  uint32_t* word_;
  uint32_t mask_;
};

// Four characters in a word, the first in the top byte; shorter texts are filled up with blanks.
class TextIDProperty final : public MorvexPropertyRefCounted {
 public:
  TextIDProperty(Nox::PString propertyName, uint32_t* word)
      : MorvexPropertyRefCounted(propertyName), word_(word) {}
  void SetValue(const char* text) override;
  void GetValue(std::string& text) const override;

 private:
  uint32_t* word_;
};

}  // namespace morvex

#include "tagdata/value_properties.h"

#include <string_view>

#include "engine/format.h"
#include "engine/number_text.h"
#include "engine/text.h"

namespace morvex {
namespace {

std::string_view TextOf(const char* text) {
  return text == nullptr ? std::string_view() : text;
}

bool IsTrue(const char* text) {
  const std::string lowered = Nox::ToLower(TextOf(text));
  return lowered == "true" || lowered == "1" || lowered == "t";
}

std::string_view BoolText(bool value) {
  return value ? "true" : "false";
}

}  // namespace

void FloatProperty::SetValue(const char* text) {
  *value_ = Nox::ReadFloat(TextOf(text));
}
void FloatProperty::GetValue(std::string& text) const {
  text = Nox::FormatText("%g", *value_);
}

void PStringProperty::SetValue(const char* text) {
  *value_ = Nox::PString(text);
}
void PStringProperty::GetValue(std::string& text) const {
  text = value_->View();
}

void IntProperty::SetValue(const char* text) {
  *value_ = Nox::ReadInt(TextOf(text));
}
void IntProperty::GetValue(std::string& text) const {
  text = std::to_string(*value_);
}

void Uint8Property::SetValue(const char* text) {
  *value_ = static_cast<uint8_t>(Nox::ReadInt(TextOf(text)) & 0xFF);
}
void Uint8Property::GetValue(std::string& text) const {
  text = std::to_string(*value_);
}

void BoolProperty::SetValue(const char* text) {
  *value_ = IsTrue(text) ? 1 : 0;
}
void BoolProperty::GetValue(std::string& text) const {
  text = BoolText(*value_ != 0);
}

void FlagProperty::SetValue(const char* text) {
  *word_ = IsTrue(text) ? *word_ | mask_ : *word_ & ~mask_;
}
void FlagProperty::GetValue(std::string& text) const {
  text = BoolText((*word_ & mask_) == mask_);
}

void TextIDProperty::SetValue(const char* text) {
  constexpr size_t kCharacters = 4;
  std::string characters(TextOf(text));
  characters.resize(kCharacters, ' ');
  uint32_t word = 0;
  for (const char c : characters)
    word = word << 8 | static_cast<uint8_t>(c);
  *word_ = word;
}
void TextIDProperty::GetValue(std::string& text) const {
  text.clear();
  for (int shift = 24; shift >= 0; shift -= 8)
    text += static_cast<char>(*word_ >> shift & 0xFF);
}

}  // namespace morvex

#include <gtest/gtest.h>

#include <tuple>

#include "tagdata/property_asset_id.h"
#include "tagdata/property_ptr.h"
#include "tagdata/value_properties.h"

namespace morvex {
namespace {

const Nox::PString kName("name");

std::string SetAndGet(const MorvexPropertyPtr& property, const char* text) {
  property->SetValue(text);
  std::string back = "untouched";
  property.GetValue(back);
  return back;
}

TEST(Property, ValuesComeBackAsText) {
  float number = 0;
  int32_t integer = 0;
  uint8_t byte = 0;
  uint8_t flag = 0;
  uint32_t word = 2;
  uint32_t id = 0;
  Nox::PString string;
  const auto floats = MakeProperty<FloatProperty>(kName, &number);
  const auto integers = MakeProperty<IntProperty>(kName, &integer);
  const auto bytes = MakeProperty<Uint8Property>(kName, &byte);
  const auto bools = MakeProperty<BoolProperty>(kName, &flag);
  const auto flags = MakeProperty<FlagProperty>(kName, &word, 6u);
  const auto ids = MakeProperty<TextIDProperty>(kName, &id);
  const auto strings = MakeProperty<PStringProperty>(kName, &string);
  const auto assets = MakeProperty<MorvexPropertyAssetID>(kName, KUID());
  std::string before;
  flags.GetValue(before);
  EXPECT_EQ(before, "false");

  const std::tuple<const MorvexPropertyPtr&, const char*, const char*> cases[] = {
      {floats, "1.50x", "1.5"}, {floats, nullptr, "0"},        {integers, "-12", "-12"},
      {integers, nullptr, "0"}, {bytes, "300", "44"},          {bools, "True", "true"},
      {bools, "yes", "false"},  {bools, "T", "true"},          {flags, "1", "true"},
      {ids, "abcde", "abcd"},   {ids, "ab", "ab  "},           {strings, "x y", "x y"},
      {strings, nullptr, ""},   {assets, "1:2", "<kuid:1:2>"}, {assets, nullptr, "<NULL>"},
  };
  for (const auto& [property, text, back] : cases)
    EXPECT_EQ(SetAndGet(property, text), back);
  EXPECT_EQ(word, 6u);
  EXPECT_EQ(id, 0x61622020u);
}

TEST(Property, ListFindsByName) {
  int32_t first = 1;
  int32_t second = 2;
  MorvexPropertyList list;
  list.Add(MorvexPropertyPtr());
  list.Add(MakeProperty<IntProperty>(Nox::PString("other"), &second));
  list.Add(MakeProperty<IntProperty>(kName, &first));
  list.Add(MakeProperty<IntProperty>(kName, &second));
  std::string text;
  list.GetValue(kName, text);
  EXPECT_EQ(text, "1");
  list.SetValue(kName, "9");
  EXPECT_EQ(first + second, 18);
  list.GetValue(Nox::PString("missing"), text);
  EXPECT_EQ(text, "");
  MorvexPropertyPtr().GetValue(text);
  EXPECT_EQ(text, "");
}

}  // namespace
}  // namespace morvex

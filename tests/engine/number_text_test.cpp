#include "engine/number_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

namespace Nox {
namespace {

TEST(NumberText, IntegersSaturateAndStopBehindTheirDigits) {
  const std::tuple<std::string_view, std::int32_t, std::string_view> rows[] = {
      {"12x", 12, "x"},
      {" \t-7 8", -7, " 8"},
      {"2147483648", 2147483647, ""},
      {"-2147483648", -2147483647 - 1, ""},
      {"-99999999999999999999999", -2147483647 - 1, ""},
      {"99999999999999999999999.5", 2147483647, ".5"},
      {"18446744073709551617", 2147483647, ""},
      {"007", 7, ""}};
  for (const auto& [input, expected, rest] : rows) {
    std::string_view text = input;
    std::int32_t value = 0;
    ASSERT_TRUE(ScanInt(text, value)) << input;
    EXPECT_EQ(value, expected) << input;
    EXPECT_EQ(text, rest);
  }
}

TEST(NumberText, WhatHasNoDigitIsLeftAlone) {
  for (const std::string_view original : {"", "-", "+x", " ", "- 1", "--1", "x1"}) {
    std::string_view text = original;
    std::int32_t whole = 5;
    float real = 5;
    EXPECT_FALSE(ScanInt(text, whole)) << original;
    EXPECT_FALSE(ScanFloat(text, real)) << original;
    EXPECT_EQ(text, original);
    EXPECT_EQ(whole, 5);
    EXPECT_EQ(real, 5);
  }
  for (const std::string_view word : {"nan", "inf", "-infinity", ".", "-.", "e5"})
    EXPECT_EQ(ReadFloat(word), 0);
}

TEST(NumberText, FloatsAreReadAsScanfDoes) {
  struct Row {
    std::string_view text;
    float value;
    std::string_view rest;
  };
  const float inf = INFINITY;
  for (const Row& row : {Row{"1.5", 1.5F, ""},
                         {"+.5e1,", 5.0F, ","},
                         {" -2.", -2.0F, ""},
                         {"1e", 1.0F, "e"},
                         {"1,5", 1.0F, ",5"},
                         {"-1e999", -inf, ""},
                         {"1e-999", 0.0F, ""},
                         {"0e999", 0.0F, ""},
                         {"1e99999999999999999999", inf, ""},
                         {"1e-40", 1e-40F, ""}}) {
    std::string_view text = row.text;
    float value = 9;
    ASSERT_TRUE(ScanFloat(text, value)) << row.text;
    EXPECT_EQ(value, row.value) << row.text;
    EXPECT_EQ(text, row.rest) << row.text;
  }
  // Out of range by the count of digits alone.
  EXPECT_EQ(ReadFloat(std::string(400, '9')), inf);
  EXPECT_EQ(ReadFloat("0." + std::string(400, '0') + "1"), 0);
}

TEST(NumberText, FloatsArePrintedAsPrintfDoes) {
  EXPECT_EQ(FormatFloat(3.14159F, 2), "3.14");
  EXPECT_EQ(FormatFloat(-0.5F, 0), "-0");
  EXPECT_EQ(FormatFloat(1e30F, 1), "1000000015047466219876688855040.0");
  EXPECT_EQ(ShortestFloat(0.1F), "0.1");
  EXPECT_EQ(ReadFloat(ShortestFloat(16777215.0F)), 16777215.0F);
}

}  // namespace
}  // namespace Nox

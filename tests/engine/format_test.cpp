#include "engine/format.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>

namespace Nox {
namespace {

// The same call of printf, whose placeholders these are.
template <typename... Args>
std::string Printed(const char* pattern, Args... args) {
  std::string text(4096, '\0');
  text.resize(static_cast<std::size_t>(std::snprintf(text.data(), text.size(), pattern, args...)));
  return text;
}

TEST(Format, AgreesWithPrintfOnIntegers) {
  for (const char* pattern : {"%d", "%5d|", "%-5d|", "%05d", "%+d", "% d", "%.3d", "%8.3d", "%-08d|", "%.0d",
                              "%i", "%u", "%x", "%X", "%#x", "%#010x", "%hhd %%", "%3000d"}) {
    for (const int value : {0, 1, -1, 42, -2147483647 - 1, 2147483647}) {
      std::string expected = std::string(pattern) == "%3000d"    ? Printed("%1000d", value)
                             : std::string(pattern) == "%hhd %%" ? Printed("%d %%", value)
                                                                 : Printed(pattern, value);
      EXPECT_EQ(FormatText(pattern, value), expected) << pattern << " of " << value;
    }
  }
  EXPECT_EQ(FormatText("%d", std::uint64_t{1} << 40), "1099511627776");
  EXPECT_EQ(FormatText("%d", std::uint32_t{0xFFFFFFFF}), "-1");
  EXPECT_EQ(FormatText("%u", std::int8_t{-1}), "4294967295");
}

TEST(Format, AgreesWithPrintfOnFloatsAndTexts) {
  for (const char* pattern :
       {"%f", "%.2f", "%10.3f|", "%-10.1f|", "%+.1f", "%010.2f", "%g", "%.3g", "%e", "%G", "%.0f"}) {
    for (const double value : {0.0, -0.0, 1.5, -2.25, 1e300, 1e-7, 123456789.0, double{INFINITY}}) {
      EXPECT_EQ(FormatText(pattern, value), Printed(pattern, value)) << pattern << " of " << value;
    }
  }
  for (const char* pattern : {"%s", "%5s|", "%-5s|", "%.2s", "%5.1s|", "%05s|"}) {
    EXPECT_EQ(FormatText(pattern, "abc"), FormatText(pattern, std::string("abc")));
  }
  EXPECT_EQ(FormatText("%5.1s|%-5s|", "abc", "de"), "    a|de   |");
  EXPECT_EQ(FormatText("%c%3c|", 'x', 121), "x  y|");
}

TEST(Format, WhatNoArgumentFitsStays) {
  EXPECT_EQ(FormatText("%s and %s", "one"), "one and %s");
  EXPECT_EQ(FormatText("%d of %s", "one", "two"), "%d of two");
  EXPECT_EQ(FormatText("%s", 5), "%s");
  EXPECT_EQ(FormatText("%f %d", 5, 1.5), "%f %d");
  EXPECT_EQ(FormatText("%n%p%*d%", "one"), "%n%p%*d%");
  EXPECT_EQ(FormatText("100%, %y %s", "one"), "100%, %y one");
  EXPECT_EQ(FormatText("%-08.3"), "%-08.3");
  EXPECT_EQ(FormatText("%99999999999999999999s|", "x").size(), 1001U);
  EXPECT_EQ(FormatText("%.99999999999f", 1.0).size(), 1002U);
  EXPECT_EQ(FormatText("%s", static_cast<const char*>(nullptr)), "");
}

}  // namespace
}  // namespace Nox

#include "tagdata/acs_converter.h"

#include <gtest/gtest.h>

#include <tuple>

#include "tagdata/tag_container.h"

namespace morvex {
namespace {

const Nox::PString kTag("tag");

TEST(AcsConverter, TextReadsAsNumber) {
  constexpr int32_t kNone = -77;
  const std::tuple<const char*, int32_t, float> cases[] = {
      {"12", 12, 12},      {"12.7", 12, 12.7f},  {"-5 \t", -5, -5},
      {"1.5e+3", 1, 1500}, {"2.5e-1", 2, 0.25f}, {"99999999999", 2147483647, 99999999999.f},
      {".", 0, 0},         {"-.", 0, 0},         {"  ", 0, 0},
  };
  for (const auto& [text, asInt, asFloat] : cases) {
    TagContainer soup;
    soup.SetString(kTag, text);
    EXPECT_EQ(soup.GetInt(kTag, kNone), asInt) << text;
    EXPECT_FLOAT_EQ(soup.GetFloat(kTag, kNone), asFloat) << text;
  }
  for (const char* text :
       {"+5", "12a", "", " 5", "-", "1.5e3", "1e+3", "1.5e+", "1.5e", "1.5e+3e+1", "1.2.3", "1,2"}) {
    TagContainer soup;
    soup.SetString(kTag, text);
    EXPECT_EQ(soup.GetInt(kTag, kNone), kNone) << text;
    EXPECT_EQ(soup.GetFloat(kTag, kNone), kNone) << text;
  }
}

TEST(AcsConverter, OtherKindsGoThroughText) {
  TagContainer soup;
  soup.SetFloat(kTag, 1.5f);
  EXPECT_EQ(soup.GetInt(kTag, -1), 1);
  EXPECT_EQ(soup.GetText(kTag), "1.5");
  soup.SetFloat(kTag, 1000000);
  EXPECT_EQ(soup.GetInt(kTag, -1), -1) << "prints as an exponent without a point";
  soup.SetFloatArray(kTag, {1.5f, 2});
  EXPECT_EQ(soup.GetText(kTag), "1.5,2");
  soup.SetInt(kTag, 3);
  EXPECT_FLOAT_EQ(soup.GetFloat(kTag), 3);
  EXPECT_EQ(soup.GetKUID(kTag), KUID::Make(-1, 3));
  soup.SetKUID(kTag, KUID());
  EXPECT_EQ(soup.GetText(kTag), "<NULL>");
  EXPECT_EQ(soup.GetInt(kTag, -1), -1);
  soup.SetString(kTag, "no kuid");
  EXPECT_EQ(soup.GetKUID(kTag, KUID::Make(1, 2)), KUID()) << "not the default";

  Raw output;
  const uint32_t numbers[] = {1, 2, 0xFFFFFFFF};
  Convert(ChunkKind::kInt, ACSRawDataCore::CopyBytes(numbers, 11), ChunkKind::kString, output);
  EXPECT_EQ(RawText(output), "1,2") << "whole groups of four";
  Convert(ChunkKind::kKuid, ACSRawDataCore::CopyBytes(numbers, 7), ChunkKind::kString, output);
  EXPECT_FALSE(output);
  Convert(ChunkKind::kBinary, TextRaw("5"), ChunkKind::kInt, output);
  EXPECT_FALSE(output);
}

}  // namespace
}  // namespace morvex

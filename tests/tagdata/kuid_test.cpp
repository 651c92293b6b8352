#include "tagdata/kuid.h"

#include <gtest/gtest.h>

#include <tuple>

#include "engine/pstring.h"
#include "tagdata/buffer_stream.h"

namespace morvex {
namespace {

TEST(KuidText, ReadsAndWritesBack) {
  const char* const cases[][3] = {
      {"<kuid:100:200>", "<kuid:100:200>", "<kuid:100:200>"},
      {"<KUID:-3:200>", "<kuid:-3:200>", "<kuid:-3:200>"},
      {"<kuid:100:200> extra", "<kuid:100:200>", "<kuid:100:200>"},
      {"<kuid:100:abc>", "<kuid:100:-1>", "<NULL>"},
      {"<kuid:100:-5>", "<kuid:100:-5>", "<NULL>"},
      {"<kuid:5:>", "<kuid:5:-1>", "<kuid:5:-1>"},
      {"<kuid: 1: +2", "<kuid:1:2>", "<NULL>"},
      {"<kuid:33554431:1>", "<kuid:33554431:1>", "<kuid:33554431:1>"},
      {"<kuid:-33554432:1>", "<kuid:-33554432:1>", "<kuid:-33554432:1>"},
      {"<kuid:1:99999999999>", "<kuid:1:2147483647>", "<kuid:1:2147483647>"},
      {"<kuid2:100:200:3>", "<kuid2:100:200:3>", "<kuid2:100:200:3>"},
      {"<KUID2:100:200:0>", "<kuid:100:200>", "<kuid:100:200>"},
      {"<kuid2:100:200>", "<kuid2:100:200:127>", "<kuid2:100:200:127>"},
      {"<kuid2:100:200:3", "<kuid2:100:200:3>", "<NULL>"},
      {"100:200", "<kuid:100:200>", "<NULL>"},
      {"-3:200", "<kuid:-3:200>", "<NULL>"},
      {"<100:200>", "<kuid:100:200>", "<NULL>"},
      {"<100:200", "<kuid:100:200>", "<NULL>"},
      {"1234", "<kuid:-1:1234>", "<NULL>"},
  };
  for (const auto& [text, lenient, strict] : cases) {
    EXPECT_EQ(KUID(text, false).TagText(), lenient) << text;
    EXPECT_EQ(KUID(text, true).TagText(), strict) << text;
  }
  for (const char* text : {"<kuid:-:>", "<kuid:33554432:1>", "<kuid:-33554433:1>",
                           "<kuid:99999999999999999999:1>", "<kuid2:100:200:128>", "<kuid2:100:200:-1>",
                           "<kuid2:-3:200:1>", "<100:200>>", "100:200:3", "", "<", "<null>", "hello"}) {
    EXPECT_TRUE(KUID(text, false).IsNull()) << text;
    EXPECT_TRUE(KUID(text, true).IsNull()) << text;
  }
  EXPECT_TRUE(KUID(static_cast<const char*>(nullptr), false).IsNull());
}

TEST(KuidText, HasFourForms) {
  const std::tuple<KUID, const char*, const char*, const char*, const char*> cases[] = {
      {KUID(), "<NULL>", "NULLKUID", "NULLKUID", "&#60;NULL KUID&#62;"},
      {KUID(-3, 200, 127), "<kuid:-3:200>", "kuid -3 200", "-3:200", "&#60;kuid:-3:200&#62;"},
      {KUID(-3, 2, 1), "<kuid2:-3:2:1>", "kuid2 -3 2 1", "-3:2:1", "&#60;kuid2:-3:2:1&#62;"},
  };
  for (const auto& [kuid, tag, fileName, delimited, html] : cases) {
    EXPECT_EQ(kuid.ToTagString(), tag);
    EXPECT_EQ(kuid.ToFileName(), fileName);
    EXPECT_EQ(kuid.ToDelimited(':'), delimited);
    EXPECT_EQ(kuid.ToHtml(), html);
  }
}

TEST(Kuid, HasTwoBinaryFormsOfDifferentOrder) {
  const KUID kuid(100, 200, 3);
  EXPECT_EQ(kuid.ToChunkData(), (KUID::Bytes{0x64, 0, 0, 0x06, 0xC8, 0, 0, 0}));
  EXPECT_EQ(KUID(-3, 200, 127).ToChunkData(), (KUID::Bytes{0xFD, 0xFF, 0xFF, 0xFF, 0xC8, 0, 0, 0}));

  TBuffer stream;
  kuid.WriteTo(stream);
  KUID(16777216, 1, 0).WriteTo(stream);
  stream.WriteByte(0);
  const uint8_t expected[] = {0xC8, 0, 0, 0, 0x64, 0, 0, 0x06};
  EXPECT_EQ(std::memcmp(stream.Memory().Bytes().data(), expected, sizeof expected), 0);

  stream.SeekTo(0);
  KUID read;
  read.ReadFrom(stream);
  EXPECT_EQ(read, kuid);
  read.ReadFrom(stream);
  EXPECT_EQ(read, KUID(-16777216, 1, 0)) << "the packed user id has one bit less";
  read.ReadFrom(stream);
  EXPECT_TRUE(read.IsNull()) << "cut off";

  for (const KUID& k : {KUID(), KUID(16777215, -1, 127), KUID(-16777216, 1, 5)})
    EXPECT_EQ(KUID::FromChunkData(k.ToChunkData()), k);
}

TEST(Kuid, KnowsItsAuthor) {
  EXPECT_EQ(KUID::Make(-3, 1), KUID(-3, 1, 127));
  EXPECT_EQ(KUID::Make(33554432, 1), KUID());
  EXPECT_TRUE(KUID(-2, 5, 127).IsLocalAuthor());
  EXPECT_FALSE(KUID(77, 5, 0).IsLocalAuthor());
  currentAuthorId = 77;
  EXPECT_TRUE(KUID(77, 5, 0).IsLocalAuthor());
  currentAuthorId = -1;
  EXPECT_FALSE(KUID(-1, 5, 0).IsLocalAuthor());
  currentAuthorId = KUID::kTemporaryAuthor;
}

}  // namespace
}  // namespace morvex

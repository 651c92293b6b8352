// The forms in which texts of any bytes leave the program.

#include <gtest/gtest.h>

#include <sstream>

#include "engine/bitmap.h"
#include "host/asset_entry.h"
#include "host/bar_chart.h"
#include "host/html_text.h"
#include "host/json_writer.h"
#include "host/thumbnail.h"
#include "host/visible_text.h"

namespace morvex::host {
namespace {

TEST(Texts, ShowNoControlCharacterAndNoMalformedByte) {
  const char* const rows[][3] = {
      {"Bahnwärterhaus", "Bahnwärterhaus", "Bahnwärterhaus"},
      {"a\x1B[31mb\n", "a\\x1B[31mb\\n", "a\x1B[31mb\n"},
      {"\xC2\x9B", "\\u{9B}", "\xC2\x9B"},
      {"\xE2\x80\xAEtxt", "\\u{202E}txt", "\xE2\x80\xAEtxt"},
      {"\xFF", "\\xFF", "\xEF\xBF\xBD"},
      {"\xC0\xAF", "\\xC0\\xAF", "\xEF\xBF\xBD\xEF\xBF\xBD"},                       // overlong
      {"\xED\xA0\x80", "\\xED\\xA0\\x80", "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"},  // surrogate
      {"\xE2\x82", "\\xE2\\x82", "\xEF\xBF\xBD"},                                   // cut short
      {"\xF4\x90\x80\x80", "\\xF4\\x90\\x80\\x80", "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"},
      {"\xF0\x9F\x9A\x82", "\xF0\x9F\x9A\x82", "\xF0\x9F\x9A\x82"},
  };
  for (const auto& [text, visible, utf8] : rows) {
    EXPECT_EQ(VisibleText(text), visible);
    EXPECT_EQ(ValidUtf8(text), utf8);
  }
}

TEST(Texts, JsonEscapesAndReplaces) {
  std::ostringstream stream;
  {
    JsonWriter json(stream);
    json.BeginObject().Key("t").Text("\"\\\n\x01\xFF</script>").Key("n").TextOrNull("");
    json.Key("f").Real(2.7F).Key("x").Real(1.0F / 0.0F).Key("i").Number(-1).EndObject();
  }
  EXPECT_EQ(stream.str(),
            "{\"t\":\"\\\"\\\\\\n\\u0001\xEF\xBF\xBD</script>\",\"n\":null,\"f\":2.7,\"x\":null,\"i\":-1}\n");
  std::ostringstream page;
  { JsonWriter(page, JsonWriter::Place::kPage).Text("</script><!--"); }
  EXPECT_EQ(page.str(), "\"\\u003c/script>\\u003c!--\"");
}

TEST(Texts, ChartsHoldNoMarkupOfTheirTexts) {
  const std::string svg = BarChart({{"<b>&\"'", 3, "3", "class=<x>"}, {std::string(60, 'w'), 0, "0", ""}});
  EXPECT_EQ(svg.find("<b>"), std::string::npos);
  EXPECT_NE(svg.find("&lt;b&gt;&amp;&quot;&#39;"), std::string::npos);
  EXPECT_NE(svg.find("data-filter=\"class=&lt;x&gt;\""), std::string::npos);
  EXPECT_NE(svg.find(std::string(18, 'w') + "\xE2\x80\xA6<"), std::string::npos);

  const std::vector<Bar> bars =
      LargestBars({{"a", 1, "", ""}, {"b", 5, "", ""}, {"c", 2000, "", ""}, {"d", 3, "", ""}}, 2, "rest");
  ASSERT_EQ(bars.size(), 3u);
  EXPECT_EQ(bars[0].label + bars[1].label + bars[2].label + bars[2].note, "cbrest4");
}

TEST(Texts, NumbersForPeople) {
  EXPECT_EQ(SizeText(-1) + "|" + SizeText(999) + "|" + SizeText(1000) + "|" + SizeText(999'950) + "|" +
                SizeText(2'500'000'000),
            "unknown|999 B|1.0 KB|1.0 MB|2.5 GB");
  EXPECT_EQ(CountText(0) + "|" + CountText(999) + "|" + CountText(1000) + "|" + CountText(1234567),
            "0|999|1,000|1,234,567");
  const uint8_t bytes[] = {'M', 'a', 'n', 'M'};
  EXPECT_EQ(Base64(bytes), "TWFuTQ==");
}

TEST(Texts, ThumbnailsAreMeans) {
  const Nox::Bitmap image(4, 2, 1, Nox::OwnedBytes::Adopt({0, 100, 10, 10, 100, 200, 30, 30}));
  const Nox::Bitmap small = Shrink(image, 2, 2);
  ASSERT_EQ(small.Width(), 2u);
  ASSERT_EQ(small.Height(), 1u);
  EXPECT_EQ(small.Pixels()[0], 100);
  EXPECT_EQ(small.Pixels()[1], 20);
}

}  // namespace
}  // namespace morvex::host

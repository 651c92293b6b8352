#include "net/station/asset_list.h"

#include <set>
#include <tuple>

#include "net/station/gzip_lines.h"
#include "tests/station/station_fixture.h"

namespace morvex {
namespace {

TEST(AssetListLine, IsFieldsBetweenSingleBlanks) {
  // A line without a KUID is refused.
  const std::tuple<const char*, const char*, const char*, float, const char*> kRows[] = {
      {"<kuid2:1:2:3> scenery 2.9 Water crane", "<kuid2:1:2:3>", "scenery", 2.9F, "Water crane"},
      {"<KUID:-1:2> map 0 ", "<kuid:-1:2>", "map", 0, ""},
      {"<kuid:1:2>  2.4 No kind", "<kuid:1:2>", "", 2.4F, "No kind"},
      {"<kuid:1:2>", "<kuid:1:2>", "", 0, ""},
      {"1:2 x 1 n", "<kuid:1:2>", "x", 1, "n"},
      {"<kuid:1:2> x -3 n", "<kuid:1:2>", "x", 0, "n"},
      {"<kuid:1:2> x 1e99 n", "<kuid:1:2>", "x", 0, "n"},
      {"<kuid:1:2> x many n", "<kuid:1:2>", "x", 0, "n"},
      {"<NULL> x 1 n", "", "", 0, ""},
      {"2 x 1 n", "", "", 0, ""},
      {" <kuid:1:2> x 1 n", "", "", 0, ""},
      {"", "", "", 0, ""},
  };
  for (const auto& [text, kuid, kind, build, name] : kRows) {
    const auto line = ParseAssetListLine(text);
    ASSERT_EQ(line.has_value(), *kuid != 0) << text;
    if (!line) continue;
    EXPECT_EQ(line->kuid.TagText(), kuid);
    EXPECT_EQ(line->kind, kind) << text;
    EXPECT_EQ(line->build, build) << text;
    EXPECT_EQ(line->name, name) << text;
  }
}

TEST(GzipLines, GivesLinesOfAllKindsOfFiles) {
  const ScratchFolder scratch;
  const std::string path = scratch / "list";
  const std::string longLine(40000, 'x');
  const std::string tooLong(GzipLines::kMaxLine + 9, 'y');
  for (const bool gzip : {false, true}) {
    const std::string text = "one\r\n\n" + longLine + "\n" + tooLong + "\nlast";
    PutText(path, gzip ? Gzip(text) : text);
    GzipLines lines(path);
    std::vector<std::string> all;
    for (std::string_view line; lines.Next(line);)
      all.emplace_back(line);
    EXPECT_EQ(all, (std::vector<std::string>{"one", "", longLine, tooLong.substr(9), "last"}));
    EXPECT_EQ(lines.Fault(), "");
    EXPECT_EQ(lines.BytesRead(), text.size());
  }
  std::string_view line;
  GzipLines missing(scratch / "missing");
  EXPECT_FALSE(missing.Next(line));
  EXPECT_FALSE(missing.Fault().empty());
}

class AssetListTest : public StationTest {
 protected:
  AssetListMerge Merge(const std::string& bytes) {
    const ZEBAssetLock lock(true);
    return MergeAssetList(File(bytes, "list.gz"));
  }
};

TEST_F(AssetListTest, FillsWhatRecordsLack) {
  ZEBAssetInfo& named = *Cache().Create(KUID(1, 1, 0));
  named.SetText(AssetText::kUsername, "Mine");
  ZEBAssetInfo& nameless = *Cache().Create(KUID(1, 2, 0));
  nameless.SetTexts(AssetTexts());
  AssetNumbers numbers;
  numbers.build = 1.3F;
  nameless.SetNumbers(numbers);

  const AssetListMerge merge =
      Merge(Gzip("<kuid:1:1> scenery 2.9 Theirs\n\nno line\n<kuid:1:2> map 2.9 Named\n"
                 "<kuid:1:3> TraincaR 2.5 Gr\xFC\xDF\x65\n<kuid:1:4> TR;TV 2.6 \xC3\xBC\n"
                 "<kuid:1:5> unheard-of 2.4 x"));
  EXPECT_EQ(merge.merged, 5U);
  EXPECT_EQ(merge.refused, 1U);
  EXPECT_EQ(merge.fault, "");
  EXPECT_EQ(Shown(KUID(1, 1, 0)), "Mine|?|29|D");
  EXPECT_EQ(Shown(KUID(1, 2, 0)), "Named||13|D");
  EXPECT_EQ(Shown(KUID(1, 3, 0)),
            "Gr\xC3\xBC\xC3\x9F"
            "e|TR;TV|25|D");  // from the system code page
  EXPECT_EQ(Shown(KUID(1, 4, 0)), "\xC3\xBC|TR;TV|26|D");
  EXPECT_EQ(Shown(KUID(1, 5, 0)), "x||24|D");
  EXPECT_FALSE(Cache().Find(KUID(1, 3, 0))->IsInstalled());
}

TEST_F(AssetListTest, CutListsSayWhatIsWholeInThem) {
  std::string text;
  std::set<std::string> names = {"|"};
  for (int i = 0; i < 60; ++i) {
    const std::string name = "asset number " + std::to_string(i * 7919 % 1000);
    text += "<kuid:5:" + std::to_string(i) + "> scenery 2.9 " + name + "\n";
    names.insert(name + "|SY;SCEN|29|D");
  }
  const std::string whole = Gzip(text);
  for (std::size_t size = 1; size < whole.size(); ++size) {
    const AssetListMerge merge = Merge(whole.substr(0, size));
    EXPECT_TRUE(size < 3 || !merge.fault.empty()) << size;
    for (int i = 0; i < 60; ++i) {
      const std::string shown = Shown(KUID(5, i, 0));
      EXPECT_TRUE(shown.empty() || names.contains(shown)) << shown;
    }
    Cache().Clear();
  }
  EXPECT_EQ(Merge(whole).merged, 60U);
  std::string damaged = whole;
  damaged[whole.size() / 2] = static_cast<char>(damaged[whole.size() / 2] ^ 0x55);
  EXPECT_NE(Merge(damaged).fault, "");
}

}  // namespace
}  // namespace morvex

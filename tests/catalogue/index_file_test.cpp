// The index file as bytes: what is read from them, and what is written back.

#include <gtest/gtest.h>

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/index_format.h"
#include "database/catalogue/index_reader.h"
#include "database/catalogue/index_writer.h"
#include "tests/catalogue/index_bytes.h"
#include "tests/catalogue/installation.h"

namespace morvex::test {
namespace {

class IndexFileTest : public ::testing::Test {
 protected:
  ~IndexFileTest() override { cache_.Clear(); }

  bool Read(const std::string& bytes) {
    cache_.Clear();
    place_.Write("index", bytes);
    return ReadIndex(place_.Path("index"), cache_);
  }
  std::string Written() {
    EXPECT_TRUE(WriteIndex(place_.Path("written"), cache_));
    return place_.Read("written");
  }

  Installation place_;
  ZEBAssetCache& cache_ = ZEBAssetCache::Instance();
};

std::string FullIndex() {
  return IndexOf(
      IndexBytes().Header(2).Record(100, 1, "House", "local/house").Record(-3, 7, "Shed", ""),
      {.obsoletes = IndexBytes().U32(0).Kuid(100, 1).Kuid(100, 2).Kuid(100, 1).Kuid(100, 3).NullKuid(),
       .dependencies = IndexBytes().U32(0, 2).Kuid(100, 1).Kuid(5, 6).Kuid(100, 1).Kuid(5, 7, 3),
       .authors = IndexBytes().U32(0, 2).Text("Ann").U32(77, 100).Text("").U32(78, 101),
       .notes =
           IndexBytes().Raw(std::string_view("ACS$\1\0\0\0\0\0\0\0\x0C\0\0\0\x08\0\0\0\2a\0\1\1\0\0\0", 28)),
       .archives = IndexBytes()
                       .U32(0, 1, 1)
                       .U8(1)
                       .U32(9)
                       .Text("/a.crk")
                       .Text("Old things")
                       .U32(0x1234, 2)
                       .Kuid(8, 8)
                       .Kuid(8, 9)
                       .U32(kArchiveEndMark),
       .station = IndexBytes().U32(1).Text("list-1").U64(1000).U32(1).Text("https://example.org/x"),
       .tail = IndexBytes().U32(0, 2).F32(60.5F)});
}

TEST_F(IndexFileTest, ReadsEachFieldAndWritesBackTheSameBytes) {
  const std::string index = FullIndex();
  ASSERT_TRUE(Read(index));
  EXPECT_EQ(Written(), index);
  ASSERT_EQ(cache_.Count(), 2U);
  const ZEBAssetInfo& house = *cache_.Find(KUID(100, 1, 0));
  std::string texts(house.CategoryClass());
  for (const std::string_view text :
       {house.DisplayName(), house.Text(AssetText::kRegionList), house.Text(AssetText::kEraList),
        house.Text(AssetText::kDescription), house.LocalPath()})
    texts += "|" + std::string(text);
  EXPECT_EQ(texts, "SY;SCEN|House|DE|1950|a house|local/house");
  EXPECT_EQ(house.StateFlags(), 0x22);
  EXPECT_EQ(house.StatusFlags(), 0xE4);
  EXPECT_EQ(house.FolderSize(), 4711);
  EXPECT_EQ(house.Rating(), 3);
  EXPECT_EQ(house.Numbers().build, 2.5F);
  EXPECT_EQ(house.Numbers().installedTime, 1000);
  EXPECT_EQ(house.Numbers().modifiedTime, 2000);
  EXPECT_FALSE(cache_.Find(KUID(-3, 7, 127)) == nullptr);
  EXPECT_EQ(cache_.obsoletes.Find(KUID(100, 3, 0)), KUID(100, 1, 0));
  EXPECT_EQ(cache_.dependencies.DependenciesOf(KUID(100, 1, 0)), (std::vector{KUID(5, 6, 0), KUID(5, 7, 3)}));
  EXPECT_EQ(cache_.authors.UserIdToName(100), "Ann");
  EXPECT_EQ(cache_.notes.Container().GetInt(Nox::PString("a")), 1);
  EXPECT_TRUE(cache_.archives.FindBySerial(0x1234)->kuids.Contains(KUID(8, 9, 0)));
  EXPECT_EQ(cache_.station.queuedUrls, std::vector<std::string>{"https://example.org/x"});
  EXPECT_EQ(cache_.station.ticketState, 2U);
  EXPECT_EQ(cache_.station.ticketSeconds, 60.5F);
}

// Written from decoded tables and from changed records, the bytes are those that a reader of the format expects.
TEST_F(IndexFileTest, WritesChangedRecordsAndTables) {
  ASSERT_TRUE(
      Read(IndexOf(IndexBytes().Header(2).Record(1, 1, "A", "local/a").Record(1, 2, "Old", "local/o"))));
  cache_.Find(KUID(1, 2, 0))->SetText(AssetText::kUsername, "New name");
  cache_.Find(KUID(1, 1, 0))->Set(AssetFlag::kPermitEdit, false);
  cache_.Find(KUID(1, 1, 0))->SetRating(5);
  cache_.dependencies.Set(KUID(1, 1, 0), {KUID(1, 2, 0), KUID(1, 1, 0), KUID()});
  cache_.obsoletes.Set(KUID(1, 0, 0), KUID(1, 2, 0));
  const std::string written = Written();

  ASSERT_TRUE(Read(written));
  EXPECT_EQ(cache_.Find(KUID(1, 2, 0))->Username(), "New name");
  EXPECT_EQ(cache_.Find(KUID(1, 2, 0))->LocalPath(), "local/o");
  EXPECT_FALSE(cache_.Find(KUID(1, 1, 0))->Has(AssetFlag::kPermitEdit));
  EXPECT_EQ(cache_.Find(KUID(1, 1, 0))->Rating(), 5);
  EXPECT_EQ(cache_.dependencies.Count(), 1U) << "an asset doesn't depend on itself or on nothing";
  EXPECT_EQ(cache_.obsoletes.Find(KUID(1, 0, 0)), KUID(1, 2, 0));
  EXPECT_EQ(Written(), written);
}

TEST_F(IndexFileTest, RefusesEveryTruncation) {
  const std::string index = FullIndex();
  for (size_t length = 0; length < index.size(); ++length) {
    std::string cut = index.substr(0, length);
    EXPECT_FALSE(Read(cut)) << length << " bytes";
    if (length < 12) continue;
    for (size_t i = 0; i < 4; ++i)
      cut[8 + i] = static_cast<char>(length >> (8 * i));
    EXPECT_FALSE(Read(cut)) << length << " bytes, with their number as size";
  }
}

TEST_F(IndexFileTest, RefusesDamage) {
  const IndexBytes none = IndexBytes().Header(0);
  const std::string_view badNotes("ACS%\1\0\0\0\0\0\0\0\0\0\0\0", 16);
  const std::string_view badChunk("ACS$\1\0\0\0\0\0\0\0\6\0\0\0\x63\0\0\0\0\0", 22);
  const std::pair<const char*, std::string> cases[] = {
      {"magic", IndexOf(IndexBytes().U32(0xCEEBA2DC, 19, 0, 0))},
      {"version", IndexOf(IndexBytes().U32(0xCEEBA2DB, 18, 0, 0))},
      {"bytes behind the tail", IndexOf(none, {.tail = IndexBytes().U32(0, 1).F32(0).U8(0)})},
      {"more records than bytes", IndexOf(IndexBytes().Header(0xFFFFFFFF))},
      {"record with the null KUID", IndexOf(IndexBytes().Header(1).Record(-1, -1, "x", ""))},
      {"one KUID twice", IndexOf(IndexBytes().Header(2).Record(1, 1, "x", "").Record(1, 1, "y", ""))},
      {"an asset that replaces itself",
       IndexOf(none, {.obsoletes = IndexBytes().U32(0).Kuid(1, 1).Kuid(1, 1).NullKuid()})},
      {"null dependency", IndexOf(none, {.dependencies = IndexBytes().U32(0, 1).Kuid(1, 1).NullKuid()})},
      {"author without a profile",
       IndexOf(none, {.authors = IndexBytes().U32(0, 1).Text("x").U32(0xFFFFFFFF, 1)})},
      {"signature of the notes", IndexOf(none, {.notes = IndexBytes().Raw(badNotes)})},
      {"chunk in the notes", IndexOf(none, {.notes = IndexBytes().Raw(badChunk)})},
      {"archive of more assets than bytes",
       IndexOf(none, {.archives = IndexBytes().U32(0, 1, 1).U8(0).U32(9).Text("p").Text("n").U32(1, ~0U)})},
      {"archive without its mark",
       IndexOf(none, {.archives = IndexBytes().U32(0, 1, 1).U8(0).U32(9).Text("p").Text("n").U32(1, 0, 7)})},
  };
  const std::string good = IndexOf(none);
  ASSERT_TRUE(Read(good));
  EXPECT_FALSE(Read(good + '\0')) << "another size than it says";
  for (const auto& [what, bytes] : cases)
    EXPECT_FALSE(Read(bytes)) << what;
}

// A section of a later version is given up, and the tail behind it is still found.
TEST_F(IndexFileTest, PassesOverAnUnknownStationSection) {
  ASSERT_TRUE(Read(
      IndexOf(IndexBytes().Header(1).Record(1, 1, "x", ""),
              {.station = IndexBytes().U32(2).Text("whatever"), .tail = IndexBytes().U32(0, 3).F32(9)})));
  EXPECT_EQ(cache_.station.ticketState, 3U);
}

TEST_F(IndexFileTest, ReadsBothFormsOfAnEmptyStringAndPassesOverHugeOnes) {
  IndexBytes index;
  index.Header(1).Kuid(1, 1);
  index.Text("?").U32(5).Raw("name!").U32(1).U8(0).U32(4).Raw(
      std::string_view("a\0bc", 4));  // no NUL; one NUL; NUL inside
  index.U32(70000).Raw(std::string(70000, 'x'));
  index.Text("").Text("").Text("").Text("local/a").NullKuid().Raw(std::string(17, '\2'));
  index.U32(0).F32(0).U8(255).U64(0).U64(0).Text("").Text("");
  ASSERT_TRUE(Read(IndexOf(index)));
  const auto check = [this] {
    const ZEBAssetInfo& record = *cache_.Find(KUID(1, 1, 0));
    EXPECT_EQ(record.Username(), "name!");
    EXPECT_EQ(record.Text(AssetText::kRegionList), "");
    EXPECT_EQ(record.Text(AssetText::kEraList), "a");
    EXPECT_EQ(record.Text(AssetText::kKeywords), "");
    EXPECT_EQ(record.LocalPath(), "local/a");
    EXPECT_EQ(record.StatusFlags(), 0xFF);
    EXPECT_EQ(record.Rating(), -1);
  };
  check();
  cache_.Find(KUID(1, 1, 0))->SetText(AssetText::kDescription, std::string(65535, 'd'));
  const std::string written = Written();
  ASSERT_TRUE(Read(written));
  check();
  EXPECT_EQ(cache_.Find(KUID(1, 1, 0))->Text(AssetText::kDescription), "") << "too long to be written";
}

TEST_F(IndexFileTest, ResetsATimeInTheFuture) {
  const IndexBytes future = IndexBytes().U32(1).Text("f").U64(~0ULL).U32(0);
  ASSERT_TRUE(Read(IndexOf(IndexBytes().Header(0), {.station = future})));
  EXPECT_EQ(cache_.station.lastUpdateTime, 0U);
}

}  // namespace
}  // namespace morvex::test

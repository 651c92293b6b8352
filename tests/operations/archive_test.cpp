#include "database/operations/archives.h"

#include <gtest/gtest.h>

#include "database/catalogue/archive_file.h"
#include "database/catalogue/asset_lock.h"
#include "database/operations/delete_asset.h"
#include "database/operations/make_package.h"
#include "engine/byte_reader.h"
#include "engine/byte_writer.h"
#include "packages/package_tags.h"
#include "tagdata/buffer_stream.h"
#include "tagdata/chump_file.h"
#include "tagdata/file_stream.h"
#include "tests/operations/operations_fixture.h"

namespace morvex {
namespace {

const KUID kThird(100, 202, 0);

class ArchiveTest : public OperationsTest {
 protected:
  ArchiveTest() { const ZEBAssetLock loaded(true); }

  static KUIDList ListOf(std::initializer_list<KUID> kuids) {
    KUIDList list;
    for (const KUID& kuid : kuids)
      list.Add(kuid);
    return list;
  }
  static std::string Names(const KUIDList& list) {
    std::string names;
    for (const KUID& kuid : list)
      names += kuid.TagText() + " ";
    return names;
  }
  ZEBArchiveList& List() { return ZEBAssetCache::Instance().archives; }
  // An archive of the list that holds these, without a file.
  ZEBArchive& Archive(std::initializer_list<KUID> kuids) {
    ZEBArchive& archive = List().Add();
    for (const KUID& kuid : kuids)
      EXPECT_TRUE(archive.Add(kuid));
    return archive;
  }
  ZEBAssetInfo& RecordOfSize(const KUID& kuid, uint32_t size) {
    ZEBAssetInfo& record = *ZEBAssetCache::Instance().Create(kuid);
    record.SetFolderSize(size);
    return record;
  }
  // The bytes of an archive file with these two assets.
  std::string TwoAssets() {
    MakeCommitted(kAsset);
    MakeCommitted(kOther);
    EXPECT_EQ(ZEBCreateArchive(Path("both.crak"), "both", ListOf({kAsset, kOther}), &log_),
              ArchiveResult::kMade);
    return Read("both.crak");
  }
  static uint32_t U32At(std::string_view bytes, size_t at) { return Nox::ByteReader(bytes.substr(at)).U32(); }
  void PutU32(std::string& bytes, size_t at, uint32_t value) const {
    Nox::ByteWriter(bytes).PatchU32(at, value);
  }
  // Restores what a file of these bytes has of both assets, which are gone; what is left over.
  std::string Restore(const std::string& bytes) {
    ZEBDeleteAsset(kAsset, false);
    ZEBDeleteAsset(kOther, false);
    Write("x.crak", bytes);
    KUIDList wanted = ListOf({kAsset, kOther});
    ZEBRestoreFromArchive(wanted, Path("x.crak"), &log_, nullptr);
    return Names(wanted);
  }
  std::string ListFile(const std::string& bytes) {
    Write("x.crak", bytes);
    KUIDList kuids;
    const bool whole = ZEBReadArchive(Path("x.crak"), kuids, &log_);
    return Names(kuids) + (whole ? "" : "!");
  }
};

TEST_F(ArchiveTest, FileIsAsDrawn) {
  ZEBArchive& archive = Archive({});
  archive.serial = 0x01020304;
  TBuffer empty;
  EXPECT_TRUE(ZEBWriteArchive(archive, empty, &log_));
  const auto written = empty.Memory().Bytes();
  EXPECT_EQ(std::string(written.begin(), written.end()),
            std::string("crak\0\0\0\0\x18\0\0\0\4\3\2\1\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF", 24));

  const std::string bytes = TwoAssets();
  const std::string item = ChumpImage(ZEBMakeAssetPackage(kAsset, nullptr).soup);
  std::string expected("\xC8\0\0\0\x64\0\0\0", 8);  // content number, user number
  Nox::ByteWriter(expected).U32(static_cast<uint32_t>(16 + 12 + item.size()));
  EXPECT_EQ(bytes.substr(16, 12 + item.size()), expected + item);
  EXPECT_EQ(U32At(bytes, 8), bytes.size());
}

TEST_F(ArchiveTest, TakesAssetsUpToItsSize) {
  RecordOfSize(kAsset, 1000);
  ZEBArchive& archive = Archive({kAsset, kThird});  // the second isn't known
  EXPECT_EQ(archive.totalSize, 1000U + 0x100000);
  EXPECT_FALSE(archive.Add(kAsset));
  EXPECT_FALSE(archive.Add(KUID()));
  EXPECT_EQ(archive.Remove(kThird), nullptr);
  EXPECT_FALSE(archive.kuids.Contains(kThird));

  RecordOfSize(KUID(1, 1, 0), 0x7D000000 - 1000);
  RecordOfSize(KUID(1, 2, 0), 1);
  RecordOfSize(KUID(1, 3, 0), 0);
  EXPECT_TRUE(archive.Add(KUID(1, 1, 0)));
  EXPECT_FALSE(archive.Add(KUID(1, 2, 0)));
  EXPECT_TRUE(archive.Add(KUID(1, 3, 0)));
  EXPECT_FALSE(archive.Add(KUID(1, 4, 0)));  // of unknown size
  RecordOfSize(KUID(1, 5, 0), 0x80000000);   // above what counts as known
  EXPECT_EQ(ZEBArchive::SizeOf(KUID(1, 5, 0)), 0x100000U);
}

TEST_F(ArchiveTest, AssetsComeBackAsTheyWere) {
  TwoAssets();
  const Files files = Tree(LocalPath(kAsset));
  EXPECT_TRUE(Record(kAsset)->Has(AssetState::kArchived));
  ZEBDeleteAsset(kAsset, false);
  ZEBDeleteAsset(kOther, false);
  Said();
  Stop();
  Start();
  const std::vector<ArchiveStatus> known = ZEBListArchives();
  ASSERT_EQ(known.size(), 1U);
  EXPECT_EQ(known[0].name + " " + Names(known[0].kuids), "both <kuid:100:200> <kuid:100:201> ");
  EXPECT_TRUE(known[0].atHand);

  KUIDList wanted = ListOf({kThird, kAsset});
  ZEBRestoreFromArchive(wanted, known[0].path, &log_, nullptr);
  EXPECT_EQ(Names(wanted), "<kuid:100:202> ");
  EXPECT_EQ(Said(), "4 installed <kuid:100:200>\n");
  EXPECT_EQ(State(kAsset), "local ");
  EXPECT_EQ(Tree(LocalPath(kAsset)), files);
  EXPECT_NE(State(kOther), "local ");
}

TEST_F(ArchiveTest, WhatCantBeMadeLeavesNothing) {
  MakeCommitted(kAsset);
  EXPECT_EQ(ZEBCreateArchive(Path("a"), "a", ListOf({kAsset, kOther}), &log_), ArchiveResult::kNotPackaged);
  EXPECT_EQ(Said(), "3 unable_to_open <kuid:100:201>\n");
  EXPECT_EQ(ZEBCreateArchive(Path("a"), "a", ListOf({kAsset, kAsset}), &log_), ArchiveResult::kRefused);
  EXPECT_EQ(ZEBCreateArchive(Path("none/a"), "a", ListOf({kAsset}), &log_), ArchiveResult::kNotWritten);
  EXPECT_FALSE(Exists("a"));
  Write("a", "something");
  EXPECT_EQ(ZEBCreateArchive(Path("a"), "a", ListOf({kAsset}), &log_), ArchiveResult::kExists);
  EXPECT_EQ(Read("a"), "something");
  EXPECT_TRUE(ZEBListArchives().empty());
  EXPECT_FALSE(ZEBAssetCache::Instance().IsArchived(*Record(kAsset)));
}

TEST_F(ArchiveTest, CutFilesTellAndChangeNothing) {
  const std::string bytes = TwoAssets();
  for (size_t size = 0; size < bytes.size(); ++size) {
    Write("x.crak", bytes.substr(0, size));
    KUIDList kuids;
    EXPECT_FALSE(ZEBReadArchive(Path("x.crak"), kuids, &log_)) << size;
    EXPECT_EQ(Said(), "3 archive_unreadable\n") << size;
    EXPECT_FALSE(ZEBScanArchive(Path("x.crak"), nullptr)) << size;
  }
  EXPECT_EQ(Names(ZEBListArchives()[0].kuids), "<kuid:100:200> <kuid:100:201> ");
  EXPECT_TRUE(Record(kAsset)->Has(AssetState::kArchivedKnown));

  // Up to the end of the first asset nothing can be restored, behind it the first.
  const size_t second = U32At(bytes, 24);
  for (const size_t size : {size_t{20}, size_t{28}, size_t{40}, second - 1})
    EXPECT_EQ(Restore(bytes.substr(0, size)), "<kuid:100:200> <kuid:100:201> ") << size;
  for (const size_t size : {second, second + 20, bytes.size() - 9})
    EXPECT_EQ(Restore(bytes.substr(0, size)), "<kuid:100:201> ") << size;
  EXPECT_EQ(Restore(bytes.substr(0, bytes.size() - 8)), "");  // only the end is missing
}

TEST_F(ArchiveTest, PlacesThatLieEndTheWalk) {
  const std::string bytes = TwoAssets();
  const uint32_t second = U32At(bytes, 24);
  const auto size = static_cast<uint32_t>(bytes.size());
  for (const uint32_t next : {0U, 16U, 28U, 43U, size, size + 1, 0xFFFFFFFFU}) {
    std::string lying = bytes;
    PutU32(lying, 24, next);
    EXPECT_EQ(ListFile(lying), next < 44 ? "!" : "<kuid:100:200> !") << next;
    EXPECT_EQ(Said(), "3 archive_unreadable\n") << next;
  }
  std::string loop = bytes;
  PutU32(loop, second + 8, 16);  // the second entry leads back to the first
  EXPECT_EQ(ListFile(loop), "<kuid:100:200> !");
  EXPECT_EQ(Said(), "3 archive_unreadable\n");
}

TEST_F(ArchiveTest, ForeignFilesAreTold) {
  std::string bytes = TwoAssets();
  PutU32(bytes, 4, 7);
  EXPECT_EQ(Restore(bytes), "<kuid:100:200> <kuid:100:201> ");
  EXPECT_EQ(Said(), "3 archive_version 7\n");
  PutU32(bytes, 0, 0);
  EXPECT_EQ(Restore(bytes), "<kuid:100:200> <kuid:100:201> ");
  EXPECT_EQ(Said(), "3 archive_unreadable\n");
}

TEST_F(ArchiveTest, AnItemOfAnotherAssetIsntInstalled) {
  std::string bytes = TwoAssets();
  PutU32(bytes, 16, 202);  // the entry says kThird
  Write("x.crak", bytes);
  KUIDList wanted = ListOf({kThird});
  ZEBRestoreFromArchive(wanted, Path("x.crak"), &log_, nullptr);
  EXPECT_EQ(Names(wanted), "<kuid:100:202> ");
  EXPECT_EQ(Said(), "3 archive_unreadable\n");
  EXPECT_EQ(State(kThird), "unknown");
}

TEST_F(ArchiveTest, ScanningMakesRecordsAndReplacesTheEntry) {
  const std::string bytes = TwoAssets();
  ZEBAssetCache& cache = ZEBAssetCache::Instance();
  const uint32_t serial = ZEBListArchives()[0].serial;
  EXPECT_TRUE(ZEBForgetArchive(serial));
  EXPECT_FALSE(ZEBForgetArchive(serial));
  EXPECT_FALSE(cache.IsArchived(*Record(kAsset)));
  ZEBDeleteAsset(kOther, true);
  ASSERT_EQ(Record(kOther), nullptr);

  for (int times = 0; times < 2; ++times) {
    EXPECT_TRUE(ZEBScanArchive(Path("both.crak"), &log_));
    ASSERT_EQ(ZEBListArchives().size(), 1U);
    EXPECT_EQ(ZEBListArchives()[0].serial, serial);
    EXPECT_TRUE(cache.IsArchived(*Record(kAsset)));
    EXPECT_EQ(State(kOther), "known");
    EXPECT_TRUE(Record(kOther)->Has(AssetState::kArchived));
  }
}

TEST_F(ArchiveTest, MatchesOnlyItsOwnWholeFile) {
  const std::string bytes = TwoAssets();
  const ZEBArchive& archive = *List().Archives()[0];
  const auto matches = [&](const std::string& content) {
    Write("x.crak", content);
    TFile file;
    return file.Open(Path("x.crak"), Nox::OpenMode::kRead) && archive.Matches(file);
  };
  EXPECT_TRUE(matches(bytes));
  EXPECT_FALSE(matches(bytes + "x"));
  EXPECT_FALSE(matches(bytes.substr(0, bytes.size() - 1)));
  for (const size_t field : {0, 4, 12}) {
    std::string other = bytes;
    other[field] = static_cast<char>(other[field] ^ 1);
    EXPECT_FALSE(matches(other)) << field;
  }
}

TEST_F(ArchiveTest, SelectionTakesFewArchives) {
  const KUID a(1, 1, 0), b(1, 2, 0), c(1, 3, 0), d(1, 4, 0);
  ZEBArchive& two = Archive({a, b});
  ZEBArchive& three = Archive({a, b, c});
  Archive({a, b, c});
  KUIDList wanted = ListOf({a, b, c, d});
  std::vector<ZEBArchive*> chosen;
  List().Select(wanted, chosen);
  EXPECT_EQ(chosen, std::vector<ZEBArchive*>{&three});  // of equal ones the first
  EXPECT_EQ(Names(wanted), "<kuid:1:4> ");

  wanted = ListOf({a, b, c});
  chosen = {&two};
  List().Select(wanted, chosen);
  EXPECT_EQ(chosen, (std::vector<ZEBArchive*>{&two, &three}));
  EXPECT_TRUE(wanted.IsEmpty());
}

}  // namespace
}  // namespace morvex

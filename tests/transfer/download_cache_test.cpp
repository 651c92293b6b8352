#include "net/transfer/download_cache.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <set>

#include "engine/time.h"
#include "tagdata/tag_container.h"
#include "tests/net/server_process.h"
#include "tests/scratch_folder.h"

namespace morvex {
namespace {

namespace fs = std::filesystem;

class DownloadCacheTest : public testing::Test {
 protected:
  DownloadCacheTest() { fs::create_directory(folder_); }

  // A tag of the index, with a file of five bytes as a rule.
  static std::string Entry(const std::string& url, const std::string& file, std::int64_t age, int state,
                           int size = 5) {
    const std::string date = std::to_string(static_cast<std::int64_t>(Nox::TimeStamp()) - age);
    return url + " {\ncachefilename \"" + file + "\"\ndatedownloaded " + date + "\ndatelastreferenced " +
           date + "\ncachestate " + std::to_string(state) + "\ncachefilesize " + std::to_string(size) +
           "\n}\n";
  }
  void Put(const std::string& name) { PutText(folder_ + "/" + name, "12345"); }
  // The files of the folder but the index, each followed by a blank.
  std::string Files() const {
    std::string names;
    for (const auto& file : std::set<fs::path>(fs::directory_iterator(folder_), {}))
      if (file.filename() != "cachefile.txt") names += file.filename().string() + " ";
    return names;
  }
  // Makes a file of the cache with five bytes and enters it.
  static std::string Add(DownloadCache& cache, const URL& url, bool succeeded,
                         const std::string& extension = "zip") {
    const std::string path = cache.MakeFile(extension).value();
    PutText(path, "12345");
    cache.AddToCache(url, path, succeeded);
    return path;
  }
  static void DeleteDropped(DownloadCache& cache) {
    cache.DeleteDropped([](const std::string&) { return false; });
  }

  const ScratchFolder scratch_;
  const std::string folder_ = scratch_ / "internet";
};

TEST_F(DownloadCacheTest, StartDropsWhatIsOverOrNotAsEntered) {
  constexpr std::int64_t kDay = 86400;
  const struct {
    const char* url;
    std::int64_t age;
    int state;
    int size;
    bool kept;
  } kRows[] = {
      {"http://h/page", kDay - 60, 2, 5, true},
      {"http://h/old-page", kDay + 60, 2, 5, false},
      {"http://h/file", 30 * kDay - 60, 3, 5, true},
      {"http://h/old-file", 30 * kDay + 60, 3, 5, false},
      {"http://h/incomplete", 0, 0, 5, false},
      {"http://h/invalid", 0, 1, 5, false},
      {"http://h/other-state", 0, 4, 5, false},
      {"http://h/other-size", 0, 3, 6, false},
      {"http://h/clock-was-ahead", -100 * kDay, 3, 5, true},
      {"ftp://h/partial", 29 * kDay, 0, 5, true},
      {"ftp://h/partial-of-other-size", 0, 0, 4, false},
      {"ftp://h/old", 31 * kDay, 3, 5, false},
  };
  std::string index = Entry("http://h/missing", "missing", 0, 3);
  int number = 0;
  for (const auto& row : kRows) {
    const std::string file = "f" + std::to_string(++number);
    Put(file);
    index += Entry(row.url, file, row.age, row.state, row.size);
  }
  Put("stray");
  PutText(folder_ + "/cachefile.txt", index);
  DownloadCache cache(folder_);
  number = 0;
  for (const auto& row : kRows) {
    EXPECT_EQ(cache.Find(URL(row.url)).has_value(), row.kept) << row.url;
    EXPECT_EQ(fs::exists(folder_ + "/f" + std::to_string(++number)), row.kept) << row.url;
  }
  EXPECT_FALSE(cache.Find(URL("http://h/missing")));
  EXPECT_FALSE(fs::exists(folder_ + "/stray"));
  EXPECT_FALSE(cache.Find(URL("ftp://h/partial"))->complete);
  EXPECT_TRUE(cache.Find(URL("http://h/file"))->complete);
}

TEST_F(DownloadCacheTest, NamesNeverLeadOutOfTheFolder) {
  fs::create_directory(folder_ + "/sub");
  Put("sub/x");
  PutText(scratch_ / "outside", "12345");
  fs::create_symlink(scratch_ / "outside", folder_ + "/link");
  std::string index;
  int number = 0;
  for (const std::string name :
       {"../outside", "sub/x", "sub\\x", "link", "..", ".", "", "cachefile.txt", "CACHEFILE.TXT"})
    index += Entry("http://h/" + std::to_string(++number), name, 0, 3);
  index += Entry("http://h/" + std::to_string(++number), scratch_ / "outside", 0, 3);
  PutText(folder_ + "/cachefile.txt", index);
  {
    DownloadCache cache(folder_);
    for (; number > 0; --number) {
      const URL url("http://h/" + std::to_string(number));
      EXPECT_FALSE(cache.Find(url)) << number;
      cache.Remove(url);
    }
    for (const char* name : {"../outside", "a/b", "..", "cachefile.txt", "Cachefile.txt", "a\nb"})
      EXPECT_FALSE(cache.PathOf(name)) << name;
    DeleteDropped(cache);
  }
  EXPECT_EQ(GetText(scratch_ / "outside"), "12345");
  EXPECT_EQ(Files(), "sub ");
  EXPECT_TRUE(fs::exists(folder_ + "/sub/x"));
}

TEST_F(DownloadCacheTest, WithoutAnIndexTheFolderIsEmptied) {
  Put("a.zip");
  Put("b.zip");
  DownloadCache cache(folder_);
  EXPECT_EQ(Files(), "");
}

TEST_F(DownloadCacheTest, WritesTheIndexAsDrawn) {
  {
    DownloadCache cache(folder_);
    const std::string page = Add(cache, URL("HTTP://Host/A.htm"), true, "htm");
    const std::string partial = Add(cache, URL("ftp://h/f.htm"), false, "htm");
    const std::string whole = Add(cache, URL("ftp://h/g.htm"), true, "htm");
    TagContainer index;
    ASSERT_TRUE(index.Load(Nox::PString(), folder_ + "/cachefile.txt"));
    ASSERT_EQ(index.GetCount(), 3U);
    const TagContainer entry = index.GetContainer(Nox::PString("http://host/a.htm"));
    EXPECT_EQ(entry.GetText(Nox::PString("cachefilename")), fs::path(page).filename());
    EXPECT_EQ(entry.GetInt(Nox::PString("cachestate")), 2);
    EXPECT_EQ(entry.GetInt(Nox::PString("cachefilesize")), 5);
    const auto now = static_cast<std::int64_t>(Nox::TimeStamp());
    EXPECT_NEAR(static_cast<double>(entry.GetInt(Nox::PString("datedownloaded"))), static_cast<double>(now),
                5);
    EXPECT_EQ(entry.GetInt(Nox::PString("datelastreferenced")), entry.GetInt(Nox::PString("datedownloaded")));
    const auto state = [&](const char* url) {
      return index.GetContainer(Nox::PString(url)).GetInt(Nox::PString("cachestate"));
    };
    EXPECT_EQ(state("ftp://h/f.htm"), 0);
    EXPECT_EQ(state("ftp://h/g.htm"), 3);
  }
  const DownloadCache again(folder_);
  const std::string files = Files();
  EXPECT_EQ(std::count(files.begin(), files.end(), ' '), 3) << files;
}

TEST_F(DownloadCacheTest, TellsCapitalsApart) {
  {
    DownloadCache cache(folder_);
    const std::string small = Add(cache, URL("http://h/a.zip"), true);
    EXPECT_EQ(cache.Find(URL("http://h/a.zip"))->path, small);
    EXPECT_FALSE(cache.Find(URL("http://h/A.zip")));
    Add(cache, URL("http://h/A.zip"), true);
  }
  DownloadCache cache(folder_);
  EXPECT_TRUE(cache.Find(URL("http://h/A.zip")));
  EXPECT_FALSE(cache.Find(URL("http://h/a.zip")));
}

TEST_F(DownloadCacheTest, DroppedFilesGoWhenNobodyUsesThem) {
  DownloadCache cache(folder_);
  const URL url("http://h/a.zip");
  const std::string first = Add(cache, url, true);
  const std::string second = Add(cache, url, true);
  cache.Remove(url, first);  // of another file, so nothing
  EXPECT_TRUE(cache.Find(url));
  cache.DeleteDropped([&](const std::string& path) { return path == first; });
  EXPECT_TRUE(fs::exists(first));
  DeleteDropped(cache);
  EXPECT_FALSE(fs::exists(first));

  PutText(second, "no longer five");
  EXPECT_FALSE(cache.Find(url));
  cache.DropFile(Add(cache, url, true));  // entered, and so it stays
  DeleteDropped(cache);
  EXPECT_FALSE(fs::exists(second));
  EXPECT_TRUE(cache.Find(url));
}

TEST_F(DownloadCacheTest, TwoNeverShareAFolder) {
  const DownloadCache first(folder_);
  {
    const DownloadCache second(folder_);
    EXPECT_EQ(second.Folder(), folder_ + "-2");
  }
  const DownloadCache third(folder_);
  EXPECT_EQ(third.Folder(), folder_ + "-2");
}

TEST(DownloadCache, KeepsWhatCanStandInItsIndex) {
  EXPECT_TRUE(DownloadCache::CanKeep(URL("http://h/a{b.zip")));
  for (const char* url :
       {"http://h/a.php?x", "http://h/a b", "http://h/a}b", "http://h/\xC3\xA4", "http://h/a\nb"})
    EXPECT_FALSE(DownloadCache::CanKeep(URL(url))) << url;
}

}  // namespace
}  // namespace morvex

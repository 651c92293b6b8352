#include "packages/file_extraction.h"

#include "packages/folder_packing.h"
#include "tests/packages/package_fixture.h"

namespace morvex {
namespace {

constexpr const char* kCantWrite = "Unable to write content files to disk";
constexpr const char* kUnknownData = "Unknown data type encountered. Content package may be damaged";
constexpr const char* kUnknownCompression =
    "Unknown compression type encountered. Content package may be damaged";
constexpr const char* kDamaged = "Failed to decompress data. Content package may be damaged";

class FileExtractionTest : public PackageTest {
 protected:
  // Adds a tag without any rule.
  static TagContainer AddChild(TagContainer& soup, const char* name, std::string_view text,
                               ChunkKind kind = ChunkKind::kBinary) {
    const ChunkRef root = soup.GetRoot();
    const ChunkRef child = root->CreateChunk(kind, Bytes(text));
    root->AddChild(Nox::PString(name), child);
    return TagContainer(child);
  }
  static TagContainer AddFolder(TagContainer& soup, const char* name) {
    return AddChild(soup, name, "", ChunkKind::kContainer);
  }
  std::string Extract(const TagContainer& files, std::string_view compression = "") {
    return ExtractFiles(files, compression, Target()).Text();
  }
};

TEST_F(FileExtractionTest, GivesBackWhatWasPacked) {
  std::string big(300000, 'x');
  for (size_t i = 0; i < big.size(); i += 7)
    big[i] = static_cast<char>(i * i);
  for (int i = 0; i < 40; ++i)
    AddSource("many/f" + std::to_string(i) + ".txt", big.substr(0, i * i * 100));
  AddSource("empty.tga", "");
  for (const char* compression : {"", kLzssCompression}) {
    TagContainer files;
    ResultsLog log;
    ASSERT_TRUE(morvex::AddFolder(files, Nox::PString(), Source(), compression, log));
    std::filesystem::remove_all(Target());
    EXPECT_EQ(Extract(files, compression), "");
    EXPECT_EQ(Tree(Target()), Tree(Source()));
    EXPECT_EQ(GetFile(Target() + "/many/f39.txt"), big.substr(0, 39 * 39 * 100));
  }
}

TEST_F(FileExtractionTest, NothingLeavesTheFolderWhateverThePackageSays) {
  TagContainer files;
  for (const char* name : {"../up.txt", "/tmp/abs.txt", "..\\up.txt", "a/b.txt", ".hidden.txt", "x.exe", "",
                           " a.txt", "noextension"})
    AddChild(files, name, "hostile");
  for (const char* name : {"..", "/", ".", ".git", "a/..", "~", ""}) {
    TagContainer folder = AddFolder(files, name);
    AddChild(folder, "in.txt", "hostile");
  }
  AddChild(files, "good.txt", "good");
  EXPECT_EQ(Extract(files), "");
  EXPECT_EQ(Tree(scratch_.path()), "target/ target/good.txt");
}

TEST_F(FileExtractionTest, LinksInTheFolderAreNotFollowed) {
  PutFile(scratch_ / "outside/kept.txt", "kept");
  PutFile(Target() + "/Old.txt", "old");
  std::filesystem::create_symlink("../outside", Target() + "/art");
  std::filesystem::create_symlink("../outside/kept.txt", Target() + "/a.txt");
  std::filesystem::create_symlink("../outside/new.txt", Target() + "/b.txt");
  TagContainer files;
  TagContainer art = AddFolder(files, "art");
  AddChild(art, "kept.txt", "hostile");
  for (const char* name : {"a.txt", "b.txt", "old.txt"})
    AddChild(files, name, name);
  EXPECT_EQ(Extract(files), kCantWrite);
  EXPECT_EQ(Tree(scratch_ / "outside"), "kept.txt");
  EXPECT_EQ(GetFile(scratch_ / "outside/kept.txt"), "kept");
  EXPECT_EQ(GetFile(Target() + "/a.txt") + GetFile(Target() + "/b.txt"), "a.txtb.txt");
  EXPECT_EQ(GetFile(Target() + "/old.txt"), "old.txt");
}

TEST_F(FileExtractionTest, GoesOnBehindABadChildAndGivesTheLatestError) {
  TagContainer files;
  TagContainer sub = AddFolder(files, "sub");
  AddChild(sub, "text.txt", "a string", ChunkKind::kString);
  AddChild(files, "a.txt", std::string_view("\1\0\0\0\0x", 6));
  AddChild(files, "b.txt", std::string_view("\2\0\0\0\0x", 6));
  AddChild(files, "c.txt", std::string_view("\1\0\0\0\0y", 6));
  EXPECT_EQ(Extract(files, kLzssCompression), kDamaged);
  EXPECT_EQ(GetFile(Target() + "/a.txt") + GetFile(Target() + "/c.txt"), "xy");
  EXPECT_EQ(GetFile(Target() + "/b.txt"), "");
  AddChild(files, "d.txt", "an int", ChunkKind::kInt);
  EXPECT_EQ(Extract(files, kLzssCompression), kUnknownData);
}

TEST_F(FileExtractionTest, NamesThatDifferByCaseAloneAreOneFileAndTheLastWins) {
  TagContainer files;
  AddChild(files, "A.txt", "first");
  AddChild(files, "a.txt", "second");
  AddChild(files, "a.txt", "never read");
  TagContainer art = AddFolder(files, "Art");
  AddChild(art, "x.im", "1");
  TagContainer art2 = AddFolder(files, "art");
  AddChild(art2, "y.im", "2");
  EXPECT_EQ(Extract(files), "");
  EXPECT_EQ(Tree(Target()), "Art/ Art/x.im Art/y.im a.txt");
  EXPECT_EQ(GetFile(Target() + "/a.txt"), "second");

  AddFolder(files, "art.txt");
  AddChild(files, "ART.txt", "a file where a folder is");
  EXPECT_EQ(Extract(files), kCantWrite);
}

// A soup in which each folder stands twice under one name has 2^depth ways down for who takes both.
TEST_F(FileExtractionTest, AFolderThatStandsTwiceIsReadOnce) {
  TagContainer files;
  files.GetRoot();
  TagContainer at = files;
  for (int depth = 0; depth < 60; ++depth) {
    TagContainer down = AddFolder(at, "d");
    AddFolder(at, "d");
    at = down;
  }
  AddChild(at, "x.txt", "x");
  EXPECT_EQ(Extract(files), "");
  EXPECT_NE(Tree(Target()).find("/x.txt"), std::string::npos);
}

TEST_F(FileExtractionTest, TellsDamagedAndUnknownCodings) {
  using namespace std::literals;
  const std::tuple<std::string_view, const char*, const char*> cases[] = {
      {"plain"sv, "", ""},
      {"\0\0\0\0\0"sv, "LZSS", ""},
      {"\2\0\0\0\0ab"sv, "LZSS", ""},
      {"\0\0\0\0\0"sv, "lzss", kUnknownCompression},
      {""sv, "LZSS", kDamaged},
      {"\0\0\0\0"sv, "LZSS", kDamaged},
      {"\1\0\0\0\0ab"sv, "LZSS", kDamaged},
      {"\1\0\0\0\x3Fz"sv, "LZSS", kDamaged},
      // No memory is taken for what ten bytes can't hold.
      {"\xFF\xFF\xFF\xFF\x29\1\2\3\4\5"sv, "LZSS", kDamaged},
  };
  const std::string path = scratch_ / "out.txt";
  for (const auto& [raw, compression, error] : cases)
    EXPECT_EQ(WriteFile(Bytes(raw), compression, path), error) << raw;
  EXPECT_EQ(WriteFile(Bytes("x"), "", "/dev/full"), kCantWrite);
}

}  // namespace
}  // namespace morvex

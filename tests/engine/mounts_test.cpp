#include "engine/mounts.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "engine/find.h"
#include "engine/read_file.h"
#include "tests/engine/zip_maker.h"
#include "tests/scratch_folder.h"
#include "tests/test_files.h"

namespace Nox {
namespace {

std::string Names(LocationView folder) {
  const auto entries = ListFolder(folder);
  if (!entries) return "no folder";
  std::string names;
  for (const DirEntry& entry : *entries)
    names += entry.name + (entry.isDir ? "/ " : " ");
  return names;
}

std::string Content(LocationView file) {
  const auto bytes = ReadWholeFile(file);
  return bytes ? std::string(bytes->Text()) : "no file";
}

TEST(Mounts, AFolderStandsBehindItsName) {
  const ScratchFolder scratch;
  const PString pack("folder-pack");
  std::filesystem::create_directory(scratch / "pack");
  PutFile(scratch / "pack/File", "inside");
  PutFile(scratch / "outside", "private");
  EXPECT_FALSE(File::Exists({pack, "File"}));
  ASSERT_TRUE(File::Subst(pack, scratch / "pack/", true));
  EXPECT_EQ(Content({PString("Folder-Pack"), "file"}), "inside");
  EXPECT_EQ(Names({pack, ""}), "File ");
  EXPECT_TRUE(File::Md({pack, "new/deep"}));
  EXPECT_TRUE(File::Rename({pack, "File"}, {pack, "new/moved"}));
  EXPECT_TRUE(std::filesystem::exists(scratch / "pack/new/moved"));
  for (const char* path :
       {"../outside", "new/../../outside", "..\\outside", "new/deep/../../../pack/../outside"}) {
    EXPECT_EQ(Content({pack, path}), "no file") << path;
    EXPECT_FALSE(File::Unlink({pack, path})) << path;
  }
  EXPECT_TRUE(File::Subst(pack, "", true));
  EXPECT_FALSE(File::Exists({pack, "new"}));
}

TEST(Mounts, AnArchiveIsReadLikeAFolder) {
  const ScratchFolder scratch;
  const PString pack("archive-pack");
  ASSERT_TRUE(PutZip(scratch / "Pack.ja", {{"Group/asset/config.txt", "kuid"},
                                           {"Group/asset/B.tga", std::string(5000, 'b')},
                                           {"Group/asset/b.tga", "small"},
                                           {"empty/", ""},
                                           {"../evil", "x"},
                                           {"/evil", "x"},
                                           {"Group/asset/config.txt/below", "x"}}));
  ASSERT_TRUE(File::Subst(pack, scratch / "pack.JA", false));
  EXPECT_EQ(Names({pack, ""}), "empty/ Group/ ");
  EXPECT_EQ(Names({pack, "GROUP/Asset"}), "B.tga b.tga config.txt ");
  EXPECT_EQ(Content({pack, "group\\asset\\CONFIG.TXT"}), "kuid");
  EXPECT_EQ(Content({pack, "group/asset/b.tga"}), "small");
  EXPECT_EQ(Content({pack, "group/asset/B.TGA"}).size(), 5000U);
  EXPECT_FALSE(ReadWholeFile({pack, "group/asset/B.tga"}, 4999).has_value());
  EXPECT_EQ(File::SizeOf({pack, "group/asset/b.tga"}), 5U);
  EXPECT_TRUE(File::IsFolder({pack, "group/"}));
  EXPECT_EQ(Content({pack, "evil"}), "no file");

  File file;
  EXPECT_FALSE(file.Open({pack, "group/new"}, OpenMode::kCreate));
  EXPECT_FALSE(File::Unlink({pack, "group/asset/b.tga"}));
  ASSERT_TRUE(file.Open({pack, "group/asset/b.tga"}, OpenMode::kRead));
  char line[8];
  EXPECT_EQ(file.ReadLine(line, sizeof line), 5U);
  EXPECT_TRUE(file.Eof());
  EXPECT_TRUE(File::CopyFile({pack, "group/asset/b.tga"}, scratch / "copy"));
  EXPECT_EQ(GetFile(scratch / "copy"), "small");
  EXPECT_TRUE(File::Subst(pack, "", false));
}

TEST(Mounts, DamagedArchivesAreRefusedOrReadAsFarAsTheyGo) {
  const ScratchFolder scratch;
  const PString pack("damaged-pack");
  ASSERT_TRUE(PutZip(scratch / "whole.ja", {{"a", "content"}}));
  const std::string whole = GetFile(scratch / "whole.ja");
  for (std::size_t size = 0; size < whole.size(); ++size) {
    PutFile(scratch / "cut.ja", whole.substr(0, size));
    const bool mounted = File::Subst(pack, scratch / "cut.ja", false);
    EXPECT_TRUE(!mounted || Content({pack, "a"}) == "no file") << size;
  }
  std::string changed = whole;
  changed[whole.find("content")] = 'C';
  PutFile(scratch / "changed.ja", changed);
  ASSERT_TRUE(File::Subst(pack, scratch / "changed.ja", false));
  EXPECT_EQ(Content({pack, "a"}), "no file");
  EXPECT_FALSE(File::Subst(pack, scratch / "none.ja", false));
}

}  // namespace
}  // namespace Nox

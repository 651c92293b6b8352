#include "tagdata/tag_container.h"

#include <gtest/gtest.h>

#include <fstream>
#include <random>
#include <tuple>

#include "tagdata/chump_file.h"
#include "tagdata/container_tag.h"
#include "tagdata/data_tag.h"
#include "tagdata/kuid_list.h"
#include "tagdata/text_config.h"
#include "tests/scratch_folder.h"
#include "tests/tagdata/soup_tree.h"

namespace morvex {
namespace {

const Nox::PString kA("a");
const Nox::PString kB("b");

TEST(TagContainer, SettingMovesToTheEnd) {
  TagContainer soup;
  soup.SetInt(kA, 1);
  soup.SetString(kB, "x");
  soup.SetFloat(kA, 3);
  EXPECT_EQ(Tree(soup), "b=\"x\" a=f3");
  soup.SetFloatArray(kA, {});
  soup.SetNull(Nox::PString("n"));
  EXPECT_EQ(Tree(soup), "b=\"x\" n");
  EXPECT_FALSE(soup.HasTag(Nox::PString("n")));
  EXPECT_EQ(soup.GetCount(), 2u);
}

TEST(TagContainer, ReadsThroughText) {
  const TagContainer soup = FromText("i 5\nt abc\nl 1.5,2.5\nk <kuid:1:2>\nc {\nx 1\n}\ne \"\"");
  const auto name = [](const char* text) { return Nox::PString(text); };
  for (const char* noNumber : {"t", "l", "c", "e", "missing"})
    EXPECT_EQ(soup.GetInt(name(noNumber), 7), 7) << noNumber;
  EXPECT_TRUE(soup.GetBool(name("i")));
  EXPECT_EQ(soup.GetFloat(name("i"), 7), 5);
  EXPECT_EQ(soup.GetFloat(name("l"), 7), 7);
  std::vector<float> values;
  EXPECT_TRUE(soup.GetFloatArray(name("l"), values));
  EXPECT_EQ(values, (std::vector<float>{1.5f, 2.5f}));
  EXPECT_FALSE(soup.GetFloatArray(name("t"), values));
  EXPECT_TRUE(values.empty());
  EXPECT_EQ(soup.GetString(name("k")), "<kuid:1:2>");
  EXPECT_EQ(soup.GetKUID(name("t"), KUID(3, 4, 0)), KUID());
  EXPECT_EQ(soup.GetKUID(name("c"), KUID(3, 4, 0)), KUID(3, 4, 0));
  EXPECT_TRUE(soup.HasTag(name("e")));
  EXPECT_TRUE(soup.GetContainer(name("i")).IsEmpty());
  EXPECT_EQ(Tree(soup.GetContainerAt(4)), "x=1");
}

TEST(TagContainer, EmptyHandleFindsNothing) {
  TagContainer empty;
  EXPECT_EQ(empty.GetCount(), 0u);
  EXPECT_TRUE(empty.GetString(kA).Empty());
  empty.Remove(kA);
  EXPECT_TRUE(empty.IsEmpty());
  TagContainer soup;
  soup.SetContainer(kA, empty);
  empty.SetInt(kB, 1);
  EXPECT_EQ(Tree(soup), "a{b=1}");
}

TEST(TagContainer, CopiesShareUntilCopiedFrom) {
  TagContainer soup = FromText(
      "a {\nb \"a text of more than a hundred and twenty-eight bytes, which is long "
      "enough for two tags to hold the same bytes and for neither of them to copy it\"\n}");
  const TagContainer same = soup;
  TagContainer copy;
  copy.CopyFrom(soup);
  const std::string before = Tree(copy);
  EXPECT_EQ(before, Tree(soup));
  soup.GetContainer(kA).SetInt(kB, 2);
  EXPECT_EQ(Tree(same), "a{b=2}");
  EXPECT_EQ(Tree(copy), before);
}

TEST(ContainerTag, KeepsRepeatedNames) {
  TDBContainerTag tag;
  for (int i = 0; i < 60; ++i)
    tag.AddChild(i % 2 ? kA : kB, TDBDataTag::Make(ChunkKind::kInt, &i, sizeof i));
  const auto first = [&](Nox::PString name) { return static_cast<int>(*tag.GetChunk(name)->GetData()); };
  EXPECT_EQ(first(kA), 1);
  tag.RemoveChild(tag.GetChunk(kA).Get());
  EXPECT_EQ(first(kA), 3);
  tag.SwapChildren(tag.GetChunk(kA).Get(), tag.GetChunk(kB).Get());
  EXPECT_EQ(first(kA), 0);
  tag.Sort();
  EXPECT_EQ(tag.GetChildName(28), "a");
  EXPECT_EQ(tag.GetChildName(29), "b");
  EXPECT_EQ(tag.GetChildCount(), 59u);
}

// The same with names that stand several times, added at the end and taken out by name and by chunk.
TEST(ContainerTag, AgreesWithAPlainListOfTwins) {
  std::mt19937 random(7);
  TDBContainerTag soup;
  std::vector<std::pair<Nox::PString, ChunkRef>> list;
  for (int step = 0; step < 20000; ++step) {
    const Nox::PString name("n" + std::to_string(random() % 20));
    const auto first =
        std::find_if(list.begin(), list.end(), [&](const auto& pair) { return pair.first == name; });
    const uint32_t act = random() % 16;
    if (act < (step < 12000 ? 9 : 6)) {
      list.emplace_back(name, TDBDataTag::Make(ChunkKind::kInt, &step, sizeof step));
      soup.AddChild(name, list.back().second);
    } else if (act < 15 && first != list.end()) {
      soup.RemoveNamed(name);
      list.erase(first);
    } else if (!list.empty()) {
      const auto any = list.begin() + static_cast<ptrdiff_t>(random() % list.size());
      soup.RemoveChild(any->second.Get());
      list.erase(any);
    }
    ASSERT_EQ(soup.GetChildCount(), list.size());
    const auto found =
        std::find_if(list.begin(), list.end(), [&](const auto& pair) { return pair.first == name; });
    ASSERT_EQ(soup.GetChunk(name), found == list.end() ? NullChunk() : found->second) << step;
    if (list.empty()) continue;
    const size_t at = random() % list.size();
    ASSERT_EQ(soup.GetChildName(static_cast<uint32_t>(at)), list[at].first) << step;
  }
}

TEST(ContainerTag, StaysQuickWhenItIsBig) {
  TagContainer soup;
  std::vector<Nox::PString> names;
  for (int i = 0; i < 100000; ++i)
    names.emplace_back("big" + std::to_string(i));
  for (int round = 0; round < 3; ++round) {
    for (size_t i = 0; i < names.size(); ++i)
      soup.SetInt(names[i], static_cast<int32_t>(i));
  }
  while (soup.GetCount() > 50000)
    soup.Remove(soup.GetName(0));
  for (uint32_t i = 0; i < soup.GetCount(); ++i)
    soup.Remove(soup.GetName(i));
  EXPECT_EQ(soup.GetCount(), 25000u);
  EXPECT_EQ(soup.GetName(0), "big50001");

  TDBContainerTag twins;
  for (int round = 0; round < 2; ++round) {
    for (const Nox::PString name : names)
      twins.AddChild(name, TDBDataTag::Make());
  }
  for (const Nox::PString name : names)
    twins.RemoveNamed(name);
  EXPECT_EQ(twins.GetChildCount(), names.size());
}

TEST(ContainerTag, DestroysAndCopiesAnyDepth) {
  TagContainer soup = FromText("a 1");
  for (int i = 0; i < 100000; ++i) {
    TagContainer outer;
    outer.SetContainer(kA, soup);
    soup = outer;
  }
  TagContainer copy;
  copy.CopyFrom(soup);
  soup.Clear();
  EXPECT_EQ(copy.GetCount(), 1u);
}

TEST(TagContainer, LoadsAndSavesByExtension) {
  const ScratchFolder scratch;
  const TagContainer soup = FromText("a 1\nn {\nb x\n}");
  const std::tuple<const char*, const char*, bool> kCases[] = {
      {"a.txt", "", true},  {"b.CHUMP", "", true}, {"c.cdp", "", true},     {"d.cdp2", "", true},
      {"e.dat", "", false}, {"f", "", false},      {"g.dat", ".txt", true}, {"h.txt", "x", false}};
  for (const auto& [file, extension, known] : kCases) {
    const std::string path = scratch / file;
    EXPECT_EQ(soup.Save(Nox::PString(), path, extension), known) << file;
    EXPECT_EQ(std::filesystem::exists(path), known) << file;
    if (!known) std::ofstream(path) << "a 1";
    TagContainer loaded = FromText("old 1");
    EXPECT_EQ(loaded.Load(Nox::PString(), path, extension), known) << file;
    EXPECT_EQ(Tree(loaded), known ? Tree(soup) : "old=1") << file;
  }
  TagContainer loaded = FromText("old 1");
  EXPECT_FALSE(loaded.Load(Nox::PString(), scratch / "none.txt"));
  EXPECT_TRUE(loaded.IsValid());
  std::ofstream(scratch / "bad.chump") << "not a soup";
  EXPECT_TRUE(loaded.Load(Nox::PString(), scratch / "bad.chump"));
  EXPECT_TRUE(loaded.IsEmpty());
}

// Each level holds two soups of one name, of which only the first can be reached: walked as often as they are met,
// sixty levels would take years.
TEST(TagContainer, TwinsAtEveryLevelDoNotMultiply) {
  TagContainer soup;
  soup.SetKUID(Nox::PString("kuid"), KUID(1, 2, 0));
  for (int level = 0; level < 60; ++level) {
    TagContainer outer;
    outer.GetRoot()->AddChild(Nox::PString("twin"), soup.GetRoot());
    outer.GetRoot()->AddChild(Nox::PString("twin"), soup.GetRoot());
    soup = outer;
  }
  TagContainer copy;
  copy.CopyFrom(soup);
  KUIDList found;
  found.ScanContainer(copy);
  EXPECT_EQ(found.Count(), 1u);
  EXPECT_LT(ChumpImage(soup).size(), 3000000u);
  EXPECT_LT(SoupText(soup).size(), 30000000u);
}

TEST(TagContainer, OrdinaryTwinsAreBothWritten) {
  TagContainer inner = FromText("a 1");
  TagContainer soup;
  soup.GetRoot()->AddChild(Nox::PString("n"), inner.GetRoot());
  soup.GetRoot()->AddChild(Nox::PString("n"), FromText("b 2").GetRoot());
  const std::string image = ChumpImage(soup);
  EXPECT_EQ(Tree(ReadChumpImage(ACSRawDataCore::CopyBytes(image.data(), image.size()))), "n{a=1} n{a=1}");
}

}  // namespace
}  // namespace morvex

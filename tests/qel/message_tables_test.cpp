// The message tables as they are shipped: in every language each message is there and takes what its caller passes.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "validation/qel/message_table.h"

namespace QELLib {
namespace {

constexpr const char* kLanguages[] = {"", "DE", "FR", "IT", "RU", "CZ", "PL", "ES", "CH", "SE", "CN", "NL"};
constexpr size_t kEntries = 192;

// Entry and number of arguments, all of them texts.
constexpr std::pair<size_t, size_t> kMessages[] = {
    {88, 1},  {93, 2},  {94, 2},  {95, 2},  {96, 2},  {97, 2},  {101, 2}, {102, 2}, {103, 2}, {104, 3},
    {107, 2}, {108, 1}, {110, 1}, {112, 0}, {113, 1}, {114, 1}, {115, 0}, {116, 2}, {117, 2}, {118, 1},
    {119, 0}, {122, 0}, {123, 1}, {124, 0}, {125, 0}, {126, 0}, {127, 0}, {131, 1}, {132, 1}, {138, 0},
    {139, 0}, {140, 1}, {141, 1}, {142, 1}, {143, 1}, {144, 2}, {133, 1}, {145, 0}, {149, 2}, {151, 1},
    {152, 1}, {153, 3}, {154, 3}, {155, 2}, {156, 1}, {157, 1}, {158, 3}, {160, 0}, {161, 0}, {162, 1},
    {163, 0}, {164, 2}, {165, 1}, {166, 1}, {167, 1}, {168, 1}, {186, 1}, {189, 1}, {190, 1}, {191, 1},
};

// The placeholders of a text, in order, without anything else.
std::string Placeholders(std::string_view text) {
  std::string found;
  for (size_t at = text.find('%'); at != text.npos; at = text.find('%', at + 2))
    found += text.substr(at, 2);
  return found;
}

TEST(MessageTables, TakeTheArgumentsOfTheirCallersInEveryLanguage) {
  const std::vector<Nox::PString> english = ReadMessageTable(MORVEX_QELDATA, "");
  ASSERT_EQ(english.size(), kEntries);
  for (const auto& [entry, arguments] : kMessages) {
    EXPECT_FALSE(english[entry].Empty()) << entry;
    std::string expected;
    for (size_t i = 0; i < arguments; ++i)
      expected += "%s";
    EXPECT_EQ(Placeholders(english[entry]), expected) << entry;
  }
  for (const char* language : kLanguages) {
    const std::vector<Nox::PString> texts = ReadMessageTable(MORVEX_QELDATA, language);
    ASSERT_EQ(texts.size(), kEntries) << language;
    for (size_t entry = 0; entry < kEntries; ++entry) {
      EXPECT_EQ(texts[entry].Empty(), english[entry].Empty()) << language << " " << entry;
      EXPECT_EQ(Placeholders(texts[entry]), Placeholders(english[entry])) << language << " " << entry;
    }
  }
}

}  // namespace
}  // namespace QELLib

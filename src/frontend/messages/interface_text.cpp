#include "frontend/messages/interface_text.h"

#include <atomic>

#include "engine/path.h"
#include "engine/text.h"
#include "tagdata/morvex_log.h"

namespace morvex {
namespace {

constexpr int kMaxReportedKeys = 10;
constexpr std::string_view kDataFolder = "data";

struct LanguageFile {
  std::string_view code;
  std::string_view file;
};

// The languages that aren't written here are served by the English file.
constexpr LanguageFile kLanguageFiles[] = {
    {"DE", "interfaceGerman.chump"},  {"FR", "interfaceFrench.chump"},  {"IT", "interfaceItalian.chump"},
    {"RU", "interfaceRussian.chump"}, {"CZ", "interfaceCzech.chump"},   {"PL", "interfacePolish.chump"},
    {"ES", "interfaceSpanish.chump"}, {"CN", "interfaceChinese.chump"}, {"KR", "interfaceKorean.chump"},
};

Nox::PString& CurrentFile() {
  static Nox::PString file("interfacetext.chump");
  return file;
}

std::atomic<int> reportedKeys{0};

// A compiled file that reads as nothing is as bad as none.
bool LoadTexts(TagContainer& root) {
  const Nox::PString folder(kDataFolder);
  const std::string_view compiled = CurrentFile();
  if (root.Load(folder, compiled) && root.IsValid()) return true;
  MorvexLog::Message("InterfaceTextDB> failed to load compiled interfacetext file");
  return root.Load(folder, Nox::Path::SetExt(compiled, "txt"));
}

}  // namespace

InterfaceTextDB::InterfaceTextDB() {
  if (!LoadTexts(root_))
    MorvexLog::Fatal("InterfaceTextDB> Unable to read interface file '%s'", CurrentFile());
  mapText_ = root_.GetContainer(Nox::PString("dovik_map_text"));
  specText_ = root_.GetContainer(Nox::PString("dovik_spec_text"));
  scenarioText_ = root_.GetContainer(Nox::PString("scenario_text"));
}

InterfaceTextDB::~InterfaceTextDB() = default;

Nox::PString InterfaceTextDB::GetString(Nox::PString key, bool warn) const {
  if (key.Empty()) return key;
  const Nox::PString text = root_.GetString(key);
  if (text.Empty() && warn && reportedKeys < kMaxReportedKeys && reportedKeys++ < kMaxReportedKeys)
    MorvexLog::Message("InterfaceTextDB::GetString> Tag '%s' not found in '%s'", key, CurrentFile());
  return text;
}

Nox::PString InterfaceTextDB::GetSpecString(Nox::PString key) const {
  const Nox::PString text = key.Empty() ? key : specText_.GetString(key);
  return text.Empty() ? key : text;
}

Nox::PString InterfaceTextDB::GetScenarioString(Nox::PString key) const {
  return key.Empty() ? key : scenarioText_.GetString(key);
}

void InterfaceTextDB::SetLanguage(std::string_view code) {
  for (const LanguageFile& language : kLanguageFiles)
    if (Nox::EqualsIgnoreCase(language.code, code)) CurrentFile() = Nox::PString(language.file);
}

Nox::PString GetInterfaceString(Nox::PString key) {
  static const InterfaceTextDB database;
  return database.GetString(key, true);
}

}  // namespace morvex

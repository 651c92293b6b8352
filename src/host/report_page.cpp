#include "host/report_page.h"

#include <functional>
#include <map>
#include <set>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "engine/path.h"
#include "host/html_text.h"
#include "host/json_writer.h"
#include "host/page_texts.h"
#include "host/report_charts.h"

namespace morvex::host {

namespace {

// Numbers the values that occur, in the order in which they do.
template <typename Value>
class Numbering {
 public:
  size_t NumberOf(const Value& value) {
    const auto [place, isNew] = numbers_.try_emplace(value, values_.size());
    if (isNew) values_.push_back(value);
    return place->second;
  }
  const std::vector<Value>& Values() const { return values_; }

 private:
  std::unordered_map<Value, size_t> numbers_;
  std::vector<Value> values_;
};

// Where the asset lies, as people would look for it.
std::string PlaceOf(const AssetEntry& entry) {
  if (!entry.editPath.empty()) return entry.editPath;
  if (!entry.localPath.empty()) return entry.localPath;
  return Nox::Path::AddPath(entry.packName, entry.packPath);
}

// The data as the page's script takes them: an array for each asset, since names would stand there as often as there
// are assets.
class DataWriter {
 public:
  DataWriter(std::ostream& out, const ReportData& data) : json_(out, JsonWriter::Place::kPage), data_(data) {}

  void Write() {
    json_.BeginObject();
    json_.Key("assets").BeginArray();
    for (const ReportAsset& asset : data_.assets)
      WriteAsset(asset);
    json_.EndArray();
    WriteMissing();
    WriteTables();
    json_.EndObject();
  }

 private:
  void WriteAsset(const ReportAsset& asset) {
    const AssetEntry& entry = asset.entry;
    const ZEBAssetStatus& status = entry.status;
    json_.BeginArray();
    json_.Text(entry.kuid.TagText()).Text(status.name);
    json_.Number(static_cast<int64_t>(classes_.NumberOf(asset.className)));
    json_.Text(status.Letters()).Number(entry.size);
    json_.Number(static_cast<int64_t>(authors_.NumberOf(status.author)));
    authorNames_[status.author] = asset.authorName;
    json_.Text(status.region).Text(status.era).Real(entry.build).Number(status.rating);
    json_.Number(static_cast<int64_t>(status.installedTime))
        .Number(static_cast<int64_t>(status.modifiedTime));
    json_.Text(PlaceOf(entry));
    WriteProblems(asset);
    json_.Text(entry.description).Text(status.category).Text(entry.keywords);
    json_.EndArray();
  }

  void WriteProblems(const ReportAsset& asset) {
    std::set<char> kinds;
    json_.BeginArray();
    for (const ReportProblem& problem : asset.problems) {
      const char kind = static_cast<char>(problem.kind);
      json_.BeginArray().Text({&kind, 1}).Text(problem.text).EndArray();
      kinds.insert(kind);
    }
    json_.EndArray();
    for (const char kind : kinds)
      ++counts_[kind];
  }

  void WriteMissing() {
    json_.Key("missing").BeginArray();
    for (const MissingAsset& missing : data_.missing) {
      json_.BeginArray().Text(missing.kuid.TagText()).Text(missing.name).BeginArray();
      for (const size_t user : missing.neededBy)
        json_.Number(static_cast<int64_t>(user));
      json_.EndArray().EndArray();
    }
    json_.EndArray();
  }

  void WriteTables() {
    json_.Key("classes").BeginArray();
    for (const std::string& name : classes_.Values())
      json_.Text(name);
    json_.EndArray();
    json_.Key("authors").BeginArray();
    for (const int32_t number : authors_.Values())
      json_.BeginArray().Number(number).Text(authorNames_[number]).EndArray();
    json_.EndArray();
    json_.Key("counts").BeginObject();
    for (const auto& [kind, count] : counts_)
      json_.Key({&kind, 1}).Number(count);
    json_.EndObject();
  }

  JsonWriter json_;
  const ReportData& data_;
  Numbering<std::string> classes_;
  Numbering<int32_t> authors_;
  std::unordered_map<int32_t, std::string> authorNames_;
  std::map<char, int64_t> counts_;
};

void WritePictures(std::ostream& out, const ReportData& data) {
  JsonWriter json(out, JsonWriter::Place::kPage);
  json.BeginArray();
  for (const ReportAsset& asset : data.assets)
    json.TextOrNull(asset.thumbnail);
  json.EndArray();
}

// Writes a page with its parts in the places that are named as "{{part}}".
void Fill(std::ostream& out, std::string_view page,
          const std::map<std::string_view, std::function<void(std::ostream&)>>& parts) {
  constexpr std::string_view kOpen = "{{";
  constexpr std::string_view kClose = "}}";
  while (true) {
    const size_t start = page.find(kOpen);
    out << page.substr(0, start);
    if (start == page.npos) return;
    const size_t end = page.find(kClose, start);
    parts.at(page.substr(start + kOpen.size(), end - start - kOpen.size()))(out);
    page.remove_prefix(end + kClose.size());
  }
}

}  // namespace

void WriteReportPage(std::ostream& out, const ReportHead& head, const ReportData& data) {
  const auto text = [](std::string value) { return [value](std::ostream& to) { to << value; }; };
  Fill(out, kReportHtml,
       {{"title", text(HtmlText(head.title))},
        {"subtitle", text(HtmlText(head.subtitle))},
        {"style", text(std::string(kReportStyle))},
        {"script", text(std::string(kReportScript))},
        {"tiles", text(ReportTiles(data))},
        {"charts", text(ReportCharts(data))},
        {"data", [&](std::ostream& to) { DataWriter(to, data).Write(); }},
        {"pictures", [&](std::ostream& to) { WritePictures(to, data); }}});
}

}  // namespace morvex::host

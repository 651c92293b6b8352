#include "host/report_charts.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <map>

#include "engine/format.h"
#include "host/bar_chart.h"
#include "host/html_text.h"

namespace morvex::host {

namespace {

constexpr size_t kMostBars = 9;

// The page's script has the same limits.
struct SizeStep {
  int64_t limit;
  const char* label;
};
constexpr SizeStep kSizeSteps[] = {{10'000, "below 10 KB"},       {100'000, "10 to 100 KB"},
                                   {1'000'000, "0.1 to 1 MB"},    {10'000'000, "1 to 10 MB"},
                                   {100'000'000, "10 to 100 MB"}, {INT64_MAX, "100 MB and more"}};

// What no step takes belongs to the last.
size_t StepOf(int64_t size) {
  size_t step = 0;
  while (step + 1 < std::size(kSizeSteps) && size >= kSizeSteps[step].limit)
    ++step;
  return step;
}

// How many assets have something in common, and how large they are together.
struct Sum {
  uint64_t count = 0;
  int64_t size = 0;
  std::string label = {};

  void Add(const ReportAsset& asset) {
    ++count;
    size += std::max<int64_t>(asset.entry.size, 0);
  }
};

std::string NoteOf(const Sum& sum) {
  if (sum.count == 0) return "0";
  return CountText(sum.count) + " \xC2\xB7 " + SizeText(sum.size);
}

std::string Card(std::string_view title, const std::vector<Bar>& bars) {
  return Nox::FormatText("<div class=\"card\"><h2>%s</h2>%s</div>\n", HtmlText(title), BarChart(bars));
}

std::vector<Bar> ClassBars(const ReportData& data) {
  std::map<std::string, Sum> sums;
  for (const ReportAsset& asset : data.assets)
    sums[asset.className].Add(asset);
  std::vector<Bar> bars;
  for (const auto& [name, sum] : sums)
    bars.push_back({name, sum.count, NoteOf(sum), "class=" + name});
  return LargestBars(std::move(bars), kMostBars, "all others");
}

std::vector<Bar> AuthorBars(const ReportData& data) {
  std::map<int32_t, Sum> sums;
  for (const ReportAsset& asset : data.assets) {
    Sum& sum = sums[asset.entry.status.author];
    sum.Add(asset);
    sum.label = asset.authorName;
  }
  std::vector<Bar> bars;
  for (const auto& [number, sum] : sums)
    bars.push_back({sum.label, sum.count, NoteOf(sum), Nox::FormatText("author=%d", number)});
  return LargestBars(std::move(bars), kMostBars, "all others");
}

std::vector<Bar> SizeBars(const ReportData& data) {
  std::array<Sum, std::size(kSizeSteps)> sums;
  for (const ReportAsset& asset : data.assets)
    sums[StepOf(asset.entry.size)].Add(asset);
  std::vector<Bar> bars;
  for (size_t i = 0; i < sums.size(); ++i)
    bars.push_back({kSizeSteps[i].label, sums[i].count, NoteOf(sums[i]), Nox::FormatText("size=%u", i)});
  return bars;
}

std::string Tile(std::string_view value, std::string_view label, std::string_view look,
                 std::string_view filter) {
  const std::string text = Nox::FormatText("<b>%s</b><span>%s</span>", HtmlText(value), HtmlText(label));
  if (filter.empty()) return Nox::FormatText("<div class=\"tile %s\">%s</div>\n", look, text);
  return Nox::FormatText("<button class=\"tile %s\" data-filter=\"%s\">%s</button>\n", look, filter, text);
}

size_t CountWith(const ReportData& data, ReportProblem::Kind kind) {
  return static_cast<size_t>(
      std::count_if(data.assets.begin(), data.assets.end(), [=](const ReportAsset& asset) {
        return std::any_of(asset.problems.begin(), asset.problems.end(),
                           [=](const ReportProblem& problem) { return problem.kind == kind; });
      }));
}

}  // namespace

std::string ReportTiles(const ReportData& data) {
  Sum all;
  for (const ReportAsset& asset : data.assets)
    all.Add(asset);
  const size_t faulty = CountWith(data, ReportProblem::Kind::kError);
  const size_t lacking = CountWith(data, ReportProblem::Kind::kMissing);
  const size_t open = CountWith(data, ReportProblem::Kind::kOpen);
  return Tile(CountText(data.assets.size()), "assets", "", "") +
         Tile(SizeText(all.size), "on the disk", "", "") +
         Tile(CountText(faulty), "with errors", faulty > 0 ? "error" : "good", "problem=e") +
         Tile(CountText(lacking), "lack a dependency", lacking > 0 ? "missing" : "good", "problem=m") +
         Tile(CountText(data.missing.size()), "missing assets", data.missing.empty() ? "good" : "missing",
              "") +
         Tile(CountText(open), "open for edit", "", "problem=i");
}

std::string ReportCharts(const ReportData& data) {
  return Card("Classes", ClassBars(data)) + Card("Authors", AuthorBars(data)) + Card("Sizes", SizeBars(data));
}

}  // namespace morvex::host

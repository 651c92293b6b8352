#include "host/bar_chart.h"

#include <algorithm>

#include "engine/format.h"
#include "host/asset_entry.h"
#include "host/html_text.h"

namespace morvex::host {

namespace {

// Units of the image's own; the page gives it its size.
constexpr unsigned kWidth = 460;
constexpr unsigned kRowHeight = 24;
constexpr unsigned kBarHeight = 14;
constexpr unsigned kLabelWidth = 124;
constexpr unsigned kNoteWidth = 136;
constexpr unsigned kLongestBar = kWidth - kLabelWidth - kNoteWidth;
constexpr size_t kMaxLabel = 18;

std::string DrawBar(const Bar& bar, unsigned top, uint64_t largest) {
  const double share = largest == 0 ? 0 : static_cast<double>(bar.value) / static_cast<double>(largest);
  const double length = std::max(bar.value > 0 ? 2.0 : 0.0, share * kLongestBar);
  std::string svg = "<g class=\"bar\"";
  if (!bar.filter.empty())
    svg += " tabindex=\"0\" role=\"button\" data-filter=\"" + HtmlText(bar.filter) + "\"";
  svg += ">";
  svg += "<title>" + HtmlText(bar.label + ": " + bar.note) + "</title>";
  Nox::AppendFormat(svg, "<rect class=\"back\" x=\"0\" y=\"%u\" width=\"%u\" height=\"%u\"/>", top, kWidth,
                    kRowHeight);
  Nox::AppendFormat(svg, "<text class=\"label\" x=\"%u\" y=\"%u\">%s</text>", kLabelWidth - 8, top + 16,
                    HtmlText(Shortened(bar.label, kMaxLabel)));
  Nox::AppendFormat(svg, "<rect class=\"fill\" x=\"%u\" y=\"%u\" width=\"%.1f\" height=\"%u\" rx=\"3\"/>",
                    kLabelWidth, top + (kRowHeight - kBarHeight) / 2, length, kBarHeight);
  Nox::AppendFormat(svg, "<text class=\"note\" x=\"%.1f\" y=\"%u\">%s</text></g>", kLabelWidth + length + 8,
                    top + 16, HtmlText(bar.note));
  return svg;
}

}  // namespace

std::string BarChart(const std::vector<Bar>& bars) {
  uint64_t largest = 0;
  for (const Bar& bar : bars)
    largest = std::max(largest, bar.value);
  std::string svg = Nox::FormatText(
      "<svg class=\"chart\" xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 %u %u\" role=\"img\">", kWidth,
      bars.size() * kRowHeight);
  unsigned top = 0;
  for (const Bar& bar : bars) {
    svg += DrawBar(bar, top, largest);
    top += kRowHeight;
  }
  return svg + "</svg>";
}

std::vector<Bar> LargestBars(std::vector<Bar> bars, size_t most, const std::string& restLabel) {
  std::stable_sort(bars.begin(), bars.end(), [](const Bar& a, const Bar& b) { return a.value > b.value; });
  if (bars.size() <= most) return bars;
  uint64_t rest = 0;
  for (size_t i = most; i < bars.size(); ++i)
    rest += bars[i].value;
  bars.resize(most);
  bars.push_back({restLabel, 0, CountText(rest), {}});
  return bars;
}

}  // namespace morvex::host

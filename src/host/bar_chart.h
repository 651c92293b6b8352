#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace morvex::host {

// One bar of a chart.
struct Bar {
  std::string label;
  uint64_t value = 0;
  std::string note;    // written behind the bar
  std::string filter;  // what the page searches for where the bar is clicked; empty: nothing
};

// Horizontal bars below each other as an SVG image to stand in a page: no bar is longer than that of the largest
// value, and colours are left to the page's style. Any text is allowed.
std::string BarChart(const std::vector<Bar>& bars);

// The largest ones, and a line of text without a bar, which would be the longest, for the rest.
std::vector<Bar> LargestBars(std::vector<Bar> bars, size_t most, const std::string& restLabel);

}  // namespace morvex::host

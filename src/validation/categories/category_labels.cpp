#include "validation/categories/category_expression.h"
#include "validation/categories/category_tables.h"

namespace morvex {
namespace {

// A better fit has a higher priority; among equals the first row wins. The last row fits everything.
constexpr CategoryLabelRow kLabels[] = {
    {"PST", "PaintshedTemplate", 0},
    {"BD", "Building", 0},
    {"SQ", "Script", 0},
    {"HT", "HTML", 0},
    {"PP", "People", 0},
    {"CMP;MESH", "Mesh", 0},
    {"CY", "Commodity", 0},
    {"RD", "Road", 0},
    {"RT", "Route", 0},
    {"RU", "Rule", 0},
    {"SC", "Scenario", 0},
    {"SS", "Session", 0},
    {"TP", "Topology", 0},
    {"TX;ENV", "TextureEnv", 1},
    {"TX", "TextureNonEnv", 0},
    {"TK", "Track", 0},
    {"TO", "TrackObjects", 0},
    {"VE", "Vehicle", 0},
    {"SD", "Sound", 0},
    {"FA", "Fauna", 0},
    {"FL", "Flora", 0},
    {"DR", "Driver", 0},
    {"TR", "Train", 0},
    {"SY", "Scenery", 0},
    {"MS", "Misc", 0},
    {"", "Misc", -1},
};

constexpr CategoryLabelRow kNames[] = {
    {"PST", "Paintshed Template", 0},
    {"IND;ACTV", "Industry", 0},
    {"SWT;FIXD", "Fixed Track", 0},
    {"BD", "Building", 0},
    {"HT", "HTML", 0},
    {"PP", "People", 0},
    {"CMP;MESH", "Mesh", 0},
    {"CY", "Commodity", 0},
    {"RD", "Road", 0},
    {"RT", "Route", 0},
    {"RU", "Rule", 0},
    {"SC", "Scenario", 0},
    {"SQ", "Script", 0},
    {"SS", "Session", 0},
    {"TP", "Topology", 0},
    {"TX;ENV", "TextureEnv", 1},
    {"TX", "TextureNonEnv", 0},
    {"FA", "Fauna", 0},
    {"FL", "Flora", 0},
    {"TK", "Track", 0},
    {"TK;BRG", "Bridge", 1},
    {"TK;SPL", "Spline", 1},
    {"TK;TUN", "Tunnel", 1},
    {"TO", "Track Object", 0},
    {"VE", "Vehicle", 0},
    {"SD", "Sound", 0},
    {"DR", "Driver", 0},
    {"REGN", "Region", 0},
    {"SPLN", "Spline", 0},
    {"SY", "Scenery", 0},
    {"TR;CMP", "Train Component", 0},
    {"TR", "Train", 0},
    {"MS", "Miscellaneous", 0},
    {"FIXD", "Fixed Track", 0},
};

}  // namespace

constinit const std::span<const CategoryLabelRow> CategoryLabelTable = kLabels;
constinit const std::span<const CategoryLabelRow> CategoryNameTable = kNames;

std::string_view CategoryLabel(std::span<const CategoryLabelRow> table, std::string_view value) {
  const CategoryLabelRow* best = nullptr;
  for (const CategoryLabelRow& row : table) {
    const bool better = best == nullptr || row.priority > best->priority;
    if (better && MatchExpression(value, row.expression)) best = &row;
  }
  return best == nullptr ? std::string_view() : best->label;
}

}  // namespace morvex

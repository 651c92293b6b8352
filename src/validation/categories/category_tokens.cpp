#include "validation/categories/category_tables.h"

namespace morvex {
namespace {

constexpr std::string_view kTokens[] = {
    "PST",  "FA",   "TR",   "CMP",  "ESPC", "HORN", "INTR", "PANT", "ESND", "BOGY", "BD",   "COM",  "RRD",
    "RES",  "UTL",  "SPC",  "IND",  "NACT", "ACTV", "STA",  "BDB",  "GEN",  "DCD",  "HT",   "LOC",  "STEM",
    "DIES", "ELEC", "OTHR", "RCR",  "TRM",  "LTR",  "MNR",  "MGL",  "MS",   "PP",   "CY",   "CON",  "PAX",
    "BKL",  "LIQ",  "RD",   "SPLN", "FIXD", "BRG",  "TUN",  "ACC",  "FRT",  "TANK", "FLAT", "RACK", "HOPP",
    "REEF", "ANTX", "PAX",  "SEAT", "MAIL", "CAB",  "MNT",  "TDR",  "RT",   "RU",   "GEN",  "SC",   "SY",
    "FNC",  "PWL",  "BDP",  "SS",   "TP",   "TX",   "ENV",  "NEV",  "GRND", "SKYS", "AQUA", "TK",   "RLS",
    "TTB",  "TFT",  "TO",   "SIG",  "MRK",  "TRG",  "SIN",  "CAT",  "VE",   "LND",  "SEA",  "AIR",  "SD",
    "FL",   "DR",   "TURN", "PROD", "PRDC", "MESH", "HTML", "TSND", "REGN", "SLIB", "?WS",  "?WA",  "?WX",
    "?EW",  "?ENV", "SWT",  "TV",   "SCEN",
};

}  // namespace

constinit const std::span<const std::string_view> CategoryTokens = kTokens;

}  // namespace morvex

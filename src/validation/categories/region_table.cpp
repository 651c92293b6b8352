#include "validation/categories/region_table.h"

namespace morvex {
namespace {

constexpr uint32_t Code(std::string_view letters) {
  return RegionCode(letters[0], letters[1]);
}

// The code "00" ends what a list of regions shows. Behind it stand further names that old configurations use.
// A code's own name is its first row.
constexpr RegionRow kRegions[] = {
    // clang-format off
    {Code("AD"), "Andorra"}, {Code("AE"), "United Arab Emirates"}, {Code("AF"), "Afghanistan"},
    {Code("AG"), "Antigua and Barbuda"}, {Code("AI"), "Anguilla"}, {Code("AL"), "Albania"},
    {Code("AM"), "Armenia"}, {Code("AN"), "Netherlands Antilles"}, {Code("AO"), "Angola"},
    {Code("AQ"), "Antarctica"}, {Code("AR"), "Argentina"}, {Code("AS"), "American Samoa"},
    {Code("AT"), "Austria"}, {Code("AU"), "Australia"}, {Code("AW"), "Aruba"}, {Code("AZ"), "Azerbaidjan"},
    {Code("BA"), "Bosnia-Herzegovina"}, {Code("BB"), "Barbados"}, {Code("BD"), "Bangladesh"},
    {Code("BE"), "Belgium"}, {Code("BF"), "Burkina Faso"}, {Code("BG"), "Bulgaria"}, {Code("BH"), "Bahrain"},
    {Code("BI"), "Burundi"}, {Code("BJ"), "Benin"}, {Code("BM"), "Bermuda"}, {Code("BN"), "Brunei Darussalam"},
    {Code("BO"), "Bolivia"}, {Code("BR"), "Brazil"}, {Code("BS"), "Bahamas"}, {Code("BT"), "Bhutan"},
    {Code("BV"), "Bouvet Is."}, {Code("BW"), "Botswana"}, {Code("BY"), "Belarus"}, {Code("BZ"), "Belize"},
    {Code("CA"), "Canada"}, {Code("CC"), "Cocos (Keeling) Is."}, {Code("CF"), "Central African Republic"},
    {Code("CD"), "The Democratic Republic of the Congo"}, {Code("CG"), "Congo"}, {Code("CH"), "Switzerland"},
    {Code("CI"), "Ivory Coast"}, {Code("CK"), "Cook Is."}, {Code("CL"), "Chile"}, {Code("CM"), "Cameroon"},
    {Code("CN"), "China"}, {Code("CO"), "Colombia"}, {Code("CR"), "Costa Rica"},
    {Code("CS"), "Former Czechoslovakia"}, {Code("CU"), "Cuba"}, {Code("CV"), "Cape Verde"},
    {Code("CX"), "Christmas Is."}, {Code("CY"), "Cyprus"}, {Code("CZ"), "Czech Republic"},
    {Code("DE"), "Germany"}, {Code("DJ"), "Djibouti"}, {Code("DK"), "Denmark"}, {Code("DM"), "Dominica"},
    {Code("DO"), "Dominican Republic"}, {Code("DZ"), "Algeria"}, {Code("EC"), "Ecuador"},
    {Code("EE"), "Estonia"}, {Code("EG"), "Egypt"}, {Code("EH"), "Western Sahara"}, {Code("ER"), "Eritrea"},
    {Code("ES"), "Spain"}, {Code("ET"), "Ethiopia"}, {Code("FI"), "Finland"}, {Code("FJ"), "Fiji"},
    {Code("FK"), "Falkland Is."}, {Code("FM"), "Micronesia"}, {Code("FO"), "Faroe Is."},
    {Code("FR"), "France"}, {Code("FX"), "France (European Territory)"}, {Code("GA"), "Gabon"},
    {Code("GB"), "Great Britain"}, {Code("GD"), "Grenada"}, {Code("GE"), "Georgia"},
    {Code("GF"), "French Guyana"}, {Code("GH"), "Ghana"}, {Code("GI"), "Gibraltar"}, {Code("GL"), "Greenland"},
    {Code("GM"), "Gambia"}, {Code("GN"), "Guinea"}, {Code("GP"), "Guadeloupe"},
    {Code("GQ"), "Equatorial Guinea"}, {Code("GR"), "Greece"}, {Code("GS"), "S. Georgia & S. Sandwich Is."},
    {Code("GT"), "Guatemala"}, {Code("GU"), "Guam"}, {Code("GW"), "Guinea Bissau"}, {Code("GY"), "Guyana"},
    {Code("HK"), "Hong Kong"}, {Code("HM"), "Heard & McDonald Is."}, {Code("HN"), "Honduras"},
    {Code("HR"), "Croatia"}, {Code("HT"), "Haiti"}, {Code("HU"), "Hungary"}, {Code("ID"), "Indonesia"},
    {Code("IE"), "Ireland"}, {Code("IL"), "Israel"}, {Code("IN"), "India"},
    {Code("IO"), "British Indian Ocean Territory"}, {Code("IQ"), "Iraq"}, {Code("IR"), "Iran"},
    {Code("IS"), "Iceland"}, {Code("IT"), "Italy"}, {Code("JM"), "Jamaica"}, {Code("JO"), "Jordan"},
    {Code("JP"), "Japan"}, {Code("KE"), "Kenya"}, {Code("KG"), "Kyrgyz Republic"}, {Code("KH"), "Cambodia"},
    {Code("KI"), "Kiribati"}, {Code("KM"), "Comoros"}, {Code("KN"), "Saint Kitts & Nevis Anguilla"},
    {Code("KP"), "North Korea"}, {Code("KR"), "South Korea"}, {Code("KW"), "Kuwait"},
    {Code("KY"), "Cayman Islands"}, {Code("KZ"), "Kazakhstan"}, {Code("LA"), "Laos"}, {Code("LB"), "Lebanon"},
    {Code("LC"), "Saint Lucia"}, {Code("LI"), "Liechtenstein"}, {Code("LK"), "Sri Lanka"},
    {Code("LR"), "Liberia"}, {Code("LS"), "Lesotho"}, {Code("LT"), "Lithuania"}, {Code("LU"), "Luxembourg"},
    {Code("LV"), "Latvia"}, {Code("LY"), "Libya"}, {Code("MA"), "Morocco"}, {Code("MC"), "Monaco"},
    {Code("MD"), "Moldavia"}, {Code("MG"), "Madagascar"}, {Code("MH"), "Marshall Is."},
    {Code("MK"), "Macedonia"}, {Code("ML"), "Mali"}, {Code("MM"), "Myanmar"}, {Code("MN"), "Mongolia"},
    {Code("MO"), "Macau"}, {Code("MP"), "Northern Mariana Is."}, {Code("MQ"), "Martinique"},
    {Code("MR"), "Mauritania"}, {Code("MS"), "Montserrat"}, {Code("MT"), "Malta"}, {Code("MU"), "Mauritius"},
    {Code("MV"), "Maldives"}, {Code("MW"), "Malawi"}, {Code("MX"), "Mexico"}, {Code("MY"), "Malaysia"},
    {Code("MZ"), "Mozambique"}, {Code("NA"), "Namibia"}, {Code("NC"), "New Caledonia"}, {Code("NE"), "Niger"},
    {Code("NF"), "Norfolk Is."}, {Code("NG"), "Nigeria"}, {Code("NI"), "Nicaragua"},
    {Code("NL"), "Netherlands"}, {Code("NO"), "Norway"}, {Code("NP"), "Nepal"}, {Code("NR"), "Nauru"},
    {Code("NT"), "Neutral Zone"}, {Code("NU"), "Niue"}, {Code("NZ"), "New Zealand"}, {Code("OM"), "Oman"},
    {Code("PA"), "Panama"}, {Code("PE"), "Peru"}, {Code("PF"), "Polynesia"}, {Code("PG"), "Papua New Guinea"},
    {Code("PH"), "Philippines"}, {Code("PK"), "Pakistan"}, {Code("PL"), "Poland"},
    {Code("PM"), "Saint Pierre & Miquelon"}, {Code("PN"), "Pitcairn Is."}, {Code("PR"), "Puerto Rico"},
    {Code("PT"), "Portugal"}, {Code("PW"), "Palau"}, {Code("PY"), "Paraguay"}, {Code("QA"), "Qatar"},
    {Code("RE"), "Reunion"}, {Code("RO"), "Romania"}, {Code("RU"), "Russian Federation"},
    {Code("RW"), "Rwanda"}, {Code("SA"), "Saudi Arabia"}, {Code("SB"), "Solomon Islands"},
    {Code("SC"), "Seychelles"}, {Code("SD"), "Sudan"}, {Code("SE"), "Sweden"}, {Code("SG"), "Singapore"},
    {Code("SH"), "Saint Helena"}, {Code("SI"), "Slovenia"}, {Code("SJ"), "Svalbard & Jan Mayen Is."},
    {Code("SK"), "Slovak Republic"}, {Code("SL"), "Sierra Leone"}, {Code("SM"), "San Marino"},
    {Code("SN"), "Senegal"}, {Code("SO"), "Somalia"}, {Code("SR"), "Suriname"},
    {Code("ST"), "Saint Tome & Principe"}, {Code("SU"), "Former USSR"}, {Code("SV"), "El Salvador"},
    {Code("SY"), "Syria"}, {Code("SZ"), "Swaziland"}, {Code("TC"), "Turks & Caicos Is."}, {Code("TD"), "Chad"},
    {Code("TF"), "French Southern Territories"}, {Code("TG"), "Togo"}, {Code("TH"), "Thailand"},
    {Code("TJ"), "Tadjikistan"}, {Code("TK"), "Tokelau"}, {Code("TM"), "Turkmenistan"},
    {Code("TN"), "Tunisia"}, {Code("TO"), "Tonga"}, {Code("TP"), "East Timor"}, {Code("TR"), "Turkey"},
    {Code("TT"), "Trinidad & Tobago"}, {Code("TV"), "Tuvalu"}, {Code("TW"), "Taiwan"},
    {Code("TZ"), "Tanzania"}, {Code("UA"), "Ukraine"}, {Code("UG"), "Uganda"}, {Code("UK"), "United Kingdom"},
    {Code("UM"), "USA Minor Outlying Is."}, {Code("US"), "United States"}, {Code("UY"), "Uruguay"},
    {Code("UZ"), "Uzbekistan"}, {Code("VA"), "Holy See"}, {Code("VC"), "Saint Vincent & Grenadines"},
    {Code("VE"), "Venezuela"}, {Code("VG"), "Virgin Islands (British)"}, {Code("VI"), "Virgin Islands (USA)"},
    {Code("VN"), "Vietnam"}, {Code("VU"), "Vanuatu"}, {Code("WF"), "Wallis & Futuna Is."},
    {Code("WS"), "Samoa"}, {Code("YE"), "Yemen"}, {Code("YT"), "Mayotte"}, {Code("YU"), "Yugoslavia"},
    {Code("ZA"), "South Africa"}, {Code("ZM"), "Zambia"}, {Code("ZR"), "Zaire"}, {Code("ZW"), "Zimbabwe"},
    {Code("00"), "Generic"},
    {Code("US"), "USA"}, {Code("US"), "THIRD_PARTY_USA"}, {Code("SE"), "SWE"}, {Code("AU"), "AUS"},
    {Code("UK"), "Britain"}, {Code("CH"), "Swiss_Alps"}, {Code("DE"), "DEU"}, {Code("CA"), "CAN"},
    {Code("CA"), "THIRD_PARTY_CAN"}, {Code("AU"), "THIRD_PARTY_AU"}, {Code("AU"), "AU_3RD_PARTY"},
    {Code("UK"), "THIRD_PARTY_UK"}, {Code("UK"), "GB"}, {Code("AT"), "AUT"}, {Code("FR"), "FRA"},
    {Code("NL"), "NLD"}, {Code("RU"), "RSA"}, {Code("JP"), "JPN"}, {Code("ES"), "ESP"},
    // clang-format on
};
static_assert(std::size(kRegions) == 264);

}  // namespace

constinit const std::span<const RegionRow> RegionTable = kRegions;

}  // namespace morvex

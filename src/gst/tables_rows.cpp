#include "gst/tables_rows.h"

namespace {

// clang-format off
constexpr const char* kBegin = "2017-07-01";  // of the tax

constexpr GstTableRow kRows[] = {
    {"b2cl_limit",     "",         kBegin,       "250000"},
    {"b2cl_limit",     "",         "2024-08-01", "100000"},
    {"gstr1_version",  "",         kBegin,       "GST3.2.4"},
    {"split_bytes",    "",         kBegin,       "4000000"},
    {"hsn_halves",     "",         kBegin,       "0"},
    {"hsn_halves",     "",         "2025-05-01", "1"},
    {"hsn_digits",     "0",        kBegin,       "4"},
    {"hsn_digits",     "50000001", kBegin,       "6"},
    {"table_3_2",      "",         kBegin,       "1"},
    {"table_3_2",      "",         "2025-11-01", "0"},
    {"turnover",       "",         kBegin,       "0"},
    {"einvoice_limit", "",         "2020-10-01", "5000000000"},
    {"einvoice_limit", "",         "2021-01-01", "1000000000"},
    {"einvoice_limit", "",         "2021-04-01", "500000000"},
    {"einvoice_limit", "",         "2022-04-01", "200000000"},
    {"einvoice_limit", "",         "2022-10-01", "100000000"},
    {"einvoice_limit", "",         "2023-08-01", "50000000"},
    {"einvoice_days",  "0",        kBegin,       "0"},
    {"einvoice_days",  "1000000000", "2023-11-01", "30"},
    {"einvoice_days",  "100000000",  "2025-04-01", "30"},
    {"eway_limit",     "",         "2018-04-01", "50000"},

    {"rate", "0",    kBegin, "1"}, {"rate", "0.1", kBegin, "1"}, {"rate", "0.25", kBegin, "1"},
    {"rate", "1",    kBegin, "1"}, {"rate", "1.5", kBegin, "1"}, {"rate", "3",    kBegin, "1"},
    {"rate", "5",    kBegin, "1"}, {"rate", "6",   kBegin, "1"}, {"rate", "7.5",  kBegin, "1"},
    {"rate", "12",   kBegin, "1"}, {"rate", "18",  kBegin, "1"}, {"rate", "28",   kBegin, "1"},
    {"rate", "40",   "2025-09-22", "1"},

    // Of what bears no tax: outside of the tax are liquor for drinking, crude oil, petrol, diesel, natural gas.
    {"zero_rate", "",       kBegin, "nil"},
    {"zero_rate", "2203",   kBegin, "nongst"}, {"zero_rate", "2204",   kBegin, "nongst"},
    {"zero_rate", "2205",   kBegin, "nongst"}, {"zero_rate", "2206",   kBegin, "nongst"},
    {"zero_rate", "2208",   kBegin, "nongst"}, {"zero_rate", "2709",   kBegin, "nongst"},
    {"zero_rate", "271012", kBegin, "nongst"}, {"zero_rate", "271019", kBegin, "nongst"},
    {"zero_rate", "271121", kBegin, "nongst"},

    // States that are gone and no place of supply.
    {"no_place", "28", kBegin, "1"}, {"no_place", "25", "2020-08-01", "1"},

    // The codes for units, then what shops write for them.
    {"uqc", "BAG", kBegin, "BAG"}, {"uqc", "BAL", kBegin, "BAL"}, {"uqc", "BDL", kBegin, "BDL"},
    {"uqc", "BKL", kBegin, "BKL"}, {"uqc", "BOU", kBegin, "BOU"}, {"uqc", "BOX", kBegin, "BOX"},
    {"uqc", "BTL", kBegin, "BTL"}, {"uqc", "BUN", kBegin, "BUN"}, {"uqc", "CAN", kBegin, "CAN"},
    {"uqc", "CBM", kBegin, "CBM"}, {"uqc", "CCM", kBegin, "CCM"}, {"uqc", "CMS", kBegin, "CMS"},
    {"uqc", "CTN", kBegin, "CTN"}, {"uqc", "DOZ", kBegin, "DOZ"}, {"uqc", "DRM", kBegin, "DRM"},
    {"uqc", "GGK", kBegin, "GGK"}, {"uqc", "GMS", kBegin, "GMS"}, {"uqc", "GRS", kBegin, "GRS"},
    {"uqc", "GYD", kBegin, "GYD"}, {"uqc", "KGS", kBegin, "KGS"}, {"uqc", "KLR", kBegin, "KLR"},
    {"uqc", "KME", kBegin, "KME"}, {"uqc", "LTR", kBegin, "LTR"}, {"uqc", "MLT", kBegin, "MLT"},
    {"uqc", "MTR", kBegin, "MTR"}, {"uqc", "MTS", kBegin, "MTS"}, {"uqc", "NOS", kBegin, "NOS"},
    {"uqc", "OTH", kBegin, "OTH"}, {"uqc", "PAC", kBegin, "PAC"}, {"uqc", "PCS", kBegin, "PCS"},
    {"uqc", "PRS", kBegin, "PRS"}, {"uqc", "QTL", kBegin, "QTL"}, {"uqc", "ROL", kBegin, "ROL"},
    {"uqc", "SET", kBegin, "SET"}, {"uqc", "SQF", kBegin, "SQF"}, {"uqc", "SQM", kBegin, "SQM"},
    {"uqc", "SQY", kBegin, "SQY"}, {"uqc", "TBS", kBegin, "TBS"}, {"uqc", "TGM", kBegin, "TGM"},
    {"uqc", "THD", kBegin, "THD"}, {"uqc", "TON", kBegin, "TON"}, {"uqc", "TUB", kBegin, "TUB"},
    {"uqc", "UGS", kBegin, "UGS"}, {"uqc", "UNT", kBegin, "UNT"}, {"uqc", "YDS", kBegin, "YDS"},
    {"uqc", "BAGS",   kBegin, "BAG"}, {"uqc", "BALE",   kBegin, "BAL"}, {"uqc", "BUNDLE", kBegin, "BDL"},
    {"uqc", "BOXES",  kBegin, "BOX"}, {"uqc", "BOTTLE", kBegin, "BTL"}, {"uqc", "BOT",    kBegin, "BTL"},
    {"uqc", "CARTON", kBegin, "CTN"}, {"uqc", "CM",     kBegin, "CMS"}, {"uqc", "DOZEN",  kBegin, "DOZ"},
    {"uqc", "DZ",     kBegin, "DOZ"}, {"uqc", "DRUM",   kBegin, "DRM"}, {"uqc", "G",      kBegin, "GMS"},
    {"uqc", "GM",     kBegin, "GMS"}, {"uqc", "GRAM",   kBegin, "GMS"}, {"uqc", "GRAMS",  kBegin, "GMS"},
    {"uqc", "KG",     kBegin, "KGS"}, {"uqc", "KILO",   kBegin, "KGS"}, {"uqc", "L",      kBegin, "LTR"},
    {"uqc", "LT",     kBegin, "LTR"}, {"uqc", "LITRE",  kBegin, "LTR"}, {"uqc", "LITER",  kBegin, "LTR"},
    {"uqc", "LTRS",   kBegin, "LTR"}, {"uqc", "ML",     kBegin, "MLT"}, {"uqc", "M",      kBegin, "MTR"},
    {"uqc", "MT",     kBegin, "MTS"}, {"uqc", "METER",  kBegin, "MTR"}, {"uqc", "METRE",  kBegin, "MTR"},
    {"uqc", "MTRS",   kBegin, "MTR"}, {"uqc", "NO",     kBegin, "NOS"}, {"uqc", "NUMBER", kBegin, "NOS"},
    {"uqc", "PACK",   kBegin, "PAC"}, {"uqc", "PACKET", kBegin, "PAC"}, {"uqc", "PKT",    kBegin, "PAC"},
    {"uqc", "PC",     kBegin, "PCS"}, {"uqc", "PIECE",  kBegin, "PCS"}, {"uqc", "PIECES", kBegin, "PCS"},
    {"uqc", "PAIR",   kBegin, "PRS"}, {"uqc", "PAIRS",  kBegin, "PRS"}, {"uqc", "QUINTAL", kBegin, "QTL"},
    {"uqc", "ROLL",   kBegin, "ROL"}, {"uqc", "ROLLS",  kBegin, "ROL"}, {"uqc", "SETS",   kBegin, "SET"},
    {"uqc", "SQFT",   kBegin, "SQF"}, {"uqc", "SQMT",   kBegin, "SQM"}, {"uqc", "TIN",    kBegin, "CAN"},
    {"uqc", "TUBE",   kBegin, "TUB"}, {"uqc", "UNIT",   kBegin, "UNT"}, {"uqc", "YARD",   kBegin, "YDS"},
};
// clang-format on

}  // namespace

std::span<const GstTableRow> gstTableRows() { return kRows; }

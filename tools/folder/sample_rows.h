#pragma once

// The sample company and its books. All names, numbers and addresses are invented; the
// identification numbers stand without their check character, which is worked out.

// clang-format off
struct SampleCompany {
  const char *name, *address, *place, *pin, *state, *stateCode;
  const char *phone1, *phone2, *email, *gstin14, *pan;
  const char *bank, *branch, *ifsc, *accountNumber;
};
inline constexpr SampleCompany kCompany = {
    "TEJKIRAN ELECTRICALS", "12, RAJMAHAL ARCADE, STATION ROAD", "ANAND", "388001", "GUJARAT", "24",
    "02692-555012", "9090909090", "tejkiran@example.org", "24AAAPT4821K1Z", "AAAPT4821K",
    "NAVRANG BANK", "ANAND MAIN", "NVRG0000412", "041200100004821",
};

struct SampleCategory { const char *code, *name, *hsn; double tax; };
inline constexpr SampleCategory kCategories[] = {
    {"E002", "WIRES AND CABLES",    "8544", 18},
    {"E003", "SWITCHES AND BOARDS", "8536", 18},
    {"E004", "LIGHTING",            "9405", 12},
    {"E005", "FANS AND MOTORS",     "8414", 18},
    {"E006", "COOLING",             "8415", 28},
    {"E007", "SUNDRIES",            "8547",  5},
};

struct SampleItem { const char *code, *name, *category, *unit, *hsn; double tax, purchase, sale, mrp, discount; };
inline constexpr SampleItem kItems[] = {
    {"I0000001", "COPPER WIRE 1.5 SQMM RED",    "E002", "MTR",  "85444920", 18,    14.2,    18.5,    24,  0},
    {"I0000002", "COPPER WIRE 2.5 SQMM BLACK",  "E002", "MTR",  "85444920", 18,    22.6,    29.75,   38,  0},
    {"I0000003", "FLAT CABLE 3 CORE 90 MTR",    "E002", "COIL", "85444999", 18,  3150,    3890,    4600,  5},
    {"I0000004", "SWITCH 6 AMP ONE WAY",        "E003", "NOS",  "85365090", 18,    21,      32,      45,  0},
    {"I0000005", "SOCKET 16 AMP",               "E003", "NOS",  "85366990", 18,    74,     105,     140,  0},
    {"I0000006", "MODULAR PLATE 6 WAY",         "E003", "NOS",  "85389000", 18,    88,     126,     165,  0},
    {"I0000007", "MCB SINGLE POLE 16 AMP",      "E003", "NOS",  "85362030", 18,   118,     165,     215,  0},
    {"I0000008", "LED LAMP 9 WATT",             "E004", "NOS",  "85395000", 12,    58,      82.5,   110,  0},
    {"I0000009", "LED BATTEN 20 WATT",          "E004", "NOS",  "94054090", 12,   165,     228,     299, 10},
    {"I0000010", "SOLAR LANTERN",               "E004", "NOS",  "94054010",  5,   640,     815,     999,  0},
    {"I0000011", "CEILING FAN 1200 MM",         "E005", "NOS",  "84145120", 18,  1380,    1795,    2350,  8},
    {"I0000012", "WATER PUMP 0.5 HP",           "E005", "NOS",  "84137010", 18,  2650,    3340,    3990,  0},
    {"I0000013", "ROOM COOLER WALL UNIT 1 TON", "E006", "NOS",  "84151010", 28, 21500,   25390,   29990,  0},
    {"I0000014", "BAMBOO CONDUIT STICK",        "E007", "BOX",  "14011000",  5,   210,     275,     325,  0},
    {"I0000015", "WIRING GUIDE BOOK",           "E007", "NOS",  "49011010",  0,    95,     140,     150,  0},
};

// Further units of items: the same wire by the coil.
struct SampleUnit { const char *item, *unit; double purchase, sale, mrp; };
inline constexpr SampleUnit kUnits[] = {
    {"I0000001", "COIL", 1260, 1640, 2100},
    {"I0000002", "COIL", 2010, 2650, 3350},
};

struct SampleParty {
  const char *code, *name, *person, *address1, *address2, *area, *city, *pin, *phone, *gstin14;
  int group, stateCode;
  double opening, creditDays;
};
inline constexpr SampleParty kParties[] = {
    {"A00001", "MAYURI POWER TOOLS",     "HEMAL DAVE",    "4, GALAXY COMPLEX", "AMUL DAIRY ROAD", "GAMDI",      "ANAND",    "388001", "9900000101", "24AABCM7312P1Z",  85, 24,  18450,   30},
    {"A00002", "SHIVANGI CONSTRUCTION",  "JIGAR PARIKH",  "PLOT 88",           "GIDC ESTATE",     "VITTHAL",    "VADODARA", "390010", "9900000102", "24AAKFS5520H1Z",  85, 24,      0,   45},
    {"A00003", "OJAS LIGHT HOUSE",       "NIRAV SONI",    "TOWER BAZAR",       "",                "MAIN ROAD",  "NADIAD",   "387001", "9900000103", "24AAEPO9061D1Z",  85, 24,   6200.5, 15},
    {"A00004", "PARIJAT BUILDERS",       "MEERA TRIVEDI", "11, KALPAK SQUARE", "COLLEGE ROAD",    "KARAMSAD",   "ANAND",    "388325", "9900000104", "24AAOCP1187Q1Z",  85, 24,      0,   30},
    {"A00005", "DHRUVTARA ENTERPRISE",   "ROHIT MATHUR",  "B-7, SHANTI NAGAR", "TONK ROAD",       "SANGANER",   "JAIPUR",   "302015", "9900000105", "08AAHFD6643L1Z",  85,  8,      0,   30},
    {"A00006", "MARUDHAR ELECTRO WORKS", "KAVITA JOSHI",  "22, SARDAR MARKET", "",                "CLOCK TOWER","JODHPUR",  "342001", "9900000106", "08ABRPM2290F1Z",  85,  8,   9975,   60},
    {"A00007", "CASH SALE",              ".",             ".",                 ".",               ".",          "ANAND",    "388001", ".",          nullptr,           85, 24,      0,    0},
    {"A00008", "VIDYUT CABLE MAKERS",    "TUSHAR AMIN",   "SURVEY 210",        "MAKARPURA",       "MAKARPURA",  "VADODARA", "390014", "9900000108", "24AACCV8834N1Z", 135, 24, -42600,   30},
};

struct SampleTransporter { double id; const char *name, *area, *city, *phone, *gstin14; };
inline constexpr SampleTransporter kTransporters[] = {
    {1, "LOCAL",               ".",        ".",         ".",          nullptr         },
    {2, "CHARUTAR ROADLINES",  "GIDC",     "ANAND",     "9900000201", "24AAJFC3307R1Z"},
    {3, "THAR CARRIERS",       "TONK ROAD","JAIPUR",    "9900000202", "08AAMFT7719E1Z"},
};

struct SampleLine { const char *item, *unit; double quantity, rate, discount; };
struct SampleBill {
  int daysAgo;
  const char *party, *transport, *narration;
  SampleLine lines[4];
};
inline constexpr SampleBill kBills[] = {
    {58, "A00002", "LOCAL",              "FIRST FLOOR WIRING", {{"I0000003", "COIL", 4, 3890, 5}, {"I0000007", "NOS", 24, 165, 0}, {"I0000005", "NOS", 40, 105, 2.5}}},
    {44, "A00001", "LOCAL",              "",                   {{"I0000012", "NOS", 2, 3340, 0}}},
    {31, "A00005", "THAR CARRIERS",      "ORDER BY PHONE",     {{"I0000011", "NOS", 15, 1795, 8}, {"I0000009", "NOS", 30, 228, 10}}},
    {17, "A00003", "CHARUTAR ROADLINES", "",                   {{"I0000008", "NOS", 100, 82.5, 0}, {"I0000010", "NOS", 6, 815, 0}, {"I0000015", "NOS", 3, 140, 0}}},
    { 6, "A00004", "LOCAL",              "SITE OFFICE",        {{"I0000013", "NOS", 2, 25390, 0}, {"I0000001", "MTR", 182.5, 18.5, 0}}},
    { 1, "A00006", "THAR CARRIERS",      "",                   {{"I0000002", "COIL", 5, 2650, 3}, {"I0000014", "BOX", 12, 275, 0}}},
    { 0, "A00007", "LOCAL",              "",                   {{"I0000004", "NOS", 10, 32, 0}, {"I0000006", "NOS", 2, 126, 0}}},
};

struct SampleReceipt { int daysAgo; const char* party; double amount; const char* narration; };
inline constexpr SampleReceipt kReceipts[] = {
    {25, "A00001", 18450, "OPENING BALANCE IN FULL"},
    { 3, "A00002", 15000, "PART PAYMENT"},
    { 0, "A00007",   675, "PAID ON THE SPOT"},
};
// clang-format on

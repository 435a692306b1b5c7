#include "documents/company_cells.h"

#include <stdexcept>

Row companyDetails(Database& db, const std::string& missing) {
  const auto company = db.first("SELECT COMP_DET.* FROM COMP_DET");
  if (!company) throw std::runtime_error(missing);
  return *company;
}

void companyAddress(DataSheet& sheet, const Row& company) {
  sheet.field(3, 1, company, "ADDRS");
  sheet.field(3, 3, company, "PH1");
  sheet.field(3, 5, company, "PH2");
}

void companyPairs(DataSheet& sheet, const Row& company) {
  struct Pair {
    int column;
    const char *label, *field;
  };
  // The labels over AREA and CITY are as designs know them.
  constexpr Pair kPairs[] = {
      {9,  "STATE",     "STATE"      },
      {16, "BANK NAME", "C_BANK_NAME"},
      {17, "BRANCH",    "C_BRNCH"    },
      {18, "IFSC",      "C_IFSC"     },
      {19, "AC_NO",     "C_AC_NO"    },
      {20, "EMAIL",     "C_EMAIL"    },
      {24, "GSTINNO",   "GSTINNO"    },
      {26, "STATECD",   "STATECD"    },
      {27, "CITY",      "AREA"       },
      {28, "STATE",     "CITY"       },
  };
  for (const auto& [column, label, field] : kPairs) {
    sheet.set(3, column, label);
    sheet.field(4, column, company, field);
  }
}

void companyRegistrations(DataSheet& sheet, const Row& company) {
  sheet.field(4, 1, company, "TINNO");
  sheet.field(5, 1, company, "CSTNO");
}

#include "documents/address_card.h"

#include <stdexcept>

#include "base/words.h"
#include "documents/company_cells.h"
#include "documents/paper.h"
#include "frame/session.h"

namespace {

struct Cell {
  int row, column;
  const char* field;
};

void companyCells(DataSheet& sheet, const std::string& name, const Row& company) {
  constexpr const char* kLabels[] = {"Company", "ADDress", "Phone1", "Phone2"};
  for (int j = 0; j < 4; ++j) sheet.set(1, 5 + j, kLabels[j]);
  sheet.set(2, 5, name);
  constexpr const char* kMore[] = {"STATE",  "STATECD", "GSTINNO", "EMAIL",    "BANK NAME",
                                   "BRANCH", "IFSC",    "AC_NO",   "Ex Detail"};
  for (int j = 0; j < 9; ++j) sheet.set(1, 15 + j, kMore[j]);
  constexpr Cell kValues[] = {
      {2, 6,  "ADDRS"      },
      {2, 7,  "PH1"        },
      {2, 8,  "PH2"        },
      {2, 15, "STATE"      },
      {2, 16, "STATECD"    },
      {2, 17, "GSTINNO"    },
      {2, 18, "C_EMAIL"    },
      {2, 19, "C_BANK_NAME"},
      {2, 20, "C_BRNCH"    },
      {2, 21, "C_IFSC"     },
      {2, 22, "C_AC_NO"    },
  };
  for (const auto& [row, column, field] : kValues) sheet.field(row, column, company, field);
}

void accountCells(DataSheet& sheet, const Row& account) {
  constexpr const char* kLabels[] = {"ADD1", "ADD2", "GSTINNO", "PANNO", "STATE CODE", "PHONE NO"};
  for (int j = 0; j < 6; ++j) sheet.set(3, 5 + j, kLabels[j]);
  // The telephone stands where three values were meant to stand side by side.
  constexpr Cell kValues[] = {
      {4, 5, "ADD1"   },
      {4, 6, "ADD2"   },
      {4, 7, "GSTINNO"},
      {4, 8, "PHONE1" },
  };
  for (const auto& [row, column, field] : kValues) sheet.field(row, column, account, field);
}

// The card itself: to whom, from whom.
void addressCells(DataSheet& sheet, const std::string& name, const Row& company, const Row& account) {
  constexpr Cell kTo[] = {
      {1,  1, "ACC_NAME"},
      {2,  1, "ADD1"    },
      {3,  1, "ADD2"    },
      {5,  1, "AREA"    },
      {6,  1, "CITY"    },
      {7,  1, "PINCODE" },
      {8,  1, "PHONE1"  },
      {17, 1, "EMAIL"   },
  };
  constexpr Cell kFrom[] = {
      {13, 1, "AD1" },
      {14, 1, "AD2" },
      {15, 1, "AREA"},
      {16, 1, "CITY"},
  };
  for (const auto& [row, column, field] : kTo) sheet.field(row, column, account, field);
  sheet.set(12, 1, name);
  for (const auto& [row, column, field] : kFrom) sheet.field(row, column, company, field);
  sheet.set(18, 1, words("ADDRESS CARD"));
}

}  // namespace

FilledSheet addressCardSheet(Database& db, const std::string& name, const Row& company,
                             const std::string& account) {
  FilledSheet sheet;
  const auto found = db.first("SELECT ACCOUNT.* FROM ACCOUNT WHERE ACC_CD = ?", account);
  if (!found) return sheet;
  companyCells(sheet.cells, name, company);
  accountCells(sheet.cells, *found);
  addressCells(sheet.cells, name, company, *found);
  sheet.lines = 1;
  return sheet;
}

void RenderAddressCard(Host& host, const std::string& account, const std::string&) {
  Session& s = session();
  s.mpdfpath.clear();
  tellFailures(host, [&] {
    const Row company = companyDetails(data(), english("Company Details Missing"));
    const FilledSheet sheet = addressCardSheet(data(), s.mcompname, company, account);
    if (sheet.lines == 0) throw std::runtime_error("No Records");
    makePaper(host,
              {
                  .design = formatsFolder() / "voucher.xlsx",
                  .copy = billsFolder() / "voucher.xlsx",
                  .pdf = billsFolder() / "ADCARD.PDF",
                  .dataSheet = "rpt",
                  .sheet = "MAILLABL",
              },
              sheet);
  });
}

#include "store/templates.h"

#include "store/alter.h"
#include "store/dictionary.h"
#include "store/engine.h"
#include "store/keys.h"
#include "store/row_writer.h"
#include "store/safe_file.h"
#include "store/seeds.h"
#include "store/views.h"

namespace fs = std::filesystem;
using namespace std::chrono_literals;

namespace {

constexpr Date firstDate = 2023y / 4 / 1;

// clang-format off
struct TemplateRow { int number; const char* code; const char* name; };
constexpr TemplateRow templateRows[] = {
    {221, ".",        "IN USE"         },
    {222, ".",        "IN USE"         },
    {223, ".",        "IN USE"         },
    {224, ".",        "IN USE"         },
    {225, ".",        "IN USE"         },
    {226, ".",        "IN USE"         },
    {301, "G_SALENO", "SALE NO"        },
    {302, "G_CHVNO",  "CHALLAN NO"     },
    {303, "G_CPVNO",  "CHALLAN NO CP"  },
    {304, "G_CSVNO",  "CHALLAN NO CS"  },
    {305, "G_RTVNO",  "CHALLAN NO RT"  },
};
// clang-format on

void addTemplateRows(Database& db) {
  for (const auto& row : templateRows)
    insertRow(db, "SPSFILE",
              {
                  {"VOUCH_NO",   row.number},
                  {"VOUCH_DT",   firstDate },
                  {"VOUCH_CD",   row.code  },
                  {"VOUCH_NM",   row.name  },
                  {"VOUCH_QTY",  0         },
                  {"VOUCH_AMT",  0         },
                  {"VOUCH_FLAG", 0         }
    });
}

// The item under which a bill takes lines of free text; its category tells them apart on paper.
void addFreeTextItem(Database& db) {
  insertRow(db, "DEPTMENT",
            {
                {"DEPT_CD",     "E001"},
                {"DEPT_NAME",   "MISC"},
                {"GROUPING",    "."   },
                {"NOCOUNT_STK", "N"   },
                {"HSNCODE",     "."   },
                {"ITEMDESC",    "."   }
  });
  insertRow(db, "ITEM",
            {
                {"ITEM_CD",    "MISC"},
                {"ITEM_NAME",  "MISC"},
                {"ITEM_SNAME", "."   },
                {"ITEM_LNAME", "."   },
                {"DEPT_CD",    "E001"},
                {"TAX_CD",     1     },
                {"UOM",        "NOS" },
                {"HSNCODE",    "."   }
  });
  insertRow(db, "ITEMDTL",
            {
                {"ITEM_CD", "MISC"},
                {"SIZE_CD", "NOS" },
                {"DESC1",   "1"   }
  });
}

void makeDatabase(const fs::path& file, void (*fill)(Database&)) {
  buildBeside(file, [&](const fs::path& making) {
    Database db;
    db.openFile(making, Access::create);
    fill(db);
    db.close();
  });
}

}  // namespace

void fillCompanyDatabase(Database& db) {
  Transaction all(db);
  CreateDictionary(db);
  CreateDropList(db);
  SeedDictionary(db);
  ApplyDictionary(db);
  for (const auto& key : tableKeys())
    if (key.table != kUnitsTable) (void)addKey(db, key);  // empty tables hold no key twice
  EnsureIndexes(db);
  RemakeViews(db);

  Settings settings{.mstartdt = firstDate};
  EnsureSettings(db, settings);
  EnsureAccounts(db);
  EnsureGroups(db);
  EnsureTaxes(db);
  EnsureDesigns(db);
  addTemplateRows(db);
  addFreeTextItem(db);
  stampShape(db);
  all.commit();
}

void makeCompanyDatabase(const fs::path& file) { makeDatabase(file, fillCompanyDatabase); }

void makeTemplates(const fs::path& folder) {
  makeCompanyDatabase(folder / "SMPL.MDB");
  copyDatabase(folder / "SMPL.MDB", folder / "BLNK.MDB");
}

void makeUserTable(Database& db) {
  db.engine().createTable(
      "USER1",
      declaredColumns("CREATE TABLE USER1 (USER_NAME TEXT(20) COLLATE NOCASE CHECK (LENGTH(USER_NAME) <= 20),"
                      " LOGGEDON TEXT(2) COLLATE NOCASE CHECK (LENGTH(LOGGEDON) <= 2))"));
}

void fillCatalogue(Database& db) {
  Transaction all(db);
  db.engine().createTable("compny", dictionaryColumns("COMPNY"));
  makeUserTable(db);
  all.commit();
}

void makeCatalogue(const fs::path& file) { makeDatabase(file, fillCatalogue); }

void copyDatabase(const fs::path& from, const fs::path& to) {
  buildBeside(to, [&](const fs::path& making) { copyFile(from, making); });
}

#include "store/templates.h"

#include <fcntl.h>
#include <unistd.h>

#include <functional>
#include <system_error>

#include "store/alter.h"
#include "store/dictionary.h"
#include "store/keys.h"
#include "store/row_writer.h"
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

void fillCompanyDatabase(Database& db) {
  Transaction all(db);
  CreateDictionary(db);
  CreateDropList(db);
  SeedDictionary(db);
  ApplyDictionary(db);
  // ITEMDTL goes without its key: an item may have several sizes.
  for (const auto& key : tableKeys())
    if (key.table != "ITEMDTL") addKey(db, key);
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
  all.commit();
}

DatabaseError fileError(const fs::path& file, const std::error_code& error) {
  using Kind = DatabaseError::Kind;
  const Kind kind = error == std::errc::no_space_on_device          ? Kind::full
                    : error == std::errc::no_such_file_or_directory ? Kind::missing
                    : error == std::errc::permission_denied || error == std::errc::read_only_file_system
                        ? Kind::readOnly
                        : Kind::io;
  return {kind, file.filename().string(), error.message()};
}

void flushToDisk(const fs::path& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  const bool flushed = file >= 0 && fsync(file) == 0;
  const std::error_code error(errno, std::generic_category());
  if (file >= 0) close(file);
  if (!flushed) throw fileError(path, error);
}

// A journal that a crash left beside the old file would be played into the new one.
void putInPlace(const fs::path& whole, const fs::path& file) {
  std::error_code error;
  fs::remove(file.string() + "-journal", error);
  if (!error) fs::rename(whole, file, error);
  if (error) throw fileError(file, error);
  flushToDisk(file.has_parent_path() ? file.parent_path() : fs::path("."));
}

void buildBeside(const fs::path& file, const std::function<void(const fs::path&)>& build) {
  const fs::path making = file.string() + ".new";
  std::error_code ignored;
  fs::remove(making, ignored);
  try {
    build(making);
    flushToDisk(making);
    putInPlace(making, file);
  } catch (...) {
    fs::remove(making, ignored);
    throw;
  }
}

void makeDatabase(const fs::path& file, void (*fill)(Database&)) {
  buildBeside(file, [&](const fs::path& making) {
    Database db;
    db.open(making, Access::create);
    fill(db);
    db.close();
  });
}

}  // namespace

void makeCompanyDatabase(const fs::path& file) { makeDatabase(file, fillCompanyDatabase); }

void makeTemplates(const fs::path& folder) {
  makeCompanyDatabase(folder / "SMPL.MDB");
  copyDatabase(folder / "SMPL.MDB", folder / "BLNK.MDB");
}

void makeCatalogue(const fs::path& file) {
  makeDatabase(file, [](Database& db) {
    Transaction all(db);
    db.exec(createTableStatement("compny", dictionaryColumns("COMPNY")));
    db.exec(
        "CREATE TABLE USER1 (USER_NAME TEXT(20) COLLATE NOCASE CHECK (LENGTH(USER_NAME) <= 20),"
        " LOGGEDON TEXT(2) COLLATE NOCASE CHECK (LENGTH(LOGGEDON) <= 2))");
    all.commit();
  });
}

void copyDatabase(const fs::path& from, const fs::path& to) {
  buildBeside(to, [&](const fs::path& making) {
    std::error_code error;
    if (!fs::copy_file(from, making, error)) throw fileError(from, error);
    fs::permissions(making, fs::perms::owner_read | fs::perms::owner_write, fs::perm_options::add, error);
  });
}

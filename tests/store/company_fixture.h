#pragma once

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "base/text.h"
#include "store/database.h"
#include "store/templates.h"
#include "support/temp_folder.h"

// A company-year as delivered, made once and copied for each test.
class CompanyTest : public testing::Test {
 protected:
  CompanyTest() {
    static const TempFolder made;
    if (!std::filesystem::exists(made / "SMPL.MDB")) makeCompanyDatabase(made / "SMPL.MDB");
    std::filesystem::copy_file(made / "SMPL.MDB", folder / "M00124.mdb");
    db.open(folder / "M00124.mdb");
  }

  // Everything stored: the schema and all rows in order.
  static std::string contents(Database& database) {
    std::string all;
    for (const auto& table : database.all("SELECT name, sql FROM main.sqlite_master ORDER BY name")) {
      all += table.text(0) + ": " + table.text(1) + "\n";
      if (!database.first("SELECT 1 FROM main.sqlite_master WHERE type = 'table' AND name = ?",
                          table.text(0)))
        continue;
      for (auto rows = database.query("SELECT * FROM main." + quotedName(table.text(0)) + " ORDER BY rowid");
           rows.next();) {
        for (int i = 0; i < rows.count(); ++i) all += (rows.isNull(i) ? "NULL" : rows.text(i)) + "|";
        all += "\n";
      }
    }
    return all;
  }

  // Of the files in the folder.
  std::set<std::string> names() const {
    std::set<std::string> all;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
      all.insert(entry.path().filename());
    return all;
  }

  TempFolder folder;
  Database db;
};

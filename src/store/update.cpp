#include "store/update.h"

#include <map>
#include <stdexcept>

#include "base/words.h"
#include "store/dictionary.h"
#include "store/engine.h"
#include "store/keys.h"
#include "store/place.h"
#include "store/safe_file.h"
#include "store/seeds.h"
#include "store/views.h"

namespace {

std::map<std::string, double> rowCounts(Database& db) {
  std::map<std::string, double> counts;
  for (const std::string& table : declaredTables())
    if (CheckTable(db, table) && table != "STRUCTAB" && table != "DROPLIST")
      counts[table] = standingRows(db, table);
  return counts;
}

// Views name the tables that the walk is about to alter, so they stand aside meanwhile. It changes what
// rows hold, never how many there are.
void walk(Database& db) {
  const auto before = rowCounts(db);
  DropViews(db);
  CreateDictionary(db);
  if (!CheckTable(db, "DROPLIST")) CreateDropList(db);
  SeedDictionary(db);
  ApplyDictionary(db);
  DropUndeclared(db);
  RemakeViews(db);
  auto after = rowCounts(db);
  for (const auto& [table, rows] : before)
    if (after[table] != rows)
      throw std::runtime_error(
          words("{table} Would Have Other Rows Than Before :: Nothing Was Changed", "table", table));
}

void writeCompany(Database& db, const UpdateFacts& f) {
  constexpr Because why{"the company's own row repeats what the catalogue says"};
  db.passOver(why, "DELETE FROM COMPNY");
  db.passOver(why,
              "INSERT INTO COMPNY (COMP_ID, COMP_NAME, FROMYR, TOYR, MOBNOCO, DATANM, DATASENT)"
              " VALUES (?, ?, ?, ?, ?, ?, 'N')",
              f.companyCode, f.companyName, f.fromYear, f.toYear, f.mobile, f.dataname);
}

std::vector<std::string> remakeKeys(Database& db, bool oneUnit) {
  removeDoubles(db);
  dropKeys(db);
  std::vector<std::string> failed;
  for (const TableKey& key : tableKeys()) {
    if (key.table == kUnitsTable && (!oneUnit || hasSeveralUnits(db))) continue;
    if (!addKey(db, key)) failed.emplace_back(key.table);
  }
  EnsureIndexes(db);
  return failed;
}

}  // namespace

bool hasSeveralUnits(Database& db) {
  bool several = false;
  db.passOver(kOlderBooks, [&] {
    several =
        db.first("SELECT 1 FROM ITEMDTL GROUP BY ITEM_CD HAVING COUNT(DISTINCT SIZE_CD) > 1").has_value();
  });
  return several;
}

std::vector<std::string> updateDatabase(Database& db, const UpdateFacts& facts,
                                        const UpdateProgress& progress) {
  if (shapeVersion(db) > kShapeVersion)
    throw std::runtime_error(words("{file} Was Shaped By A Newer Program :: Update This Program First",
                                   "file", shownName(db.file())));
  std::vector<std::string> withoutKey;
  const auto step = [&](const char* words, const std::function<void()>& work) {
    if (progress) progress(words);
    work();
  };
  if (onServer(db.file())) db.engine().stampShape(kHalfWalked);
  const auto shape = [&] {
    Transaction all(db);
    step(english("Tables And Columns"), [&] { walk(db); });
    step(english("Print Designs"), [&] { EnsureDesigns(db); });
    step(english("Data"), [&] { repairRows(db, facts.repair); });
    step(english("Company"), [&] { writeCompany(db, facts); });
    step(english("Keys"), [&] { withoutKey = remakeKeys(db, facts.oneUnit); });
    stampShape(db);
    step(english("Writing To The Disk"), [&] { all.commit(); });
  };
  // A server would change them in the place of those of the books that they stand before.
  db.engine().dropWorkTables();
  try {
    shape();
  } catch (...) {
    db.passOver({"what failed first is told"}, [&] { RemakeWorkTables(db); });
    throw;
  }
  RemakeWorkTables(db);
  return withoutKey;
}

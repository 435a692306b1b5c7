#include "store/update.h"

#include "base/words.h"
#include "store/dictionary.h"
#include "store/keys.h"
#include "store/seeds.h"
#include "store/views.h"

namespace {

// Views name the tables that the walk is about to alter, so they stand aside meanwhile.
void walk(Database& db) {
  DropViews(db);
  CreateDictionary(db);
  if (!CheckTable(db, "DROPLIST")) CreateDropList(db);
  SeedDictionary(db);
  ApplyDictionary(db);
  DropUndeclared(db);
  RemakeViews(db);
}

void writeCompany(Database& db, const UpdateFacts& f) {
  constexpr Because why{"the company's own row repeats what the catalogue says"};
  db.passOver(why, "DELETE FROM main.COMPNY");
  db.passOver(
      why,
      "INSERT INTO main.COMPNY (COMP_ID, COMP_NAME, FROMYR, TOYR, MOBNOCO, DATANM, DATASENT)"
      " VALUES (?, ?, ?, ?, ?, ?, 'N')",
      f.companyCode, f.companyName, f.fromYear, f.toYear, f.mobile, f.dataname);
}

std::vector<std::string> remakeKeys(Database& db) {
  removeDoubles(db);
  dropKeys(db);
  std::vector<std::string> failed;
  for (const TableKey& key : tableKeys())
    if (!addKey(db, key)) failed.emplace_back(key.table);
  EnsureIndexes(db);
  return failed;
}

}  // namespace

std::vector<std::string> updateDatabase(Database& db, const UpdateFacts& facts,
                                        const UpdateProgress& progress) {
  std::vector<std::string> withoutKey;
  const auto step = [&](const char* words, const std::function<void()>& work) {
    if (progress) progress(words);
    work();
  };
  Transaction all(db);
  step(english("Tables And Columns"), [&] { walk(db); });
  step(english("Print Designs"), [&] { EnsureDesigns(db); });
  step(english("Data"), [&] { repairRows(db, facts.repair); });
  step(english("Company"), [&] { writeCompany(db, facts); });
  step(english("Keys"), [&] { withoutKey = remakeKeys(db); });
  step(english("Writing To The Disk"), [&] { all.commit(); });
  RemakeWorkTables(db);
  return withoutKey;
}

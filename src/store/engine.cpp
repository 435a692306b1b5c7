#include "store/engine.h"

#include "store/alter.h"
#include "store/dictionary.h"

std::int64_t insertedRow(Database& db) {
  return static_cast<std::int64_t>(db.number("SELECT last_insert_rowid()"));
}

std::string sumWhere(std::string_view figure, std::string_view condition) {
  return "SUM(" + std::string(figure) + ") FILTER (WHERE " + std::string(condition) + ")";
}

std::string makeListText(std::string_view name, std::string_view select) {
  return "CREATE TABLE temp." + std::string(name) + " AS " + std::string(select);
}

std::string dropListText(std::string_view name) { return "DROP TABLE IF EXISTS temp." + std::string(name); }

std::string indexWorkTableText(std::string_view table, std::string_view columns) {
  const std::string of(table);
  return "CREATE INDEX IF NOT EXISTS temp." + of + "_INDEX ON " + of + " (" + std::string(columns) + ")";
}

void ensureTable(Database& db, std::string_view table) {
  if (!CheckTable(db, table))
    db.exec(createTableStatement("main." + quotedName(table), dictionaryColumns(table)));
}

void dropIndex(Database& db, std::string_view name) {
  db.exec("DROP INDEX IF EXISTS main." + std::string(name));
}

double standingRows(Database& db, const std::string& table) {
  return db.number("SELECT COUNT(*) FROM main." + quotedName(table));
}

bool hasIndex(Database& db, std::string_view name) {
  return db.first("SELECT 1 FROM main.sqlite_master WHERE type = 'index' AND name = ? COLLATE NOCASE", name)
      .has_value();
}

bool isIndexed(Database& db, std::string_view table, std::string_view column) {
  return db
      .first(
          "SELECT 1 FROM pragma_index_list(?) AS list, pragma_index_info(list.name) AS part"
          " WHERE part.seqno = 0 AND part.name = ? COLLATE NOCASE AND list.partial = 0",
          table, column)
      .has_value();
}

BulkWriting::BulkWriting(Database& db)
    : db_(db), blanking_(db.text("PRAGMA main.secure_delete")), kept_(db.text("PRAGMA main.cache_size")) {
  set("OFF", "-6000", "ON");
}

BulkWriting::~BulkWriting() {
  try {
    set(blanking_, kept_, "OFF");
  } catch (const DatabaseError&) {
    // The engine is beyond help; what failed first is already on its way.
  }
}

void BulkWriting::set(const std::string& blanking, const std::string& kept, const std::string& measuringOff) {
  for (const char* schema : {"main", "temp"})
    db_.exec(std::string("PRAGMA ") + schema + ".secure_delete = " + blanking);
  db_.exec("PRAGMA main.cache_size = " + kept);
  db_.exec("PRAGMA ignore_check_constraints = " + measuringOff);
}

WithCatalogue::WithCatalogue(Database& year, const std::filesystem::path& catalogue) : year_(year) {
  year_.exec("ATTACH ? AS catalogue", catalogue.string());
}

WithCatalogue::~WithCatalogue() {
  try {
    year_.exec("DETACH ?", "catalogue");
  } catch (const std::exception& error) {
    logFailure("passed over: it goes when the books are closed", error);
  }
}

std::string damageIn(Database& db) {
  const std::string found = db.text("PRAGMA main.integrity_check");
  return found == "ok" ? "" : found;
}

std::string sizeAndShape(Database& db) {
  std::string state;
  for (const char* pragma : {"page_count", "schema_version"})
    state += std::string(" ") + pragma + " " + db.text(std::string("PRAGMA main.") + pragma);
  return state;
}

double othersWrites(Database& db) { return db.number("PRAGMA main.data_version"); }

#include "store/copy_books.h"

#include "base/text.h"
#include "store/engine.h"
#include "store/keys.h"
#include "store/views.h"

namespace {

void copyRows(Database& from, Database& to, const std::string& table, const std::vector<Column>& columns) {
  std::string names = "rowid", marks = "?";
  for (const Column& column : columns) {
    names += ", " + quotedName(column.name);
    marks += ", ?";
  }
  const std::string insert =
      "INSERT INTO " + to.engine().standing(table) + " (" + names + ") VALUES (" + marks + ")";
  std::vector<Value> values;
  for (auto rows =
           from.query("SELECT " + names + " FROM " + from.engine().standing(table) + " ORDER BY rowid");
       rows.next();) {
    values.clear();
    for (int i = 0; i < rows.count(); ++i) values.push_back(rows.value(i));
    to.exec(insert, values);
  }
}

}  // namespace

void copyBooks(Database& from, Database& to) {
  const Transaction still(from, Transaction::Writes::WorkTables);
  const auto tables = from.engine().tables();
  for (const std::string& table : tables) to.engine().createTable(table, from.engine().tableColumns(table));
  Transaction all(to);
  for (const std::string& table : tables) copyRows(from, to, table, from.engine().tableColumns(table));
  all.commit();
  for (const TableKey& key : tableKeys())
    if (from.engine().hasIndex(keyName(key.table)) && to.engine().hasTable(key.table)) (void)addKey(to, key);
  EnsureIndexes(to);
  if (to.engine().hasTable("SALE")) RemakeViews(to);
  to.engine().stampShape(from.engine().shapeVersion());
}

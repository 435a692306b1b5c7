#include "store/alter.h"

#include <algorithm>

#include "base/text.h"
#include "store/engine.h"
#include "store/row_writer.h"

namespace {

// The data of old books, or a key, may forbid the new shape.
constexpr Because kKeepsItsShape{.reason = "the column keeps its shape", .strangersShape = true};

std::vector<NewColumn> asTheyStand(const std::vector<Column>& columns) {
  std::vector<NewColumn> plan;
  for (const auto& column : columns) plan.push_back({.column = column, .source = quotedName(column.name)});
  return plan;
}

std::string converted(const Column& from, const Column& to) {
  const std::string name = quotedName(from.name);
  const bool toNumber = to.kind == Column::Kind::number || to.kind == Column::Kind::whole;
  if (to.kind == Column::Kind::text && from.kind == Column::Kind::date)
    return "CASE WHEN ISDATE(" + name + ") THEN SHOWN(" + name + ", 'dd/mmm/yyyy') ELSE " + name + " END";
  if (to.kind == Column::Kind::text) return "NUMTEXT(" + name + ")";
  if (toNumber && from.kind == Column::Kind::text) return "CAST(TRIM(" + name + ") AS NUMERIC)";
  if (to.kind == Column::Kind::date && from.kind == Column::Kind::text)
    return "CASE WHEN ISDATE(" + name + ") THEN SHOWN(" + name + ", 'yyyy-mm-dd') ELSE " + name + " END";
  return name;
}

// A text is tested as it stands, a number or date in the form that it takes as a text.
bool dataFits(Database& db, const std::string& table, const Column& from, const Column& to) {
  const std::string name = quotedName(from.name);
  const std::string tested = from.kind == Column::Kind::text ? name : converted(from, to);
  auto rows = db.query("SELECT DISTINCT " + tested + " FROM " + db.engine().standing(table) + " WHERE " +
                       name + " IS NOT NULL");
  while (rows.next())
    if (!fitting(to, rows.value(0))) return false;
  return true;
}

bool tryChanges(Database& db, const std::string& table, const std::vector<Column>& changed) {
  auto plan = asTheyStand(tableColumns(db, table));
  for (auto& next : plan) {
    const auto change = std::find_if(changed.begin(), changed.end(),
                                     [&](const Column& c) { return sameText(c.name, next.column.name); });
    if (change == changed.end()) continue;
    next.source = converted(next.column, *change);
    next.column.definition = change->definition;
  }
  return db
      .attempt(kKeepsItsShape,
               [&] {
                 db.engine().reshape(table, plan);
                 return 0;
               })
      .done;
}

}  // namespace

std::vector<Column> tableColumns(Database& db, std::string_view table) {
  return db.engine().tableColumns(table);
}

void alterColumns(Database& db, const std::string& table, const std::vector<Column>& changed) {
  std::vector<Column> possible;
  for (const auto& from : tableColumns(db, table))
    for (const auto& to : changed)
      if (sameText(from.name, to.name) && dataFits(db, table, from, to)) possible.push_back(to);
  if (possible.empty() || tryChanges(db, table, possible) || possible.size() == 1) return;
  for (const auto& column : possible) tryChanges(db, table, {column});
}

void dropColumn(Database& db, const std::string& table, const std::string& column) {
  auto plan = asTheyStand(tableColumns(db, table));
  std::erase_if(plan, [&](const NewColumn& next) { return sameText(next.column.name, column); });
  if (plan.empty()) return;
  db.passOver(kKeepsItsShape, [&] { db.engine().reshape(table, plan); });
}

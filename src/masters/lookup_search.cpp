#include "masters/lookup_search.h"

#include <algorithm>

#include "base/text.h"
#include "store/engine.h"

namespace {

std::string shownText(const std::string& expression, const std::string& declaredType) {
  if (startsWithNoCase(declaredType, "TEXT")) return expression;
  if (startsWithNoCase(declaredType, "DATE")) return "SHOWN(" + expression + ", 'dd/mmm/yyyy')";
  return declaredType.empty() ? "NUMTEXT(" + expression + ")" : numberText(expression);
}

bool isIndexedText(Database& db, const std::string& table, const std::string& column) {
  const auto& columns = db.columns(table);
  const auto found = std::ranges::find_if(columns, [&](const Column& c) { return sameText(c.name, column); });
  return found != columns.end() && found->kind == Column::Kind::text && isIndexed(db, table, column);
}

}  // namespace

std::string typedCondition(const SelectColumn& column, const std::string& declaredType) {
  return column.search.empty() ? likeText(shownText(column.expression, declaredType)) : column.search;
}

std::optional<Select> valueSteps(Database& database, const Lookup& lookup) {
  if (!lookup.values || !database.engine().stepsThroughValues()) return {};
  const std::string& table = lookup.rows.from;
  const SelectColumn& column = lookup.rows.columns.front();
  if (!isIndexedText(database, table, column.expression)) return {};

  const std::string& value = column.expression;
  const std::string next = "SELECT MIN(" + value + ") FROM " + table + " WHERE " + value + " > ";
  return Select{.columns = {column},
                .from = "(WITH RECURSIVE steps(reached) AS (" + next + "'' UNION ALL SELECT (" + next +
                        "reached) FROM steps WHERE reached IS NOT NULL)"
                        " SELECT reached AS " +
                        value + " FROM steps WHERE reached IS NOT NULL) AS USED"};
}

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

std::optional<Select> fewFound(Database& database, const Select& rows, const std::string& condition,
                               const std::string& typed) {
  constexpr size_t kDigits = 3, kMost = 900;
  const std::string table = firstTable(rows);
  if (!database.engine().findsFewFirst() || table.empty() || typed.size() < kDigits ||
      typed.find_first_not_of("0123456789.") != std::string::npos)
    return {};
  const std::string search = "SELECT rowid FROM " + table + " WHERE " + condition + " LIMIT ?";
  if (!database.understands(search)) return {};  // it looks at another table, too

  std::vector<Value> numbers;
  for (auto found = database.query(search, anywhere(typed), kMost + 1); found.next();)
    numbers.push_back(found.value(0));
  if (numbers.size() > kMost) return {};
  // Of few lengths, so that a statement that was prepared serves again.
  const size_t few = 64;
  numbers.resize(numbers.size() <= few ? few : kMost, Value(0));
  const std::string marks = join(std::vector<std::string>(numbers.size(), "?"), ", ");
  Select these = filtered(rows, condition, {anywhere(typed)});
  return filtered(these, table + ".rowid IN (" + marks + ")", numbers);
}

#include "masters/lookup_search.h"

#include <algorithm>
#include <regex>

#include "base/text.h"
#include "store/keys.h"

namespace {

// Whole numbers without a call of our own for each row.
std::string numberText(const std::string& number) {
  const std::string whole = "CAST(" + number + " AS INTEGER)";
  return "IIF(" + number + " = " + whole + ", " + whole + ", NUMTEXT(" + number + "))";
}

std::string shownText(const std::string& expression, const std::string& declaredType) {
  static const std::regex trimmed(R"(TRIM\(STR\(([\w.]+)\)\))", std::regex::icase);
  std::smatch number;
  if (startsWithNoCase(declaredType, "DATE")) return "FORMAT(" + expression + ", 'dd/mmm/yyyy')";
  if (!declaredType.empty()) return numberText(expression);
  return std::regex_match(expression, number, trimmed) ? numberText(number[1])
                                                       : "NUMTEXT(" + expression + ")";
}

// The key of a table where that is one column, else nothing.
std::string keyOf(const std::string& table) {
  for (const TableKey& key : tableKeys())
    if (sameText(key.table, table) && key.columns.find(',') == std::string_view::npos)
      return std::string(key.columns);
  return {};
}

}  // namespace

std::string typedCondition(const Select& select, const std::string& expression,
                           const std::string& declaredType) {
  if (!startsWithNoCase(declaredType, "TEXT")) return likeText(shownText(expression, declaredType));
  static const std::regex qualified(R"((\w+)\.(\w+))");
  std::smatch parts;
  if (!std::regex_match(expression, parts, qualified)) return likeText(expression);
  const std::string table = parts[1], key = keyOf(table);
  if (key.empty()) return likeText(expression);

  const std::string joins = select.from + " " + select.where;
  const std::regex equation(R"((\w+\.\w+)\s*=\s*)" + table + R"(\.)" + key + R"(\b)", std::regex::icase);
  std::smatch joined;
  if (!std::regex_search(joins, joined, equation)) return likeText(expression);
  // The sign keeps the rows in the order of the select's own index.
  return "+" + joined[1].str() + " IN (SELECT " + key + " FROM " + table + " WHERE " +
         likeText(parts[2].str()) + ")";
}

namespace {

bool isIndexedText(Database& db, const std::string& table, const std::string& column) {
  const auto& columns = db.columns(table);
  const auto found = std::ranges::find_if(columns, [&](const Column& c) { return sameText(c.name, column); });
  return found != columns.end() && found->kind == Column::Kind::text &&
         db.first(
             "SELECT 1 FROM pragma_index_list(?) AS list, pragma_index_info(list.name) AS part"
             " WHERE part.seqno = 0 AND part.name = ? COLLATE NOCASE AND list.partial = 0",
             table, column);
}

}  // namespace

std::optional<Select> valueSteps(Database& database, const Select& select) {
  static const std::regex word(R"(\w+)");
  if (!select.distinct || select.columns.size() != 1 || !select.group.empty() || !select.order.empty() ||
      !std::regex_match(select.from, word))
    return {};
  const std::string& table = select.from;
  const std::string& name = select.columns[0].name;
  if (select.where != "LEN(" + name + ")>0" || !isIndexedText(database, table, name)) return {};

  const std::string column = "[" + name + "]";
  const std::string next = "SELECT MIN(" + column + ") FROM " + table + " WHERE " + column + " > ";
  Select steps;
  steps.columns = {
      {column, name}
  };
  steps.from = "(WITH RECURSIVE steps(reached) AS (" + next + "'' UNION ALL SELECT (" + next +
               "reached) FROM steps WHERE reached IS NOT NULL)"
               " SELECT reached AS " +
               column + " FROM steps WHERE reached IS NOT NULL)";
  return steps;
}

#include "masters/lookup_search.h"

#include <algorithm>
#include <regex>

#include "base/text.h"
#include "store/keys.h"

std::string typedCondition(const Select& select, const std::string& expression) {
  static const std::regex qualified(R"((\w+)\.(\w+))");
  std::smatch parts;
  if (!std::regex_match(expression, parts, qualified)) return likeText(expression);
  const std::string table = parts[1], column = parts[2];
  const auto keys = tableKeys();
  const auto key = std::ranges::find_if(keys, [&](const TableKey& k) { return sameText(k.table, table); });
  if (key == keys.end()) return likeText(expression);

  // A key of several columns does not stand in an equation of this form.
  const std::string keyColumn(key->columns), joins = select.from + " " + select.where;
  const std::regex equation(R"((\w+\.\w+)\s*=\s*)" + table + R"(\.)" + keyColumn + R"(\b)",
                            std::regex::icase);
  std::smatch joined;
  if (!std::regex_search(joins, joined, equation)) return likeText(expression);
  // The sign keeps the rows in the order of the select's own index.
  return "+" + joined[1].str() + " IN (SELECT " + keyColumn + " FROM " + table + " WHERE " +
         likeText(column) + ")";
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

#include "base/text.h"
#include "store/server_connection.h"

// A whole ledger written anew mostly holds what it held. It is written into a table of the connection's own,
// and the vouchers whose rows differ are changed in the standing one: a server writes a row for ten that it
// reads.

namespace {

constexpr const char *kMade = "_MADE", *kChanged = "_CHANGED", *kVoucher = "VOUCH_NO, BOOK_CD";

// What a row holds, in 32 bits; a missing value is not the same as an empty one. Whole numbers sum to the
// same in any order.
std::string digest(const std::vector<Column>& columns) {
  std::string all;
  for (const Column& column : columns) all += ", COALESCE(" + serverName(column.name) + ", CHAR(1))";
  return "SUM(CRC32(CONCAT_WS(CHAR(2)" + all + "))) AS A";
}

std::string sums(const std::string& table, const std::string& figures) {
  return std::string("SELECT ") + kVoucher + ", COUNT(*) AS N, " + figures + " FROM " + serverName(table) +
         " USE INDEX () GROUP BY " + kVoucher;
}

std::string names(const std::vector<Column>& columns) {
  std::string list;
  for (const Column& column : columns) list += (list.empty() ? "" : ", ") + serverName(column.name);
  return list;
}

}  // namespace

std::string ServerEngine::beginRewriting(const std::string& table, std::span<const std::string_view>) {
  const std::string made = table + kMade;
  tell("DROP TEMPORARY TABLE IF EXISTS " + serverName(made));
  tell(createTableText("CREATE TEMPORARY TABLE " + serverName(made), tableColumns(table)));
  lists_.insert(upper(made));
  return made;
}

void ServerEngine::putRewritten(const std::string& table) {
  const auto columns = tableColumns(table);
  const std::string made = table + kMade, changed = table + kChanged, figures = digest(columns);
  tell("DROP TEMPORARY TABLE IF EXISTS " + serverName(changed));
  tell("CREATE TEMPORARY TABLE " + serverName(changed) + " (INDEX (" + kVoucher + ")) AS SELECT " + kVoucher +
       " FROM (" + sums(table, figures) + " UNION ALL SELECT VOUCH_NO, BOOK_CD, -N, -A FROM (" +
       sums(made, figures) + ") AS MADE) AS BOTH_SIDES GROUP BY " + kVoucher +
       " HAVING SUM(N) <> 0 OR SUM(A) <> 0");
  if (tell("SELECT 1 FROM " + serverName(changed) + " LIMIT 1").empty()) return;
  const std::string same = "C.VOUCH_NO <=> L.VOUCH_NO AND C.BOOK_CD <=> L.BOOK_CD";
  tell("DELETE L FROM " + serverName(table) + " AS L JOIN " + serverName(changed) + " AS C ON " + same);
  tell("INSERT INTO " + serverName(table) + " (" + names(columns) + ") SELECT " + "L." +
       replaceAll(names(columns), ", ", ", L.") + " FROM " + serverName(made) + " AS L STRAIGHT_JOIN " +
       serverName(changed) + " AS C ON " + same + " ORDER BY L.rowid");
}

void ServerEngine::endRewriting(const std::string& table) {
  dropList(table + kMade);
  dropList(table + kChanged);
}

// Sums over a whole table are made in memory.
void ServerEngine::writesInBulk(bool bulk) {
  for (const char* size : {"tmp_memory_table_size", "max_heap_table_size"})
    tell(std::string("SET SESSION ") + size + " = " + (bulk ? "268435456" : "DEFAULT"));
}

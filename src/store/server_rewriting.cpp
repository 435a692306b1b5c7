#include "base/text.h"
#include "store/server_connection.h"

// A whole ledger written anew mostly holds what it held. It is written into a table of the connection's own,
// and the vouchers whose rows differ are changed in the standing one: a server writes a row for ten that it
// reads.

namespace {

constexpr const char *kMade = "_MADE", *kChanged = "_CHANGED", *kVoucher = "VOUCH_NO, BOOK_CD";
// Some hundred numbers on end are compared at once before their vouchers are: grouping by vouchers takes
// several times as long.
constexpr const char* kRange = "FLOOR(VOUCH_NO / 500)";
constexpr size_t kFewRanges = 100;
constexpr int kRowsOfVoucher = 6;

// What rows hold, in 32 bits each; a missing value is not the same as an empty one. Whole numbers sum to the
// same in any order, as floating ones too while they are below 2^53, and faster.
std::string digest(const std::vector<Column>& columns) {
  std::string all;
  for (const Column& column : columns) all += ", COALESCE(" + serverName(column.name) + ", CHAR(1))";
  return "SUM(CRC32(CONCAT_WS(CHAR(2)" + all + ")) + 0e0)";
}

// The groups, of the rows for which the condition holds, that the two tables hold otherwise.
struct Sides {
  std::string standing, made, digest;

  std::string differing(const std::string& keys, const std::string& by, const std::string& where) const {
    const auto sums = [&](const std::string& table) {
      return "SELECT " + keys + ", COUNT(*) AS N, " + digest + " AS A FROM " + serverName(table) +
             " USE INDEX ()" + where + " GROUP BY " + by;
    };
    return "SELECT " + by + " FROM (" + sums(standing) + " UNION ALL SELECT " + by + ", -N, -A FROM (" +
           sums(made) + ") AS MADE) AS BOTH_SIDES GROUP BY " + by + " HAVING SUM(N) <> 0 OR SUM(A) <> 0";
  }
};

// Holds for the vouchers of these ranges; of many, for all.
std::string within(const std::vector<std::string>& ranges) {
  if (ranges.size() > kFewRanges) return {};
  std::string list;
  for (const std::string& range : ranges)
    if (!range.empty()) list += (list.empty() ? "" : ", ") + range;
  return " WHERE VOUCH_NO IS NULL" +
         (list.empty() ? "" : std::string(" OR ") + kRange + " IN (" + list + ")");
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
  const std::string made = table + kMade, changed = table + kChanged;
  const Sides sides{table, made, digest(columns)};
  std::vector<std::string> ranges;
  for (const auto& row : tell(sides.differing(kRange + std::string(" AS R"), "R", {})))
    ranges.push_back(row.front());
  if (ranges.empty()) return;

  tell("DROP TEMPORARY TABLE IF EXISTS " + serverName(changed));
  tell("CREATE TEMPORARY TABLE " + serverName(changed) + " (INDEX (" + kVoucher + ")) AS " +
       sides.differing(kVoucher, kVoucher, within(ranges)));
  const auto rows = [&](const std::string& of) {
    return std::stoll(tell("SELECT COUNT(*) FROM " + serverName(of)).front().front());
  };
  const std::string into = "INSERT INTO " + serverName(table) + " (" + names(columns) + ") SELECT " + "L." +
                           replaceAll(names(columns), ", ", ", L.") + " FROM " + serverName(made) + " AS L";
  // Where most vouchers change, their rows need not be looked for.
  if (kRowsOfVoucher * rows(changed) > rows(made)) {
    tell("DELETE FROM " + serverName(table));
    tell(into + " ORDER BY L.rowid");
    return;
  }
  const std::string same = "C.VOUCH_NO <=> L.VOUCH_NO AND C.BOOK_CD <=> L.BOOK_CD";
  tell("DELETE L FROM " + serverName(table) + " AS L JOIN " + serverName(changed) + " AS C ON " + same);
  tell(into + " STRAIGHT_JOIN " + serverName(changed) + " AS C ON " + same + " ORDER BY L.rowid");
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

#include "vouchers/as_stored.h"

#include <algorithm>
#include <vector>

#include "base/date.h"
#include "base/number.h"
#include "base/text.h"
#include "base/words.h"
#include "frame/child_screen.h"
#include "store/dictionary.h"
#include "vouchers/numbering.h"

namespace {

constexpr char kNull = '\x1d', kColumnEnds = '\x1f', kRowEnds = '\x1e';

std::string where(const VoucherKind& kind) { return " WHERE VOUCH_NO = ? AND " + kind.tables.key + " = ?"; }

// In an order of their own: rows of a table have none.
std::string rowsOf(Database& db, const VoucherKind& kind, const std::string& table, double number) {
  std::vector<std::string> rows;
  for (const Row& row : db.all("SELECT * FROM " + table + where(kind), number, kind.code)) {
    std::string& text = rows.emplace_back();
    for (int i = 0; i < row.count(); ++i)
      text += (row.isNull(i) ? std::string(1, kNull) : row.text(i)) + kColumnEnds;
  }
  std::ranges::sort(rows);
  std::string all;
  for (const std::string& row : rows) all += row + kRowEnds;
  return all;
}

}  // namespace

std::string asStored(Database& db, const VoucherKind& kind, double number) {
  std::string all = rowsOf(db, kind, kind.tables.heads, number);
  if (all.empty()) return all;
  if (!kind.tables.lines.empty()) all += rowsOf(db, kind, kind.tables.lines, number);
  for (const std::string& table : kind.tables.beside)
    if (CheckTable(db, table)) all += rowsOf(db, kind, table, number);
  return all;
}

const Saving Saving::Fresh{std::string()};
const Saving Saving::Again{std::nullopt};

Saving Saving::unless(std::function<bool()> taken) const {
  Saving saving(*this);
  saving.taken_ = std::move(taken);
  return saving;
}

bool Saving::finds(Database& db, const VoucherKind& kind, double number) const {
  const bool stands =
      !expected_ || (isFresh() ? !isStored(db, kind, number) : asStored(db, kind, number) == *expected_);
  return stands && !(taken_ && taken_());
}

std::string meanwhileWords(Database& db, const VoucherKind& kind, double number) {
  const auto head = db.first("SELECT * FROM " + kind.tables.heads + where(kind), number, kind.code);
  if (!head) return words("Voucher No {number} Has Been Deleted Meanwhile", "number", numText(number));
  std::string text = words("Voucher No {number} Has Been Changed Meanwhile", "number", numText(number));
  if (head->has("ENT_DT") && head->date("ENT_DT")) {
    const std::string user = trim(head->text("USER_CD"));
    const std::string date = formatDate(*head->date("ENT_DT"), "dd/MM/yyyy"), time = head->text("ENT_TIME");
    text += "\n" + (user.empty()
                        ? words("On {date} At {time}", "date", date, "time", time)
                        : words("By {user} On {date} At {time}", "user", user, "date", date, "time", time));
  }
  return text;
}

Question changedQuestion(Database& db, const VoucherKind& kind, double number, bool typed) {
  return {.text = meanwhileWords(db, kind, number) + "\n" +
                  words("Nothing Was Stored\nShow It As It Stands Now ?"),
          .title = kQuestionTitle,
          .yes = english("&Show It"),
          .no = english("&Keep Typing"),
          .loses = typed};
}

Question deletedQuestion(double number) {
  return {
      .text = words("Voucher No {number} Has Been Deleted Meanwhile\nSave What Stands Here As A New One ?",
                    "number", numText(number)),
      .title = kQuestionTitle,
      .yes = english("&Yes, As A New One"),
      .no = english("&No, Leave It"),
      .loses = true};
}

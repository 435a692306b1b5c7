#include "vouchers/journal_paper.h"

#include <memory>
#include <string>
#include <vector>

#include "base/number.h"
#include "base/pattern.h"
#include "base/text.h"
#include "base/words.h"
#include "vouchers/journals.h"
#include "vouchers/text_rows.h"

namespace {

// clang-format off
std::vector<TypedColumn> paperColumns() {
  return {
      {.heading = english("Sr"),           .twips = 500,  .type = ColumnType::Count, .right = true},
      {.heading = english("Account"),      .twips = 900},
      {.heading = english("Account Name"), .twips = 2800},
      {.heading = english("Debit"),        .twips = 1300, .type = ColumnType::Money, .right = true},
      {.heading = english("Credit"),       .twips = 1300, .type = ColumnType::Money, .right = true},
      {.heading = english("Cheque"),       .twips = 1000},
      {.heading = english("Narration"),    .twips = 2400},
  };
}
// clang-format on

std::string side(double amount) { return amount == 0 ? "" : Format(amount, "0.00"); }

}  // namespace

void showJournalPaper(Host& host, Database& db, const VoucherKind& kind, double number) {
  const auto head = findJournal(db, kind, number);
  if (!head) return;
  auto rows = std::make_shared<TextRows>(paperColumns());
  const std::string reference = trim(head->text("REF_NO"));
  double debit = 0, credit = 0;
  for (const Row& line :
       db.all("SELECT SR_NO, ACC_CD,"
              " (SELECT ACC_NAME FROM ACCOUNT WHERE ACCOUNT.ACC_CD = JOURNITM.ACC_CD),"
              " DEBIT, CREDIT, NARRATION, CHQ_NO FROM JOURNITM WHERE VOUCH_NO = ? AND BOOK_CD = ?"
              " ORDER BY SR_NO",
              number, kind.code)) {
    debit += line.number(3);
    credit += line.number(4);
    const std::string cheque = line.text(6);
    rows->add({line.text(0), line.text(1), line.text(2), side(line.number(3)), side(line.number(4)),
               cheque == "." || sameText(cheque, reference) ? "" : cheque, line.text(5)});
  }
  rows->add({"", "", words("Total"), side(debit), side(credit), "", ""}, true);
  const auto date = head->date("VOUCH_DT");
  std::string caption = words("{kind} {number}, {date}", "kind", words(kind.words.name), "number",
                              numText(number), "date", date ? formatDate(*date, "dd/MM/yyyy") : "");
  if (!reference.empty()) caption += words(", Ref No {reference}", "reference", reference);
  const GridOutput out{
      .caption = caption, .period = head->text("NARRATION"), .columns = rows->columns(), .rows = rows};
  GridToPrinter(host, out, PrintTo::Preview);
}

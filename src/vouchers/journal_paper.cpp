#include "vouchers/journal_paper.h"

#include <memory>
#include <string>
#include <vector>

#include "base/number.h"
#include "base/pattern.h"
#include "base/text.h"
#include "base/words.h"
#include "documents/grid_output.h"
#include "vouchers/journals.h"

namespace {

const TypedColumn kColumns[] = {
    {.heading = english("Sr"), .twips = 500,             .type = ColumnType::Count, .right = true},
    {.heading = english("Account"),           .twips = 900                                  },
    {.heading = english("Account Name"),  .twips = 3200},
    {.heading = english("Debit"),          .twips = 1300,                                           .type = ColumnType::Money, .right = true},
    {.heading = english("Credit"),  .twips = 1300,.type = ColumnType::Money, .right = true},
    {.heading = english("Narration"),                        .twips = 2800                    },
};

class JournalRows : public TypedRows {
 public:
  size_t count() const override { return rows.size(); }
  Cell cell(size_t row, size_t column) const override {
    return {.text = rows[row][column], .bold = row + 1 == rows.size()};
  }
  ColumnType type(size_t, size_t column) const override { return kColumns[column].type; }
  std::vector<std::vector<std::string>> rows;
};

std::string side(double amount) { return amount == 0 ? "" : Format(amount, "0.00"); }

}  // namespace

void showJournalPaper(Host& host, Database& db, const VoucherKind& kind, double number) {
  const auto head = findJournal(db, kind, number);
  if (!head) return;
  auto rows = std::make_shared<JournalRows>();
  double debit = 0, credit = 0;
  for (const Row& line : db.all("SELECT SR_NO, ACC_CD,"
                                " (SELECT ACC_NAME FROM ACCOUNT WHERE ACCOUNT.ACC_CD = JOURNITM.ACC_CD),"
                                " DEBIT, CREDIT, NARRATION FROM JOURNITM WHERE VOUCH_NO = ? AND BOOK_CD = ?"
                                " ORDER BY SR_NO",
                                number, kind.code)) {
    debit += line.number(3);
    credit += line.number(4);
    rows->rows.push_back(
        {line.text(0), line.text(1), line.text(2), side(line.number(3)), side(line.number(4)), line.text(5)});
  }
  rows->rows.push_back({"", "", words("Total"), side(debit), side(credit), ""});
  const auto date = head->date("VOUCH_DT");
  std::string caption = words("{kind} {number}, {date}", "kind", words(kind.words.name), "number",
                              numText(number), "date", date ? formatDate(*date, "dd/MM/yyyy") : "");
  if (const std::string reference = trim(head->text("REF_NO")); !reference.empty())
    caption += words(", Ref No {reference}", "reference", reference);
  GridOutput out{.caption = caption, .period = head->text("NARRATION"), .rows = rows};
  for (TypedColumn column : kColumns) {
    column.heading = words(column.heading);
    out.columns.push_back(column);
  }
  GridToPrinter(host, out, PrintTo::Preview);
}

#include "vouchers/money_paper.h"

#include <memory>
#include <string>

#include "base/number.h"
#include "base/pattern.h"
#include "base/text.h"
#include "base/words.h"
#include "documents/words.h"
#include "frame/money_modes.h"
#include "vouchers/accounts.h"
#include "vouchers/receipts.h"
#include "vouchers/settlements.h"
#include "vouchers/text_rows.h"

namespace {

std::string filled(const std::string& text) { return trim(text) == "." ? "" : trim(text); }

std::string dayOf(const std::optional<Date>& date) { return date ? formatDate(*date, "dd/MM/yyyy") : ""; }

std::string nameOf(Database& db, const std::string& code) {
  const auto account = readAccount(db, code);
  return account ? code + "  " + account->name : code;
}

// A bill by the number that its paper has, all else by its kind.
std::string billOf(Database& db, const VoucherKey& bill) {
  if (bill.book == kOpeningBook) return words("Opening balance");
  const VoucherKind* const kind = kindByBook(bill.book);
  const auto head = kind && kind->tables.heads == saleKind().tables.heads
                        ? db.first("SELECT BILL_NO, VOUCH_DT FROM SALE WHERE VOUCH_NO = ? AND BOOK_CD = ?",
                                   bill.number, bill.book)
                        : std::nullopt;
  if (head) return words("Bill {number}, {date}", "number", head->text(0), "date", dayOf(head->date(1)));
  return (kind ? words(kind->words.name) : bill.book) + " " + numText(bill.number);
}

std::string deducted(const std::string& what) {
  return what == "D" ? words("Discount") : what == "W" ? words("Write Off") : words("TDS");
}

// clang-format off
std::vector<TypedColumn> paperColumns() {
  return {
      {.heading = english("Particulars"), .twips = 2200},
      {.heading = english("Details"),     .twips = 5600},
      {.heading = english("Amount"),      .twips = 1600, .type = ColumnType::Money, .right = true},
  };
}
// clang-format on

class Paper {
 public:
  void fact(const std::string& name, const std::string& text) {
    if (!text.empty()) rows_->add({name, text, ""});
  }
  void figure(const std::string& name, const std::string& text, double amount, bool bold = false) {
    if (amount != 0) rows_->add({name, text, Format(amount, "0.00")}, bold);
  }
  const std::shared_ptr<TextRows>& rows() const { return rows_; }

 private:
  std::shared_ptr<TextRows> rows_ = std::make_shared<TextRows>(paperColumns());
};

}  // namespace

void showMoneyPaper(Host& host, Database& db, const VoucherKind& kind, double number) {
  const auto voucher = findMoneyVoucher(db, kind, number);
  if (!voucher) return;
  const bool comesIn = kind.ledger.partySide == "C";
  const double amount = voucher->number("AMOUNT");
  const Settlement settles = readSettlement(db, kind, number);
  double open = amount;

  Paper paper;
  paper.fact(comesIn ? words("Received From") : words("Paid To"), nameOf(db, voucher->text("PARTY_CD")));
  paper.fact(words("Cash / Bank"), nameOf(db, voucher->text("CSHBNK_CD")));
  if (isBank(db, voucher->text("CSHBNK_CD"))) {
    paper.fact(words("Mode"), moneyModeName(voucher->text("VOUCH_TYPE")));
    if (const std::string reference = filled(voucher->text("CHQ_NO")); !reference.empty())
      paper.fact(words("Ref No"), reference + "  " + dayOf(voucher->date("CHQ_CLG_DT")));
  }
  paper.figure(words("Amount"), words("Rupees {words}", "words", AmountInWords(amount)), amount, true);
  for (const auto& deduction : settles.deductions) {
    paper.figure(deducted(deduction.what), nameOf(db, deduction.account), deduction.amount);
    open += deduction.amount;
  }
  for (const auto& bill : settles.bills) {
    paper.figure(words("Against"), billOf(db, bill.voucher), bill.amount);
    open -= bill.amount;
  }
  if (!settles.empty()) paper.figure(words("On Account"), "", Round(open, 2));
  paper.fact(words("Narration"), filled(voucher->text("NARRATION")));
  paper.fact(words("Signature"), "______________________________");

  GridToPrinter(host,
                {.caption = words("{kind} {number}, {date}", "kind", words(kind.words.name), "number",
                                  numText(number), "date", dayOf(voucher->date("VOUCH_DT"))),
                 .period = {},
                 .columns = paper.rows()->columns(),
                 .rows = paper.rows()},
                PrintTo::Preview);
}

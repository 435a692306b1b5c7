#include "vouchers/frmbrs.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>

#include "base/figure.h"
#include "base/number.h"
#include "base/pattern.h"
#include "base/text.h"
#include "base/words.h"
#include "frame/lookup.h"
#include "frame/session.h"
#include "frame/voucher_opening.h"
#include "store/groups.h"
#include "vouchers/accounts.h"
#include "vouchers/bwrcpy.h"
#include "vouchers/frmbrs_table.h"
#include "vouchers/frmjrnl.h"
#include "vouchers/text_rows.h"

using namespace fields;

namespace {

constexpr const char* kRefusal = english("Mirav Message");
constexpr const char* kMatched = "=";
constexpr const char* kProposed = "?";

std::string shownDay(const std::optional<Date>& day) { return day ? formatDate(*day, "dd/MM/yyyy") : ""; }
std::string money(double figure) { return Format(figure, "0.00"); }

// clang-format off
std::vector<TypedColumn> paperColumns() {
  return {
      {.heading = english("Date"),        .twips = 1100, .type = ColumnType::Date},
      {.heading = english("Particulars"), .twips = 4600},
      {.heading = english("Ref No"),      .twips = 1500},
      {.heading = english("Amount"),      .twips = 1400, .type = ColumnType::Money, .right = true},
      {.heading = english("Total"),       .twips = 1400, .type = ColumnType::Money, .right = true},
  };
}
// clang-format on

// Cash is counted, not reconciled.
std::string bankGroups() { return underGroups("GROUP_CD", {87, 127}); }

}  // namespace

FRMBRS::FRMBRS(Host& theHost) : ChildScreen(theHost, reconciliationTable()) {
  escMeans = english("Esc = Close");
  for (const FieldName list : {kBookRows, kStatementRows})
    at(list).grid.source = std::make_shared<CellRows>();
  wire(*this, {
                  {"cmdshow",      On::Click,               &FRMBRS::show          },
                  {"cmdread",      On::Click,               &FRMBRS::readStatement },
                  {"cmdtake",      On::Click,               &FRMBRS::takeCertain   },
                  {"cmdvoucher",   On::Click,               &FRMBRS::writeVoucher  },
                  {"cmdprint",     On::Click,               &FRMBRS::print         },
                  {"cmdprint",     KeyCode::F2,             &FRMBRS::preview       },
                  {"cmdexcel",     On::Click,               &FRMBRS::excel         },
                  {"Cmdpdf",       On::Click,               &FRMBRS::pdf           },
                  {"cmdclose",     On::Click,               &FRMBRS::close         },
                  {"",             KeyCode::Esc,            &FRMBRS::close         },
                  {"",             KeyCode::F9,             &FRMBRS::writeVoucher  },
                  {"",             Key::Shift(KeyCode::F9), &FRMBRS::writeOtherwise},
                  {"MaskEdBox1",   KeyCode::F1,             &FRMBRS::dateF1        },
                  {"MaskEdBox1",   KeyCode::F2,             &FRMBRS::dateF2        },
                  {"MaskEdBox1",   KeyCode::F3,             &FRMBRS::dateF3        },
                  {kFrom,          KeyCode::Enter,          &FRMBRS::dateStands    },
                  {kTo,            KeyCode::Enter,          &FRMBRS::dateStands    },
                  {kAccount,       KeyCode::Enter,          &FRMBRS::account       },
                  {kBankSays,      On::Change,              &FRMBRS::bankSaysTyped },
                  {kBookRows,      KeyCode::Enter,          &FRMBRS::take          },
                  {kBookRows,      On::DoubleClick,         &FRMBRS::take          },
                  {kBookRows,      KeyCode::F8,             &FRMBRS::undo          },
                  {kBookRows,      KeyCode::F6,             &FRMBRS::takeCertain   },
                  {kBookRows,      KeyCode::F5,             &FRMBRS::showVoucher   },
                  {kBookRows,      KeyCode::Right,          &FRMBRS::otherSide     },
                  {kBookRows,      On::Row,                 &FRMBRS::rowMoved      },
                  {kBookRows,      On::Focus,               &FRMBRS::rowMoved      },
                  {kStatementRows, KeyCode::Left,           &FRMBRS::otherSide     },
                  {kStatementRows, KeyCode::Enter,          &FRMBRS::otherSide     },
                  {kStatementRows, On::Row,                 &FRMBRS::lineMoved     },
                  {kDate,          KeyCode::Enter,          &FRMBRS::clearedOn     },
                  {kDate,          On::Focus,               &FRMBRS::intoDate      },
                  {kDate,          KeyCode::Esc,            &FRMBRS::leaveDate     },
  });
}

void FRMBRS::opened(const Opening& opening) {
  ChildScreen::opened(opening);
  put(kFrom, session().mstartdt);
  put(kTo, host.today());
  const auto only = data().all("SELECT ACC_CD FROM ACCOUNT WHERE " + bankGroups() + " LIMIT 2");
  if (only.size() == 1) put(kAccount, only.front().text(0));
  if (!opening.value.empty()) put(kAccount, opening.value);
  focus(at(kAccount));
}

// A voucher that was written for a line of the statement is in the books now.
void FRMBRS::activated() {
  if (std::exchange(awaitsVoucher_, false)) refresh();
}

// What is asked

Go FRMBRS::account() {
  if (trimmed(kAccount).empty())
    return lookUp(host, *this, here(),
                  accounts({{"ACC_CD"}, {"ACC_NAME"}, {"AREA"}, {"CITY"}, balanceColumn()}, bankGroups()));
  const std::string code = fullCode(data(), trimmed(kAccount));
  put(kAccount, code);
  const auto bank = data().first("SELECT ACC_NAME FROM ACCOUNT WHERE ACC_CD = ? AND " + bankGroups(), code);
  put(kAccountName, bank ? bank->text(0) : "");
  if (bank) return Go::On;
  host.message("A Bank Reconciliation Takes A Bank Account\nEmpty It And Press Enter For Help", kRefusal);
  return Go::Stay;
}

void FRMBRS::show() {
  if (!work(at(kAccount)) || trimmed(kAccount).empty()) {
    focus(at(kAccount));
    return;
  }
  if (!date(kFrom) || !date(kTo) || *date(kTo) < *date(kFrom)) {
    host.message("The Dates Are Not In Order", kRefusal);
    focus(at(kTo));
    return;
  }
  if (figureRefused(text(kBankSays))) {
    host.message(kFigureRefused, kRefusal);
    focus(at(kBankSays));
    return;
  }
  // The statement is of the account that it was read for.
  if (!sameText(shownAccount_, trimmed(kAccount))) lines_.clear(), statementName_.clear();
  shownAccount_ = trimmed(kAccount);
  from_ = *date(kFrom);
  to_ = *date(kTo);
  if (at(kBankSays).given) takeBalance();
  caption = words("Bank Reconciliation : {bank}", "bank", trimmed(kAccountName));
  at(kBookRows).grid.current = Grid::kNone;
  refresh();
  focus(at(kBookRows));
}

void FRMBRS::readStatement() {
  if (shownAccount_.empty()) show();
  if (shownAccount_.empty()) return;
  const auto typed = host.chooseFile(
      "Type The File Of The Bank's Statement, Csv Or Xlsx\r\n"
      "A Name Alone Is Looked For In The Program Folder",
      english("Statement Of The Bank"), "*.csv *.xlsx *.txt *.tsv *.xls");
  if (!typed || trim(*typed).empty()) return;
  try {
    const Busy busy(host);
    const std::filesystem::path file = std::filesystem::path(session().mapppath) / trim(*typed);
    BankStatement read = readBankStatement(file);
    lines_ = std::move(read.lines);
    statementName_ = file.filename().string();
    // Some banks give the latest first.
    if (lines_.back().date < lines_.front().date) std::ranges::reverse(lines_);
    std::ranges::stable_sort(lines_, {}, &StatementLine::date);
    if (read.unread > 0)
      host.message(words("{count} Rows Of {file} Have A Date And No Amount That Can Be Read", "count",
                         std::to_string(read.unread), "file", statementName_),
                   kRefusal);
    takeBalance();
  } catch (const StatementRefused& refused) {
    host.message(refused.what(), kRefusal);
    return;
  }
  refresh();
  focus(at(kBookRows));
}

// The balance of the last line up to the day is the bank's; of several of a day the file's last.
void FRMBRS::takeBalance() {
  std::optional<double> last;
  for (const StatementLine& line : lines_)
    if (line.date <= to_ && line.balance) last = line.balance;
  if (last || at(kBankSays).given) put(kBankSays, last ? money(*last) : "");
}

// Both sides

const Match* FRMBRS::matchOf(size_t book) const {
  return book < ofBook_.size() && ofBook_[book] < matches_.size() ? &matches_[ofBook_[book]] : nullptr;
}

const Match* FRMBRS::matchOfLine(size_t line) const {
  return line < ofLine_.size() && ofLine_[line] < matches_.size() ? &matches_[ofLine_[line]] : nullptr;
}

bool FRMBRS::isOutside(size_t line) const { return lines_[line].date <= to_ && !matchOfLine(line); }

FRMBRS::Outside FRMBRS::outside() const {
  Outside all;
  for (size_t i = 0; i < lines_.size(); ++i) {
    if (!isOutside(i)) continue;
    all.amount += lines_[i].amount;
    ++all.lines;
  }
  return all;
}

void FRMBRS::refresh() {
  if (shownAccount_.empty()) return;
  const Busy busy(host);
  // A statement that begins earlier has its lines in the books of earlier days.
  const Date from = lines_.empty() ? from_ : std::min(from_, lines_.front().date);
  books_ = bankEntries(data(), shownAccount_, from, to_);
  matches_ = matchStatement(books_, lines_);
  ofBook_.assign(books_.size(), Grid::kNone);
  ofLine_.assign(lines_.size(), Grid::kNone);
  for (size_t i = 0; i < matches_.size(); ++i) ofBook_[matches_[i].book] = ofLine_[matches_[i].line] = i;
  fillGrids();
  showSums();
  showProposal();
}

void FRMBRS::fillGrids() {
  auto books = std::make_shared<CellRows>();
  for (size_t i = 0; i < books_.size(); ++i) {
    const BookEntry& e = books_[i];
    const Match* const match = matchOf(i);
    const double amount = e.row.amount;
    const bool open = match && !match->known;
    books->rows.push_back({{.text = match && match->known ? kMatched
                                    : open                ? kProposed
                                                          : ""},
                           {.text = shownDay(e.date)},
                           {.text = e.particulars},
                           {.text = e.reference},
                           {.text = amount > 0 ? money(amount) : ""},
                           {.text = amount < 0 ? money(-amount) : ""},
                           {.text = open ? "? " + shownDay(lines_[match->line].date) : shownDay(e.cleared)}});
  }
  Grid& left = at(kBookRows).grid;
  const size_t row = left.current;
  left.source = books;
  left.moveTo(row == Grid::kNone ? 0 : row);

  auto said = std::make_shared<CellRows>();
  for (size_t i = 0; i < lines_.size(); ++i) {
    const Match* const match = matchOfLine(i);
    const StatementLine& line = lines_[i];
    said->rows.push_back({{.text = !match         ? ""
                                   : match->known ? kMatched
                                                  : kProposed},
                          {.text = shownDay(line.date)},
                          {.text = trim(line.text + " " + line.reference)},
                          {.text = money(line.amount)}});
  }
  Grid& right = at(kStatementRows).grid;
  const size_t line = right.current;
  right.source = said;
  right.moveTo(line == Grid::kNone ? 0 : line);
  const auto certain = std::ranges::count_if(matches_, [](const Match& m) { return m.certain && !m.known; });
  at("cmdtake").enabled = certain > 0;
  reason =
      certain > 0 ? words("F6 takes the {count} that are certain", "count", std::to_string(certain)) : "";
}

void FRMBRS::showSums() {
  const BankSums sums = bankSums(data(), shownAccount_, to_);
  const Outside outside = this->outside();
  at(kByBooks).text = money(sums.books);
  at(kPaidOpen).text = money(sums.paid);
  at(kReceivedOpen).text = money(-sums.received);
  at(kByBank).text = money(sums.bank());
  at("lblsays").text = words("Bank says on {date}", "date", shownDay(to_));
  const bool says = !trimmed(kBankSays).empty();
  at("lblsaid").text = says ? money(value(kBankSays)) : "";
  at(kNotInBooks).text = money(outside.amount);
  const auto matched = std::ranges::count_if(matches_, &Match::known);
  at("lblstatement").text =
      lines_.empty() ? words("Statement")
                     : words("Statement  ::  {file}, {matched} of {lines} matched, {open} not in books",
                             "file", statementName_, "lines", std::to_string(lines_.size()), "matched",
                             std::to_string(matched), "open", std::to_string(outside.lines));
  put(kUnexplained, says ? money(Round(value(kBankSays) - sums.bank() - outside.amount, 2)) : "");
}

void FRMBRS::bankSaysTyped() {
  if (!shownAccount_.empty()) showSums();
}

void FRMBRS::rowMoved() { showProposal(); }

// The books follow to the row that the line is proposed for.
void FRMBRS::lineMoved() {
  const Match* const found = matchOfLine(at(kStatementRows).grid.current);
  if (!found) return;
  at(kBookRows).grid.moveTo(found->book);
  showProposal();
}

// What speaks for the line that is proposed for the row under the cursor.
void FRMBRS::showProposal() {
  at("lblproposal").text.clear();
  if (bookRow() >= books_.size()) return;
  const BookEntry& entry = books_[bookRow()];
  const Match* const match = matchOf(bookRow());
  put(kDate, match ? std::optional(lines_[match->line].date) : entry.cleared);
  if (!match) {
    if (!lines_.empty()) at("lblproposal").text = words("The statement has no line for it");
    return;
  }
  const StatementLine& line = lines_[match->line];
  at(kStatementRows).grid.moveTo(match->line);
  std::vector<std::string> facts{
      match->known     ? words("Cleared, F8 takes it back")
      : match->certain ? words("Certain, Enter takes it")
                       : words("Others may be meant, Enter takes this one"),
      words("{amount} on both sides", "amount", indianGroups(money(std::fabs(line.amount))))};
  if (match->reference == Match::Reference::Agrees)
    facts.push_back(words("{number} stands in the text of the bank", "number", entry.reference));
  if (match->reference == Match::Reference::Differs)
    facts.push_back(words("The bank has {number}", "number", trim(line.reference)));
  if (match->days == 0)
    facts.push_back(words("On the same day"));
  else
    facts.push_back(words(match->days == 1   ? english("{count} day later")
                          : match->days > 1  ? english("{count} days later")
                          : match->days < -1 ? english("{count} days earlier")
                                             : english("{count} day earlier"),
                          "count", std::to_string(std::abs(match->days))));
  at("lblproposal").text = join(facts, "  ::  ");
}

// Clearing

void FRMBRS::clearRow(size_t row, const std::optional<Date>& on) {
  const BankRow& entry = books_[row].row;
  if (!setCleared(data(), entry, on))
    gone_ += (gone_.empty() ? "" : "\n") + words("{book} {number} Has Been Changed Meanwhile", "book",
                                                 entry.book, "number", numText(entry.number));
  else if (on)
    lastDate_ = on;
}

// What another program has changed stands there as it is now, and is told.
void FRMBRS::showCleared() {
  refresh();
  if (!gone_.empty()) host.message(std::exchange(gone_, {}), kRefusal);
}

// A proposal is taken at once; else the date is typed, the one before proposed.
Go FRMBRS::take() {
  if (bookRow() >= books_.size()) return Go::Stay;
  const Match* const match = matchOf(bookRow());
  if (!match || match->known) {
    focus(at(kDate));
    return Go::Stay;
  }
  clearRow(bookRow(), lines_[match->line].date);
  at(kBookRows).grid.moveTo(bookRow() + 1);
  showCleared();
  return Go::Stay;
}

void FRMBRS::intoDate() {
  dateRow_ = bookRow();
  const Match* const match = matchOf(dateRow_);
  if (dateRow_ < books_.size() && (!match || match->known)) {
    const BookEntry& entry = books_[dateRow_];
    put(kDate, entry.cleared                           ? entry.cleared
               : lastDate_ && *lastDate_ >= entry.date ? lastDate_
                                                       : entry.date);
  }
  proposed_ = text(kDate);
}

// What was typed there is given up.
void FRMBRS::leaveDate() {
  showProposal();
  focus(at(kBookRows));
}

// What is only proposed there is not taken by walking past it.
bool FRMBRS::worksOnLeaving(const Control& target) const {
  const bool typed = !at(kDate).given || text(kDate) != proposed_;
  return focused() == &at(kDate) && typed && &target != &at("cmdclose");
}

Go FRMBRS::clearedOn() {
  if (dateRow_ >= books_.size()) return leaving() ? Go::On : Go::Stay;
  const bool empty = text(kDate) == kEmptyDate;
  const auto on = date(kDate);
  if (!empty && !on) return dateStands();
  if (on && *on < addDays(books_[dateRow_].date, -31)) {
    host.message("The Bank Cannot Have It So Long Before The Books", kRefusal);
    return Go::Stay;
  }
  clearRow(dateRow_, on);
  if (leaving()) {
    showCleared();
    return Go::On;
  }
  at(kBookRows).grid.moveTo(dateRow_ + 1);
  showCleared();
  focus(at(kBookRows));
  return Go::Stay;
}

void FRMBRS::undo() {
  if (bookRow() >= books_.size() || !books_[bookRow()].cleared) return;
  clearRow(bookRow(), std::nullopt);
  showCleared();
}

void FRMBRS::takeCertain() {
  whole(data(), [&] {
    for (const Match& match : matches_)
      if (match.certain && !match.known) clearRow(match.book, lines_[match.line].date);
  });
  showCleared();
  focus(at(kBookRows));
}

void FRMBRS::otherSide() { focus(at(isHere(kBookRows) ? kStatementRows : kBookRows)); }

void FRMBRS::showVoucher() {
  if (bookRow() >= books_.size()) return;
  const BankRow& row = books_[bookRow()].row;
  awaitsVoucher_ = openVoucher(host, *this, {row.book, row.number});
}

// Of the line under the cursor, which the books lack: a party's money is a receipt or payment, that of cash
// and other banks a contra, and charges, interest and whatever else a journal.
void FRMBRS::write(bool otherwise) {
  const size_t row = at(kStatementRows).grid.current;
  const bool lacks = row < lines_.size() && !matchOfLine(row);
  if (!lacks) {
    ShowHint(host, "Choose A Line Of The Statement That The Books Lack :: Right = Statement Side");
    return;
  }
  const StatementLine& line = lines_[row];
  const OtherSide side = otherSideOf(data(), shownAccount_, line);
  const bool journal = side.money || side.account.empty();
  const std::string reference = cut(line.reference, 50), narration = cut(line.text, 200);
  awaitsVoucher_ = true;
  if (journal != otherwise)
    host.open("FRMJRNL", {
                             .caller = spec.name,
                             .entryType = side.money && !otherwise ? "CONTRA" : "JOURNAL",
                             .more = JournalDraft{.date = line.date,
                                                  .reference = reference,
                                                  .narration = narration,
                                                  .account = shownAccount_,
                                                  .against = side.account,
                                                  .amount = line.amount}
    });
  else
    host.open("bwrcpy", {
                            .caller = spec.name,
                            .entryType = line.amount > 0 ? "RECEIPT" : "PAYMENT",
                            .more = MoneyDraft{.date = line.date,
                                               .bank = shownAccount_,
                                               .party = side.money ? "" : side.account,
                                               .mode = moneyModeOf(line),
                                               .reference = reference,
                                               .narration = narration,
                                               .amount = std::fabs(line.amount)}
    });
}

void FRMBRS::send(const GridTarget& target) {
  if (shownAccount_.empty()) show();
  if (shownAccount_.empty()) return;
  auto rows = std::make_shared<TextRows>(paperColumns());
  const auto total = [&](const char* label, double figure) {
    rows->add({"", words(label), "", "", money(figure)}, true);
  };
  // Of money that came in, and of money that went out.
  const auto open = [&](int side) {
    for (const BookEntry& e : books_)
      if (e.row.amount * side > 0 && (!e.cleared || *e.cleared > to_))
        rows->add({shownDay(e.date), e.particulars, e.reference, money(std::fabs(e.row.amount)), ""});
  };
  const BankSums sums = bankSums(data(), shownAccount_, to_);
  total(english("Balance by the books"), sums.books);
  open(-1);
  total(english("+ Paid, not yet taken by the bank"), sums.paid);
  open(1);
  total(english("- Received, not yet with the bank"), -sums.received);
  total(english("Balance that the bank should show"), sums.bank());
  for (size_t i = 0; i < lines_.size(); ++i)
    if (isOutside(i))
      rows->add({shownDay(lines_[i].date), lines_[i].text, lines_[i].reference, money(lines_[i].amount), ""});
  total(english("Statement lines not in the books"), outside().amount);
  if (!trimmed(kBankSays).empty()) total(english("Bank says"), value(kBankSays));
  target.send(host, {.caption = caption,
                     .period = words("On {date}", "date", shownDay(to_)),
                     .columns = rows->columns(),
                     .rows = rows});
}

std::string FRMBRS::hintFor(const Control& control) const {
  if (control.spec->field == kBookRows)
    return english(
        "Enter = Take Or Type The Date :: F5 = Voucher :: F6 = Take All Certain :: F8 = Undo :: Right = "
        "Statement Side");
  if (control.spec->field == kStatementRows)
    return english("F9 = Write The Voucher That Is Missing :: Shift+F9 = As Another Kind :: Left = Books");
  return ChildScreen::hintFor(control);
}

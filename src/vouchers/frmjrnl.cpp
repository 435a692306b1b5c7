#include "vouchers/frmjrnl.h"

#include <any>
#include <cmath>

#include "base/figure.h"
#include "base/number.h"
#include "base/pattern.h"
#include "base/text.h"
#include "base/words.h"
#include "frame/session.h"
#include "store/balances.h"
#include "store/engine.h"
#include "vouchers/journal_paper.h"
#include "vouchers/numbering.h"

using namespace fields;

namespace {

constexpr const char* kNoMoreLines = "00";

// clang-format off
std::vector<WorkLines::Shown> shownColumns(const VoucherKind& kind) {
  return {{kind.tables.serial}, {"ACC_CD"}, {"ACC_NAME"}, {"DEBIT", "0.00", false}, {"CREDIT", "0.00", false},
          {"CHQ_NO"}, {"NARRATION"}, {"BAL_AFT"}};
}
// clang-format on

}  // namespace

FRMJRNL::FRMJRNL(Host& theHost, const Opening& opening)
    : VoucherScreen(theHost, table(), journalKind(opening.entryType),
                    shownColumns(journalKind(opening.entryType))) {
  wire(*this, {
                  {kNumber,        KeyCode::Enter,  &FRMJRNL::voucherNumber},
                  {kDate,          KeyCode::Enter,  &FRMJRNL::voucherDate  },
                  {kAccount,       KeyCode::Enter,  &FRMJRNL::account      },
                  {kAccount,       KeyCode::Insert, &FRMJRNL::newParty     },
                  {kAccount,       KeyCode::Down,   &FRMJRNL::lineDown     },
                  {kAccount,       KeyCode::Up,     &FRMJRNL::lineUp       },
                  {kAccount,       KeyCode::PgDn,   &FRMJRNL::endLines     },
                  {kAccount,       KeyCode::F10,    &FRMJRNL::deleteLine   },
                  {kAccount,       KeyCode::Tab,    &FRMJRNL::lineTab      },
                  {kDebit,         KeyCode::Enter,  &FRMJRNL::debit        },
                  {kCredit,        KeyCode::Enter,  &FRMJRNL::credit       },
                  {kLineNarration, KeyCode::Enter,  &FRMJRNL::closeLine    },
                  {kLineNarration, KeyCode::Tab,    &FRMJRNL::lineTab      },
                  {kCheque,        KeyCode::Enter,  &FRMJRNL::closeLine    },
                  {kCheque,        KeyCode::Tab,    &FRMJRNL::lineTab      },
                  {kDebit,         KeyCode::F6,     &FRMJRNL::toCheque     },
                  {kCredit,        KeyCode::F6,     &FRMJRNL::toCheque     },
                  {kLineNarration, KeyCode::F6,     &FRMJRNL::toCheque     },
  });
  wireLookups(lookups(kind_));
}

void FRMJRNL::opened(const Opening& opening) {
  // Books that the walk has not brought up to date lack them.
  for (const std::string& table : {kind_.tables.heads, kind_.tables.lines}) ensureTable(data(), table);
  VoucherScreen::opened(opening);
  const auto* const draft = std::any_cast<JournalDraft>(&opening.more);
  if (!draft) return;
  closeAfterwards();
  add();
  put(kDate, draft->date);
  put(kReference, draft->reference);
  put(kNarration, draft->narration);
  put(kAccount, draft->account);
  showAccount();
  put(draft->amount > 0 ? kDebit : kCredit, std::fabs(draft->amount));
  showBalanceAfter();
  storeLine();
  put(kAccount, draft->against);
}

// Head

void FRMJRNL::startNew() {
  put(kNumber, lastVoucher(data(), kind_).number + 1);
  put(kDate, host.today());
  period_ = {};
  sumLines();
  focus(at(kDate));
}

// Of a voucher whose number is given to Print the paper is shown.
Go FRMJRNL::voucherNumber() {
  if (trimmed(kNumber).empty()) return helpHere();
  if (mode != "PRINT") return number();
  const double asked = value(kNumber);
  if (!load(asked)) return Go::Stay;
  showJournalPaper(host, data(), kind_, asked);
  cancel();
  return Go::Stay;
}

Go FRMJRNL::voucherDate() {
  const auto typed = date(kDate);
  if (!typed) return dateStands();
  const std::string refusal = period_.refusal(*typed);
  if (refusal.empty()) return Go::On;
  host.message(refusal, kMessageTitle);
  return Go::Stay;
}

void FRMJRNL::clearHead() {
  VoucherScreen::clearHead();
  sums_ = {};
  for (const FieldName shown : {kDebitTotal, kCreditTotal, kPartyFacts}) put(shown, "");
  for (const char* label : {"lbltotal", "lblwrong", "lblcure"}) at(label).text = "";
}

// The line being typed

void FRMJRNL::clearLine() {
  VoucherScreen::clearLine();
  put(kPartyFacts, "");
}

// The side without an amount stands empty.
void FRMJRNL::showLine(const Row& line) {
  VoucherScreen::showLine(line);
  for (const FieldName side : {kDebit, kCredit})
    if (value(side) == 0) put(side, "");
  showAccount();
}

bool FRMJRNL::takesAccount(const std::string& code) const {
  return kind_.party.offered.empty() || sameText(code, kCashAccount) ||
         data().first("SELECT 1 FROM ACCOUNT WHERE ACC_CD = ? AND " + kind_.party.offered, code);
}

Go FRMJRNL::account() {
  if (trimmed(kAccount).empty()) return helpHere();
  if (trimmed(kAccount) == kNoMoreLines) {
    put(kAccount, "");
    if (!leaving()) endLines();
    return Go::Stay;
  }
  if (!findAccount(kAccount, kAccountName, kMessageTitle)) return Go::Stay;
  if (!takesAccount(trimmed(kAccount))) {
    host.message("A Contra Takes Cash And Bank Accounts Alone\nEmpty It And Press Enter For Help",
                 kMessageTitle);
    return Go::Stay;
  }
  session().mlastacc = trimmed(kAccount);
  showAccount();
  propose();
  showBalanceAfter();
  if (!leaving()) focus(at(value(kCredit) != 0 ? kCredit : kDebit));
  return leaving() ? Go::On : Go::Stay;
}

void FRMJRNL::showAccount() {
  const auto account = readAccount(data(), trimmed(kAccount));
  put(kAccountName, account ? account->name : "");
  at(kPartyFacts).text =
      account ? words("{name}\nBal : {balance}", "name", trimmed(kAccount) + " " + account->name, "balance",
                      balanceText(account->balance))
              : "";
}

double FRMJRNL::lacking() {
  double others = sums_.difference();
  if (lines_->onRow()) others -= lines_->row().number("DEBIT") - lines_->row().number("CREDIT");
  return Round(others, 2);
}

// On the side that lacks it; what was typed stays.
void FRMJRNL::propose() {
  const double open = lacking();
  if (open == 0 || value(kDebit) != 0 || value(kCredit) != 0) return;
  put(open > 0 ? kCredit : kDebit, std::fabs(open));
}

bool FRMJRNL::acceptAmount(FieldName side) {
  const double typed = value(side);
  const bool refused = figureRefused(text(side));
  if (!refused && typed > 0 && typed == Round(typed, 2)) return true;
  host.message(refused     ? kFigureRefused
               : typed > 0 ? english("An Amount Has Two Decimals")
                           : english("CAN NOT ACCEPT"));
  return false;
}

// An amount on the one side takes the place of one on the other.
Go FRMJRNL::debit() {
  if (trimmed(kDebit).empty() || text(kDebit) == "0") return Go::On;
  if (!acceptAmount(kDebit)) return Go::Stay;
  put(kCredit, "");
  showBalanceAfter();
  if (leaving()) return Go::On;
  focus(at(kLineNarration));
  return Go::Stay;
}

void FRMJRNL::toCheque() {
  if (entering() && !trimmed(kAccount).empty()) focus(at(kCheque));
}

Go FRMJRNL::credit() {
  const bool empty = trimmed(kCredit).empty() || text(kCredit) == "0";
  if (empty && leaving()) return Go::On;
  if (empty && value(kDebit) != 0) return Go::On;
  if (empty) {
    host.message("Type A Debit Or A Credit", kMessageTitle);
    focus(at(kDebit));
    return Go::Stay;
  }
  if (!acceptAmount(kCredit)) return Go::Stay;
  put(kDebit, "");
  showBalanceAfter();
  return Go::On;
}

// Of all the lines of the account, as far as they are typed; a stored voucher stands in the ledger already.
void FRMJRNL::showBalanceAfter() {
  const std::string code = trimmed(kAccount);
  const double here = lines_->onRow() ? lines_->serial() : 0;
  const double others =
      data().number("SELECT SUM(DEBIT - CREDIT) FROM T_JOURNITM WHERE ACC_CD = ? AND SR_NO <> ?", code, here);
  const double posted = mode == "EDIT" ? data().number(
                                             "SELECT SUM(DEBIT - CREDIT) FROM JOURNITM"
                                             " WHERE VOUCH_NO = ? AND BOOK_CD = ? AND ACC_CD = ?",
                                             value(kNumber), kind_.code, code)
                                       : 0;
  put(kBalanceAfter,
      balanceText(ledgerBalance(data(), code) - posted + others + value(kDebit) - value(kCredit)));
}

bool FRMJRNL::lineComplete() {
  if (value(kDebit) != 0 || value(kCredit) != 0) return true;
  host.message("The Line Being Typed Is Not Complete\nComplete It, Or Empty Its Account", kCheck);
  focus(at(kDebit));
  return false;
}

Go FRMJRNL::closeLine() {
  if (!entering() || leaving()) return Go::On;
  if (trimmed(kAccount).empty()) {
    focus(at(kAccount));
    return Go::Stay;
  }
  if (!work(at(kAccount)) || !work(at(kDebit)) || !work(at(kCredit)) || !lineComplete()) return Go::Stay;
  showBalanceAfter();
  storeLine();
  return Go::Stay;
}

void FRMJRNL::deleteLine() {
  VoucherScreen::deleteLine();
  sumLines();
}

void FRMJRNL::endLines() {
  if (sums_.lines > 0 && sums_.difference() == 0)
    toSave();
  else
    ShowHint(host, reason);
}

// The whole

void FRMJRNL::sumLines() {
  sums_ = sumJournal(data());
  const double open = sums_.difference();
  const std::string difference = open == 0 ? "0" : balanceText(open);
  put(kDebitTotal, Format(sums_.debit, "0.00"));
  put(kCreditTotal, Format(sums_.credit, "0.00"));
  put(kDifference, difference);
  at("lbltotal").text =
      words(sums_.lines == 1 ? english("Total Of {count} Line") : english("Total Of {count} Lines"), "count",
            std::to_string(sums_.lines));
  at("lblwrong").text = open != 0         ? words("Debit And Credit Must Be Equal")
                        : sums_.lines > 0 ? words("Debit And Credit Are Equal")
                                          : "";
  at("lblcure").text =
      open == 0 ? "" : words("The next line proposes what makes them equal. Enter takes it.");
  allowSave(sums_.lines > 0 && open == 0);
  if (open != 0)
    reason = words("Save opens when the difference is 0  ::  now {difference}", "difference", difference);
}

bool FRMJRNL::meansNothing() {
  if (sums_.lines > 0 && sums_.difference() == 0) return false;
  host.message(sums_.lines == 0 ? words("A Journal Has Two Lines At Least")
                                : words("Debit And Credit Must Be Equal\nThe Difference Is {difference}",
                                        "difference", balanceText(sums_.difference())),
               kCheck);
  focus(at(kAccount));
  return true;
}

std::string FRMJRNL::atStake() const {
  std::vector<std::string> facts{words("Voucher {number}", "number", text(kNumber)), trimmed(kNarration)};
  if (sums_.lines > 0)
    facts.push_back(words(sums_.lines == 1 ? english("{count} Line") : english("{count} Lines"), "count",
                          std::to_string(sums_.lines)));
  facts.push_back(indianGroups(text(kDebitTotal)));
  std::erase(facts, "");
  return join(facts, "  ::  ");
}

bool FRMJRNL::write(const SaveStamp& stamp, const Saving& how) {
  return saveJournal(data(), kind_, writtenFields(Part::Head), stamp, how);
}

bool FRMJRNL::erase(double number, const Saving& as) { return deleteJournal(data(), kind_, number, as); }

SavedMessage FRMJRNL::closingMessage() const {
  return {
      .head = kind_.words.savedHead,
      .facts = {{english("Entry No"), text(kNumber)},
                {english("Narration"), trimmed(kNarration)},
                {english("AMOUNT"), text(kDebitTotal)}},
      .hints = kind_.words.savedHints,
  };
}

bool FRMJRNL::load(double number) {
  const auto journal = findJournal(data(), kind_, number);
  if (!journal) {
    host.message("ENTRY NOT FOUND");
    return false;
  }
  clearAll();
  period_ = {};
  at(kLines).visible = true;
  loadJournalLines(data(), kind_, number);
  lines_->requery();
  showFields(*journal, Part::Head);
  sumLines();
  showCurrentLine();
  return true;
}

#include "vouchers/bwrcpy.h"

#include <any>
#include <memory>

#include "base/figure.h"
#include "base/number.h"
#include "base/pattern.h"
#include "base/text.h"
#include "base/words.h"
#include "frame/links.h"
#include "frame/session.h"
#include "masters/page_rows.h"
#include "vouchers/bwrcpy_table.h"
#include "vouchers/money_paper.h"
#include "vouchers/numbering.h"

using namespace fields;

namespace {

constexpr const char* kConfirm = english("Mirav Confirmation Message");
constexpr const char* kRestHint = english("Press Add Button to Enter New Voucher");

constexpr FieldName kEntered[] = {kNumber, kParty,      kAmount,         kNarration, kMode,
                                  kCheque, kChequeDate, kDiscountAmount, kWriteOff,  kTds};

}  // namespace

bwrcpy::bwrcpy(Host& theHost, const Opening& opening)
    : ChildScreen(theHost, bwrcpyTable()), kind_(moneyKind(opening.entryType)) {
  at(kBills).grid.source = bills_;
  caption = kind_.words.title;
  at("cmdCancel").tab = 0;  // a press leaves the focus where it is: who gives up may think again
  wire(*this, {
                  {"cmdAdd",     On::Click,          &bwrcpy::add           },
                  {"cmdEdit",    On::Click,          &bwrcpy::modify        },
                  {"cmdDelete",  On::Click,          &bwrcpy::startDelete   },
                  {"Cmdprint",   On::Click,          &bwrcpy::print         },
                  {"cmdClose",   On::Click,          &bwrcpy::close         },
                  {"cmdUpdate",  On::Click,          &bwrcpy::update        },
                  {"cmdUpdate",  On::Leave,          &bwrcpy::lockUpdate    },
                  {"cmdCancel",  On::Click,          &bwrcpy::giveUp        },
                  {"Cmdvideo",   On::Click,          &bwrcpy::video         },
                  {"",           KeyCode::Esc,       &bwrcpy::escape        },
                  {"",           KeyCode::F5,        &bwrcpy::chooseAccount },
                  {"",           Key::Ctrl('P'),     &bwrcpy::view          },
                  {kNumber,      KeyCode::Enter,     &bwrcpy::number        },
                  {kNumber,      KeyCode::F1,        &bwrcpy::oldByReference},
                  {kNumber,      KeyCode::F3,        &bwrcpy::oldByCheque   },
                  {kNumber,      KeyCode::F4,        &bwrcpy::oldByAmount   },
                  {kDate,        KeyCode::Enter,     &bwrcpy::voucherDate   },
                  {"MaskEdBox1", KeyCode::F1,        &bwrcpy::dateF1        },
                  {"MaskEdBox1", KeyCode::F2,        &bwrcpy::dateF2        },
                  {"MaskEdBox1", KeyCode::F3,        &bwrcpy::dateF3        },
                  {"MaskEdBox1", KeyCode::Up,        &bwrcpy::dateUp        },
                  {"MaskEdBox1", KeyCode::Down,      &bwrcpy::dateDown      },
                  {"MaskEdBox1", KeyCode::PgUp,      &bwrcpy::datePgUp      },
                  {"MaskEdBox1", KeyCode::PgDn,      &bwrcpy::datePgDn      },
                  {kAccount,     KeyCode::Enter,     &bwrcpy::account       },
                  {kAccount,     On::Leave,          &bwrcpy::leaveAccount  },
                  {kParty,       KeyCode::Enter,     &bwrcpy::party         },
                  {kParty,       KeyCode::F2,        &bwrcpy::partyByCity   },
                  {kAmount,      KeyCode::Enter,     &bwrcpy::amount        },
                  {kAmount,      On::Change,         &bwrcpy::showSums      },
                  {kMode,        KeyCode::Enter,     &bwrcpy::payMode       },
                  {kChequeDate,  KeyCode::Enter,     &bwrcpy::chequeDate    },
                  {kNarration,   KeyCode::Enter,     &bwrcpy::remarks       },
                  {kNarration,   KeyCode::Tab,       &bwrcpy::remarksTab    },
                  {kNarration,   KeyCode::F1,        &bwrcpy::earlierRemarks},
                  {"DataGrid1",  On::DoubleClick,    &bwrcpy::openRow       },
                  {"",           KeyCode::PgDn,      &bwrcpy::toBills       },
                  {"",           KeyCode::F12,       &bwrcpy::saveAtOnce    },
                  {"cmdbills",   On::Click,          &bwrcpy::showBills     },
                  {"cmdlast",    On::Click,          &bwrcpy::showVouchers  },
                  {kBills,       KeyCode::Enter,     &bwrcpy::settleRow     },
                  {kBills,       On::DoubleClick,    &bwrcpy::settleWhole   },
                  {kBills,       On::Row,            &bwrcpy::takeTyped     },
                  {kBills,       On::Leave,          &bwrcpy::takeTyped     },
                  {kBills,       KeyCode::Backspace, &bwrcpy::typedBack     },
                  {kBills,       KeyCode::Delete,    &bwrcpy::freeRow       },
                  {kBills,       KeyCode::PgUp,      &bwrcpy::pageBack      },
                  {kBills,       KeyCode::Tab,       &bwrcpy::toForm        },
                  {kBills,       KeyCode::F6,        &bwrcpy::oldestFirst   },
                  {kBills,       KeyCode::F8,        &bwrcpy::freeAll       },
  });
  for (const Deduction& d : deductions()) {
    wire(*this, {
                    {d.amount,  KeyCode::Enter, &bwrcpy::deduction       },
                    {d.amount,  KeyCode::F5,    &bwrcpy::chooseDeduction },
                    {d.amount,  On::Change,     &bwrcpy::showSums        },
                    {d.account, KeyCode::Enter, &bwrcpy::deductionAccount},
                    {d.account, On::Leave,      &bwrcpy::leaveDeduction  },
    });
  }
}

// Opening and closing

void bwrcpy::opened(const Opening& opening) {
  ChildScreen::opened(opening);
  offerTutorial(*this, links().receiptVideo + links().receiptBillwiseVideo);
  rest();
  if (const auto* const draft = std::any_cast<MoneyDraft>(&opening.more)) return take(*draft);
  drilledDown_ = !opening.value.empty();
  if (!drilledDown_) return;
  modify();
  put(kNumber, opening.value);
  if (enterNumber() == Go::Stay) return;
  focus(at(kDate));
}

void bwrcpy::activated() {
  if (mode.empty()) ShowHint(host, kRestHint);
}

bool bwrcpy::mayClose() {
  return !entering() || !unsaved() || host.ask(leaveQuestion(english("Do you want to exit")));
}

bool bwrcpy::worksOnLeaving(const Control& target) const {
  return entering() && &target != &at("cmdCancel") && &target != &at("Cmdvideo");
}

void bwrcpy::escape() {
  if (!bills_->typed.text.empty()) {
    bills_->typed = {};
  } else if (focused() == &at(kBills)) {
    toForm();
  } else if (entering()) {
    if (host.ask(leaveQuestion(english("Do you want to exit")))) cancel();
  } else if (!mode.empty()) {
    cancel();
  } else if (host.ask({.text = english("Do you want to exit"),
                       .title = kConfirm,
                       .yes = english("&Yes, Exit"),
                       .no = english("&No, Stay")})) {
    host.close(*this);
  }
}

void bwrcpy::print() { begin("PRINT", english("{title} : PRINT MODE")); }

void bwrcpy::video() {
  const bool onAccount = host.ask(
      {.text = english(
           "See Video for On ACCOUNT Payment Entry = Yes \nSee Video for On Billwise Payment Entry = No "),
       .title = kConfirm,
       .yes = english("&Yes, On Account"),
       .no = english("&No, Billwise")});
  openTutorial(host, onAccount ? links().receiptVideo : links().receiptBillwiseVideo);
}

// Modes

void bwrcpy::setMode(const std::string& newMode, const std::string& pattern) {
  mode = newMode;
  const std::string title = words(kind_.words.title);
  caption = pattern.empty() ? title : words(pattern, "title", title);
  tellEscape();
}

void bwrcpy::tellEscape() {
  escMeans = focused() == &at(kBills) ? english("Esc = Back To Amount")
             : mode.empty()           ? english("Esc = Close")
             : entering()             ? english("Esc = Cancel and Exit")
                                      : english("Esc = Cancel");
}

void bwrcpy::focusMoved(Control& control) {
  ChildScreen::focusMoved(control);
  tellEscape();
}

void bwrcpy::begin(const std::string& newMode, const std::string& pattern) {
  setMode(newMode, pattern);
  loaded_ = 0;
  hand_.letGo();
  clearFields();
  at(kAccount).enabled = false;
  for (const FieldName entered : kEntered)
    at(entered).enabled = entering() || (!mode.empty() && entered == kNumber);
  at(kDate).enabled = entering();
  layOut();
  allowUpdate(false);
  showButtons();
  if (!mode.empty()) focusUnchecked(at(kNumber));
}

void bwrcpy::add() {
  begin("ADD", kAddingMoney);
  put(kNumber, lastVoucher(data(), kind_).number + 1);
  placeDefaults();
  takeShown();
  focusUnchecked(at(kDate));
}

void bwrcpy::take(const MoneyDraft& draft) {
  drilledDown_ = true;
  add();
  put(kDate, draft.date);
  put(kAccount, draft.bank);
  showAccount(kCashSide);
  put(kParty, draft.party);
  showAccount(kOtherSide);
  layOut();
  showMode(draft.mode);
  openCheque();
  put(kCheque, draft.reference);
  put(kChequeDate, draft.date);
  put(kAmount, draft.amount);
  put(kNarration, draft.narration);
  bills_->takeEqual(draft.amount);
  showSums();
  focus(at(draft.party.empty() ? kParty : kAmount));
}

void bwrcpy::view() {
  if (mode.empty()) begin("VIEW", english("{title} : VIEW MODE"));
}

void bwrcpy::rest() {
  begin("", "");
  showList();
  focusUnchecked(at("cmdAdd"));
}

void bwrcpy::giveUp() {
  if (!entering() || mayDiscard()) cancel();
}

std::string bwrcpy::atStake() const {
  const std::string amount = text(kAmount);
  std::vector<std::string> facts{
      words("Entry {number}", "number", loaded_ != 0 ? numText(loaded_) : text(kNumber)), trimmed(kPartyName),
      isNumberText(amount) ? indianGroups(amount) : amount};
  std::erase(facts, "");
  return join(facts, "  ::  ");
}

void bwrcpy::cancel() {
  rest();
  if (drilledDown_) host.close(*this);
}

void bwrcpy::showButtons() {
  for (const char* name : {"cmdAdd", "cmdEdit", "cmdDelete", "Cmdprint", "cmdClose", "SCR1"})
    at(name).visible = mode.empty();
  for (const char* name : {"cmdUpdate", "cmdCancel"}) at(name).visible = !mode.empty();
}

void bwrcpy::allowUpdate(bool on) {
  at("cmdUpdate").enabled = on;
  reason = !entering() ? "" : on ? advance() : english("Update opens after Remarks");
}

void bwrcpy::clearFields() {
  emptyFields(Part::Head);
  asked_ = false;
  bills_->forget();
  takeShown();
  period_ = {};
}

void bwrcpy::takeShown() {
  takeAsShown(kNumber);
  shownSettlement_ = settlementText();
}

bool bwrcpy::unsaved() const { return ChildScreen::unsaved() || settlementText() != shownSettlement_; }

void bwrcpy::placeDefaults() {
  put(kDate, host.today());
  put(kAccount, kCashAccount);
  showAccount(kCashSide);
  layOut();
}

void bwrcpy::showList() {
  // A join would be gone through for the count of the rows alone.
  constexpr const char* kPartyOfRow =
      "(SELECT ACC_NAME FROM ACCOUNT WHERE ACCOUNT.ACC_CD = RPTPAY.PARTY_CD LIMIT 1)";
  Grid& grid = at("DataGrid1").grid;
  grid.source = std::make_shared<PageRows>(data(), Select{
                                                       .columns = {{"RPTPAY.VOUCH_NO"},
                                                                   {"VOUCH_DT"},
                                                                   {kPartyOfRow, 0, "ACC_NAME"},
                                                                   {"AMOUNT"},
                                                                   {"NARRATION"}},
                                                       .from = "RPTPAY",
                                                       .where = "RPTPAY.BOOK_CD = ?",
                                                       .order = {down("RPTPAY.VOUCH_NO")},
                                                       .values = {kind_.code               },
  });
  grid.current = Grid::kNone;
}

void bwrcpy::openRow() {
  const Grid& grid = at("DataGrid1").grid;
  if (!mode.empty() || grid.current >= grid.count()) return;
  view();
  put(kNumber, grid.cell(grid.current, 0).text);
  enterNumber();
}

// The number

Go bwrcpy::number() { return trimmed(kNumber).empty() ? oldEntries() : enterNumber(); }

Go bwrcpy::enterNumber() {
  const double n = value(kNumber);
  if (mode == "EDIT" && loaded_ != 0 && !mayDiscard()) {
    put(kNumber, loaded_);
    return Go::Stay;
  }
  if ((mode == "EDIT" || mode == "DEL") && !takeInHand(n)) return Go::Stay;
  // Read first: what changes in between is told too often, never too seldom.
  std::string rows = asStored(data(), kind_, n);
  const auto found = findMoneyVoucher(data(), kind_, n);
  if (mode == "ADD" && !isVoucherNumber(n)) {
    host.message(kNoVoucherNumber);
    return Go::Stay;
  }
  if (mode == "ADD") {
    if (!found) return Go::On;
    // Nothing that was typed goes for a number that is taken.
    if (unsaved()) {
      host.message("VOUCHER ALREADY EXISTS");
      put(kNumber, lastVoucher(data(), kind_).number + 1);
      return Go::Stay;
    }
    notFound("VOUCHER ALREADY EXISTS");
    placeDefaults();
    takeShown();
    return Go::Stay;
  }
  if (!found)
    return notFound(mode == "EDIT"  ? english("VOUCHER DOES NOT EXISTS")
                    : mode == "DEL" ? english("PARTY DOES NOT EXIST")
                                    : english("VOUCHER DOES NOT EXIST"));
  asLoaded_ = std::move(rows);
  showVoucher(*found);
  if (mode == "PRINT") {
    showMoneyPaper(host, data(), kind_, n);
    cancel();
    return Go::Stay;
  }
  if (mode == "EDIT") focus(at(kDate));
  std::string settled = mode == "DEL" ? settledWords(data(), {kind_.code, n}) : "";
  if (!settled.empty()) settled = "\n" + settled;
  // One that was changed while the question stood is shown as it is now, and asked about again.
  if (mode == "DEL" && host.ask(deleteQuestion(english("ARE YOU SURE"), atStake() + settled)) && !remove(n) &&
      isStored(data(), kind_, n))
    return enterNumber();
  if (mode != "DEL") return Go::Stay;
  hand_.letGo();
  clearFields();
  return Go::Stay;
}

// Where somebody else has it in hand for a change it may be looked at.
bool bwrcpy::takeInHand(double number) {
  if (!isStored(data(), kind_, number)) return true;
  const std::string elsewhere = hand_.take(kind_.code, numText(number));
  if (elsewhere.empty()) return true;
  if (mode == "DEL") {
    host.message(elsewhere, kMessageTitle);
  } else if (host.ask(lookQuestion(elsewhere))) {
    begin("", "");
    view();
    put(kNumber, number);
    enterNumber();
    reason = elsewhere;
  } else {
    modify();
  }
  return false;
}

Go bwrcpy::notFound(const std::string& refusal) {
  hand_.letGo();
  host.message(refusal);
  clearFields();
  loaded_ = 0;
  return Go::Stay;
}

void bwrcpy::showVoucher(const Row& v) {
  clearFields();  // of what stood here before nothing may stay
  showFields(v, Part::Head);
  showAccount(kCashSide);
  showAccount(kOtherSide);
  loaded_ = v.number("VOUCH_NO");
  showSettlement(v);
  takeAsWorked(Part::Head);
  takeShown();
}

bool bwrcpy::remove(double number) {
  const bool removed = deleteMoneyVoucher(data(), kind_, number, Saving::over(asLoaded_));
  if (!removed) host.message(meanwhileWords(data(), kind_, number), kMessageTitle);
  showList();
  return removed;
}

// Hints

// What Enter does, then the keys that the table names for the field.
std::string bwrcpy::hintFor(const Control& control) const {
  const bool isAmount = control.spec->field == kAmount;
  if (isAmount && at(kBills).visible)
    return words(control.hint) + " :: " + words("Page Down = Bills To Settle");
  if (!control.editable() || isAmount) return ChildScreen::hintFor(control);
  if (control.spec->field == kMode) return payModes();
  const bool isNumber = control.spec->field == kNumber;
  const bool mayStayEmpty = control.spec->field == kCheque || control.spec->holds == Holds::Figure;
  const bool helps = trim(control.text).empty() && !mayStayEmpty;
  const std::string enter = words(isNumber ? english("Press Enter For Help Find Old Entries")
                                  : helps  ? english("Press Enter For Help")
                                           : english("Press Enter To Proceed"));
  std::string all = control.hint.empty() ? enter : enter + " :: " + words(control.hint);
  if (control.spec->field == kNarration)
    all += " :: " + words(hasBills() ? english("Page Down = Bills To Settle") : english("Page Down = TDS"));
  return all;
}

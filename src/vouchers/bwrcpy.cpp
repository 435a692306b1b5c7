#include "vouchers/bwrcpy.h"

#include <memory>

#include "base/figure.h"
#include "base/number.h"
#include "base/pattern.h"
#include "base/text.h"
#include "base/words.h"
#include "frame/links.h"
#include "frame/session.h"
#include "masters/page_rows.h"
#include "store/groups.h"
#include "vouchers/accounts.h"
#include "vouchers/bwrcpy_table.h"
#include "vouchers/numbering.h"

using namespace fields;

namespace {

constexpr const char* kConfirm = english("Mirav Confirmation Message");
constexpr const char* kCheck = english("Mirav Check");
constexpr const char* kAdding = english("{title} : ADD MODE");
constexpr const char* kRestHint = english("Press Add Button to Enter New Voucher");
constexpr Bgr kOkColour = 0xFFF0F0, kSecondColour = 0xFFD0D0;

constexpr FieldName kEntered[] = {kNumber, kParty, kAmount, kNarration};
constexpr bwrcpy::Side kCashSide{kAccount, kAccountName, kAccountBalance};
constexpr bwrcpy::Side kOtherSide{kParty, kPartyName, kPartyBalance};

}  // namespace

bwrcpy::bwrcpy(Host& theHost, const Opening& opening)
    : ChildScreen(theHost, bwrcpyTable()), kind_(moneyKind(opening.entryType)) {
  caption = kind_.words.title;
  at("cmdCancel").tab = 0;  // a press leaves the focus where it is: who gives up may think again
  wire(*this, {
                  {"cmdAdd",     On::Click,       &bwrcpy::add           },
                  {"cmdEdit",    On::Click,       &bwrcpy::modify        },
                  {"cmdDelete",  On::Click,       &bwrcpy::startDelete   },
                  {"Cmdprint",   On::Click,       &bwrcpy::print         },
                  {"cmdClose",   On::Click,       &bwrcpy::close         },
                  {"cmdUpdate",  On::Click,       &bwrcpy::update        },
                  {"cmdUpdate",  On::Leave,       &bwrcpy::lockUpdate    },
                  {"cmdCancel",  On::Click,       &bwrcpy::giveUp        },
                  {"Cmdvideo",   On::Click,       &bwrcpy::video         },
                  {"",           KeyCode::Esc,    &bwrcpy::escape        },
                  {"",           KeyCode::F5,     &bwrcpy::chooseAccount },
                  {"",           Key::Ctrl('P'),  &bwrcpy::view          },
                  {kNumber,      KeyCode::Enter,  &bwrcpy::number        },
                  {kNumber,      KeyCode::F1,     &bwrcpy::oldByReference},
                  {kNumber,      KeyCode::F3,     &bwrcpy::oldByCheque   },
                  {kNumber,      KeyCode::F4,     &bwrcpy::oldByAmount   },
                  {kDate,        KeyCode::Enter,  &bwrcpy::voucherDate   },
                  {"MaskEdBox1", KeyCode::F1,     &bwrcpy::dateF1        },
                  {"MaskEdBox1", KeyCode::F2,     &bwrcpy::dateF2        },
                  {"MaskEdBox1", KeyCode::F3,     &bwrcpy::dateF3        },
                  {"MaskEdBox1", KeyCode::Up,     &bwrcpy::dateUp        },
                  {"MaskEdBox1", KeyCode::Down,   &bwrcpy::dateDown      },
                  {"MaskEdBox1", KeyCode::PgUp,   &bwrcpy::datePgUp      },
                  {"MaskEdBox1", KeyCode::PgDn,   &bwrcpy::datePgDn      },
                  {kAccount,     KeyCode::Enter,  &bwrcpy::account       },
                  {kAccount,     On::Leave,       &bwrcpy::leaveAccount  },
                  {kParty,       KeyCode::Enter,  &bwrcpy::party         },
                  {kParty,       KeyCode::F2,     &bwrcpy::partyByCity   },
                  {kAmount,      KeyCode::Enter,  &bwrcpy::amount        },
                  {kNarration,   KeyCode::Enter,  &bwrcpy::remarks       },
                  {kNarration,   KeyCode::Tab,    &bwrcpy::remarksTab    },
                  {kNarration,   KeyCode::F1,     &bwrcpy::earlierRemarks},
                  {"DataGrid1",  On::DoubleClick, &bwrcpy::openRow       },
  });
}

// Opening and closing

void bwrcpy::opened(const Opening& opening) {
  ChildScreen::opened(opening);
  offerTutorial(*this, links().receiptVideo + links().receiptBillwiseVideo);
  rest();
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
  if (entering()) {
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

void bwrcpy::print() { host.open("dlg1", {.caller = spec.name, .reportKey = kind_.paper.key}); }

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
  escMeans = mode.empty() ? english("Esc = Close")
             : entering() ? english("Esc = Cancel and Exit")
                          : english("Esc = Cancel");
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
  allowUpdate(false);
  showButtons();
  if (!mode.empty()) focusUnchecked(at(kNumber));
}

void bwrcpy::add() {
  begin("ADD", kAdding);
  put(kNumber, lastVoucher(data(), kind_).number + 1);
  placeDefaults();
  takeAsShown(kNumber);
  focusUnchecked(at(kDate));
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
  for (const char* name : {"cmdAdd", "cmdEdit", "cmdDelete", "cmdClose", "SCR1"})
    at(name).visible = mode.empty();
  at("Cmdprint").visible = mode.empty() && !kind_.paper.key.empty();
  for (const char* name : {"cmdUpdate", "cmdCancel"}) at(name).visible = !mode.empty();
}

void bwrcpy::allowUpdate(bool on) {
  at("cmdUpdate").enabled = on;
  reason = on || !entering() ? "" : english("Update opens after Remarks");
}

void bwrcpy::clearFields() {
  emptyFields(Part::Head);
  takeAsShown(kNumber);
  period_ = {};
}

void bwrcpy::placeDefaults() {
  put(kDate, host.today());
  put(kAccount, kCashAccount);
  showAccount(kCashSide);
}

void bwrcpy::showList() {
  Grid& grid = at("DataGrid1").grid;
  grid.source = std::make_shared<PageRows>(
      data(), Select{
                  .columns = {{"RPTPAY.VOUCH_NO"}, {"VOUCH_DT"}, {"ACC_NAME"}, {"AMOUNT"}, {"NARRATION"}},
                  .from = "RPTPAY LEFT JOIN ACCOUNT ON RPTPAY.PARTY_CD = ACCOUNT.ACC_CD",
                  .where = "RPTPAY.BOOK_CD = ?",
                  .order = {down("RPTPAY.VOUCH_NO")      },
                  .values = {kind_.code     },
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
    takeAsShown(kNumber);
    return Go::Stay;
  }
  if (!found)
    return notFound(mode == "EDIT"  ? english("VOUCHER DOES NOT EXISTS")
                    : mode == "DEL" ? english("PARTY DOES NOT EXIST")
                                    : english("VOUCHER DOES NOT EXIST"));
  asLoaded_ = std::move(rows);
  showVoucher(*found);
  if (mode == "EDIT") focus(at(kDate));
  // One that was changed while the question stood is shown as it is now, and asked about again.
  if (mode == "DEL" && host.ask(deleteQuestion(english("ARE YOU SURE"), atStake())) && !remove(n) &&
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
  showFields(v, Part::Head);
  showAccount(kCashSide);
  showAccount(kOtherSide);
  takeAsWorked(Part::Head);
  loaded_ = v.number("VOUCH_NO");
  takeAsShown(kNumber);
}

bool bwrcpy::remove(double number) {
  const bool removed = deleteMoneyVoucher(data(), kind_, number, Saving::over(asLoaded_));
  if (!removed) host.message(meanwhileWords(data(), kind_, number), kMessageTitle);
  showList();
  return removed;
}

// Fields

Go bwrcpy::voucherDate() {
  const auto typed = date(kDate);
  if (!typed) return dateStands();
  const std::string refusal = period_.refusal(*typed);
  if (refusal.empty()) return Go::On;
  host.message(refusal, kMessageTitle);
  return Go::Stay;
}

bool bwrcpy::showAccount(const Side& side) {
  const std::string code = fullCode(data(), trimmed(side.code));
  if (code != trimmed(side.code)) put(side.code, code);
  const auto account = readAccount(data(), code);
  put(side.name, account ? account->name : "");
  put(side.balance, account ? numText(account->balance) : "");
  return account && !trim(account->name).empty();
}

bool bwrcpy::sameCodes() const { return sameText(trimmed(kAccount), trimmed(kParty)); }

Go bwrcpy::refuseSame(const Side& side) {
  host.message(" BOTH THE CODE CAN NOT BE SAME");
  for (const FieldName field : {side.code, side.name, side.balance}) put(field, "");
  return Go::Stay;
}

// The account is off until it is asked for, since nearly all money goes over the cash account.
void bwrcpy::chooseAccount() {
  if (!entering()) return;
  accountBefore_ = trimmed(kAccount);
  at(kAccount).enabled = true;
  focus(at(kAccount));
}

// Whichever way the focus goes, only a cash or bank account stays behind.
void bwrcpy::leaveAccount() {
  at(kAccount).enabled = false;
  if (!isCashOrBank(data(), trimmed(kAccount))) put(kAccount, accountBefore_);
  showAccount(kCashSide);
}

Go bwrcpy::account() {
  if (trimmed(kAccount).empty())
    return lookUp(host, *this, here(),
                  accounts({{"ACC_CD"}, {"acc_name"}, {"AREA"}, {"CITY"}, {"group_cd"}, balanceColumn()},
                           underGroups("GROUP_CD", {87, 88})));
  if (!showAccount(kCashSide)) {
    host.message("PARTY DOES NOT EXIST");
    return Go::Stay;
  }
  if (!isCashOrBank(data(), trimmed(kAccount))) {
    host.message("Cash / Bank Takes A Cash Or Bank Account\nEmpty It And Press Enter For Help",
                 kMessageTitle);
    return Go::Stay;
  }
  if (sameCodes()) return refuseSame(kCashSide);
  focus(at(kParty));
  return Go::Stay;
}

Go bwrcpy::party() {
  if (trimmed(kParty).empty())
    return lookUp(
        host, *this, here(),
        accounts({{"ACC_CD"}, {"acc_name"}, {"AREA"}, {"CITY"}, {"group_cd"}, {"PERSON_NM"}, balanceColumn()},
                 kind_.party.offered));
  if (!showAccount(kOtherSide)) {
    host.message("PARTY DOES NOT EXIST");
    return Go::Stay;
  }
  if (sameCodes()) return refuseSame(kOtherSide);
  session().mlastacc = trimmed(kParty);
  focus(at(kAmount));
  return Go::Stay;
}

Go bwrcpy::amount() {
  const double typed = value(kAmount);
  const bool refused = figureRefused(text(kAmount));
  if (typed > 0 && !refused && typed == Round(typed, 2)) return Go::On;
  host.message(refused     ? kFigureRefused
               : typed > 0 ? english("An Amount Has Two Decimals")
                           : english("CAN NOT ACCEPT"));
  return Go::Stay;
}

Go bwrcpy::remarks() {
  if (!entering()) return Go::On;
  allowUpdate(true);
  focus(at("cmdUpdate"));
  return Go::Stay;
}

// Also where it is empty it opens Update, as Enter does.
Go bwrcpy::remarksTab() {
  if (entering()) enterAgain(here());
  return entering() ? Go::Stay : Go::On;
}

// Saving

void bwrcpy::update() {
  if (!entering()) return;
  const bool complete =
      value(kNumber) != 0 && !trimmed(kAccount).empty() && !trimmed(kParty).empty() && date(kDate);
  if (!complete || !showAccount(kCashSide) || !showAccount(kOtherSide)) {
    host.message("Invalid Entry", kCheck);
    return;
  }
  // The number was changed after its voucher was shown: that one is shown before anything is written.
  if (mode == "EDIT" && value(kNumber) != loaded_) {
    enterNumber();
    return;
  }
  if (sameCodes()) {
    refuseSame(kOtherSide);
    focus(at(kParty));
    return;
  }
  if (amount() == Go::Stay) {
    focus(at(kAmount));
    return;
  }
  store();
}

void bwrcpy::store() {
  const bool fresh = mode == "ADD";
  const std::string number = text(kNumber);
  const auto stored = [&] {
    if (fresh && isStored(data(), kind_, value(kNumber))) put(kNumber, lastVoucher(data(), kind_).number + 1);
    return saveMoneyVoucher(data(), kind_, writtenFields(Part::Head),
                            fresh ? Saving::Fresh : Saving::over(asLoaded_));
  };
  bool written = false;
  try {
    const Busy busy(host);
    written = whole(data(), stored);
  } catch (...) {
    put(kNumber, number);
    throw;
  }
  if (!written) return changedMeanwhile();
  if (text(kNumber) != number) host.message(takenWords(words("Voucher No"), number, text(kNumber)));
  saved();
}

// What was changed is shown as it stands, what was deleted comes back, each when that is meant alone.
void bwrcpy::changedMeanwhile() {
  const double n = value(kNumber);
  if (isStored(data(), kind_, n)) {
    if (!host.ask(changedQuestion(data(), kind_, n, unsaved()))) return;
    takeAsShown(kNumber);
    enterNumber();
  } else if (host.ask(deletedQuestion(n))) {
    setMode("ADD", kAdding);
    store();
  }
}

void bwrcpy::saved() {
  mode.clear();
  hand_.letGo();
  caption = kind_.words.title;
  if (drilledDown_) {
    host.close(*this);
    return;
  }
  Interaction closing{
      .saved = closingMessage(), .cancel = "", .okColour = kOkColour, .cancelColour = kSecondColour};
  interact(host, closing);
  rest();
}

SavedMessage bwrcpy::closingMessage() const {
  return {
      .head = words("{title} Saved", "title", words(kind_.words.title)),
      .facts = {{english("Entry No"), text(kNumber)},
                {english("Party Name"), text(kPartyName)},
                {english("AMOUNT"), text(kAmount)}},
      .hints = {english("Press ok to Proceed ")  },
      .gap = 1,
  };
}

// Hints

// What Enter does, then the keys that the table names for the field.
std::string bwrcpy::hintFor(const Control& control) const {
  if (!control.editable() || control.spec->field == kAmount) return ChildScreen::hintFor(control);
  const bool isNumber = control.spec->field == kNumber;
  const std::string enter = words(isNumber ? english("Press Enter For Help Find Old Entries")
                                  : trim(control.text).empty() ? english("Press Enter For Help")
                                                               : english("Press Enter To Proceed"));
  return control.hint.empty() ? enter : enter + " :: " + words(control.hint);
}

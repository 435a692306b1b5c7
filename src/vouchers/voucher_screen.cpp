#include "vouchers/voucher_screen.h"

#include <algorithm>

#include "base/number.h"
#include "base/pattern.h"
#include "base/text.h"
#include "frame/session.h"
#include "frame/settling.h"
#include "vouchers/numbering.h"

using namespace fields;

namespace {

constexpr const char* kRestHint = english("Press Add Button For New Entry");
constexpr const char* kViewMode = "VIEW";

}  // namespace

VoucherScreen::VoucherScreen(Host& theHost, const ScreenSpec& theSpec, const VoucherKind& kind,
                             std::vector<WorkLines::Shown> shown)
    : ChildScreen(theHost, theSpec),
      kind_(kind),
      lines_(std::make_shared<WorkLines>(data(), kind, std::move(shown))) {
  caption = kind.words.title;
  at(kLines).grid.source = lines_;
  at("CMDCANCEL").tab = 0;  // a press leaves the focus where it is: who gives up may think again
  wire(*this, {
                  {"cmdadd",     On::Click,       &VoucherScreen::add        },
                  {"cmdEDIT",    On::Click,       &VoucherScreen::modify     },
                  {"CMDDELETE",  On::Click,       &VoucherScreen::startDelete},
                  {"cmdprint",   On::Click,       &VoucherScreen::print      },
                  {"cmdclose",   On::Click,       &VoucherScreen::close      },
                  {"CMDSAVE",    On::Click,       &VoucherScreen::save       },
                  {"CMDCANCEL",  On::Click,       &VoucherScreen::giveUp     },
                  {"Cmdvideo",   On::Click,       &VoucherScreen::video      },
                  {"",           KeyCode::Esc,    &VoucherScreen::escape     },
                  {"MaskEdBox1", KeyCode::Enter,  &VoucherScreen::dateStands },
                  {"MaskEdBox1", KeyCode::F1,     &VoucherScreen::dateF1     },
                  {"MaskEdBox1", KeyCode::F2,     &VoucherScreen::dateF2     },
                  {"MaskEdBox1", KeyCode::F3,     &VoucherScreen::dateF3     },
                  {"MaskEdBox1", KeyCode::Up,     &VoucherScreen::dateUp     },
                  {"MaskEdBox1", KeyCode::Down,   &VoucherScreen::dateDown   },
                  {"MaskEdBox1", KeyCode::PgUp,   &VoucherScreen::datePgUp   },
                  {"MaskEdBox1", KeyCode::PgDn,   &VoucherScreen::datePgDn   },
                  {"Text1",      On::Change,      &VoucherScreen::textChanged},
                  {kLines,       On::Focus,       &VoucherScreen::intoRows   },
                  {kLines,       On::Row,         &VoucherScreen::rowChosen  },
                  {kLines,       On::DoubleClick, &VoucherScreen::leaveRows  },
  });
  if (!find(kItem.text)) return;
  wire(*this, {
                  {kParty,        KeyCode::Insert, &VoucherScreen::newParty  },
                  {kRate,         KeyCode::Down,   &VoucherScreen::intoRates },
                  {kItem,         KeyCode::Tab,    &VoucherScreen::lineTab   },
                  {kAmount,       KeyCode::Enter,  &VoucherScreen::amount    },
                  {kAmount,       KeyCode::Tab,    &VoucherScreen::lineTab   },
                  {kEarlierRates, KeyCode::Enter,  &VoucherScreen::leaveRates},
                  {kEarlierRates, KeyCode::Esc,    &VoucherScreen::leaveRates},
  });
}

// Opening, and coming back

void VoucherScreen::opened(const Opening& opening) {
  ChildScreen::opened(opening);
  offerTutorial(*this, tutorial());
  setMode("", "");
  lines_->clear();
  put(kDate, host.today());
  showButtons(true);
  focus(at("cmdadd"));
  drilledDown_ = !opening.value.empty();
  if (!drilledDown_) return;
  modify();
  put(kNumber, opening.value);
  if (number() == Go::On) focus(at(kDate));
}

void VoucherScreen::activated() {
  if (atRest_) ShowHint(host, kRestHint);
  if (!awaiting_) return;
  Control& field = *std::exchange(awaiting_, nullptr);
  if (!newCode_->empty() && *newCode_ != codeBefore_) set(field, *newCode_);
  focus(field);
  focusMoved(field);
}

void VoucherScreen::awaitMaster(Control& field, const std::string& master, std::string& last) {
  awaiting_ = &field;
  newCode_ = &last;
  codeBefore_ = last;
  host.open(master, {.caller = spec.name});
}

Go VoucherScreen::newParty() {
  awaitMaster(here(), "frmacc", session().mlastacc);
  return Go::Stay;
}

Go VoucherScreen::newItem() {
  awaitMaster(here(), "FRMITEM1", session().mlastitem);
  return Go::Stay;
}

// Modes

void VoucherScreen::setMode(const std::string& next, const std::string& pattern) {
  mode = next;
  const std::string title = words(kind_.words.title);
  caption = pattern.empty() ? title : words(pattern, "title", title);
  tellEscape();
  enableFields();
}

bool VoucherScreen::ratesShown() const {
  return std::ranges::any_of(controls,
                             [](const auto& c) { return c->spec->field == kEarlierRates && c->visible; });
}

void VoucherScreen::tellEscape() {
  escMeans = ratesShown()        ? english("Esc = Close The Rates")
             : entering()        ? english("Esc = Cancel and Exit")
             : mode == kViewMode ? english("Esc = Cancel")
                                 : english("Esc = Close");
}

// At rest all are off, also while the mode of the last save is still told; to delete or print a voucher
// its number is on. A field whose table row is off stays off.
void VoucherScreen::enableFields() {
  for (const auto& c : controls) {
    if (!c->editable() || !c->spec->enabled) continue;
    const bool chosen = !entering() && !mode.empty() && c->spec->field == kNumber;
    c->enabled = chosen || (entering() && !atRest_);
  }
}

void VoucherScreen::showButtons(bool atRest) {
  atRest_ = atRest;
  if (atRest) hand_.letGo();
  for (const char* name : {"cmdadd", "cmdEDIT", "CMDDELETE", "cmdprint", "cmdclose"})
    at(name).visible = atRest;
  if (!hasPaper()) at("cmdprint").visible = false;
  for (const char* name : {"CMDSAVE", "CMDCANCEL"}) at(name).visible = !atRest;
  if (Control* const invites = find("SCR1")) invites->visible = atRest;
  tellReason();
  enableFields();
  showSerial();
}

void VoucherScreen::allowSave(bool on) {
  at("CMDSAVE").enabled = on;
  tellReason();
}

void VoucherScreen::add() {
  setMode("ADD", kind_.words.adding);
  clearAll();
  lines_->clear();
  at(kLines).visible = false;
  allowSave(false);
  showButtons(false);
  startNew();
  takeVoucherAsShown();
}

void VoucherScreen::modify() {
  setMode("EDIT", kind_.words.modifying);
  loaded_ = 0;
  clearAll();
  lines_->clear();
  allowSave(false);
  showButtons(false);
  takeVoucherAsShown();
  focus(at(kNumber));
}

void VoucherScreen::startDelete() {
  setMode("DEL", kind_.words.deleting);
  clearAll();
  lines_->clear();
  allowSave(false);
  focus(at(kNumber));
}

void VoucherScreen::print() {
  setMode("PRINT", kind_.words.printing);
  lines_->clear();
  askForPaper();
}

void VoucherScreen::hideForPrint(const std::string& number) {
  focus(at("cmdadd"));
  visible = false;
  host.open("dlg1", {.caller = spec.name, .reportKey = kind_.paper.key, .value = number});
}

void VoucherScreen::close() { host.close(*this); }

bool VoucherScreen::mayClose() { return !unsaved() || host.ask(leaveQuestion(kind_.words.escapeAsks)); }

// Typed work

void VoucherScreen::takeVoucherAsShown() {
  takeAsShown(kNumber);
  shownLines_ = allLines();
}

std::string VoucherScreen::allLines() const {
  std::string all;
  for (size_t row = 0; row < lines_->count(); ++row)
    for (size_t column = 0; column < at(kLines).grid.columns.size(); ++column)
      all += at(kLines).grid.cell(row, column).text + '\n';
  return all;
}

bool VoucherScreen::unsaved() const {
  if (atRest_ || !entering()) return false;
  const bool line = !trimmed(lineKey()).empty() && lineTexts() != shownLine_;
  return line || ChildScreen::unsaved() || allLines() != shownLines_;
}

std::string VoucherScreen::atStake() const {
  const size_t lines = lines_->count();
  // Another number may stand in the field already.
  const std::string number = mode == "ADD" || loaded_ == 0 ? text(kNumber) : numText(loaded_);
  std::vector<std::string> facts{words("Voucher {number}", "number", number), trimmed(kPartyName)};
  if (lines > 0)
    facts.push_back(words(lines == 1 ? english("{count} Line") : english("{count} Lines"), "count",
                          std::to_string(lines)));
  facts.push_back(indianGroups(text(kNetAmount)));
  std::erase(facts, "");
  return join(facts, "  ::  ");
}

void VoucherScreen::giveUp() {
  if (mayDiscard()) cancel();
}

void VoucherScreen::cancel() {
  clearAll();
  setMode("", "");
  at(kLines).visible = false;
  showButtons(true);
  focusUnchecked(at("cmdadd"));
  if (drilledDown_) host.close(*this);
}

void VoucherScreen::video() { openTutorial(host, tutorial()); }

// What throws the voucher away is not held up, nor is the way back from a number of the paper to the
// party or the series for which it is refused.
bool VoucherScreen::worksOnLeaving(const Control& target) const {
  if (!entering() || atRest_ || &target == &at("CMDCANCEL") || &target == &at("Cmdvideo")) return false;
  const Control* const left = focused();
  const bool ofPaper = left && left->spec->field == paperNumber();
  return !ofPaper || !target.editable() || target.tab > left->tab;
}

// The innermost goes first: the rates over the lines, then the voucher.
void VoucherScreen::escape() {
  if (ratesShown()) {
    at(kEarlierRates).visible = false;
    tellEscape();
  } else if (mode == kViewMode) {
    cancel();
  } else if (!entering()) {
    host.close(*this);
  } else if (host.ask(leaveQuestion(kind_.words.escapeAsks))) {
    cancel();
  }
}

void VoucherScreen::clearAll() {
  clearHead();
  clearLine();
}

void VoucherScreen::clearHead() {
  emptyFields(Part::Head);
  phone_.clear();
  partyState_ = 0;
  sources_.clear();
  taken_.clear();
  standing_.clear();
}

// A filled number: ADD takes one that is free, EDIT shows the voucher, DEL asks and deletes it.
Go VoucherScreen::number() {
  const double n = value(kNumber);
  if (mode == kViewMode) {
    modify();
    put(kNumber, n);
  }
  if (mode == "ADD") {
    if (!isVoucherNumber(n)) {
      host.message(kNoVoucherNumber);
      return Go::Stay;
    }
    // One that the program gave is given anew at the save, where it was taken meanwhile.
    if (at(kNumber).given || !isStored(data(), kind_, n)) return Go::On;
    host.message("ITEM ALLREADY EXIST");
    return Go::Stay;
  }
  if (mode == "DEL") return askToDelete(n);
  if (mode != "EDIT") return Go::On;
  if (loaded_ != 0 && isStored(data(), kind_, n) && !mayDiscard()) {
    const bool same = n == loaded_;
    put(kNumber, loaded_);
    return same ? Go::On : Go::Stay;
  }
  if (!takeInHand(n) || !show(n)) return Go::Stay;
  takeAsWorked(Part::Head);
  takeVoucherAsShown();
  allowSave(false);
  tellStanding();
  return Go::On;
}

bool VoucherScreen::takeInHand(double number) {
  if (!isStored(data(), kind_, number)) return true;  // which is told by who looks for it
  const std::string elsewhere = hand_.take(kind_.code, numText(number));
  if (elsewhere.empty()) return true;
  if (mode == "DEL") {
    host.message(elsewhere, kMessageTitle);
    return false;
  }
  loaded_ = 0;
  if (host.ask(lookQuestion(elsewhere)) && show(number)) {
    setMode(kViewMode, english("{title} : VIEW MODE"));
    showButtons(false);
    allowSave(false);
    reason = elsewhere;
  } else {
    modify();
  }
  focus(at(kNumber));
  return false;
}

// How it stands is read before it is shown: what changes in between is then told too often, never too
// seldom. One that a lost server has brought half is no voucher to be saved over: it is loaded again first.
bool VoucherScreen::show(double number) {
  std::string rows = asStored(data(), kind_, number);
  try {
    if (!load(number)) return false;
  } catch (...) {
    loaded_ = 0;
    throw;
  }
  loaded_ = number;
  asLoaded_ = std::move(rows);
  if (hasSources()) sources_ = madeFrom(data(), kind_, number);
  sourcesShown();
  return true;
}

// One that was changed while the question stood is shown as it is now, and asked about again.
Go VoucherScreen::askToDelete(double number) {
  if (!takeInHand(number) || !show(number)) return Go::Stay;
  const auto facts = [&] {
    const bool stays = staysInLedger(number);
    const std::string settled = settledWords(data(), {kind_.code, number});
    return atStake() + (settled.empty() ? "" : "\n" + settled) +
           (stays ? "\n" + words("The Ledger Shows It Until Posting") : "");
  };
  while (mayBeDeleted(number) && host.ask(deleteQuestion(english("ARE YOU SURE"), facts())) &&
         !remove(number))
    if (!isStored(data(), kind_, number) || !show(number)) break;
  hand_.letGo();
  clearAll();
  lines_->clear();
  textChanged();
  return Go::Stay;
}

bool VoucherScreen::erase(double number, const Saving& as) {
  return deleteForGood(data(), kind_, number, as);
}

bool VoucherScreen::staysInLedger(double number) const { return isPosted(data(), kind_, number); }

bool VoucherScreen::remove(double number) {
  if (!erase(number, Saving::over(asLoaded_))) {
    host.message(meanwhileWords(data(), kind_, number), kMessageTitle);
    return false;
  }
  if (staysInLedger(number))
    reason = words("Voucher No {number} Is Deleted, The Ledger Shows It Until Posting :: Posting Is Due",
                   "number", numText(number));
  return true;
}

// Accounts

std::optional<AccountFacts> VoucherScreen::findAccount(FieldName code, FieldName name,
                                                       const std::string& title) {
  const std::string full = fullCode(data(), trimmed(code));
  if (full != trimmed(code)) put(code, full);
  const auto account = readAccount(data(), full);
  if (account)
    put(name, account->name);
  else
    host.message("PARTY NOT FOUND PLEASE CHECK THE PARTY CODE", title);
  return account;
}

void VoucherScreen::takeState(const AccountFacts& party) {
  if (party.stateCode) partyState_ = *party.stateCode;
  if (party.stateCode.value_or(0) == 0) host.message("STATE CODE NOT SPECIFIED IN PARTY");
}

// Hints

// Enter does something else in the field of the event since it was filled or emptied.
void VoucherScreen::textChanged() {
  ShowHint(host, hintFor(here()));
  if (isHere(kRate)) rateTyped_ = true;
  if (isHere(kItem)) chosenUnit_.clear();
}

// What Enter does, then the keys that the table names for the field.
std::string VoucherScreen::hintFor(const Control& control) const {
  if (!control.editable()) return ChildScreen::hintFor(control);
  const KeyLookup* const helps = trim(control.text).empty() ? enterLookup(control) : nullptr;
  if (helps && control.declined) return hintAfterList(helps->lookup.optional);
  const std::string enter =
      words(helps ? english("Press Enter For Help") : english("Press Enter To Proceed"));
  const bool takes =
      hasSources() && entering() && (control.spec->field == kParty || control.spec->field == kItem);
  const char* const open = &kind_ == &challanKind() ? english("Ctrl+O = Open Quotations")
                                                    : english("Ctrl+O = Open Challans And Quotations");
  return enter + (control.hint.empty() ? "" : " :: " + words(control.hint)) +
         (takes ? " :: " + words(open) : "");
}

#include "vouchers/bwrcpy.h"

#include <memory>

#include "base/number.h"
#include "base/text.h"
#include "frame/links.h"
#include "frame/session.h"
#include "masters/page_rows.h"
#include "vouchers/accounts.h"
#include "vouchers/bwrcpy_table.h"

namespace {

constexpr const char* kConfirm = "Mirav Confirmation Message";
constexpr const char* kCheck = "Mirav Check";
constexpr const char* kRestHint = "Press Add Button to Enter New Voucher";
constexpr Bgr kOkColour = 0xFFF0F0, kSecondColour = 0xFFD0D0;

constexpr int kFields[] = {0, 2, 10, 6, 3, 9, 5, 4, 7};
constexpr int kEntered[] = {0, 3, 4, 7};

const std::vector<OrderTerm> kNewest{down("RPTPAY.VOUCH_DT"), down("RPTPAY.vouch_no")};
const SelectColumn kDay{"format(vouch_dt,'dd/MM/yyyy')"};

}  // namespace

bwrcpy::bwrcpy(Host& theHost, const Opening& opening)
    : ChildScreen(theHost, bwrcpyTable()), kind_(moneyKind(opening.entryType)) {
  caption = kind_.words.title;
  wire(*this, {
                  {"cmdAdd",        On::Click,       &bwrcpy::add           },
                  {"cmdEdit",       On::Click,       &bwrcpy::modify        },
                  {"cmdDelete",     On::Click,       &bwrcpy::startDelete   },
                  {"Cmdprint",      On::Click,       &bwrcpy::print         },
                  {"cmdClose",      On::Click,       &bwrcpy::close         },
                  {"cmdUpdate",     On::Click,       &bwrcpy::update        },
                  {"cmdUpdate",     On::Leave,       &bwrcpy::lockUpdate    },
                  {"cmdCancel",     On::Click,       &bwrcpy::cancel        },
                  {"Cmdvideo",      On::Click,       &bwrcpy::video         },
                  {"",              KeyCode::Esc,    &bwrcpy::escape        },
                  {"",              KeyCode::F5,     &bwrcpy::chooseAccount },
                  {"",              Key::Ctrl('P'),  &bwrcpy::view          },
                  {"txtFields(0)",  KeyCode::Enter,  &bwrcpy::number        },
                  {"txtFields(0)",  KeyCode::F1,     &bwrcpy::oldByReference},
                  {"txtFields(0)",  KeyCode::F3,     &bwrcpy::oldByCheque   },
                  {"txtFields(0)",  KeyCode::F4,     &bwrcpy::oldByAmount   },
                  {"MaskEdBox1(0)", KeyCode::Enter,  &bwrcpy::voucherDate   },
                  {"MaskEdBox1",    KeyCode::F1,     &bwrcpy::dateF1        },
                  {"MaskEdBox1",    KeyCode::F2,     &bwrcpy::dateF2        },
                  {"MaskEdBox1",    KeyCode::F3,     &bwrcpy::dateF3        },
                  {"MaskEdBox1",    KeyCode::Up,     &bwrcpy::dateUp        },
                  {"MaskEdBox1",    KeyCode::Down,   &bwrcpy::dateDown      },
                  {"MaskEdBox1",    KeyCode::PgUp,   &bwrcpy::datePgUp      },
                  {"MaskEdBox1",    KeyCode::PgDn,   &bwrcpy::datePgDn      },
                  {"txtFields(2)",  KeyCode::Enter,  &bwrcpy::account       },
                  {"txtFields(2)",  On::Leave,       &bwrcpy::leaveAccount  },
                  {"txtFields(3)",  KeyCode::Enter,  &bwrcpy::party         },
                  {"txtFields(3)",  KeyCode::F2,     &bwrcpy::partyByCity   },
                  {"txtFields(4)",  KeyCode::Enter,  &bwrcpy::amount        },
                  {"txtFields(7)",  KeyCode::Enter,  &bwrcpy::remarks       },
                  {"txtFields(7)",  KeyCode::F1,     &bwrcpy::earlierRemarks},
                  {"DataGrid1",     On::DoubleClick, &bwrcpy::openRow       },
  });
}

// Opening and closing

void bwrcpy::opened(const Opening& opening) {
  ChildScreen::opened(opening);
  rest();
  drilledDown_ = !opening.value.empty();
  if (!drilledDown_) return;
  modify();
  put(0, opening.value);
  if (enterNumber() == Go::Stay) return;
  focus(at("MaskEdBox1", 0));
}

void bwrcpy::activated() {
  if (mode.empty()) ShowHint(host, kRestHint);
}

bool bwrcpy::mayClose() { return !entering() || host.ask("Do you want to exit", kConfirm); }

void bwrcpy::escape() {
  if (entering()) {
    if (host.ask("Do you want to exit", kConfirm)) cancel();
  } else if (!mode.empty()) {
    cancel();
  } else if (host.ask("Do you want to exit", kConfirm)) {
    host.close(*this);
  }
}

void bwrcpy::print() { host.open("dlg1", {.caller = spec.name, .reportKey = "RCPTADVS"}); }

void bwrcpy::video() {
  const bool onAccount =
      host.ask("See Video for On ACCOUNT Payment Entry = Yes \nSee Video for On Billwise Payment Entry = No ",
               kConfirm);
  openTutorial(host, onAccount ? links().receiptVideo : links().receiptBillwiseVideo);
}

// Modes

void bwrcpy::begin(const std::string& newMode, const std::string& suffix) {
  mode = newMode;
  caption = kind_.words.title + suffix;
  escMeans = mode.empty() ? "Esc = Close" : entering() ? "Esc = Cancel and Exit" : "Esc = Cancel";
  loaded_ = 0;
  clearFields();
  field(2).enabled = false;
  for (const int n : kEntered) field(n).enabled = entering() || (!mode.empty() && n == 0);
  at("MaskEdBox1", 0).enabled = entering();
  allowUpdate(false);
  showButtons();
  if (!mode.empty()) focusUnchecked(field(0));
}

void bwrcpy::add() {
  begin("ADD", " : ADD MODE");
  put(0, numText(nextMoneyNumber(data(), kind_)));
  placeDefaults();
  focusUnchecked(at("MaskEdBox1", 0));
}

void bwrcpy::view() {
  if (mode.empty()) begin("VIEW", " : VIEW MODE");
}

void bwrcpy::rest() {
  begin("", "");
  showList();
  focusUnchecked(at("cmdAdd"));
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
  reason = on || !entering() ? "" : "Update opens after Remarks";
}

void bwrcpy::clearFields() {
  for (const int n : kFields) put(n, "");
  set(at("MaskEdBox1", 0), kEmptyDate);
}

void bwrcpy::placeDefaults() {
  set(at("MaskEdBox1", 0), formatDate(host.today(), "dd/MM/yyyy"));
  put(2, kCashAccount);
  showAccount(2, 10, 6);
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
  put(0, grid.cell(grid.current, 0).text);
  enterNumber();
}

// The number

Go bwrcpy::number() {
  if (!trimmed(0).empty()) return enterNumber();
  return lookUp(host, *this, here(),
                {
                    .rows = {.columns = {{"vouch_no", 500},
                                         {"ACC_NAME", 2800},
                                         {"ACCOUNT.city", 1200},
                                         {"ACCOUNT.area", 1200},
                                         {"vouch_dt", 1200},
                                         {"AMOUNT", 1000},
                                         {"REF_NO", 1000},
                                         {"NARRATION", 1400},
                                         {"chq_no", 1000}},
                             .from = "RPTPAY, ACCOUNT",
                             .where = "book_cd = ? AND RPTPAY.PARTY_CD = ACCOUNT.ACC_CD",
                             .order = kNewest,
                             .values = {kind_.code}}
  });
}

Go bwrcpy::enterNumber() {
  const double n = value(0);
  const auto found = findMoneyVoucher(data(), kind_, n);
  if (mode == "ADD") {
    if (!found) return Go::On;
    notFound("VOUCHER ALREADY EXISTS");
    placeDefaults();
    return Go::Stay;
  }
  if (!found)
    return notFound(mode == "EDIT"  ? "VOUCHER DOES NOT EXISTS"
                    : mode == "DEL" ? "PARTY DOES NOT EXIST"
                                    : "VOUCHER DOES NOT EXIST");
  showVoucher(*found);
  if (mode == "EDIT") focus(at("MaskEdBox1", 0));
  if (mode == "DEL") {
    if (host.ask("ARE YOU SURE", kConfirm)) remove(n);
    clearFields();
  }
  return Go::Stay;
}

Go bwrcpy::notFound(const std::string& words) {
  host.message(words);
  clearFields();
  loaded_ = 0;
  return Go::Stay;
}

void bwrcpy::showVoucher(const Row& v) {
  put(0, numText(v.number("VOUCH_NO")));
  const auto day = v.date("VOUCH_DT");
  set(at("MaskEdBox1", 0), day ? formatDate(*day, "dd/MM/yyyy") : std::string(kEmptyDate));
  put(2, v.text("CSHBNK_CD"));
  put(3, v.text("PARTY_CD"));
  put(4, numText(v.number("AMOUNT")));
  put(7, v.text("NARRATION"));
  showAccount(2, 10, 6);
  showAccount(3, 9, 5);
  loaded_ = v.number("VOUCH_NO");
}

void bwrcpy::remove(double number) {
  deleteMoneyVoucher(data(), kind_, number);
  showList();
}

// Fields

Go bwrcpy::voucherDate() {
  const auto typed = date();
  if (!typed) return Go::Stay;
  const std::string refusal = periodRefusal(*typed);
  if (refusal.empty()) return Go::On;
  host.message(refusal, kMessageTitle);
  return Go::Stay;
}

bool bwrcpy::showAccount(int code, int name, int balance) {
  const auto account = readAccount(data(), trimmed(code));
  put(name, account ? account->name : "");
  put(balance, account ? numText(account->balance) : "");
  return account && !trim(account->name).empty();
}

bool bwrcpy::sameCodes() const { return sameText(trimmed(2), trimmed(3)); }

Go bwrcpy::refuseSame(int code, int name, int balance) {
  host.message(" BOTH THE CODE CAN NOT BE SAME");
  for (const int n : {code, name, balance}) put(n, "");
  return Go::Stay;
}

// The account is off until it is asked for, since nearly all money goes over the cash account.
void bwrcpy::chooseAccount() {
  if (!entering()) return;
  accountBefore_ = trimmed(2);
  field(2).enabled = true;
  focus(field(2));
}

// Whichever way the focus goes, only a cash or bank account stays behind.
void bwrcpy::leaveAccount() {
  field(2).enabled = false;
  if (!isCashOrBank(data(), trimmed(2))) put(2, accountBefore_);
  showAccount(2, 10, 6);
}

Go bwrcpy::account() {
  if (trimmed(2).empty())
    return lookUp(host, *this, here(),
                  accounts({{"ACC_CD"}, {"acc_name"}, {"AREA"}, {"CITY"}, {"group_cd"}, balanceColumn()},
                           "GROUP_CD = 87 OR GROUP_CD = 88"));
  if (!showAccount(2, 10, 6)) {
    host.message("PARTY DOES NOT EXIST");
    return Go::Stay;
  }
  if (!isCashOrBank(data(), trimmed(2))) {
    host.message("Cash / Bank Takes A Cash Or Bank Account\nEmpty It And Press Enter For Help",
                 kMessageTitle);
    return Go::Stay;
  }
  if (sameCodes()) return refuseSame(2, 10, 6);
  focus(field(3));
  return Go::Stay;
}

Go bwrcpy::party() {
  if (trimmed(3).empty())
    return lookUp(
        host, *this, here(),
        accounts({{"ACC_CD"}, {"acc_name"}, {"AREA"}, {"CITY"}, {"group_cd"}, {"PERSON_NM"}, balanceColumn()},
                 kind_.party.offered));
  if (!showAccount(3, 9, 5)) {
    host.message("PARTY DOES NOT EXIST");
    return Go::Stay;
  }
  if (sameCodes()) return refuseSame(3, 9, 5);
  session().mlastacc = trimmed(3);
  focus(field(4));
  return Go::Stay;
}

Go bwrcpy::amount() {
  if (value(4) > 0) return Go::On;
  host.message("CAN NOT ACCEPT");
  return Go::Stay;
}

Go bwrcpy::remarks() {
  if (!entering()) return Go::On;
  allowUpdate(true);
  focus(at("cmdUpdate"));
  return Go::Stay;
}

// Lookups by key

Lookup bwrcpy::oldVouchers(const SelectColumn& second, const SelectColumns& more) const {
  return {
      .rows = {.columns = joined({{"vouch_no"}, second}, more),
               .from = "RPTPAY INNER JOIN ACCOUNT ON RPTPAY.PARTY_CD = ACCOUNT.ACC_CD",
               .where = "book_cd = ?",
               .order = kNewest,
               .values = {kind_.code}}
  };
}

Go bwrcpy::oldByReference() {
  return lookUp(
      host, *this, here(),
      oldVouchers({"Ref_no"}, {{"ACCOUNT.acc_name"}, {"ACCOUNT.city"}, kDay, {"AMOUNT"}, {"NARRATION"}}));
}

Go bwrcpy::oldByCheque() {
  return lookUp(
      host, *this, here(),
      oldVouchers({"chq_no"}, {{"ACCOUNT.acc_name"}, {"ACCOUNT.city"}, kDay, {"AMOUNT"}, {"NARRATION"}}));
}

Go bwrcpy::oldByAmount() {
  return lookUp(host, *this, here(),
                oldVouchers(amountText("AMOUNT", "amt"), {
                                                             {"ACCOUNT.acc_name"},
                                                             {"CHQ_NO"          },
                                                             {"ACCOUNT.city"    },
                                                             {kDay.expression,    0, "dt"},
                                                             {"NARRATION"             }
  }));
}

Go bwrcpy::partyByCity() {
  return lookUp(host, *this, here(),
                accounts({
                    {"ACC_CD",   600 },
                    {"city",     4000},
                    {"acc_name", 4000},
                    {"area",     2000}
  }));
}

Go bwrcpy::earlierRemarks() { return lookUp(host, *this, here(), valuesOf("RPTPAY", "NARRATION")); }

// Saving

MoneyVoucher bwrcpy::voucher() const {
  return {.number = value(0),
          .date = *date(),
          .account = trimmed(2),
          .party = trimmed(3),
          .amount = value(4),
          .narration = trimmed(7)};
}

void bwrcpy::update() {
  if (!entering()) return;
  const bool complete = value(0) != 0 && !trimmed(2).empty() && !trimmed(3).empty() && date();
  if (!complete || !showAccount(2, 10, 6) || !showAccount(3, 9, 5)) {
    host.message("Invalid Entry", kCheck);
    return;
  }
  // The number was changed after its voucher was shown: that one is shown before anything is written.
  if (mode == "EDIT" && value(0) != loaded_) {
    enterNumber();
    return;
  }
  host.busy(true);
  const bool saved =
      saveMoneyVoucher(data(), kind_, voucher(), mode == "ADD" ? Saving::Fresh : Saving::Again);
  host.busy(false);
  if (!saved) {
    host.message("Voucher No. already exists", kMessageTitle);
    cancel();
    return;
  }
  mode.clear();
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
      .head = kind_.words.title + " Saved",
      .facts = {{"Entry No", at("txtFields", 0).text},
                {"Party Name", at("txtFields", 9).text},
                {"AMOUNT", at("txtFields", 4).text}},
      .hints = {"Press ok to Proceed "  },
      .gap = 1,
  };
}

// Texts

std::string bwrcpy::trimmed(int n) const { return trim(at("txtFields", n).text); }

double bwrcpy::value(int n) const { return Val(at("txtFields", n).text); }

// What Enter does, then the keys that the table names for the field.
std::string bwrcpy::hintFor(const Control& control) const {
  if (!control.editable() || control.index == 4) return ChildScreen::hintFor(control);
  const bool isNumber = control.family == "txtFields" && control.index == 0;
  const std::string enter = isNumber                     ? "Press Enter For Help Find Old Entries"
                            : trim(control.text).empty() ? "Press Enter For Help"
                                                         : "Press Enter To Proceed";
  return control.hint.empty() ? enter : enter + " :: " + control.hint;
}

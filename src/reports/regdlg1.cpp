#include "reports/regdlg1.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "base/words.h"
#include "frame/lookup.h"
#include "frame/menu.h"
#include "frame/session.h"
#include "frame/settings.h"
#include "frame/voucher_opening.h"

// A statement in the grid.
class StatementRows : public TypedRows {
 public:
  explicit StatementRows(std::vector<StatementRow> statement) : rows(std::move(statement)) {}
  size_t count() const override { return rows.size(); }
  Cell cell(size_t row, size_t column) const override {
    return column < rows[row].cells.size() ? Cell(rows[row].cells[column]) : Cell{};
  }
  ColumnType type(size_t row, size_t column) const override {
    return column < rows[row].cells.size() ? rows[row].cells[column].type : ColumnType::Text;
  }
  const std::vector<StatementRow> rows;
};

using namespace fields;

namespace {

constexpr const char* kConfirm = english("Mirav Confirmation Message");
constexpr int kShortcuts = 8;

// The entry of the shell's menu behind a shortcut; one whose entry the menu lacks is not shown.
constexpr const char* kShortcutCommands[] = {"SALE",   "CH",      "RECEIPT", "PAYMENT",
                                             "INCOME", "EXPENSE", "JOURNAL"};
constexpr int kExitShortcut = 7;

}  // namespace

regdlg1::regdlg1(Host& theHost) : PeriodScreen(theHost, table()) {
  escMeans = "Esc = Exit";
  reason = "Show opens after TO, Print after Show";
  wire<regdlg1>(*this, {
                           {"Text1",      KeyCode::Enter,  &regdlg1::account    },
                           {"Text1",      On::Change,      &regdlg1::changed    },
                           {"MaskEdBox1", On::Change,      &regdlg1::changed    },
                           {"MaskEdBox1", KeyCode::Enter,  &regdlg1::date       },
                           {"MaskEdBox1", KeyCode::F1,     &regdlg1::dateF1     },
                           {"MaskEdBox1", KeyCode::F2,     &regdlg1::dateF2     },
                           {"MaskEdBox1", KeyCode::F3,     &regdlg1::dateF3     },
                           {"MaskEdBox1", KeyCode::Up,     &regdlg1::dateUp     },
                           {"MaskEdBox1", KeyCode::Down,   &regdlg1::dateDown   },
                           {"MaskEdBox1", KeyCode::PgUp,   &regdlg1::datePgUp   },
                           {"MaskEdBox1", KeyCode::PgDn,   &regdlg1::datePgDn   },
                           {"cmdshow",    On::Click,       &regdlg1::show       },
                           {"Grid1",      On::DoubleClick, &regdlg1::openVoucher},
                           {"Grid1",      On::Row,         &regdlg1::rowMoved   },
                           {"Grid1",      KeyCode::Left,   &regdlg1::toCredit   },
                           {"Grid1",      KeyCode::Right,  &regdlg1::toDebit    },
                           {"cmdsale",    On::Click,       &regdlg1::shortcut   },
                           {"cmdsale",    Key::Alt('S'),   &regdlg1::saleLetter },
                           {"cmdsale",    Key::Alt('P'),   &regdlg1::payLetter  },
                           {"cmdsale",    Key::Alt('E'),   &regdlg1::costLetter },
                           {"",           Key::Alt('S'),   &regdlg1::showLetter },
                           {"",           Key::Alt('P'),   &regdlg1::printLetter},
                           {"cmdprint",   On::Click,       &regdlg1::print      },
                           {"cmdprint",   KeyCode::F2,     &regdlg1::preview    },
                           {"cmdexcel",   On::Click,       &regdlg1::excel      },
                           {"cmdexcel",   KeyCode::F2,     &regdlg1::csv        },
                           {"cmdpdf",     On::Click,       &regdlg1::pdf        },
                           {"cmdclose",   On::Click,       &regdlg1::close      },
                           {"Cmdvideo",   On::Click,       &regdlg1::video      },
                           {"",           KeyCode::Esc,    &regdlg1::escape     },
  });
}

// Opening, coming back and going

void regdlg1::opened(const Opening& opening) {
  ChildScreen::opened(opening);
  const Session& s = session();
  key_ = opening.reportKey;
  offerTutorial(*this, tutorial());
  for (int n = 0; n < kExitShortcut; ++n) at("cmdsale", n).visible = commandByKey(kShortcutCommands[n]);
  at("Grid1").grid.columns = screenColumns(key_);
  const Date last = host.today() < s.menddt ? host.today() : s.menddt;
  put(kFrom, s.mstartdt);
  put(kTo, last);
  if (opening.value.empty()) return;
  put(kParty, opening.value);
  if (!acceptAccount()) return;
  focus(at(kFrom));
  atOnce_ = !opening.caller.empty();
}

// A voucher that was entered or changed meanwhile shows at once.
void regdlg1::activated() {
  Session& s = session();
  if (!std::exchange(standing_, true)) {
    if (atOnce_) showStatement();
    return;
  }
  if (s.mreportrefresh && !text(kParty).empty()) {
    show();
    s.mreportrefresh = false;
  } else if (drilledInto_) {
    showStatement();
  }
  drilledInto_.reset();
}

void regdlg1::closed() {
  session().mreportrefresh = false;
  ChildScreen::closed();
}

void regdlg1::escape() {
  if (host.ask({.text = english("Exit"),
                .title = kConfirm,
                .yes = english("&Yes, Exit"),
                .no = english("&No, Stay")}))
    close();
}

std::string regdlg1::hintFor(const Control& control) const {
  if (control.kind != Kind::Grid) return ChildScreen::hintFor(control);
  const auto voucher = currentVoucher();
  if (!voucher || !canOpen(*voucher))
    return english("Up / Down = Scroll :: Page Up / Page Down = Page :: Alt+D = Pdf :: Alt+C = Close");
  const std::string sides = words(isT() ? english("Left / Right = Side") : english("Up / Down = Scroll"));
  return openingHint(*voucher) + " :: " + sides + " :: " + words("Alt+D = Pdf :: Alt+C = Close");
}

// Filters

Go regdlg1::account() {
  if (key_ != kLedgers && key_ != kTLedgers) return Go::On;
  if (trimmed(kParty).empty())
    return lookUp(
        host, *this, at(kParty),
        accounts({
            {"ACC_CD",   1000},
            {"ACC_NAME", 4500},
            {"AREA",     1500},
            {"CITY",     1500},
            balanceColumn(1500)
    }));
  if (!acceptAccount()) return Go::Stay;
  focus(at(kFrom));
  return Go::Stay;
}

bool regdlg1::acceptAccount() {
  const auto found = data().first(
      "SELECT ACC_NAME, CL_BAL, AREA, CITY, EMAIL, PHONE1, ADD1, ADD2 FROM ACCOUNT WHERE ACC_CD = ?",
      trimmed(kParty));
  if (!found) {
    host.message("PARTY DOES NOT EXIST");
    put(kParty, "");
    focus(at(kParty));
    return false;
  }
  const auto longer = [&](const char* column) {
    const std::string text = found->text(column);
    return length(text) > 1 ? text : std::string();
  };
  put(kPartyName, found->text("ACC_NAME"));
  put(kAddress,
      join({found->text("ADD1"), found->text("ADD2"), found->text("AREA"), found->text("CITY")}, " "));
  put(kEmail, longer("EMAIL"));
  put(kPhone, longer("PHONE1"));
  set(at("Label10"), "");
  caption = words("ACCOUNT Statement For {party}", "party", found->text("ACC_NAME"));
  return true;
}

Go regdlg1::date() {
  if (!checkedDate(here().spec->field)) return Go::Stay;
  if (isHere(kTo)) {
    at("cmdshow").enabled = true;
    if (!at("cmdprint").enabled) reason = "Print opens after Show";
  }
  focus(isHere(kFrom) ? at(kTo) : at("cmdshow"));
  return Go::Stay;
}

// The statement

void regdlg1::show() {
  if (!checkedPeriod()) return;
  narration_ = !askUnlessSet(host, kLedgerNarration,
                             {.text = english("Without NARRATION"),
                              .title = kConfirm,
                              .yes = english("&Yes, Without"),
                              .no = english("&No, With It")});
  showStatement();
}

void regdlg1::showStatement() {
  const auto period = checkedPeriod();
  if (!period) return;
  Session& s = session();
  const StatementQuery query{
      .account = trimmed(kParty),
      .from = period->from,
      .to = period->to,
      .periodStart = s.mstartdt,
      .narration = narration_,
      .bodyColour = static_cast<Bgr>(s.mcolor1),
      .totalColour = static_cast<Bgr>(s.mcolor2),
  };
  host.busy(true);
  shown_ = std::make_shared<StatementRows>(isT() ? tLedger(data(), query) : runningStatement(data(), query));
  host.busy(false);
  caption = isT() ? words("ACCOUNT Statement For : {party} - {address}", "party", text(kPartyName), "address",
                          text(kAddress))
                  : words("ACCOUNT Statement For : {party}", "party", text(kPartyName));
  at("Grid1").grid.source = shown_;
  at("Grid1").visible = true;
  at("cmdshow").enabled = true;
  outputs(true);
  placeCursor();
  focus(at("Grid1"));
}

// On the last row, below which nothing is; after a voucher was opened from here, on its row again.
void regdlg1::placeCursor() {
  const auto& rows = shown_->rows;
  const auto found = std::ranges::find_if(rows, [&](const StatementRow& row) {
    return drilledInto_ && (row.voucher == drilledInto_ || row.creditVoucher == drilledInto_);
  });
  at("Grid1").grid.moveTo(found == rows.end() ? rows.size() - 1 : static_cast<size_t>(found - rows.begin()));
}

const StatementRow* regdlg1::currentRow() const {
  const size_t row = at("Grid1").grid.current;
  return shown_ && row < shown_->rows.size() ? &shown_->rows[row] : nullptr;
}

std::optional<VoucherKey> regdlg1::currentVoucher() const {
  const StatementRow* const row = currentRow();
  if (!row) return {};
  return row->creditVoucher && (creditSide_ || !row->voucher) ? row->creditVoucher : row->voucher;
}

void regdlg1::rowMoved() { ShowHint(host, hintFor(at("Grid1"))); }

Go regdlg1::toSide(bool credit) {
  creditSide_ = credit;
  rowMoved();
  return Go::Stay;
}

void regdlg1::openVoucher() {
  const auto voucher = currentVoucher();
  if (voucher && ::openVoucher(host, *this, *voucher)) drilledInto_ = voucher;
}

Go regdlg1::letter(int shortcut) {
  if (!at("cmdsale", shortcut).visible) return Go::On;
  enter(shortcut);
  return Go::Stay;
}

// The column is put away, by Exit alone without a command of the shell's.
void regdlg1::enter(int pressed) {
  session().mreportrefresh = true;
  at("Frame1").visible = false;
  for (int n = 0; n < kShortcuts; ++n) at("cmdsale", n).visible = false;
  if (pressed == kExitShortcut)
    focus(at("Grid1"));
  else
    carryOut(host, *commandByKey(kShortcutCommands[pressed]));
}

// Output

void regdlg1::handOver(const GridTarget& target) {
  const auto period = checkedPeriod();
  if (!period || (shown_ && !standsAsShown())) return;
  set(at("Label10"), "");
  const bool asks = !isT() && (target.onPaper || &target == &kToPdf);
  const bool without = asks && askUnlessSet(host, kLedgerNumbers,
                                            {.text = english("Without Voucher No."),
                                             .title = kConfirm,
                                             .yes = english("&Yes, Without"),
                                             .no = english("&No, With It")});
  target.send(host, ledgerOutput(key_, shown_, target, {caption, period->from, period->to}, without));
}

const std::string& regdlg1::tutorial() const { return isT() ? links().tLedgerVideo : links().ledgerVideo; }

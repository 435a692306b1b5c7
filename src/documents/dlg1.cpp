#include "documents/dlg1.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "base/text.h"
#include "base/words.h"
#include "documents/renderers.h"
#include "frame/field_names.h"
#include "frame/lookup.h"
#include "frame/routines.h"
#include "frame/session.h"
#include "frame/voucher_kinds.h"

// What the dialog is for one print key.
struct PrintKey {
  std::string key = {}, caption = {};
  std::string sheet = {};              // mprnsheet; empty leaves it as it is
  std::optional<Lookup> numbers = {};  // opened by Enter in the empty field
  std::optional<Lookup> byPaper = {};  // by F1: in the order of the numbers on paper
  bool locksShell = false;             // hides the shell's picture and locks the menus
  // The screen that comes back when the dialog closes.
  std::string entryType = {}, screen = {}, screenCaption = {};
};

namespace {

const ScreenSpec& spec() {
  // clang-format off
  static const ScreenSpec s{
      .name = "dlg1",
      .caption = "Invoice Print",
      .window = Window::Dialog,
      .focusColour = 0xFFC0FF,
      .layout = {.bands = {
                     {part(1), {{.name = "number", .columns = {px(44), px(150), part(1)}}}},
                     {px(34),  {{.name = "buttons", .frame = Frame::Buttons}}},
                 },
                 .width = 520, .height = 166},
      .controls = {
          {.name = "Label4",        .kind = Kind::Label,  .label = "Press Enter To Select Sale Bill Number", .at = {.group = "number", .row = 0, .col = 0, .span = 3}, .style = Style::Quiet},
          {.name = "Label20",       .kind = Kind::Label,  .label = "For ", .at = {.group = "number", .row = 1, .col = 0}},
          {.name = "Text4", .field = fields::kNumber, .at = {.group = "number", .row = 1, .col = 1}, .tab = 1, .keys = KeyClass::Text},
          {.name = "cmdpdf",        .kind = Kind::Button, .label = "P&df view",    .at = {.group = "buttons"}, .tab = 2, .style = Style::Primary},
          {.name = "cmdprn",        .kind = Kind::Button, .label = "&Print",       .at = {.group = "buttons"}, .tab = 3},
          {.name = "CancelButton",  .kind = Kind::Button, .label = "&Close",       .at = {.group = "buttons", .right = true}, .tab = 4},
          {.name = "cmdinv",        .kind = Kind::Button, .label = "&Excel view",      .at = {.group = "buttons"}, .visible = false},
          {.name = "cmdeinvoice",   .kind = Kind::Button, .label = "E-In&voice",       .at = {.group = "buttons"}, .visible = false},
          {.name = "Cmdewayxl",     .kind = Kind::Button, .label = "E-Way &Bill",      .at = {.group = "buttons"}, .visible = false},
          {.name = "cmdmail",       .kind = Kind::Button, .label = "E-M&ail",          .at = {.group = "buttons"}, .visible = false},
          {.name = "cmdsmsdtl",     .kind = Kind::Button, .label = "&SMS",             .at = {.group = "buttons"}, .visible = false},
          {.name = "Cmdwapp",       .kind = Kind::Button, .label = "&W-App Inv Pdf",   .at = {.group = "buttons"}, .visible = false},
          {.name = "cmdwapmsg",     .kind = Kind::Button, .label = "W-App &Msg",       .at = {.group = "buttons"}, .visible = false},
          {.name = "cmddatareport", .kind = Kind::Button, .label = "Data &Report",     .at = {.group = "buttons"}, .visible = false},
      },
  };
  // clang-format on
  return s;
}

const SelectColumn kDay{"SHOWN(vouch_dt, 'dd/mm/yyyy')", 1000, "VDT"};

Lookup billsWith(const VoucherKind& kind, SelectColumns columns) {
  return {
      .rows = {.columns = std::move(columns),
               .from = "(SALE LEFT JOIN ACCOUNT ON SALE.PARTY_CD = ACCOUNT.ACC_CD) LEFT JOIN ACCOUNT AS ACC1"
                       " ON SALE.SALE_CD = ACC1.ACC_CD", .where = "SALE.book_cd = ? AND GSTPOST =1",
               .order = {down("VOUCH_DT"), down("BILL_NO"), down("VOUCH_NO")},
               .values = {kind.code}},
      .secondOnly = true
  };
}

Lookup bills(const VoucherKind& kind) {
  return billsWith(kind, {
                             {"VOUCH_NO",      700 },
                             ofAccount("ACC_NAME", "SALE.PARTY_CD", 2400),
                             {"ACCOUNT.area",  1200},
                             {"ACCOUNT.city",  1200},
                             {"BILL_NO",       1000},
                             kDay,
                             {"ACC1.ACC_NAME", 1000},
                             {"bl_type",       500 },
                             {"NARRATION",     1400},
                             {"NET_AMT",       900 }
  });
}

Lookup billsByNumber(const VoucherKind& kind) {
  return billsWith(kind, {
                             {"VOUCH_NO",         1000},
                             {"BILL_NO",          1000},
                             {"ACCOUNT.ACC_NAME", 2500},
                             {"ACCOUNT.area",     1400},
                             {"ACCOUNT.city",     1400},
                             {kDay.expression,    1200, kDay.name},
                             {"ACC1.ACC_NAME",                  2000       }
  });
}

const Lookup kChallans{
    .rows = {.columns = {{"VOUCH_NO", 700},
                         ofAccount("ACC_NAME", "CHLN.PARTY_CD", 2400),
                         {"ACCOUNT.area", 1200},
                         {"ACCOUNT.city", 1200},
                         {"CHLN_NO", 1000},
                         kDay,
                         {"CHLN_TYP", 1200},
                         {"NET_AMT"}},
             .from = "CHLN LEFT JOIN ACCOUNT ON CHLN.PARTY_CD = ACCOUNT.ACC_CD",
             .where = "CHLN.book_cd = ?",
             .order = {down("VOUCH_DT"), down("VOUCH_NO")},
             .values = {challanKind().code}},
    .secondOnly = true
};

const Lookup kQuotations{
    .rows = {.columns = {{"VOUCH_NO", 700},
                         ofAccount("ACC_NAME", "QUOT.PARTY_CD", 2400),
                         {"ACCOUNT.area", 1200},
                         {"ACCOUNT.city", 1200},
                         kDay,
                         {"NET_AMT", 1000}},
             .from = "QUOT LEFT JOIN ACCOUNT ON QUOT.PARTY_CD = ACCOUNT.ACC_CD",
             .where = "QUOT.ENTRY_TYP = ?",
             .order = {down("VOUCH_DT"), down("VOUCH_NO")},
             .values = {quotationKind().code}},
    .secondOnly = true
};

Lookup accountsByCode() {
  Lookup lookup = accounts({
      {"ACC_CD",   1000},
      {"ACC_NAME", 2800},
      {"area",     1200},
      {"city",     1200}
  });
  lookup.secondOnly = true;
  return lookup;
}

PrintKey of(const VoucherKind& kind, const Lookup& numbers, bool locksShell) {
  const auto& paper = kind.paper;
  return {.key = paper.key,
          .caption = paper.dialog,
          .sheet = paper.lineSheet,
          .numbers = numbers,
          .locksShell = locksShell,
          .entryType = kind.entryType,
          .screen = kind.screen,
          .screenCaption = paper.behind};
}

PrintKey ofBills(const VoucherKind& kind) {
  PrintKey key = of(kind, bills(kind), false);
  key.byPaper = billsByNumber(kind);
  return key;
}

// clang-format off
const std::array kKeys = {
    ofBills(saleKind()),
    ofBills(creditNoteKind()),
    ofBills(debitNoteKind()),
    ofBills(purchaseReturnKind()),
    of(challanKind(),   kChallans,   false),
    of(quotationKind(), kQuotations, true),
    PrintKey{.key = "Delivery Slip", .caption = "Delivery Slip Print", .sheet = "D_C"},
    PrintKey{.key = "Tax Invoice",   .caption = "Tax Invoice Print",   .sheet = "BILL"},
    PrintKey{.key = "adcard",        .caption = "ADDRESS CARD PRINT",  .sheet = "MAILLABL", .numbers = accountsByCode(), .locksShell = true},
};
// clang-format on

// A key without a row keeps the caption of the design; its buttons do nothing.
const PrintKey kOther{};

const PrintKey& printKey(const std::string& key) {
  const auto found =
      std::find_if(kKeys.begin(), kKeys.end(), [&](const PrintKey& k) { return k.key == key; });
  return found == kKeys.end() ? kOther : *found;
}

}  // namespace

dlg1::dlg1(Host& theHost, const Opening& opening)
    : Screen(theHost, ::spec()), key_(&printKey(opening.reportKey)) {
  escMeans = "Esc = Close";
  wire<dlg1>(*this, {
                        {fields::kNumber, On::Focus,      &dlg1::numberFocus},
                        {fields::kNumber, KeyCode::Enter, &dlg1::numberEnter},
                        {fields::kNumber, KeyCode::F1,    &dlg1::billLookup },
                        {"cmdpdf",        On::Click,      &dlg1::makePdf    },
                        {"cmdprn",        On::Click,      &dlg1::print      },
                        {"cmdinv",        On::Click,      &dlg1::excelView  },
                        {"CancelButton",  On::Click,      &dlg1::leave      },
                        {"",              KeyCode::Esc,   &dlg1::leave      },
  });
}

void dlg1::opened(const Opening& opening) {
  Session& s = session();
  if (!key_->caption.empty()) caption = key_->caption;
  if (!key_->sheet.empty()) s.mprnsheet = key_->sheet;
  if (key_->locksShell) {
    showPicture(host, false);
    SetMenus(host, false, false);
  }
  put(fields::kNumber, opening.value);
  focus(trim(opening.value).empty() ? at(fields::kNumber) : at("cmdpdf"));
  ShowHint(host, "Press Enter To Proceed");
}

void dlg1::closed() {
  session().mprnmode.clear();
  if (!key_->screen.empty()) {
    // As it stands behind the dialog, or a new one.
    host.open(key_->screen, host.find(key_->screen) ? Opening() : Opening{.entryType = key_->entryType});
    Screen* const screen = host.find(key_->screen);
    if (screen && !key_->screenCaption.empty()) screen->caption = key_->screenCaption;
  } else if (key_->locksShell) {
    showPicture(host, true);
    SetMenus(host, true, true);
  }
}

// Each key in the number field takes back what a button had chosen.
char32_t dlg1::filter(const Control& control, char32_t key) {
  session().mprnmode.clear();
  return Screen::filter(control, key);
}

void dlg1::numberFocus() { ShowHint(host, std::exchange(answer_, english("Press Enter For Help"))); }

Go dlg1::numberEnter() {
  session().mprnmode.clear();
  if (trim(here().text).empty()) {
    if (key_->numbers) return lookUp(host, *this, here(), *key_->numbers);
    ShowHint(host, "Nothing To Look Up: Type The Number");
    return Go::Stay;
  }
  at("cmdpdf").enabled = true;
  focus(at("cmdpdf"));
  ShowHint(host, "Press Enter To Proceed");
  return Go::Stay;
}

// By bill number. The table is what the lookup by Enter has left, so before one there is none.
Go dlg1::billLookup() {
  session().mprnmode.clear();
  if (!key_->byPaper) return Go::Stay;
  if (session().mhlptable != tableText(key_->numbers->rows)) {
    ShowHint(host, "Nothing To Look Up Yet: Press Enter In The Empty Field First");
    return Go::Stay;
  }
  return lookUp(host, *this, here(), *key_->byPaper);
}

// The workbook itself, unless a button has chosen otherwise.
void dlg1::excelView() { make(session().mprnmode); }

void dlg1::make(const std::string& mode) {
  session().mprnmode = mode;
  at("cmdpdf").enabled = false;
  focus(at(fields::kNumber));
  host.hint({});
  if (const Renderer* renderer = rendererOf(key_->key))
    renderer->make(host, text(fields::kNumber), renderer->kind);
  else
    host.hint("There Is No Print Of This Document");
  // Outlives the change of focus.
  if (!host.hint().empty()) answer_ = host.hint();
  at("cmdpdf").enabled = true;
  at("cmdprn").enabled = true;
}

void dlg1::leave() { host.close(*this); }

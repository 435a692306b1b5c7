#include "frame/stngs.h"

#include "base/text.h"
#include "base/words.h"
#include "frame/company_details.h"
#include "frame/session.h"

using namespace fields;

namespace {

// clang-format off
const ScreenSpec& spec() {
  static const ScreenSpec s{
      .name = "stngs",
      .caption = "Company Details",
      .window = Window::Child,
      .focusColour = 0xC0FFFF,
      .layout = {.bands = {
          {fit(),   {{.name = "address", .columns = {px(136), part(1), px(116), part(1)}, .pitch = 39}}},
          {fit(),   {{.name = "tax",     .columns = {px(136), part(1), px(116), part(1)}, .pitch = 39}}},
          {fit(),   {{.name = "bank",    .columns = {px(136), part(1), px(116), part(1)}, .pitch = 39}}},
          {part(1), {{.name = "rest",    .frame = Frame::Plain}}},
          {px(34),  {{.name = "buttons", .frame = Frame::Buttons}}},
      }},
      .controls = {
          {.name = "txtFields", .index = 2,  .field = kCompany,       .column = "COMPNM",      .label = "Company Name",     .at = {.group = "address", .row = 0, .col = 1, .span = 3}, .tab = 1,  .limit = 100, .keys = KeyClass::Text},
          {.name = "txtFields", .index = 5,  .field = kAddress,       .column = "ADDRS",       .label = "Address ",         .at = {.group = "address", .row = 1, .col = 1, .span = 3}, .tab = 2,  .limit = 250, .keys = KeyClass::Text},
          {.name = "txtFields", .index = 21, .field = kCity,          .column = "CITY",        .label = "Place",            .at = {.group = "address", .row = 2, .col = 1},            .tab = 3,  .limit = 50,  .keys = KeyClass::Text},
          {.name = "txtFields", .index = 14, .field = kPinCode,       .column = "CPIN",        .label = "Pin Code",         .at = {.group = "address", .row = 2, .col = 3, .width = 132}, .tab = 4,  .limit = 50,  .keys = KeyClass::Text},
          {.name = "txtFields", .index = 9,  .field = kState,         .column = "STATE",       .label = "State",            .at = {.group = "address", .row = 3, .col = 1},            .tab = 5,  .limit = 250, .keys = KeyClass::Text},
          {.name = "txtFields", .index = 7,  .field = kStateCode,     .column = "STATECD",     .label = "State Code",       .at = {.group = "address", .row = 3, .col = 3, .width = 92}, .tab = 6, .limit = 250, .keys = KeyClass::Number},

          {.name = "txtFields", .index = 1,  .field = kGstin,         .column = "GSTINNO",     .label = "Company GSTIN No", .at = {.group = "tax", .row = 0, .col = 1},                .tab = 7,  .limit = 250, .keys = KeyClass::Text},
          {.name = "txtFields", .index = 0,  .field = kPan,           .column = "PLA_NO",      .label = "Pan No ",          .at = {.group = "tax", .row = 0, .col = 3},                .tab = 8,  .limit = 50,  .keys = KeyClass::Text},
          {.name = "txtFields", .index = 10, .field = kPhone,         .column = "PH1",         .label = "Phone 1",          .at = {.group = "tax", .row = 1, .col = 1},                .tab = 9,  .limit = 50,  .keys = KeyClass::Text},
          {.name = "txtFields", .index = 11, .field = kPhone2,        .column = "PH2",         .label = "Phone 2",          .at = {.group = "tax", .row = 1, .col = 3},                .tab = 10, .limit = 50,  .keys = KeyClass::Text},
          // An address for mail keeps its case and its signs.
          {.name = "txtFields", .index = 12, .field = kEmail,         .column = "C_EMAIL",     .label = "Email Address",    .at = {.group = "tax", .row = 2, .col = 1},                .tab = 11, .limit = 150, .keys = KeyClass::Any},

          {.name = "txtFields", .index = 4,  .field = kBank,          .column = "C_BANK_NAME", .label = "Bank Name",        .at = {.group = "bank", .row = 0, .col = 1},               .tab = 12, .limit = 150, .keys = KeyClass::Text},
          {.name = "txtFields", .index = 3,  .field = kBranch,        .column = "C_BRNCH",     .label = "Branch",           .at = {.group = "bank", .row = 0, .col = 3},               .tab = 13, .limit = 150, .keys = KeyClass::Text},
          {.name = "txtFields", .index = 8,  .field = kAccountNumber, .column = "C_AC_NO",     .label = "A/c No",           .at = {.group = "bank", .row = 1, .col = 1},               .tab = 14, .limit = 150, .keys = KeyClass::Text},
          {.name = "txtFields", .index = 6,  .field = kIfsc,          .column = "C_IFSC",      .label = "IFSC Code",        .at = {.group = "bank", .row = 1, .col = 3},               .tab = 15, .limit = 150, .keys = KeyClass::Text},

          {.name = "cmdsave",   .kind = Kind::Button, .label = "&Save and Close",     .at = {.group = "buttons"}, .tab = 16, .style = Style::Primary},
          {.name = "cmdclose",  .kind = Kind::Button, .label = "&Close Without Save", .at = {.group = "buttons"}, .tab = 17},
          {.name = "cmdcomp",   .kind = Kind::Button, .label = "Company &Details",    .at = {.group = "buttons", .right = true}, .tab = 18},
      },
  };
  return s;
}
// clang-format on

}  // namespace

stngs::stngs(Host& h) : ChildScreen(h, ::spec()) {
  escMeans = "Esc = Close Without Save";
  wire<stngs>(*this, {
                         {"cmdsave",  On::Click,    &stngs::save      },
                         {"cmdclose", On::Click,    &stngs::leave     },
                         {"cmdcomp",  On::Click,    &stngs::loadAgain },
                         {"",         KeyCode::Esc, &stngs::askToLeave},
  });
}

void stngs::opened(const Opening& opening) {
  ChildScreen::opened(opening);
  load();
  if (trimmed(kCompany).empty()) put(kCompany, opening.value);
  takeAsShown();
  focus(at(kCompany));
}

std::string stngs::hintFor(const Control& control) const {
  return control.editable() ? english("Press Enter To Proceed") : "";
}

void stngs::load() {
  std::optional<Row> row;
  if (CheckTable("COMP_DET")) row = data().first("SELECT COMP_DET.* FROM COMP_DET");
  for (const auto& c : controls)
    if (const auto column = c->spec->column; !column.empty())
      set(*c, row && row->has(column) ? row->text(column) : "");
  takeAsShown();
}

void stngs::loadAgain() {
  if (!mayDiscard()) return;
  load();
  ShowHint(host, "The Fields Show What Is Stored");
}

void stngs::save() {
  if (trimmed(kCompany).empty()) {
    host.message("Blank Name Not Allowed For Company");
    focus(at(kCompany));
    return;
  }
  saveCompanyDetails(session(), writtenFields(Part::Head));
  closeUnasked();
}

void stngs::leave() { host.close(*this); }

void stngs::askToLeave() {
  if (host.ask(leaveQuestion(english("Do you want to exit")))) closeUnasked();
}

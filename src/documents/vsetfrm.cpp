#include "documents/vsetfrm.h"

#include <algorithm>
#include <array>
#include <filesystem>

#include "base/number.h"
#include "base/words.h"
#include "frame/session.h"

using namespace fields;

namespace {

// The kinds of documents, their field, which designs each can have, and where the choice is kept.
struct Choice {
  FieldName field;
  double from, to;
  const char* refusal;
  int setting;  // SPSFILE.VOUCH_NO
  int Session::*design;
};
constexpr std::array kChoices = {
    Choice{kBillDesign,      1, 6, english("Please select Design Number 1 to 6 only"), 371, &Session::mbillformat},
    Choice{kQuotationDesign, 7, 7, english("Please select Design Number 7 only"),      372, &Session::mquotformat},
    Choice{kChallanDesign,   8, 9, english("Please select Design Number 8 or 9 only"), 373,
           &Session::mchlnformat                                                                                 },
};

constexpr std::array kPictures = {"INVGST1", "INVGST2",  "INVGST3", "INVGST4", "INVGST5",
                                  "INVGST6", "QUOTITM7", "INVGEN8", "INVGEN9"};

// clang-format off
const ScreenSpec& spec() {
  static const ScreenSpec s{
      .name = "VSETFRM",
      .caption = "Invoice Design Selection",
      .window = Window::Child,
      .focusColour = 0xC0FFFF,
      .layout = {.bands = {
          {part(1), {{.name = "left", .width = px(560), .frame = Frame::Plain, .bands = {
                         {fit(),   {{.name = "choiceHead", .frame = Frame::Plain, .pitch = 24}}},
                         {fit(),   {{.name = "choice",     .columns = {px(84), px(74), part(1), px(74), part(1), px(74)}}}},
                         {fit(),   {{.name = "viewHead",   .frame = Frame::Plain, .pitch = 24}}},
                         {fit(),   {{.name = "view",       .columns = {part(1), part(1), part(1)}, .pitch = 39}}},
                         {fit(),   {{.name = "facts",      .frame = Frame::Off, .columns = {px(84), part(1), px(84), part(1)}}}},
                         {part(1), {{.name = "rest",       .frame = Frame::Plain}}},
                     }},
                     {.name = "Frame1", .pitch = 60}}},
          {px(34),  {{.name = "buttons", .frame = Frame::Buttons}}},
      }},
      .controls = {
          {.name = "Label1",      .index = 0,  .kind = Kind::Label,  .label = "Default Designs For Print Format", .at = {.group = "choiceHead"}, .style = Style::Section},
          {.name = "txtFields",   .index = 9,  .field = kBillDesign,      .label = "GST Invoice", .at = {.group = "choice", .col = 1}, .tab = 1, .keys = KeyClass::Number, .selectAll = true, .hint = "1 To 6 = Design Of GST Invoices"},
          {.name = "txtFields",   .index = 10, .field = kQuotationDesign, .label = "Quotation",   .at = {.group = "choice", .col = 3}, .tab = 2, .keys = KeyClass::Number, .selectAll = true, .hint = "7 = Design Of Quotations"},
          {.name = "txtFields",   .index = 11, .field = kChallanDesign,   .label = "Challan",     .at = {.group = "choice", .col = 5}, .tab = 3, .keys = KeyClass::Number, .selectAll = true, .hint = "8 Or 9 = Design Of Challans"},

          {.name = "Label1",      .index = 1,  .kind = Kind::Label,  .label = "Click Button to View Design", .at = {.group = "viewHead"}, .style = Style::Section},
          {.name = "VIEWDSGN",    .index = 1,  .kind = Kind::Button, .label = "GST Inv 1",   .at = {.group = "view", .row = 0, .col = 0}, .tab = 5},
          {.name = "VIEWDSGN",    .index = 2,  .kind = Kind::Button, .label = "GST Inv 2",   .at = {.group = "view", .row = 0, .col = 1}, .tab = 6},
          {.name = "VIEWDSGN",    .index = 3,  .kind = Kind::Button, .label = "GST Inv 3",   .at = {.group = "view", .row = 0, .col = 2}, .tab = 7},
          {.name = "VIEWDSGN",    .index = 4,  .kind = Kind::Button, .label = "GST Inv 4",   .at = {.group = "view", .row = 1, .col = 0}, .tab = 8},
          {.name = "VIEWDSGN",    .index = 5,  .kind = Kind::Button, .label = "GST Inv 5",   .at = {.group = "view", .row = 1, .col = 1}, .tab = 9},
          {.name = "VIEWDSGN",    .index = 6,  .kind = Kind::Button, .label = "GST Inv 6",   .at = {.group = "view", .row = 1, .col = 2}, .tab = 10},
          {.name = "VIEWDSGN",    .index = 7,  .kind = Kind::Button, .label = "Quotation 7", .at = {.group = "view", .row = 2, .col = 0}, .tab = 11},
          {.name = "VIEWDSGN",    .index = 8,  .kind = Kind::Button, .label = "Challan 8",   .at = {.group = "view", .row = 2, .col = 1}, .tab = 12},
          {.name = "VIEWDSGN",    .index = 9,  .kind = Kind::Button, .label = "Challan 9",   .at = {.group = "view", .row = 2, .col = 2}, .tab = 13},

          {.name = "txtFields",   .index = 0,  .field = kDesignNumber,    .column = "SRNO",      .label = "Design No",  .at = {.group = "facts", .row = 0, .col = 1}, .enabled = false},
          {.name = "txtFields",   .index = 1,  .field = kDesignName,      .column = "PRNNAME",   .label = "Print Name", .at = {.group = "facts", .row = 0, .col = 3}, .enabled = false},
          {.name = "txtFields",   .index = 2,  .field = kFileName,        .column = "FILENM",    .label = "File Name",  .at = {.group = "facts", .row = 1, .col = 1}, .enabled = false},
          {.name = "txtFields",   .index = 18, .field = kSheetName,       .column = "SHEETNM",   .label = "Sht Nm",     .at = {.group = "facts", .row = 1, .col = 3}, .enabled = false},
          {.name = "txtFields",   .index = 3,  .field = kQueryName,       .column = "QUERYNM",   .label = "Qry name",   .at = {.group = "facts", .row = 2, .col = 1}, .enabled = false},
          {.name = "txtFields",   .index = 20, .field = kButtonName,      .column = "BTNNM",     .label = "Btn Name",   .at = {.group = "facts", .row = 2, .col = 3}, .enabled = false},
          {.name = "txtFields",   .index = 21, .field = kHeadLines,       .column = "HDLINES",   .label = "Hd Lines",   .at = {.group = "facts", .row = 3, .col = 1}, .enabled = false},
          {.name = "txtFields",   .index = 5,  .field = kFootLines,       .column = "FTLINES",   .label = "Ft lines",   .at = {.group = "facts", .row = 3, .col = 3}, .enabled = false},
          {.name = "txtFields",   .index = 6,  .field = kInvoiceLines,    .column = "INVLINES",  .label = "Inv LInes",  .at = {.group = "facts", .row = 4, .col = 1}, .enabled = false},
          {.name = "txtFields",   .index = 7,  .field = kItemLines,       .column = "ITMLINES",  .label = "Itm Lines",  .at = {.group = "facts", .row = 4, .col = 3}, .enabled = false},
          {.name = "txtFields",   .index = 8,  .field = kPages,           .column = "BLPGS",     .label = "Bl Pgs",     .at = {.group = "facts", .row = 5, .col = 1}, .enabled = false},
          {.name = "txtFields",   .index = 4,  .field = kCopies,          .column = "PRNCPY",    .label = "Prn Copies", .at = {.group = "facts", .row = 5, .col = 3}, .enabled = false},

          {.name = "Image1",      .kind = Kind::Picture, .at = {.group = "Frame1", .rows = 20}},
          {.name = "lblnone",     .kind = Kind::Label, .at = {.group = "Frame1"}, .align = Align::Centre, .style = Style::Quiet},

          {.name = "cmdsetvset",  .kind = Kind::Button, .label = "Set Design Number For Print", .at = {.group = "buttons"}, .tab = 4, .style = Style::Primary, .hint = "Press Enter To Set These Designs For Print"},
          {.name = "Command1",    .kind = Kind::Button, .label = "&Close", .at = {.group = "buttons"}, .tab = 14},
      },
  };
  return s;
}
// clang-format on

}  // namespace

VSETFRM::VSETFRM(Host& theHost) : ChildScreen(theHost, ::spec()) {
  escMeans = "Esc = Close";
  wire<VSETFRM>(*this, {
                           {"txtFields",  On::Change,   &VSETFRM::checkTyped},
                           {"VIEWDSGN",   On::Click,    &VSETFRM::view      },
                           {"cmdsetvset", On::Click,    &VSETFRM::setDesigns},
                           {"Command1",   On::Click,    &VSETFRM::leave     },
                           {"",           KeyCode::Esc, &VSETFRM::askToLeave},
  });
}

void VSETFRM::opened(const Opening& opening) {
  ChildScreen::opened(opening);
  for (const Choice& choice : kChoices) put(choice.field, session().*choice.design);
  takeAsShown();
  at("lblnone").text = words("The Design Shows Here");
  focus(at(kBillDesign));
}

std::string VSETFRM::hintFor(const Control& control) const {
  return control.family == "VIEWDSGN" ? english("Press Enter To View Design") : ChildScreen::hintFor(control);
}

// Whether the number in the field is none of its designs; told, and the field then holds 1.
bool VSETFRM::refused(FieldName field) {
  const auto* const choice = std::ranges::find(kChoices, field, &Choice::field);
  const double design = value(field);
  if (design >= choice->from && design <= choice->to) return false;
  host.message(choice->refusal);
  put(field, "1");
  return true;
}

void VSETFRM::checkTyped() {
  if (!here().text.empty()) refused(here().spec->field);
}

void VSETFRM::view() {
  const int number = here().index;
  if (!data().first("SELECT HIDELINESET.* FROM HIDELINESET ORDER BY SRNO")) {
    host.message("No Record To Display");
    return;
  }
  const auto row = data().first("SELECT HIDELINESET.* FROM HIDELINESET WHERE SRNO = ?", number);
  if (!row) {
    host.message("ENTRY NOT FOUND");
    return;
  }
  for (const auto& c : controls)
    if (const auto column = c->spec->column; !column.empty() && !row->text(column).empty())
      set(*c, row->text(column));
  const auto file = std::filesystem::path(session().mapppath) / "pics" /
                    (std::string(kPictures[static_cast<size_t>(number) - 1]) + ".JPG");
  const bool stands = std::filesystem::exists(file);
  at("Image1").picture = stands ? file.string() : "";
  at("lblnone").text = stands ? "" : words("No Picture Of This Design");
}

void VSETFRM::setDesigns() {
  for (const Choice& choice : kChoices)
    if (refused(choice.field)) {
      focus(at(choice.field));
      return;
    }
  for (const Choice& choice : kChoices) session().*choice.design = static_cast<int>(value(choice.field));
  for (const Choice& choice : kChoices)
    data().exec("UPDATE SPSFILE SET VOUCH_QTY = ? WHERE VOUCH_NO = ?", session().*choice.design,
                choice.setting);
  takeAsShown();
  ShowHint(host, "Bills, Quotations And Challans Print With These Designs Now");
}

void VSETFRM::leave() { host.close(*this); }

void VSETFRM::askToLeave() {
  if (host.ask(leaveQuestion(english("Do you want to exit")))) closeUnasked();
}

#include "frame/frmoperators.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "base/words.h"
#include "frame/companies.h"
#include "frame/session.h"

using namespace fields;

namespace {

constexpr std::array kSteps{english("&0 None"), english("&1 Look"), english("&2 Bill"), english("&3 All")};
constexpr std::array kRights{english("None"), english("Look"), english("Bill"), english("All")};

const char* wordOf(Right right) { return kRights.at(static_cast<size_t>(right)); }

// clang-format off
const ScreenSpec& spec() {
  static const ScreenSpec s{
      .name = "frmoperators",
      .caption = "Operators",
      .focusColour = 0xC0FFFF,
      .layout = {.bands = {
          {part(1), {{.name = "left", .frame = Frame::Plain, .bands = {
                         {px(26),  {{.name = "nameshead", .frame = Frame::Plain, .columns = {part(1)}, .pitch = 26}}},
                         {part(1), {{.name = "names", .frame = Frame::Plain}}}}},
                     {.name = "right", .frame = Frame::Plain, .bands = {
                         {px(26),  {{.name = "rightshead", .frame = Frame::Plain, .columns = {part(1)}, .pitch = 26}}},
                         {part(1), {{.name = "rights", .frame = Frame::Plain}}},
                         {px(34),  {{.name = "steps", .frame = Frame::Plain, .columns = {px(96), px(96), px(96), px(96), part(1)}}}}}}}},
          {fit(),   {{.name = "form",  .columns = {px(130), px(240), part(1)}},
                     {.name = "means", .frame = Frame::Off, .columns = {part(1)}, .pitch = 28}}},
          {px(34),  {{.name = "buttons", .frame = Frame::Buttons}}},
      }},
      .controls = {
          {.name = "lblhead", .index = 0, .kind = Kind::Label, .label = "Names", .at = {.group = "nameshead"}, .style = Style::Section},
          {.name = "lst",     .kind = Kind::Grid, .at = {.group = "names"}, .tab = 1, .columns = {
              {.title = "Name",       .width = part(1, 120)},
              {.title = "Works From", .width = px(150, 100)},
              {.title = "Right",      .width = px(170, 110)}}},
          {.name = "lblhead", .index = 1, .kind = Kind::Label, .at = {.group = "rightshead"}, .style = Style::Section},
          {.name = "rights",  .kind = Kind::Grid, .at = {.group = "rights"}, .tab = 2, .columns = {
              {.title = "Code",         .width = px(80, 60)},
              {.title = "Company Name", .width = part(1, 160)},
              {.title = "Right",        .width = px(110, 80)}}},
          {.name = "cmdstep", .index = 0, .kind = Kind::Button, .label = kSteps[0], .at = {.group = "steps", .col = 0}, .tab = 3, .hint = "Press Enter To Take The Right Away"},
          {.name = "cmdstep", .index = 1, .kind = Kind::Button, .label = kSteps[1], .at = {.group = "steps", .col = 1}, .tab = 4, .hint = "Press Enter :: Lists, Ledgers, Reports And Papers"},
          {.name = "cmdstep", .index = 2, .kind = Kind::Button, .label = kSteps[2], .at = {.group = "steps", .col = 2}, .tab = 5, .hint = "Press Enter :: Vouchers And Masters Too"},
          {.name = "cmdstep", .index = 3, .kind = Kind::Button, .label = kSteps[3], .at = {.group = "steps", .col = 3}, .tab = 6, .hint = "Press Enter :: Database Check And Restore Too"},
          {.name = "Text1", .field = kName,          .label = "Name",           .at = {.group = "form", .col = 1}, .tab = 7, .limit = 80, .enabled = false},
          {.name = "Text2", .field = kPassword,      .label = "Password",       .at = {.group = "form", .row = 1, .col = 1}, .tab = 8, .limit = 100, .enabled = false, .secret = true},
          {.name = "Text3", .field = kPasswordAgain, .label = "Password Again", .at = {.group = "form", .row = 2, .col = 1}, .tab = 9, .limit = 100, .enabled = false, .secret = true},
          {.name = "lblmeans", .index = 0, .kind = Kind::Label, .label = "1 Look :: Lists, Ledgers, Reports, Papers", .at = {.group = "means"}, .style = Style::Quiet},
          {.name = "lblmeans", .index = 1, .kind = Kind::Label, .label = "2 Bill :: And To Enter, Change And Delete Vouchers And Masters", .at = {.group = "means", .row = 1}, .style = Style::Quiet},
          {.name = "lblmeans", .index = 2, .kind = Kind::Label, .label = "3 All :: And Database Check, Restore, The Company's Name", .at = {.group = "means", .row = 2}, .style = Style::Quiet},
          {.name = "lblmeans", .index = 3, .kind = Kind::Label, .label = "The Server Itself Holds To It, For All Years Of The Company", .at = {.group = "means", .row = 3}, .style = Style::Quiet},
          {.name = "cmdsave",     .kind = Kind::Button, .label = "&Save",         .at = {.group = "buttons"}, .tab = 10, .visible = false, .style = Style::Primary},
          {.name = "cmdcancel",   .kind = Kind::Button, .label = "&Cancel",       .at = {.group = "buttons"}, .tab = 11, .visible = false},
          {.name = "cmdadd",      .kind = Kind::Button, .label = "&Add",          .at = {.group = "buttons"}, .tab = 12, .style = Style::Primary},
          {.name = "cmdpassword", .kind = Kind::Button, .label = "New &Password", .at = {.group = "buttons"}, .tab = 13},
          {.name = "cmdremove",   .kind = Kind::Button, .label = "&Remove",       .at = {.group = "buttons"}, .tab = 14},
          {.name = "cmdclose",    .kind = Kind::Button, .label = "C&lose",        .at = {.group = "buttons"}, .tab = 15},
      },
  };
  return s;
}
// clang-format on

}  // namespace

frmoperators::frmoperators(Host& h) : ChildScreen(h, ::spec()) {
  wire<frmoperators>(*this, {
                                {"lst",         On::Row,         &frmoperators::showRights },
                                {"lst",         KeyCode::Enter,  &frmoperators::toRights   },
                                {"lst",         KeyCode::Right,  &frmoperators::toRights   },
                                {"lst",         On::DoubleClick, &frmoperators::toRights   },
                                {"rights",      KeyCode::Left,   &frmoperators::toNames    },
                                {"cmdstep",     On::Click,       &frmoperators::step       },
                                {kName,         KeyCode::Enter,  &frmoperators::nameEntered},
                                {"cmdadd",      On::Click,       &frmoperators::add        },
                                {"cmdpassword", On::Click,       &frmoperators::password   },
                                {"cmdremove",   On::Click,       &frmoperators::remove     },
                                {"cmdsave",     On::Click,       &frmoperators::save       },
                                {"cmdcancel",   On::Click,       &frmoperators::escape     },
                                {"cmdclose",    On::Click,       &frmoperators::leave      },
                                {"",            KeyCode::Esc,    &frmoperators::escape     },
  });
}

void frmoperators::opened(const Opening& opening) {
  ChildScreen::opened(opening);
  for (const CompanyYear& year : companyYears(catalogue()))
    if (companies_.empty() || !sameText(companies_.back().code, year.code))
      companies_.push_back({year.code, year.name});
  read();
  end();
}

std::string frmoperators::hintFor(const Control& control) const {
  if (control.family == "lst")
    return english("Enter = What He May Do :: Alt+A = Add :: Alt+P = New Password :: Alt+R = Remove");
  if (control.family == "rights") return english("0 None :: 1 Look :: 2 Bill :: 3 All :: Left = The Names");
  if (control.spec->field == kName) return english("Type The Name Under Which The Operator Signs In");
  if (control.secret()) return english("Type 8 Letters Or More :: Enter = Next :: Esc = Cancel");
  return ChildScreen::hintFor(control);
}

// The lists

const Operator* frmoperators::current() const {
  const size_t row = at("lst").grid.current;
  return row < all_.size() ? &all_[row] : nullptr;
}

void frmoperators::read(const std::string& name) {
  all_ = operators(catalogue());
  auto rows = std::make_shared<CellRows>();
  for (const Operator& o : all_)
    rows->rows.push_back({{.text = o.name},
                          {.text = o.host == "%" ? words("Any Computer") : o.host},
                          {.text = o.owner ? words("All, And Operators") : words(wordOf(o.highest()))}});
  Grid& grid = at("lst").grid;
  const size_t before = grid.current;
  grid.source = rows;
  const auto found = std::ranges::find(all_, name, &Operator::name);
  const size_t row = found != all_.end() ? static_cast<size_t>(found - all_.begin()) : before;
  grid.moveTo(row == Grid::kNone ? 0 : row);
  showRights();
}

void frmoperators::showRights() {
  const Operator* const who = current();
  auto rows = std::make_shared<CellRows>();
  for (const Company& company : companies_) {
    const auto given = who ? who->rights.find(upper(company.code)) : decltype(who->rights.end()){};
    const Right right = !who                         ? Right::None
                        : who->owner                 ? Right::All
                        : given == who->rights.end() ? Right::None
                                                     : given->second;
    rows->rows.push_back({
        {.text = company.code},
        {                            .text = company.name                   },
        { .text = words(wordOf(right)),                    .bold = right != Right::None}
    });
  }
  Grid& grid = at("rights").grid;
  const size_t before = grid.current;
  grid.source = rows;
  grid.moveTo(before == Grid::kNone ? 0 : before);
  set(at("lblhead", 1), who && mode != "ADD" ? words("What {name} May Do", "name", who->name) : "");
  if (!typing()) put(kName, who ? who->name : "");
  showButtons();
}

void frmoperators::showButtons() {
  const Operator* const who = current();
  const bool changes = who && !who->owner && !typing();
  for (int i = 0; i < static_cast<int>(kSteps.size()); ++i)
    at("cmdstep", i).enabled = changes && !companies_.empty();
  for (const char* button : {"cmdpassword", "cmdremove"}) at(button).enabled = changes;
  for (const char* button : {"cmdadd", "cmdpassword", "cmdremove", "cmdclose"})
    at(button).visible = !typing();
  for (const char* button : {"cmdsave", "cmdcancel"}) at(button).visible = typing();
  reason = who && who->owner && !typing() ? english("An Owner Is Changed On The Server Itself") : "";
}

Go frmoperators::toRights() {
  focus(at("rights"));
  return Go::Stay;
}

Go frmoperators::toNames() {
  focus(at("lst"));
  return Go::Stay;
}

// What they may do

void frmoperators::typed(Control& list, char32_t ch) {
  if (list.family == "rights" && ch >= U'0' && ch <= U'3') give(static_cast<Right>(ch - U'0'));
}

void frmoperators::step() { give(static_cast<Right>(here().index)); }

void frmoperators::give(Right right) {
  const Operator* const who = current();
  const size_t row = at("rights").grid.current;
  if (!who || who->owner || typing() || row >= companies_.size()) return;
  const Operator before = *who;
  setRight(catalogue(), before, companies_[row].code, right);
  read(before.name);
  reason = words("{name} In {company}: {right}, From Now On", "name", before.name, "company",
                 companies_[row].name, "right", words(wordOf(right)));
}

// Names and passwords

void frmoperators::begin(const char* newMode, FieldName first) {
  mode = newMode;
  caption = first == kName ? english("Operators : New Name") : english("Operators : New Password");
  for (const FieldName field : {kPassword, kPasswordAgain}) at(field).enabled = true;
  at(kName).enabled = first == kName;
  for (const char* list : {"lst", "rights"}) at(list).enabled = false;
  if (first == kName) put(kName, "");
  escMeans = english("Esc = Cancel");
  showRights();
  takeAsShown();
  focus(at(first));
}

void frmoperators::end() {
  mode.clear();
  caption = spec.caption;
  for (const FieldName field : {kName, kPassword, kPasswordAgain}) at(field).enabled = false;
  for (const FieldName field : {kPassword, kPasswordAgain}) put(field, "");
  for (const char* list : {"lst", "rights"}) at(list).enabled = true;
  escMeans = english("Esc = Exit");
  showRights();
  takeAsShown();
  focusUnchecked(at("lst"));
}

void frmoperators::add() { begin("ADD", kName); }
void frmoperators::password() { begin("EDIT", kPassword); }

Go frmoperators::nameEntered() {
  const std::string refusal = nameRefusal(trimmed(kName), all_);
  if (refusal.empty()) return Go::On;
  at(kName).refused = true;
  host.message(refusal);
  return Go::Stay;
}

void frmoperators::save() {
  if (mode == "ADD" && nameEntered() == Go::Stay) return focus(at(kName));
  if (const std::string refusal = passwordRefusal(text(kPassword), text(kPasswordAgain)); !refusal.empty()) {
    host.message(refusal);
    return focus(at(kPassword));
  }
  const std::string name = trimmed(kName);
  const bool added = mode == "ADD";
  if (added)
    addOperator(catalogue(), name, text(kPassword));
  else
    setPassword(catalogue(), *current(), text(kPassword));
  end();
  read(name);
  takeAsShown();
  if (added) focusUnchecked(at("rights"));
  reason = added ? words("{name} Signs In With This Password :: Now Give A Right", "name", name)
                 : words("{name} Signs In With The New Password From Now On", "name", name);
}

void frmoperators::remove() {
  const Operator who = *current();
  if (!host.ask({.text = words("Do You Want To Remove {name}", "name", who.name),
                 .title = kQuestionTitle,
                 .yes = english("&Remove"),
                 .no = english("&Keep"),
                 .facts = words("Vouchers Keep The Name :: Nobody Signs In Under It Any More"),
                 .loses = true}))
    return;
  removeOperator(catalogue(), who);
  read();
  takeAsShown();
  focus(at("lst"));
}

// The end

void frmoperators::leave() { host.close(*this); }

void frmoperators::escape() {
  if (!typing()) return leave();
  if (mayDiscard()) end();
}

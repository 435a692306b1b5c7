#include "frame/frmcomp.h"

#include "base/number.h"
#include "base/text.h"
#include "base/words.h"
#include "frame/backup_menu.h"
#include "frame/field_names.h"
#include "frame/links.h"
#include "frame/lookup.h"
#include "frame/routines.h"
#include "frame/session.h"
#include "platform/utf8.h"
#include "store/dictionary.h"

namespace fs = std::filesystem;

using namespace fields;

namespace {

constexpr const char* kConfirm = english("Mirav Confirmation Message");
constexpr const char* kKeys = english("Up / Down = Scroll  ::  Enter = Select  ::  Esc = Exit");
constexpr const char* kNewKeys = english("Type Name And Year Of The New Company  ::  Esc = Back To The List");
const Question kNewer{
    .text = english("These Books Were Made By A Newer Program\r\nDo You Want To Open Them With This One"),
    .title = kConfirm,
    .yes = english("&Yes, Open Them"),
    .no = english("&No, Leave Them"),
    .loses = true,
};

// clang-format off
const ScreenSpec& spec() {
  static const ScreenSpec s{
      .name = "FRMCOMP",
      .caption = "Company Selection",
      .window = Window::Main,
      .layout = {.bands = {
          {px(44), {{.name = "head", .frame = Frame::Plain, .columns = {part(1)}}}},
          {part(1), {{.name = "list", .frame = Frame::Plain}}},
          {px(46), {{.name = "row", .columns = {fit(), px(92), fit(), part(1), fit(), px(72), fit(), px(72)}}}},
          {px(48), {{.name = "buttons", .frame = Frame::Buttons}}},
      }, .width = 1010, .gap = 10},
      .controls = {
          {.name = "Title",      .kind = Kind::Label,  .label = "Company Selection", .at = {.group = "head"}, .style = Style::Title},
          {.name = "lst",        .kind = Kind::Grid,   .at = {.group = "list"}, .tab = 1, .columns = {
              {.title = "Code",         .width = twips(1000)},
              {.title = "Company Name", .width = twips(5000)},
              {.title = "From",         .width = twips(1000)},
              {.title = "To",           .width = twips(1000)}}},
          {.name = "Text1",      .field = kCode,      .label = "Code",             .at = {.group = "row", .col = 1}, .tab = 2, .limit = 10,  .keys = KeyClass::Text},
          {.name = "Text2",      .field = kCompany,   .label = "    Company Name", .at = {.group = "row", .col = 3}, .tab = 3, .limit = 100, .keys = KeyClass::Text},
          {.name = "Text3",      .field = kFromYear,  .label = "From Year",        .at = {.group = "row", .col = 5}, .tab = 4, .limit = 4,   .keys = KeyClass::Number},
          {.name = "Text4",      .field = kToYear,    .label = "To Year",          .at = {.group = "row", .col = 7}, .enabled = false},
          {.name = "Text5",      .field = kSearch,    .visible = false},
          {.name = "cmdok",      .kind = Kind::Button, .label = "&Ok",                 .at = {.group = "buttons"}, .tab = 5, .style = Style::Primary},
          {.name = "cmdclose",   .kind = Kind::Button, .label = "&Close",              .at = {.group = "buttons"}, .tab = 6},
          {.name = "mnunewcomp", .kind = Kind::Button, .label = "Create &New Company", .at = {.group = "buttons", .right = true}, .tab = 7},
          {.name = "Cmdmodify",  .kind = Kind::Button, .label = "&Modify",             .at = {.group = "buttons", .right = true}, .tab = 8},
          {.name = "cmddelcomp", .kind = Kind::Button, .label = "&Delete Fin-Year",    .at = {.group = "buttons", .right = true}, .tab = 9},
          {.name = "Cmdvideo",   .kind = Kind::Button, .label = "&Video",              .at = {.group = "buttons", .right = true}, .tab = 10},
          {.name = "Label5",     .kind = Kind::Label,  .label = kKeys, .visible = false},
      },
  };
  return s;
}
// clang-format on

bool isSearched(char32_t ch) {
  constexpr std::u32string_view signs = U"():>=,&%*-./?[]{}'+";
  return (ch >= U'A' && ch <= U'Z') || (ch >= U'0' && ch <= U'9') || ch > 127 ||
         signs.find(ch) != std::u32string_view::npos;
}

const char* told(Deletion outcome) {
  switch (outcome) {
    case Deletion::Done:
      return english("Company Delete Process Done");
    case Deletion::InUse:
      return english("Company Data Is Open In Another Program");
    case Deletion::NoRow:
      return english("company not found");
    case Deletion::LastOne:
      break;
  }
  return english(
      "Cannot Delete All Companies\r\nYou Can Modify Company Details From Utilities\r\n"
      "Or Create Another Company First Then Delete This Company");
}

}  // namespace

FRMCOMP::FRMCOMP(Host& h) : Screen(h, ::spec()) {
  panels = {"", kKeys};
  wire<FRMCOMP>(*this, {
                           {"lst",        KeyCode::Up,        &FRMCOMP::copyRow     },
                           {"lst",        KeyCode::Down,      &FRMCOMP::copyRow     },
                           {"lst",        KeyCode::PgUp,      &FRMCOMP::copyRow     },
                           {"lst",        KeyCode::PgDn,      &FRMCOMP::copyRow     },
                           {"lst",        On::Row,            &FRMCOMP::copyMovedRow},
                           {"lst",        KeyCode::Enter,     &FRMCOMP::openRow     },
                           {"lst",        On::DoubleClick,    &FRMCOMP::openRow     },
                           {"lst",        KeyCode::Backspace, &FRMCOMP::searchBack  },
                           {kCode,        KeyCode::Enter,     &FRMCOMP::code        },
                           {kCompany,     KeyCode::Enter,     &FRMCOMP::name        },
                           {kFromYear,    KeyCode::Enter,     &FRMCOMP::year        },
                           {"cmdok",      On::Click,          &FRMCOMP::ok          },
                           {"cmdclose",   On::Click,          &FRMCOMP::leave       },
                           {"mnunewcomp", On::Click,          &FRMCOMP::newCompany  },
                           {"Cmdmodify",  On::Click,          &FRMCOMP::modify      },
                           {"cmddelcomp", On::Click,          &FRMCOMP::remove      },
                           {"Cmdvideo",   On::Click,          &FRMCOMP::video       },
                           {"",           KeyCode::Esc,       &FRMCOMP::escape      },
  });
}

void FRMCOMP::opened(const Opening&) {
  anchor = Anchor::Centre;
  host.hint(kKeys);
  offerTutorial(*this, links().companyVideo);
  fill();
}

// Companies may have come to the server meanwhile.
void FRMCOMP::activated() {
  if (newcomp_ || companyYears(catalogue(), text(kSearch)) == rows_) return;
  fill(at("lst").grid.current);
  host.hint(kKeys);
}

void FRMCOMP::closed() {
  if (okpressed_) return;
  // The mark decides nothing: neither a missing table nor a folder that cannot be written to
  // keeps anybody from leaving.
  try {
    catalogue().exec("UPDATE USER1 SET LOGGEDON = 'N' WHERE USER_NAME = ?", session().musername);
  } catch (const DatabaseError& error) {
    logFailure("passed over: the mark decides nothing", error);
  }
}

void FRMCOMP::leave() { host.close(*this); }

void FRMCOMP::escape() {
  if (!newcomp_) return leave();
  endNewCompany();
  host.hint(kKeys);
  if (rows_.empty())
    clearFields();
  else
    copyMovedRow();
  focus(at("lst"));
}

void FRMCOMP::endNewCompany() {
  newcomp_ = false;
  at(kCode).enabled = true;
}

// The list

void FRMCOMP::fill(size_t row) {
  rows_ = companyYears(catalogue(), text(kSearch));
  auto cells = std::make_shared<CellRows>();
  for (const CompanyYear& y : rows_)
    cells->rows.push_back({{.text = y.code}, {.text = y.name}, {.text = y.from}, {.text = y.to}});
  Grid& grid = at("lst").grid;
  grid.source = cells;
  grid.moveTo(row);
  if (rows_.empty())
    clearFields();
  else
    copyMovedRow();
}

void FRMCOMP::take(const CompanyYear& row) {
  put(kCode, row.code);
  put(kCompany, row.name);
  put(kFromYear, row.from);
  put(kToYear, row.to);
}

void FRMCOMP::clearFields() { take({}); }

void FRMCOMP::copyMovedRow() {
  const size_t row = at("lst").grid.current;
  if (row < rows_.size()) take(rows_[row]);
}

// Before the cursor moves, so that a key that cannot move it copies its row all the same.
Go FRMCOMP::copyRow() {
  copyMovedRow();
  return Go::On;
}

Go FRMCOMP::openRow() {
  copyMovedRow();
  ok();
  return Go::Stay;
}

void FRMCOMP::typed(Control& list, char32_t ch) {
  if (ch >= U'a' && ch <= U'z') ch -= 32;
  if (list.family == "lst" && isSearched(ch)) search(text(kSearch) + utf8::encode(ch));
}

Go FRMCOMP::searchBack() {
  const std::string& typed = text(kSearch);
  if (!typed.empty()) search(left(typed, length(typed) - 1));
  return Go::Stay;
}

void FRMCOMP::search(const std::string& text) {
  put(kSearch, text);
  host.hint(text.empty() ? kKeys : words("Search = {text}  ::  Backspace = Take Back", "text", text));
  fill();
}

// The fields

Go FRMCOMP::code() {
  Control& field = at(kCode);
  const std::string typed = trim(field.text);
  if (typed.empty()) {
    const bool manager = session().musertype == "M";
    return lookUp(host, *this, field,
                  {
                      .rows = {.columns = {{"comp_id", 1500}, {"comp_name", 3000}},
                               .from = "compny",
                               .where = manager ? "COMP_ID = 'M001'" : "",
                               .distinct = true},
                      .inCatalogue = true
    });
  }
  const auto years = yearsOf(catalogue(), typed);
  if (years.empty()) {
    host.message("company not found");
    return Go::Stay;
  }
  put(kCode, years.front().code);
  put(kCompany, years.front().name);
  if (years.size() == 1) {
    focus(at(kFromYear));
    return Go::Stay;
  }
  put(kFromYear, years.front().from);
  put(kToYear, years.front().to);
  at("cmdok").enabled = true;
  ok();
  return Go::Stay;
}

Go FRMCOMP::name() {
  if (trimmed(kCompany).empty())
    host.message("Type Company Name and Press Enter");
  else
    focus(at(kFromYear));
  return Go::Stay;
}

Go FRMCOMP::year() {
  Control& field = at(kFromYear);
  const std::string code = trimmed(kCode), typed = trim(field.text);
  if (typed.empty())
    return lookUp(host, *this, field,
                  {
                      .rows = {.columns = {{"FROMYR", 1500}, {"TOYR", 3000}},
                               .from = "compny",
                               .where = "COMP_ID = ?",
                               .order = {down("FROMYR")},
                               .values = {code}},
                      .inCatalogue = true
    });
  if (newcomp_) {
    if (create(CreateBy::Enter)) {
      at("cmdok").enabled = true;
      openTyped();
    }
    return Go::Stay;
  }
  const auto row = companyYear(catalogue(), code, typed);
  if (!row) {
    host.message("company not found");
    focus(at(kCode));
    return Go::Stay;
  }
  // The code may have been typed and left by Tab, with another company's name beside it.
  put(kCode, row->code);
  put(kCompany, row->name);
  put(kToYear, row->to);
  at("cmdok").enabled = true;
  ok();
  return Go::Stay;
}

// The buttons

void FRMCOMP::ok() {
  if (!newcomp_)
    openTyped();
  else if (create(CreateBy::Button))
    focus(at("cmdok"));
}

void FRMCOMP::openTyped() {
  const std::string year = trimmed(kFromYear);
  // A year that was typed and left without Enter still stands beside the other one's end.
  if (const auto row = companyYear(catalogue(), trimmed(kCode), year))
    take(*row);
  else if (!year.empty())
    put(kToYear, numText(Val(year) + 1));
  const CompanyYear which{text(kCode), text(kCompany), year, trimmed(kToYear)};
  const fs::path file = dataFile(session().mapppath, which);
  if (shapeVersion(file) > kShapeVersion && !host.ask(kNewer)) return;
  std::string refusal;
  try {
    refusal = openCompanyYear(which);
  } catch (const DatabaseError& error) {
    using Kind = DatabaseError::Kind;
    if (error.kind() != Kind::damaged && error.kind() != Kind::notDatabase && error.kind() != Kind::stranger)
      throw;
    logFailure(kTold, error);
    refusal = error.what();
  }
  if (!refusal.empty()) {
    host.message(refusal);
    if (!offerRestore(host)) return;
    refusal = openCompanyYear(which);
    if (!refusal.empty()) return;
  }
  okpressed_ = true;
  const bool made = made_ && sameText(made_->code, which.code) && made_->from == which.from;
  host.open("frmStartup", {.value = made ? which.name : ""});
  host.close(*this);
}

void FRMCOMP::newCompany() {
  if (session().musertype == "M") {
    host.message("Use Master Password to EDIT");
    return;
  }
  newcomp_ = true;
  take({.code = nextCompanyCode(catalogue())});
  host.hint(kNewKeys);
  at(kCode).enabled = false;
  focus(at(kCompany));
}

bool FRMCOMP::create(CreateBy by) {
  const CompanyYear wanted{text(kCode), text(kCompany), text(kFromYear), {}};
  const std::string refusal = creationRefusal(catalogue(), session().mapppath, wanted, by);
  if (!refusal.empty()) {
    host.message(refusal);
    return false;
  }
  const bool sure = host.ask({.text = english("Are You Sure"),
                              .title = kConfirm,
                              .yes = english("&Yes, Create"),
                              .no = english("&No, Back To The List"),
                              .facts = trim(wanted.name) + "  " + trim(wanted.from)});
  if (sure) {
    put(kToYear, Val(wanted.from) + 1);
    createCompanyYear(catalogue(), session().mapppath, wanted, by, session().mmobile);
    host.message("company created");
  }
  endNewCompany();
  if (!sure) {
    host.hint(kKeys);
    clearFields();
    return false;
  }
  const CompanyYear made{wanted.code, wanted.name, trim(wanted.from), text(kToYear)};
  made_ = made;
  search("");
  for (size_t i = 0; i < rows_.size(); ++i)
    if (sameText(rows_[i].code, made.code) && rows_[i].from == made.from) at("lst").grid.moveTo(i);
  take(made);
  return true;
}

void FRMCOMP::modify() {
  const size_t row = at("lst").grid.current;
  if (row >= rows_.size()) return;
  const std::string shown = text(kCompany), old = rows_[row].name;
  const auto given = host.input(
      "Do You Want To Change Company Name \r\nType Company Name In the White Box\r\nAnd Press ok Button To "
      "Change",
      kConfirm);
  if (!given || trim(*given).empty()) return;
  if (!host.ask({.text = words("Do You Want to change {old}   To   {new}", "old", old, "new", *given),
                 .yes = english("&Yes, Change"),
                 .no = english("&No, Keep The Name")}))
    return;
  const std::string refusal = renameCompany(catalogue(), rows_[row], trim(*given), shown);
  if (!refusal.empty()) host.message(refusal);
  fill(row);
}

void FRMCOMP::remove() {
  const size_t row = at("lst").grid.current;
  if (row >= rows_.size()) return;
  const CompanyYear which = rows_[row];
  if (!host.ask({.text = words("Do You Want to Delete {code} {from} {to} ", "code", which.code, "from",
                               which.from, "to", which.to),
                 .yes = english("&Yes, Delete"),
                 .no = english("&No, Keep"),
                 .facts = which.name,
                 .loses = true}))
    return;
  Deleted deleted{Deletion::NoRow};
  const std::string failure = failureOf(
      host, [&] { deleted = deleteCompanyYear(catalogue(), session().mapppath, which, MakeStamp(host)); });
  if (!failure.empty()) {
    host.message(words("Company Not Deleted\r\n{why}", "why", words(failure)));
    return;
  }
  if (!deleted.backup.empty()) host.message(words("Backup Done\r\n{file}", "file", deleted.backup.string()));
  host.message(told(deleted.outcome));
  if (deleted.outcome == Deletion::InUse || deleted.outcome == Deletion::LastOne) return;
  search("");
  fill(row);
}

void FRMCOMP::video() { openTutorial(host, links().companyVideo); }

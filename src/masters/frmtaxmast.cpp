#include "masters/frmtaxmast.h"

#include <map>

#include "base/number.h"
#include "base/text.h"
#include "frame/links.h"
#include "frame/session.h"
#include "masters/accounts.h"
#include "masters/column_titles.h"
#include "store/seeds.h"

namespace {

bool isShort(SmallKind kind) { return kind != SmallKind::Text && kind != SmallKind::AccountName; }
bool isNumber(SmallKind kind) { return kind == SmallKind::Number || kind == SmallKind::Group; }

ScreenSpec screenTable(const SmallMaster& m) {
  ScreenSpec table;
  table.name = "frmtaxmast";
  table.caption = m.stem;
  table.layout.bands = {
      {.height = part(1),
       .groups = {{.name = "form",
                   .frame = Frame::Plain,
                   .bands = {{fit(),
                              {{.name = "fields", .columns = {px(136), px(120), part(1)}, .pitch = 39}}},
                             {part(1), {{.name = "rest", .frame = Frame::Plain}}}}},
                  {.name = "names", .width = px(400), .frame = Frame::Plain}}},
      entryButtonBand(),
  };

  std::vector<ControlSpec> controls;
  int index = 0;
  for (const SmallField& f : m.fields) {
    const bool narrow = isShort(f.kind) || (index == 0 && m.code != SmallCode::ItsText);
    controls.push_back({
        .name = "txtFields",
        .index = index,
        .field = f.field,
        .column = f.column,
        .holds = isNumber(f.kind) || (index == 0 && m.numericCode) ? Holds::Figure : Holds::Typed,
        .label = std::string(f.label),
        .at = {.group = "fields", .row = index, .col = 1, .span = narrow ? 1 : 2},
        .tab = index + 1,
        .limit = f.limit,
        .keys = isNumber(f.kind) ? KeyClass::Number : KeyClass::Text,
        .enabled = f.kind != SmallKind::AccountName,
        .align = isNumber(f.kind) ? Align::Right : Align::Auto,
        .selectAll = f.kind == SmallKind::YesNo,
        .hint = std::string(f.hint)
    });
    if (f.kind == SmallKind::Group)
      controls.push_back({
          .name = "lblGroup",
          .field = fields::kGroupName,
          .kind = Kind::Label,
          .at = {.group = "fields", .row = index, .col = 2},
          .style = Style::Quiet
      });
    ++index;
  }
  ControlSpec list{.name = "DataGrid1", .kind = Kind::Grid, .at = {.group = "names"}};
  for (const SelectColumn& c : m.list.columns) {
    const ColumnTitle t = columnTitle(nameOf(c));
    list.columns.push_back(
        {.title = t.title, .width = t.width > 100 ? part(1) : px(t.width), .align = t.align});
  }
  controls.push_back(std::move(list));
  table.controls = withButtons(std::move(controls), "&Save");
  return table;
}

// Made once for each master and kept, since screens refer to their table.
const ScreenSpec& tableFor(const SmallMaster& m) {
  static std::map<std::string_view, ScreenSpec> made;
  const auto found = made.find(m.key);
  return found != made.end() ? found->second : made.emplace(m.key, screenTable(m)).first->second;
}

bool isGenerated(const SmallMaster& m) {
  return m.code == SmallCode::NextNumber || m.code == SmallCode::NextCategory;
}

// The tables that every company has. The menus lead to the first.
struct Other {
  KeyCode key;
  const char* master;
};
constexpr Other kOthers[] = {
    {KeyCode::F2, "catg"  },
    {KeyCode::F3, "tax"   },
    {KeyCode::F4, "TRANS" },
    {KeyCode::F5, "grpmst"},
};

EntryPattern smallPattern(const SmallMaster& m) {
  const std::string stem = words(m.stem);
  return {
      .key = m.fields[0].field,
      .first = m.fields[isGenerated(m) ? 1 : 0].field,
      .what = std::string(m.stem),
      .idle = stem,
      .add = words("{master} : ADD MODE", "master", stem),
      .edit = words("{master} EDIT MODE", "master", stem),
      .del = words("{master} Delete MODE", "master", stem),
      .view = words("{master} View MODE", "master", stem),
      .idleKeys =
          m.inCatalogue ? "" : english("F2 = Category  ::  F3 = Tax  ::  F4 = Transport  ::  F5 = Group"),
      .names = m.list,
      .namesGrid = "DataGrid1",
      .name = m.fields[static_cast<size_t>(m.name)].field,
      .video = links().smallMasterVideo,
  };
}

}  // namespace

template <size_t N>
Go frmtaxmast::change() {
  if (!mode.empty() || master_.inCatalogue) return Go::On;
  host.open("frmtaxmast", {.masterKey = kOthers[N].master});
  return Go::Stay;
}

frmtaxmast::frmtaxmast(Host& theHost, const Opening& opening) : frmtaxmast(theHost, smallMaster(opening)) {}

frmtaxmast::frmtaxmast(Host& theHost, const SmallMaster& master)
    : EntryScreen(theHost, tableFor(master), smallPattern(master)), master_(master) {
  wire<frmtaxmast>(*this, {
                              {"txtFields", KeyCode::Enter, &frmtaxmast::fieldEntered},
                              {"",          KeyCode::F2,    &frmtaxmast::change<0>   },
                              {"",          KeyCode::F3,    &frmtaxmast::change<1>   },
                              {"",          KeyCode::F4,    &frmtaxmast::change<2>   },
                              {"",          KeyCode::F5,    &frmtaxmast::change<3>   },
  });
}

Database& frmtaxmast::database() const { return master_.inCatalogue ? catalogue() : data(); }

void frmtaxmast::opened(const Opening& opening) {
  if (master_.key == "TRANS") ensureLocalTransport(data());
  EntryScreen::opened(opening);
}

char32_t frmtaxmast::filter(const Control& control, char32_t key) {
  const char32_t ch = EntryScreen::filter(control, key);
  const bool yesNo = sameText(control.family, "txtFields") && fieldOf(control.index).kind == SmallKind::YesNo;
  return yesNo && ch != U'Y' && ch != U'N' ? 0 : ch;
}

void frmtaxmast::newEntry() {
  if (isGenerated(master_)) at(fields::kCode).enabled = false;
  for (int i = 0; i < count(); ++i)
    if (fieldOf(i).kind == SmallKind::YesNo) set(field(i), "N");
}

std::optional<Row> frmtaxmast::storedRow(const std::string& code) {
  return findSmallRow(master_, database(), code);
}

std::string frmtaxmast::missingCodeWords() const {
  return mode == "EDIT" ? english("CODE DOES NOT EXIST") : english("Record Not Found");
}

Control* frmtaxmast::missingField() {
  for (int i = 0; i < count(); ++i)
    if ((i == 0 || fieldOf(i).required) && trim(field(i).text).empty()) return &field(i);
  return nullptr;
}

// Fields

Go frmtaxmast::fieldEntered() {
  const int index = here().index;
  const SmallField& f = fieldOf(index);
  if (f.kind == SmallKind::Account) return accountEntered(index);
  if (f.kind == SmallKind::Group) return groupEntered(index);
  const std::string text = trim(field(index).text);
  if (f.required && text.empty()) return refuse("Blank Not Allowed");
  if (index == master_.name && mode == "ADD" && smallNameInUse(master_, database(), text))
    return refuse(std::string(master_.duplicate));
  return Go::On;
}

Go frmtaxmast::accountEntered(int index) {
  const std::string code = trim(field(index).text);
  if (code.empty()) {
    Lookup list = accounts({{"ACC_CD"}, {"acc_NAME"}, {"AREA"}, {"CITY"}, {"PERSON_NM"}, balanceColumn()});
    list.optional = !fieldOf(index).required;
    return lookUp(host, *this, field(index), list);
  }
  const auto account = findAccount(data(), code);
  if (!account) return refuse("Please Select Proper ACCOUNT Code");
  if (index + 1 < count() && fieldOf(index + 1).kind == SmallKind::AccountName)
    set(field(index + 1), left(account->text("ACC_NAME"), fieldOf(index + 1).limit));
  return Go::On;
}

Go frmtaxmast::groupEntered(int index) {
  const std::string code = trim(field(index).text);
  if (code.empty())
    return lookUp(
        host, *this, field(index),
        {
            .rows = {.columns = {{"GROUP_CD"}, {"GROUP_NAME"}}, .from = "GRP", .order = {"GROUP_NAME"}}
    });
  showGroupName();
  return mayStandUnder(code) ? Go::On : refuse("Wrong Selection");
}

// A group under itself would have no root.
bool frmtaxmast::mayStandUnder(const std::string& group) const {
  return groupName(data(), Val(group)) && Val(group) != Val(code());
}

void frmtaxmast::showGroupName() {
  for (int i = 0; i < count(); ++i)
    if (fieldOf(i).kind == SmallKind::Group)
      put(fields::kGroupName,
          field(i).text.empty() ? "" : groupName(data(), Val(field(i).text)).value_or(""));
}

void frmtaxmast::emptied() { showGroupName(); }

// Saving and deleting

bool frmtaxmast::mayEdit() {
  if (session().musertype != "M") return true;
  say("Use Master Password to Edit");
  return false;
}

bool frmtaxmast::maySave() {
  const auto refused = [this](const std::string& words) {
    say(words);
    return false;
  };
  const std::string name = trim(field(master_.name).text);
  if (master_.key == "grpmst" && mode == "ADD" && Val(code()) == kPassingGroup)
    return refused("Group 31 Does Not Stay :: Openings Delete It\r\nPl. Give Another Code");
  const bool renamed = master_.name == 0 && mode == "EDIT" && !sameText(name, loaded());
  if ((mode == "ADD" || renamed) && smallNameInUse(master_, database(), name))
    return refused(std::string(master_.duplicate));
  for (int i = 0; i < count(); ++i) {
    const std::string text = trim(field(i).text);
    if (text.empty()) continue;
    if (fieldOf(i).kind == SmallKind::Account && !findAccount(data(), text))
      return refused("Please Select Proper ACCOUNT Code");
    if (fieldOf(i).kind == SmallKind::Group && !mayStandUnder(text)) return refused("Wrong Selection");
  }
  return true;
}

bool frmtaxmast::store() {
  Fields fields = writtenFields(Part::Head);
  for (Field& f : stamps()) fields.push_back(std::move(f));
  if (mode == "EDIT") return changeSmallRow(master_, database(), loaded(), fields);
  insertRow(database(), master_.table, fields);
  return true;
}

// A transporter in use may go all the same.
bool frmtaxmast::mayDelete(const std::string& code) {
  const int sales = master_.key == "TRANS" ? salesOfTransport(data(), code) : 0;
  return sales == 0 ||
         host.ask({.text = words(
                       "This Transport Id is Used In {count} & Sales Entries\r\nDo You Still Want To DELETE",
                       "count", std::to_string(sales)),
                   .title = kQuestionTitle,
                   .yes = english("&Yes, Delete"),
                   .no = english("&No, Keep"),
                   .loses = true});
}

std::optional<Refusal> frmtaxmast::refusal(const std::string& code) {
  return smallRefusal(master_, database(), code);
}

void frmtaxmast::erase(const std::string& code) { deleteSmallRow(master_, database(), code); }

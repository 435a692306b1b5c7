#include "masters/frmacc.h"

#include <utility>

#include "base/number.h"
#include "base/text.h"
#include "frame/links.h"
#include "frame/session.h"
#include "masters/accounts.h"
#include "masters/gstin.h"

using namespace fields;

namespace {

// clang-format off
const ScreenSpec& accountTable() {
  using enum Holds;
  static const std::vector<Length> cells{px(116), px(92), part(1.1, 70), px(112), px(92), px(36), part(1)};
  static const ScreenSpec s{
      .name = "frmacc",
      .caption = "Account Master",
      .layout = {.bands = {
          {.height = part(1), .groups = {
              {.name = "form", .frame = Frame::Plain, .bands = {
                  {fit(),   {{.name = "identity", .columns = cells, .pitch = 39}}},
                  {fit(),   {{.name = "address",  .columns = cells, .pitch = 39}}},
                  {fit(),   {{.name = "contact",  .columns = cells, .pitch = 39}}},
                  {part(1), {{.name = "rest",     .frame = Frame::Plain}}},
              }},
              {.name = "names", .width = px(400), .frame = Frame::Plain},
          }},
          entryButtonBand(),
      }},
      .controls = withButtons({
          {.name = "txtFields", .index = 0,  .field = kCode,           .column = "ACC_CD",     .holds = Typed,  .label = "A/c Code",       .at = {.group = "identity", .row = 0, .col = 1},              .tab = 1,  .limit = 6,   .keys = KeyClass::Text},
          {.name = "usrlbl",    .field = kUser, .kind = Kind::Label,                             .at = {.group = "identity", .row = 0, .col = 4, .span = 3},   .style = Style::Quiet},
          {.name = "txtFields", .index = 1,  .field = kName,           .column = "ACC_NAME",   .holds = Typed,  .label = "Name",           .at = {.group = "identity", .row = 1, .col = 1, .span = 6},   .tab = 2,  .limit = 100, .keys = KeyClass::Text, .hint = "Type Name Of Party"},
          {.name = "txtFields", .index = 2,  .field = kGroup,          .column = "GROUP_CD",   .holds = Figure, .label = "Group Code",     .at = {.group = "identity", .row = 2, .col = 1},              .tab = 3,  .limit = 10,  .keys = KeyClass::Number, .align = Align::Right, .selectAll = true},
          {.name = "lblGroup",  .field = kGroupName, .kind = Kind::Label,                             .at = {.group = "identity", .row = 2, .col = 2, .span = 5},   .style = Style::Quiet},
          {.name = "txtFields", .index = 3,  .field = kOpeningBalance, .column = "OP_BAL",     .holds = Figure, .label = "Op. Bal ",       .at = {.group = "identity", .row = 3, .col = 1, .span = 2, .width = 160}, .tab = 4, .limit = 15, .keys = KeyClass::Number, .align = Align::Right, .money = true, .hint = "Type Opening Balance :: Minus = Credit Balance"},
          {.name = "txtFields", .index = 4,  .field = kCreditDays,     .column = "CREDIT_DAY", .holds = Figure, .label = "Credit Days",    .at = {.group = "identity", .row = 3, .col = 4},              .tab = 5,  .limit = 5,   .keys = KeyClass::Number, .align = Align::Right, .hint = "Type Credit Days Of Party"},

          {.name = "txtFields", .index = 5,  .field = kAddress1,       .column = "ADD1",       .holds = Typed,  .label = "Address Line 1", .at = {.group = "address", .row = 0, .col = 1, .span = 6},    .tab = 6,  .limit = 100, .keys = KeyClass::Text, .hint = "Type Address Of Party"},
          {.name = "txtFields", .index = 6,  .field = kAddress2,       .column = "ADD2",       .holds = Typed,  .label = "Address Line 2", .at = {.group = "address", .row = 1, .col = 1, .span = 6},    .tab = 7,  .limit = 100, .keys = KeyClass::Text, .hint = "Type Address Of Party"},
          {.name = "txtFields", .index = 7,  .field = kCity,           .column = "CITY",       .holds = Typed,  .label = "City",           .at = {.group = "address", .row = 2, .col = 1, .span = 2},    .tab = 8,  .limit = 100, .keys = KeyClass::Text},
          {.name = "txtFields", .index = 8,  .field = kPinCode,        .column = "PINCODE",    .holds = Typed,  .label = "Pin Code",       .at = {.group = "address", .row = 2, .col = 4},               .tab = 9,  .limit = 100, .keys = KeyClass::Text},
          {.name = "txtFields", .index = 9,  .field = kArea,           .column = "AREA",       .holds = Typed,  .label = "Area",           .at = {.group = "address", .row = 2, .col = 6},               .tab = 10, .limit = 100, .keys = KeyClass::Text},

          {.name = "txtFields", .index = 10, .field = kPhone,          .column = "PHONE1",     .holds = Typed,  .label = "Phone No",       .at = {.group = "contact", .row = 0, .col = 1, .span = 2},    .tab = 11, .limit = 100, .keys = KeyClass::Text, .hint = "Type Phone No Of Party"},
          {.name = "txtFields", .index = 15, .field = kPerson,         .column = "PERSON_NM",  .holds = Typed,  .label = "Contac Person",  .at = {.group = "contact", .row = 0, .col = 4, .span = 3},    .tab = 12, .limit = 100, .keys = KeyClass::Text, .hint = "Type Name Of Person"},
          // An address for mail keeps its case and its signs.
          {.name = "txtFields", .index = 22, .field = kEmail,          .column = "EMAIL",      .holds = Typed,  .label = "Email",          .at = {.group = "contact", .row = 1, .col = 1, .span = 6},    .tab = 13, .limit = 60,  .keys = KeyClass::Any, .hint = "Type Email Of Party"},
          {.name = "txtFields", .index = 27, .field = kPan,            .column = "BANK_NAME",  .holds = Typed,  .label = "PAN No. ",       .at = {.group = "contact", .row = 2, .col = 1, .span = 2},    .tab = 14, .limit = 100, .keys = KeyClass::Text, .hint = "Type Pan No. :: Gstin No. Fills It"},
          {.name = "txtFields", .index = 44, .field = kGstin,          .column = "GSTINNO",    .holds = Typed,  .label = "GSTIN No.",      .at = {.group = "contact", .row = 2, .col = 4, .span = 3},    .tab = 15, .limit = 20,  .keys = KeyClass::Text, .hint = "Type Gstin No. Of 15 Letters And Digits"},
          {.name = "txtFields", .index = 45, .field = kStateCode,      .column = "STATECD",    .holds = Figure, .label = "StateCode",      .at = {.group = "contact", .row = 3, .col = 1},               .tab = 16, .limit = 2,   .keys = KeyClass::Number, .align = Align::Right, .hint = "Type State Code :: For Gujarat It Is 24"},

          {.name = "DataGrid1", .kind = Kind::Grid, .at = {.group = "names"}, .columns = {{.title = "Names already in use"}}},
      }),
  };
  return s;
}
// clang-format on

constexpr const char* kNoState = english("Please Fill Proper State Code\r\nFor Gujarat it is 24");

EntryPattern accountPattern() {
  const std::string stem = words("ACCOUNT MASTER");
  return {
      .key = kCode,
      .first = kName,
      .what = english("Account"),
      .idle = stem,
      .add = words("{master} : ADD MODE", "master", stem),
      .edit = words("{master} : EDIT MODE", "master", stem),
      .del = words("{master} : DELETE MODE", "master", stem),
      .view = words("{master} : VIEW MODE", "master", stem),
      .searches = "F1 = Area  ::  F2 = City  ::  F3 = Person  ::  F4 = Name  ::  F5 = Phone",
      .names = accounts({{"ACC_NAME"}}
        ).rows,
      .namesGrid = "DataGrid1",
      .name = kName,
      .optional = { kCity, kPinCode, kArea},
      .video = links().accountVideo,
  };
}

// Searches from anywhere, each by its own second column. The type of a party, which older
// databases had, is in none of them; its key lists by name.
struct Search {
  KeyCode key;
  const char *second, *third, *fourth, *fifth, *order;
};
constexpr Search kSearches[] = {
    {KeyCode::F1, "AREA",      "acc_NAME", "CITY", nullptr,     "AREA"     },
    {KeyCode::F2, "city",      "acc_NAME", "area", "person_nm", "CITY"     },
    {KeyCode::F3, "person_nm", "acc_NAME", "area", "CITY",      "person_nm"},
    {KeyCode::F4, "acc_NAME",  "area",     "CITY", "person_nm", "ACC_NAME" },
    {KeyCode::F5, "PHONE1",    "acc_NAME", "area", "CITY",      "person_nm"},
};

}  // namespace

template <size_t N>
Go frmacc::search() {
  const Search& by = kSearches[N];
  if (mode.empty() || mode == "ADD") return Go::On;
  Lookup lookup = accounts({{"ACC_CD"}, {by.second}, {by.third}, {by.fourth}});
  if constexpr (kSearches[N].fifth != nullptr) lookup.rows.columns.push_back({by.fifth});
  lookup.rows.columns.push_back(balanceColumn());
  lookup.rows.order = {by.order};
  const std::string found = lookUpValue(host, lookup);
  if (found.empty()) return Go::Stay;
  put(kCode, found);
  focus(at(kCode));
  enterAgain(at(kCode));
  return Go::Stay;
}

frmacc::frmacc(Host& theHost) : EntryScreen(theHost, accountTable(), accountPattern()) {
  wire<frmacc>(*this, {
                          {kName,           KeyCode::Enter, &frmacc::nameEntered   },
                          {kName,           On::Validate,   &frmacc::nameLeft      },
                          {kGroup,          KeyCode::Enter, &frmacc::groupEntered  },
                          {kGroup,          On::Validate,   &frmacc::groupLeft     },
                          {kOpeningBalance, KeyCode::Enter, &frmacc::openingEntered},
                          {kCity,           KeyCode::Enter, &frmacc::cityEntered   },
                          {kPinCode,        KeyCode::Enter, &frmacc::pinCodeEntered},
                          {kArea,           KeyCode::Enter, &frmacc::areaEntered   },
                          {kGstin,          KeyCode::Enter, &frmacc::gstinEntered  },
                          {kStateCode,      KeyCode::Enter, &frmacc::stateEntered  },
                          {kStateCode,      On::Validate,   &frmacc::stateLeft     },
                          {kStateCode,      On::Leave,      &frmacc::dropWaiting   },
                          {"",              KeyCode::F1,    &frmacc::search<0>     },
                          {"",              KeyCode::F2,    &frmacc::search<1>     },
                          {"",              KeyCode::F3,    &frmacc::search<2>     },
                          {"",              KeyCode::F4,    &frmacc::search<3>     },
                          {"",              KeyCode::F5,    &frmacc::search<4>     },
  });
}

// Other fields check themselves, or ask what only Enter is to be asked.
bool frmacc::worksOnLeaving(const Control& target) const {
  return entering() && focused() == &at(kGstin) && &target != &at("cmdCancel");
}

std::string frmacc::nextCode() { return accountCode(NextAccountCode()); }

// The code is made by the system; it is open only where one has to be chosen.
void frmacc::newEntry() {
  at(kCode).enabled = false;
  put(kGroup, groupCode(data(), kDebtorGroup));
  showGroupName();
}

std::optional<Row> frmacc::storedRow(const std::string& code) { return findAccount(data(), code); }

Lookup frmacc::codeLookup() const {
  return accounts({{"ACC_CD"}, {"acc_NAME"}, {"AREA"}, {"CITY"}, {"PERSON_NM"}, balanceColumn()});
}

std::string frmacc::missingCodeWords() const {
  return mode == "EDIT" ? english("PARTY DOES NOT EXISTS") : english("PARTY DOES NOT EXIST");
}

Control* frmacc::missingField() {
  for (const FieldName required : {kCode, kName, kGroup})
    if (trimmed(required).empty()) return &at(required);
  return nullptr;
}

void frmacc::emptied() {
  put(kGroupName, "");
  saveWaits_ = false;
}

void frmacc::showGroupName() {
  const std::string& typed = text(kGroup);
  put(kGroupName, trim(typed).empty() ? "" : groupName(data(), Val(typed)).value_or(""));
}

// Fields

Go frmacc::nameEntered() {
  return trimmed(kName).empty() ? refuse("YOU MUST HAVE TO ENTER PARTY NAME") : nameIsFree();
}

Go frmacc::nameLeft() {
  if (!entering()) return Go::On;
  return trimmed(kName).empty() ? refuse(kIncompleteWords) : nameIsFree();
}

Go frmacc::nameIsFree() {
  if (mode != "ADD" || !accountNameInUse(data(), trimmed(kName))) return Go::On;
  return refuse("Duplicate Party Name Not Allowed\r\nMake Spelling Difference with '.' or something Else");
}

// The six roots of the tree are not offered.
Go frmacc::groupEntered() {
  if (!trimmed(kGroup).empty()) return groupIsKnown();
  showGroupName();
  return lookUp(host, *this, at(kGroup),
                {
                    .rows = {.columns = {{"GROUP_CD"}, {"GROUP_NAME"}},
                             .from = "GRP",
                             .where = "group_cd > 6",
                             .order = {"GROUP_NAME"}}
  });
}

Go frmacc::groupLeft() {
  if (!entering()) return Go::On;
  return trimmed(kGroup).empty() ? refuse(kIncompleteWords) : groupIsKnown();
}

Go frmacc::groupIsKnown() {
  showGroupName();
  return groupName(data(), value(kGroup)) ? Go::On : refuse("group not found");
}

// Name, group and balance are enough for an account.
Go frmacc::openingEntered() {
  if (!entering() || !host.ask({.text = english("Save Entry = Yes ::  Enter Other Details = No"),
                                .title = kQuestionTitle,
                                .yes = english("&Yes, Save Entry"),
                                .no = english("&No, Other Details")}))
    return Go::On;
  update();
  return Go::Stay;
}

Go frmacc::cityEntered() { return valuesInUse("ACCOUNT", "city"); }
Go frmacc::pinCodeEntered() { return valuesInUse("ACCOUNT", "pincode"); }
Go frmacc::areaEntered() { return valuesInUse("ACCOUNT", "area"); }

Go frmacc::gstinEntered() {
  if (!entering()) return Go::On;
  const std::string gstin = trimmed(kGstin);
  if (!isGstinLength(gstin)) {
    say("INVALID GSTIN NO \r\nRE-CHECK GSTIN NO \r\nSOFTWARE WILL PROCEED WITHOUT GSTIN NO ");
    put(kGstin, ".");
    reason.clear();
    return Go::On;
  }
  const GstinParts parts = gstinParts(gstin);
  put(kPan, parts.pan);
  put(kStateCode, parts.stateCode);
  reason = gstinHint(gstin);
  return Go::On;
}

// Enter goes on with the save that has asked for the state.
Go frmacc::stateEntered() {
  if (stateLeft() == Go::Stay) return Go::Stay;
  if (!std::exchange(saveWaits_, false)) return Go::On;
  update();
  return Go::Stay;
}

Go frmacc::stateLeft() { return entering() && trimmed(kStateCode).empty() ? refuse(kNoState) : Go::On; }

// Saving and deleting

bool frmacc::maySave() {
  return nameIsFree() == Go::On && groupIsKnown() == Go::On && work(at(kGstin)) && stateIsKnown();
}

// Without a state the tax of a party's bills could not be chosen.
bool frmacc::stateIsKnown() {
  if (value(kStateCode) != 0 || !isPartyGroup(data(), value(kGroup))) return true;
  if (isGstinLength(trimmed(kGstin))) put(kStateCode, gstinParts(trimmed(kGstin)).stateCode);
  if (value(kStateCode) != 0) return true;
  say(kNoState);
  focus(at(kStateCode));
  saveWaits_ = true;
  return false;
}

bool frmacc::store() {
  put(kCode, code());
  put(kName, trimmed(kName));
  Fields fields = writtenFields(Part::Head);
  for (Field& f : stamps()) fields.push_back(std::move(f));
  if (mode == "EDIT") return changeAccount(data(), loaded(), std::move(fields));
  addAccount(data(), std::move(fields));
  return true;
}

void frmacc::saved(const std::string& code) { session().mlastacc = code; }

std::optional<Refusal> frmacc::refusal(const std::string& code) { return accountRefusal(data(), code); }

void frmacc::erase(const std::string& code) { deleteAccount(data(), code); }

#include "frame/frmsettings.h"

#include <sys/stat.h>

#include <algorithm>
#include <filesystem>

#include "base/number.h"
#include "base/text.h"
#include "base/words.h"
#include "frame/backup.h"
#include "frame/session.h"
#include "platform/utf8.h"

namespace fs = std::filesystem;

using namespace fields;

namespace {

// clang-format off
const ScreenSpec& spec() {
  static const ScreenSpec s{
      .name = "frmsettings",
      .caption = "Settings",
      .focusColour = 0xFFC0FF,
      .layout = {.bands = {
          {fit(),   {{.name = "find",    .columns = {px(64), px(420), part(1)}}}},
          {part(1), {{.name = "list",    .frame = Frame::Plain}}},
          {fit(),   {{.name = "value",   .columns = {px(260), part(1)}}}},
          {px(34),  {{.name = "buttons", .frame = Frame::Buttons}}},
      }},
      .controls = {
          {.name = "Text1",     .field = kSearch,  .label = "Find", .at = {.group = "find", .col = 1}, .tab = 1, .limit = 40, .hint = "Type A Word Of The Setting :: Enter = To The List"},
          {.name = "lblfound",  .kind = Kind::Label, .at = {.group = "find", .col = 2}, .style = Style::Quiet},
          {.name = "lst",       .kind = Kind::Grid, .at = {.group = "list"}, .tab = 2, .columns = {
              {.title = "Section",      .width = px(130, 110)},
              {.title = "Setting",      .width = px(260, 210)},
              {.title = "Value",        .width = px(300, 190)},
              {.title = "What It Does", .width = part(1)}}},
          {.name = "Text2",     .field = kSetting, .label = "Value", .at = {.group = "value", .col = 1}, .tab = 3, .limit = 80, .enabled = false, .selectAll = true},
          {.name = "lblmeans",  .kind = Kind::Label, .at = {.group = "value", .row = 1, .col = 1}, .style = Style::Quiet},
          {.name = "cmdkeep",   .kind = Kind::Button, .label = "&Keep",   .at = {.group = "buttons"}, .tab = 4, .enabled = false, .style = Style::Primary, .hint = "Press Enter To Keep What Was Changed"},
          {.name = "cmdcancel", .kind = Kind::Button, .label = "&Cancel", .at = {.group = "buttons"}, .tab = 5},
      },
  };
  return s;
}
// clang-format on

bool typedAway(const Setting& setting) {
  using enum Setting::Kind;
  return setting.kind == Folder || setting.kind == Count || setting.kind == Account;
}

bool onOneDisk(const fs::path& a, const fs::path& b) {
  struct stat first = {}, second = {};
  return stat(a.c_str(), &first) == 0 && stat(b.c_str(), &second) == 0 && first.st_dev == second.st_dev;
}

std::uintmax_t bytesOfBooks() {
  std::error_code ignored;
  const auto size = [&](const Database& db) {
    const auto bytes = fs::file_size(db.file(), ignored);
    return ignored ? 0 : bytes;
  };
  return size(data()) + size(catalogue());
}

}  // namespace

frmsettings::frmsettings(Host& h) : ChildScreen(h, ::spec()) {
  wire<frmsettings>(*this, {
                               {kSearch,     On::Change,         &frmsettings::refill      },
                               {kSearch,     KeyCode::Enter,     &frmsettings::searched    },
                               {kSearch,     KeyCode::Down,      &frmsettings::searched    },
                               {"lst",       On::Row,            &frmsettings::showRow     },
                               {"lst",       KeyCode::Enter,     &frmsettings::change      },
                               {"lst",       On::DoubleClick,    &frmsettings::change      },
                               {"lst",       KeyCode::F8,        &frmsettings::standard    },
                               {"lst",       KeyCode::Backspace, &frmsettings::searchBack  },
                               {kSetting,    On::Change,         &frmsettings::explain     },
                               {kSetting,    KeyCode::Enter,     &frmsettings::valueEntered},
                               {"cmdkeep",   On::Click,          &frmsettings::keep        },
                               {"cmdcancel", On::Click,          &frmsettings::leave       },
                               {"",          KeyCode::Esc,       &frmsettings::escape      },
  });
}

void frmsettings::opened(const Opening& opening) {
  ChildScreen::opened(opening);
  for (const Setting& setting : settings()) stored_.push_back(settingOf(data(), setting));
  values_ = stored_;
  fill();
  focus(at("lst"));
}

std::string frmsettings::hintFor(const Control& control) const {
  if (control.kind == Kind::Grid)
    return english("Enter = Change :: Up / Down = Setting :: F8 = As Delivered");
  if (control.family == "Text2") return english("Press Enter To Take This Value :: Esc = As It Was");
  return ChildScreen::hintFor(control);
}

void frmsettings::focusMoved(Control& control) {
  ChildScreen::focusMoved(control);
  tellEsc();
}

void frmsettings::tellEsc() {
  escMeans = focused() == &at(kSetting) ? english("Esc = As It Was")
             : trimmed(kSearch).empty() ? english("Esc = Exit")
                                        : english("Esc = All");
}

// What is set and what is changed

size_t frmsettings::indexOf(const Setting& setting) const {
  return static_cast<size_t>(&setting - settings().data());
}

bool frmsettings::changed(const Setting& setting) const {
  return values_[indexOf(setting)] != stored_[indexOf(setting)];
}

// A value that was typed and not yet taken would be lost too.
bool frmsettings::unsaved() const {
  const Control& field = at(kSetting);
  return anyChanged() || (field.enabled && field.worked != field.text);
}

std::string frmsettings::atStake() const {
  std::vector<std::string> names;
  for (const Setting& setting : settings())
    if (changed(setting)) names.push_back(words(setting.name));
  return join(names, ", ");
}

std::string frmsettings::shownValue(const Setting& setting) const {
  const std::string& value = values_[indexOf(setting)];
  const auto n = static_cast<size_t>(toInt(Val(value)));
  if (!typedAway(setting)) return n < setting.choices.size() ? words(setting.choices[n]) : value;
  return value.empty() ? words("None") : value;
}

// The list

void frmsettings::fill(const Setting* setting) {
  const std::string wanted = upper(trimmed(kSearch));
  shown_.clear();
  auto rows = std::make_shared<CellRows>();
  const char* section = "";
  for (const Setting& s : settings()) {
    const std::string all = words(s.section) + " " + words(s.name) + " " + words(s.sentence);
    if (upper(all).find(wanted) == std::string::npos) continue;
    const bool bold = changed(s);
    rows->rows.push_back({
        {.text = s.section == section ? "" : words(s.section), .bold = true},
        {.text = words(s.name),                                                    .bold = bold},
        {.text = shownValue(s),.bold = bold},
        {.text = words(s.sentence)                               }
    });
    section = s.section;
    shown_.push_back(&s);
  }
  Grid& grid = at("lst").grid;
  grid.source = rows;
  const auto found = std::ranges::find(shown_, setting);
  grid.moveTo(found == shown_.end() ? 0 : static_cast<size_t>(found - shown_.begin()));
  set(at("lblfound"), wanted.empty()
                          ? words("Type A Word, In The List Too")
                          : words("{found} of {all} settings  ::  Esc = All", "found",
                                  std::to_string(shown_.size()), "all", std::to_string(settings().size())));
  at("cmdkeep").enabled = anyChanged();
  reason = anyChanged() ? "" : english("Nothing changed yet");
  showRow();
  tellEsc();
}

void frmsettings::refill() { fill(); }

void frmsettings::showRow() {
  Control& field = at(kSetting);
  field.enabled = !shown_.empty() && typedAway(current());
  const std::string value = field.enabled ? valueOf(current()) : shown_.empty() ? "" : shownValue(current());
  set(field, value);
  field.worked = value;
  field.label = shown_.empty() ? "" : words(current().name);
  explain();
}

// What the value in the field means, while it is typed too.
void frmsettings::explain() {
  const bool folder = !shown_.empty() && current().kind == Setting::Kind::Folder;
  set(at("lblmeans"), shown_.empty() ? "" : folder ? whereTo(trimmed(kSetting)) : words(current().sentence));
}

std::string frmsettings::whereTo(const std::string& folder) const {
  if (folder.empty() && current().key == kSecondFolder) return words("No Second Copy Is Made");
  const fs::path place = backupFolder(folder, session().mapppath);
  const std::string text = words("Copies Stand In {folder}", "folder", place.string());
  return current().key == kSecondFolder && onOneDisk(place, session().mapppath)
             ? text + "  ::  " + words("On The Disk Of The Books: Another Disk Is Safer")
             : text;
}

void frmsettings::typed(Control& list, char32_t ch) {
  if (list.family != "lst" || ch < U' ') return;
  put(kSearch, text(kSearch) + utf8::encode(ch));
  fill();
}

Go frmsettings::searchBack() {
  put(kSearch, left(text(kSearch), std::max(1, length(text(kSearch))) - 1));
  fill();
  return Go::Stay;
}

Go frmsettings::searched() {
  focus(at("lst"));
  return Go::Stay;
}

// Changing one

void frmsettings::take(const Setting& setting, const std::string& value) {
  valueOf(setting) = value;
  fill(&setting);
}

Go frmsettings::change() {
  if (shown_.empty()) return Go::Stay;
  const Setting& setting = current();
  if (typedAway(setting)) {
    focus(at(kSetting));
  } else {
    const int next = toInt(Val(valueOf(setting))) + 1;
    take(setting, std::to_string(next < static_cast<int>(setting.choices.size()) ? next : 0));
  }
  return Go::Stay;
}

Go frmsettings::standard() {
  if (!shown_.empty()) take(current(), std::string(current().standard));
  return Go::Stay;
}

std::string frmsettings::refusalOf(const Setting& setting, std::string& value) {
  if (setting.kind == Setting::Kind::Count) {
    const double n = Val(value);
    const bool whole = numText(n) == value && n == toInt(n);
    value = numText(n);
    if (whole && n >= 1 && n <= setting.most) return {};
    return words("{setting}\r\nType A Whole Number From 1 To {most}", "setting", words(setting.name), "most",
                 std::to_string(setting.most));
  }
  if (value.empty() || value == ".") {
    value = setting.standard;
    return {};
  }
  if (setting.kind == Setting::Kind::Account) {
    value = upper(value);
    if (data().first("SELECT 1 FROM ACCOUNT WHERE ACC_CD = ?", value)) return {};
    return words("PARTY DOES NOT EXIST");
  }
  const fs::path folder = backupFolder(value, session().mapppath);
  const std::string_view other = setting.key == kSecondFolder ? kBackupFolder : kSecondFolder;
  for (const Setting& s : settings())
    if (s.key == other && !valueOf(s).empty() &&
        backupFolder(valueOf(s), session().mapppath).lexically_normal() == folder.lexically_normal())
      return words("{folder}\r\nBoth Folders Would Be The Same", "folder", folder.string());
  return folderRefusal(folder, bytesOfBooks());
}

Go frmsettings::valueEntered() {
  const Setting& setting = current();
  std::string value = trimmed(kSetting);
  if (value != valueOf(setting)) {
    const std::string refusal = refusalOf(setting, value);
    if (!refusal.empty()) {
      at(kSetting).refused = true;
      host.message(refusal);
      return Go::Stay;
    }
  }
  take(setting, value);
  if (!leaving()) focus(at("lst"));
  return leaving() ? Go::On : Go::Stay;
}

bool frmsettings::worksOnLeaving(const Control& target) const {
  return focused() == &at(kSetting) && &target != &at("cmdcancel");
}

// The end

void frmsettings::keep() {
  Database& db = data();
  whole(db, [&] {
    for (const Setting& setting : settings())
      if (changed(setting)) storeSetting(db, setting, valueOf(setting));
  });
  stored_ = values_;
  EnsureSettings(db, session());
  fill(shown_.empty() ? nullptr : &current());
  focus(at("lst"));
  reason = english("These settings are kept");
}

void frmsettings::leave() { host.close(*this); }

void frmsettings::escape() {
  if (focused() == &at(kSetting)) {
    showRow();
    focusUnchecked(at("lst"));
  } else if (!trimmed(kSearch).empty()) {
    put(kSearch, "");
    fill();
    focus(at("lst"));
  } else {
    leave();
  }
}

#include "masters/entry_screen.h"

#include <algorithm>

#include "base/figure.h"
#include "base/number.h"
#include "base/text.h"
#include "frame/session.h"
#include "masters/page_rows.h"

EntryScreen::EntryScreen(Host& theHost, const ScreenSpec& theSpec, EntryPattern pattern)
    : ChildScreen(theHost, theSpec), pattern_(std::move(pattern)) {
  at("cmdAdd").hint = pattern_.idleHint;
  // Enter and Tab walk to these two, but a press leaves the focus where it is, unchecked: what is
  // missing is told by the save itself, and giving up needs no filled field.
  for (const char* button : {"cmdUpdate", "cmdCancel"}) at(button).tab = 0;
  const std::string key = at(pattern_.key).fullName(), name = at(pattern_.name).fullName();
  wire<EntryScreen>(*this, {
                               {"cmdAdd",    On::Click,      &EntryScreen::add       },
                               {"cmdEdit",   On::Click,      &EntryScreen::edit      },
                               {"cmdDelete", On::Click,      &EntryScreen::remove    },
                               {"cmdUpdate", On::Click,      &EntryScreen::update    },
                               {"cmdCancel", On::Click,      &EntryScreen::giveUp    },
                               {"cmdClose",  On::Click,      &EntryScreen::close     },
                               {"Cmdvideo",  On::Click,      &EntryScreen::video     },
                               {"",          KeyCode::Esc,   &EntryScreen::close     },
                               {"",          Key::Ctrl('P'), &EntryScreen::viewKey   },
                               {key,         KeyCode::Enter, &EntryScreen::keyEntered},
                               {key,         On::Validate,   &EntryScreen::keyLeft   },
                               {name,        On::Change,     &EntryScreen::nameTyped },
  });
}

Database& EntryScreen::database() const { return data(); }

void EntryScreen::opened(const Opening& opening) {
  ChildScreen::opened(opening);
  caller_ = opening.caller;
  offerTutorial(*this, pattern_.video);
  cancel();
  ShowHint(host, pattern_.idleHint);
  if (!caller_.empty()) add();
}

bool EntryScreen::mayClose() {
  if (done_ || !entering()) return true;
  return host.ask(leaveQuestion(english("Do you want to Exit")));
}

std::string EntryScreen::hintFor(const Control& control) const {
  if (!control.editable() || !trim(control.text).empty()) return ChildScreen::hintFor(control);
  const bool optional = entering() && isOptional(control);
  if (control.declined) return hintAfterList(optional);
  return optional && control.hint.empty() ? english("Press Enter For Help :: Tab = Leave Empty")
                                          : ChildScreen::hintFor(control);
}

bool EntryScreen::isOptional(const Control& field) const {
  return std::ranges::find(pattern_.optional, field.spec->field) != pattern_.optional.end();
}

Go EntryScreen::valuesInUse(const std::string& table, const std::string& column) {
  if (!trim(here().text).empty()) return Go::On;
  const Lookup values = valuesOf(table, column);
  return lookUp(host, *this, here(), isOptional(here()) ? mayStayEmpty(values) : values);
}

std::string EntryScreen::code() const { return trimmed(pattern_.key); }

Go EntryScreen::refuse(const std::string& text) {
  say(text);
  return Go::Stay;
}

// Modes

void EntryScreen::begin(const std::string& newMode, const std::string& newCaption) {
  mode = newMode;
  caption = newCaption;
  reason.clear();
  loaded_.clear();
  hand_.letGo();
  escMeans = keysOfMode();
  clearFields();
  enableFields();
  showButtons();
  showNames("");
  takeAsShown(pattern_.key);
}

std::string EntryScreen::keysOfMode() const {
  const std::string keys = words(mode.empty() ? pattern_.idleKeys : mode == "ADD" ? "" : pattern_.searches);
  return keys + (keys.empty() ? "" : "  ::  ") + (mode.empty() ? words("Ctrl+P = View  ::  ") : "") +
         words(entering() ? english("Esc = Cancel and Exit") : english("Esc = Close"));
}

void EntryScreen::add() {
  begin("ADD", pattern_.add);
  put(pattern_.key, nextCode());
  newEntry();
  takeAsShown(pattern_.key);
  focusUnchecked(at(pattern_.first));
}

void EntryScreen::choose(const std::string& newMode, const std::string& newCaption) {
  begin(newMode, newCaption);
  focusUnchecked(at(pattern_.key));
}

void EntryScreen::edit() {
  if (mayEdit()) choose("EDIT", pattern_.edit);
}

void EntryScreen::viewKey() {
  if (mode.empty()) view();
}

void EntryScreen::giveUp() {
  if (!entering() || mayDiscard()) cancel();
}

std::string EntryScreen::atStake() const {
  const std::string code = loaded_.empty() ? trimmed(pattern_.key) : loaded_, name = trimmed(pattern_.name);
  return code + (code.empty() || name.empty() ? "" : "  ") + (sameText(code, name) ? "" : name);
}

void EntryScreen::cancel() {
  begin("", pattern_.idle);
  focusUnchecked(at("cmdAdd"));
}

void EntryScreen::clearFields() {
  for (const auto& c : controls)
    if (c->editable()) set(*c, "");
  if (Control* user = find("usrlbl")) set(*user, "");
  emptied();
}

// A field whose table row is off stays off in every mode.
void EntryScreen::enableFields() {
  for (const auto& c : controls) {
    if (!c->editable()) continue;
    const bool open = mode == "ADD" || mode == "EDIT" || (!mode.empty() && c->spec->field == pattern_.key);
    c->enabled = open && c->spec->enabled;
  }
}

void EntryScreen::showButtons() {
  for (const char* name : {"cmdAdd", "cmdEdit", "cmdDelete", "cmdClose"}) at(name).visible = mode.empty();
  for (const char* name : {"cmdUpdate", "cmdCancel"}) at(name).visible = !mode.empty();
  at("cmdUpdate").enabled = entering();
}

// The list of names in use

void EntryScreen::showNames(const std::string& typed) {
  Select select = pattern_.names;
  if (!trim(typed).empty())
    select = filtered(select, likeText(select.columns.back().expression), {anywhere(typed)});
  Grid& grid = at(pattern_.namesGrid).grid;
  grid.source = std::make_shared<PageRows>(database(), select);
  grid.current = Grid::kNone;
}

// The key field

Go EntryScreen::keyEntered() {
  if (mode == "ADD") return keyIsFree();
  if (code().empty()) return lookUp(host, *this, at(pattern_.key), codeLookup());
  return keyIsChosen();
}

Go EntryScreen::keyLeft() {
  if (mode.empty()) return Go::On;
  if (code().empty()) return refuse(blankCodeWords());
  return mode == "ADD" ? keyIsFree() : keyIsChosen();
}

Go EntryScreen::keyIsFree() {
  if (code().empty()) return refuse(blankCodeWords());
  return exists(code()) ? refuse(existingCodeWords()) : Go::On;
}

// A row that is shown already is not read again, so that what was changed in it stays.
Go EntryScreen::keyIsChosen() {
  const std::string typed = code();
  const bool shown = !loaded_.empty() && (sameText(loaded_, typed) || (mode == "EDIT" && keyMayChange()));
  if (!shown) {
    // What was changed in the row before is not lost by a code typed over its own.
    if (entering() && exists(typed) && !mayDiscard()) {
      if (!loaded_.empty()) put(pattern_.key, loaded_);
      return Go::Stay;
    }
    if (!takeInHand(typed)) return Go::Stay;
    if (!load(typed)) {
      loaded_.clear();
      hand_.letGo();
      return refuse(missingCodeWords());
    }
    loaded_ = code();
    asLoaded_ = standing(loaded_);
    takeAsShown(pattern_.key);
  }
  if (mode != "DEL") return Go::On;
  removeShown();
  return Go::Stay;
}

// Where somebody else has it in hand for a change it may be looked at.
bool EntryScreen::takeInHand(const std::string& code) {
  const bool shared = &database() == session().cndata.get() && (mode == "EDIT" || mode == "DEL");
  const std::string elsewhere = shared && exists(code) ? hand_.take(pattern_.what, upper(code)) : "";
  if (elsewhere.empty()) return true;
  if (mode == "DEL") {
    say(elsewhere);
  } else if (host.ask(lookQuestion(elsewhere))) {
    view();
    put(pattern_.key, code);
    keyIsChosen();
    reason = elsewhere;
  } else {
    edit();
  }
  return false;
}

void EntryScreen::removeShown() {
  if (host.ask(deleteQuestion(pattern_.deleteQuestion, atStake())) && mayDelete(loaded_))
    inTransaction(&EntryScreen::eraseLoaded);
  cancel();
}

// Nobody else can begin to use the row between the look and its going.
bool EntryScreen::eraseLoaded() {
  if (stays(refusal(loaded_))) return false;
  erase(loaded_);
  return true;
}

bool EntryScreen::stays(std::optional<Refusal> why) {
  refused_ = std::move(why);
  return refused_.has_value();
}

// Saving

void EntryScreen::update() {
  if (!entering()) return;
  reason.clear();
  if (Control* missing = missingField()) {
    if (!missing->label.empty()) reason = words("{field} Is Missing", "field", trim(words(missing->label)));
    // The focus stays in its field; from the button it goes to where it is needed.
    if (focused() == &at("cmdUpdate")) focus(*missing);
    return say("Pl. fill Complete data");
  }
  // A code that the system gave is given anew inside of the save.
  const std::string given = code();
  if (mode == "ADD" && at(pattern_.key).enabled && exists(given)) return say(existingCodeWords());
  // The code was changed after its row was shown: that row is read before anything is written.
  if (mode == "EDIT" && (loaded_.empty() || (!sameText(loaded_, code()) && !keyMayChange()))) {
    keyIsChosen();
    return;
  }
  const Control& key = at(pattern_.key);
  if (key.limit > 0 && length(code()) > key.limit) {
    say(words("Entry Not Saved\r\n{field} Takes {count} Characters", "field", trim(words(key.label)), "count",
              std::to_string(key.limit)));
    return;
  }
  if (figureTooLarge() || !maySave() || !inTransaction(&EntryScreen::storeUnchanged)) return;

  const std::string stored = code();
  if (mode == "ADD" && stored != given)
    say(words(existingCodeWords()) + "\n" + words("This One Is {next} Now", "next", stored));
  saved(stored);
  if (!caller_.empty()) {
    result = stored;
    done_ = true;
    host.close(*this);
    return;
  }
  add();
}

bool EntryScreen::figureTooLarge() {
  for (const auto& c : controls) {
    if (!c->ofFigures() || !figureRefused(c->text)) continue;
    say(kFigureRefused);
    if (c->focusable()) focus(*c);
    return true;
  }
  return false;
}

bool EntryScreen::storeUnchanged() {
  if (mode != "ADD") return standing(loaded_) == asLoaded_ && store();
  if (exists(code()) && !at(pattern_.key).enabled) put(pattern_.key, nextCode());
  return !exists(code()) && store();
}

void EntryScreen::tellWhyNot() {
  if (refused_) return host.message(refused_->words, refused_->title);
  if (mode == "ADD") return say(existingCodeWords());
  if (!exists(loaded_)) return say(words("Entry Not Saved\r\n{why}", "why", words(missingCodeWords())));
  if (!unsaved())
    say("This Entry Has Been Changed Meanwhile\nNothing Was Stored, It Is Shown As It Stands Now");
  else if (!host.ask(
               {.text = english("This Entry Has Been Changed Meanwhile\nNothing Was Stored\nShow It As It "
                                "Stands Now ?"),
                .title = kQuestionTitle,
                .yes = english("&Show It"),
                .no = english("&Keep Typing"),
                .facts = atStake(),
                .loses = true}))
    return;
  load(loaded_);
  asLoaded_ = standing(loaded_);
  takeAsShown(pattern_.key);
}

// Locks, full disks and the like are told by the desk in the store's own words.
bool EntryScreen::inTransaction(bool (EntryScreen::*work)()) {
  bool done = false;
  refused_.reset();
  try {
    done = whole(database(), [&] { return (this->*work)(); });
  } catch (const DatabaseError& error) {
    if (!error.mayBePassedOver()) throw;
    logFailure(kTold, error);
    say(words("Entry Not Saved\r\n{why}", "why", words(error.what())));
    return false;
  }
  if (!done) tellWhyNot();
  return done;
}

// Fields and columns

bool EntryScreen::load(const std::string& code) {
  const auto row = storedRow(code);
  if (!row) return false;
  fill(*row);
  shown(code);
  return true;
}

std::string EntryScreen::standing(const std::string& code) {
  const auto row = storedRow(code);
  std::string all;
  for (const auto& c : controls)
    if (const std::string_view column = c->spec->column; row && !column.empty() && row->has(column))
      all += row->text(column) + "\n";
  return all;
}

void EntryScreen::fill(const Row& row) {
  for (const auto& c : controls) {
    const std::string_view column = c->spec->column;
    if (!column.empty() && !c->ofLine() && row.has(column)) set(*c, row.text(column));
  }
  Control* const user = find("usrlbl");
  if (user && row.has("USER_CD")) set(*user, row.text("USER_CD"));
  takeAsWorked(Part::Head);
}

Fields EntryScreen::sendMarks() {
  return {
      {"MOBNOCO",  session().mmobile  },
      {"DATANM",   session().mdataname},
      {"DATASENT", "N"                }
  };
}

Fields EntryScreen::stamps() const {
  const Moment now = host.now();
  Fields fields = sendMarks();
  fields.push_back({"USER_CD", session().musername});
  fields.push_back({"ENT_DT", now.date});
  fields.push_back({"ENT_TIME", formatTime(now, "HH:MM")});
  return fields;
}

// Tables of controls

std::vector<ControlSpec> entryButtons(const std::string& updateCaption) {
  const auto place = [](int col) { return Place{.group = "buttons", .col = col}; };
  // clang-format off
  return {
      {.name = "cmdUpdate", .kind = Kind::Button, .label = updateCaption, .at = place(0), .tab = 900, .visible = false, .hint = "Press Enter To Save"},
      {.name = "cmdCancel", .kind = Kind::Button, .label = "&Cancel",     .at = place(1), .tab = 901, .visible = false, .hint = "Press Enter To Cancel"},
      {.name = "cmdAdd",    .kind = Kind::Button, .label = "&Add",        .at = place(2), .tab = 902},
      {.name = "cmdEdit",   .kind = Kind::Button, .label = "&Modify",     .at = place(3), .tab = 903},
      {.name = "cmdDelete", .kind = Kind::Button, .label = "&Delete",     .at = place(4), .tab = 904},
      {.name = "cmdClose",  .kind = Kind::Button, .label = "&Close",      .at = place(5), .tab = 905},
      {.name = "Cmdvideo",  .kind = Kind::Button, .label = "&Video",      .at = {.group = "buttons", .col = 6, .right = true}},
  };
  // clang-format on
}

std::vector<ControlSpec> withButtons(std::vector<ControlSpec> controls, const std::string& updateCaption) {
  std::ranges::move(entryButtons(updateCaption), std::back_inserter(controls));
  return controls;
}

Band entryButtonBand() {
  return {.height = px(34), .groups = {{.name = "buttons", .frame = Frame::Buttons}}};
}

#include "frame/child_screen.h"

#include "base/text.h"
#include "base/words.h"
#include "frame/session.h"

void ChildScreen::opened(const Opening&) {
  session().mactiveforms += 1;
  showPicture(host, false);
  SetMenus(host, false, false);
}

void ChildScreen::closed() {
  Session& s = session();
  if (s.mactiveforms > 0) s.mactiveforms -= 1;
  if (s.mactiveforms > 0) return;
  showPicture(host, true);
  SetMenus(host, true, true);
}

void ChildScreen::focusMoved(Control& control) {
  const std::string hint = hintFor(control);
  if (!hint.empty()) ShowHint(host, hint);
}

std::string ChildScreen::hintFor(const Control& control) const {
  if (!control.hint.empty()) return control.hint;
  if (!control.editable()) return {};
  return trim(control.text).empty() ? english("Press Enter For Help") : english("Press Enter To Proceed");
}

// Fields and columns

void ChildScreen::showFields(const Row& row, Part part) {
  for (const auto& c : controls) {
    const ControlSpec& f = *c->spec;
    if (f.column.empty() || c->ofLine() != (part == Part::Line)) continue;
    if (f.holds == Holds::Figure)
      put(f.field, row.number(f.column));
    else if (f.holds == Holds::Date)
      put(f.field, row.date(f.column));
    else
      put(f.field, row.text(f.column));
  }
}

Fields ChildScreen::writtenFields(Part part) const {
  const auto valueOf = [this](const ControlSpec& f) -> Value {
    switch (f.holds) {
      case Holds::Figure:
        return value(f.field);
      case Holds::Date:
        return date(f.field);
      case Holds::Typed:
        return text(f.field);
      case Holds::Text:
        break;
    }
    return trimmed(f.field);
  };
  Fields row;
  for (const auto& c : controls)
    if (!c->spec->column.empty() && c->ofLine() == (part == Part::Line))
      row.push_back({c->spec->column, valueOf(*c->spec)});
  return row;
}

void ChildScreen::emptyFields(Part part) {
  for (const auto& c : controls)
    if (c->editable() && c->ofLine() == (part == Part::Line))
      set(*c, c->kind == Kind::Date ? kEmptyDate : std::string_view());
}

void ChildScreen::takeAsWorked(Part part) {
  for (const auto& c : controls)
    if (c->editable() && c->ofLine() == (part == Part::Line)) c->worked = c->text;
}

// Typed work

void ChildScreen::takeAsShown(FieldName key) {
  shownKey_ = key;
  shownTexts_.clear();
  for (const auto& c : controls) shownTexts_.push_back(c->text);
}

// What the program puts into fields that are off follows from those that can be typed into.
bool ChildScreen::unsaved() const {
  if (shownTexts_.size() != controls.size()) return false;
  for (size_t i = 0; i < controls.size(); ++i) {
    const Control& c = *controls[i];
    const bool key = !shownKey_.text.empty() && c.spec->field == shownKey_;
    const bool counts = c.editable() && c.focusable() && !c.locked && !c.ofLine() && !key;
    if (counts && trim(c.text) != trim(shownTexts_[i])) return true;
  }
  return false;
}

// With nothing to lose it is as quickly left as ever.
Question ChildScreen::leaveQuestion(const std::string& text) const {
  const bool loses = unsaved();
  return {.text = text,
          .title = kQuestionTitle,
          .yes = english("&Yes, Leave"),
          .no = loses ? english("&No, Keep Typing") : english("&No, Stay"),
          .facts = loses ? atStake() : "",
          .loses = loses};
}

bool ChildScreen::mayDiscard() {
  return !unsaved() || host.ask({.text = english("Throw Away What Was Typed ?"),
                                 .title = kQuestionTitle,
                                 .yes = english("&Throw Away"),
                                 .no = english("&Keep Typing"),
                                 .facts = atStake(),
                                 .loses = true});
}

void ChildScreen::closeUnasked() {
  takeAsShown();
  host.close(*this);
}

Question ChildScreen::deleteQuestion(const std::string& text, const std::string& facts) {
  return {.text = text,
          .title = kQuestionTitle,
          .yes = english("&Yes, Delete"),
          .no = english("&No, Keep"),
          .facts = facts,
          .loses = true};
}

Go ChildScreen::dateKey(const Key& key) {
  Control& box = here();
  const auto standing = parseDate(box.text);
  std::optional<Date> moved;
  switch (key.code) {
    case KeyCode::F1:
      moved = session().mstartdt;
      break;
    case KeyCode::F2:
      moved = host.today();
      break;
    case KeyCode::F3:
      moved = session().menddt;
      break;
    case KeyCode::Up:
      if (standing) moved = addDays(*standing, 1);
      break;
    case KeyCode::Down:
      if (standing) moved = addDays(*standing, -1);
      break;
    case KeyCode::PgUp:
      if (standing) moved = addMonths(*standing, 1);
      break;
    case KeyCode::PgDn:
      if (standing) moved = addMonths(*standing, -1);
      break;
    default:
      return Go::On;
  }
  if (moved) set(box, formatDate(*moved, "dd/MM/yyyy"));
  return Go::Stay;
}

Go ChildScreen::dateStands() {
  const std::string& typed = here().text;
  if (parseDate(typed) || (typed == kEmptyDate && !isHere(fields::kDate))) return Go::On;
  ShowHint(host,
           words("{date} Is No Date :: Type Another :: {hint}", "date", typed, "hint", words(here().hint)));
  here().refused = true;
  return Go::Stay;
}

std::string periodRefusal(Date date) {
  const std::string typed = formatDate(date, "dd/MMM/yyyy");
  const std::string first = formatDate(session().mstartdt, "dd/MMM/yyyy");
  const std::string last = formatDate(session().menddt, "dd/MMM/yyyy");
  if (typed >= first && typed <= last) return {};
  return words("Pl. Enter Date Between {first} and {last}", "first", first, "last", last);
}

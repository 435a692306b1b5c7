#include "platform/screen.h"

#include <algorithm>
#include <set>
#include <stdexcept>
#include <utility>

#include "base/number.h"
#include "base/text.h"
#include "platform/utf8.h"

namespace {

void requireOneOfEach(const ScreenSpec& spec) {
  std::set<std::string_view> names;
  for (const ControlSpec& row : spec.controls)
    if (!row.field.text.empty() && !names.insert(row.field.text).second)
      throw std::logic_error(spec.name + " has two fields " + std::string(row.field.text));
}

std::unique_ptr<Control> made(const ControlSpec& s) {
  auto c = std::make_unique<Control>();
  c->family = s.name;
  c->index = s.index;
  c->kind = s.kind;
  c->label = s.label;
  if (s.kind == Kind::Button || s.kind == Kind::Label || s.kind == Kind::Check) c->text = s.label;
  if (s.kind == Kind::Date) c->text = kEmptyDate;
  c->enabled = s.enabled;
  c->visible = s.visible;
  c->locked = s.locked;
  c->limit = s.limit;
  c->keys = s.keys;
  c->tab = s.tab;
  c->align = s.align;
  c->money = s.money;
  c->selectAll = s.selectAll || s.kind == Kind::Date;
  c->style = s.style;
  c->hint = s.hint;
  c->grid.columns = s.columns;
  c->spec = &s;
  return c;
}

}  // namespace

Screen::Screen(Host& theHost, const ScreenSpec& theSpec)
    : spec(theSpec), caption(theSpec.caption), host(theHost) {
  requireOneOfEach(spec);
  for (const ControlSpec& row : spec.controls) {
    controls.push_back(made(row));
    if (row.tab > 0) walk_.push_back(controls.back().get());
  }
  std::ranges::stable_sort(walk_, {}, &Control::tab);
}

Screen::~Screen() = default;

const Control& Screen::at(std::string_view family, int index) const {
  for (const auto& c : controls)
    if (c->index == index && sameText(c->family, family)) return *c;
  throw std::out_of_range(spec.name + " has no control " + std::string(family) + "(" + std::to_string(index) +
                          ")");
}

Control& Screen::at(std::string_view family, int index) {
  return const_cast<Control&>(std::as_const(*this).at(family, index));
}

const Control& Screen::at(FieldName field) const {
  for (const auto& c : controls)
    if (c->spec->field == field) return *c;
  throw std::out_of_range(spec.name + " has no field " + std::string(field.text));
}

Control& Screen::at(FieldName field) { return const_cast<Control&>(std::as_const(*this).at(field)); }

Control* Screen::find(std::string_view name) {
  int index = -1;
  std::string_view family = name;
  const size_t open = name.find('(');
  if (open != std::string_view::npos) {
    const std::string digits(name.substr(open + 1, name.find(')') - open - 1));
    if (digits.empty() || !std::ranges::all_of(digits, [](unsigned char ch) { return std::isdigit(ch); }))
      return nullptr;
    index = std::stoi(digits);
    family = name.substr(0, open);
  }
  for (const auto& c : controls)
    if (c->index == index && sameText(c->family, family)) return c.get();
  for (const auto& c : controls)
    if (!name.empty() && (sameText(c->spec->field.text, name) || sameText(c->spec->also.text, name)))
      return c.get();
  return nullptr;
}

std::string Screen::trimmed(FieldName field) const { return trim(text(field)); }

double Screen::value(FieldName field) const { return Val(text(field)); }

std::optional<Date> Screen::date(FieldName field) const { return parseDate(text(field)); }

void Screen::put(FieldName field, double figure) { put(field, numText(figure)); }

void Screen::put(FieldName field, std::optional<Date> date) {
  put(field, date ? formatDate(*date, "dd/MM/yyyy") : std::string(kEmptyDate));
}

bool Screen::unworked(const Control& control) const {
  if (!control.editable() || !control.focusable() || control.text == kEmptyDate ||
      trim(control.text).empty() || control.worked == control.text)
    return false;
  const Bound* const enter = rule(&control, KeyCode::Enter);
  return enter && !enter->control.empty();
}

bool Screen::work(Control& control) {
  if (!unworked(control)) return true;
  // What the handler finds and leaves of the running event, brought back also when it raises.
  struct Restored {
    Screen& s;
    Control *here, *focus, *enter;
    bool leaving;
    ~Restored() {
      s.here_ = here, s.pendingFocus_ = focus, s.pendingEnter_ = enter;
      s.leaving_ = leaving;
    }
  } const restored{*this, std::exchange(here_, &control), std::exchange(pendingFocus_, nullptr),
                   std::exchange(pendingEnter_, nullptr), std::exchange(leaving_, true)};
  if (rule(&control, KeyCode::Enter)->run() == Go::Stay && !pendingFocus_) return false;
  control.worked = control.text;
  return true;
}

void Screen::set(Control& control, std::string_view text) {
  control.text = text;
  control.given = true;
  if (text.empty() || text == kEmptyDate) control.worked.reset();
  control.caret = control.anchor = utf8::length(text);
}

const Screen::Bound* Screen::rule(const Control* control, const Trigger& trigger) const {
  const Bound* best = nullptr;
  size_t bestRank = 0;
  for (const Bound& b : bound_) {
    if (b.trigger.on != trigger.on || (!trigger.on && !(b.trigger.key == trigger.key))) continue;
    size_t rank = 0;
    if (b.control.empty() && !trigger.on)
      rank = 1;
    else if (control && sameText(b.control, control->family))
      rank = control->index < 0 ? 3 : 2;
    else if (control && control->index >= 0 && sameText(b.control, control->fullName()))
      rank = 3;
    if (rank > bestRank) best = &b, bestRank = rank;
  }
  return best;
}

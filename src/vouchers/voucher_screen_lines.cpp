#include <algorithm>

#include "base/figure.h"
#include "base/number.h"
#include "base/text.h"
#include "frame/session.h"
#include "vouchers/items.h"
#include "vouchers/voucher_screen.h"

// The lines: the one being typed, from its item to the work table, and the walk through the others.

using namespace fields;

namespace {

constexpr const char* kNoMoreLines = "00";
const Question kOddQuantity{
    .text = english("The Quantity Is Not Above 0\nIs It Meant So ?"),
    .title = kConfirm,
    .yes = english("&Yes, Take It"),
    .no = english("&No, Change It"),
    .loses = true,
};

}  // namespace

void VoucherScreen::showSerial() { at(kLineNumber).text = atRest_ ? "" : numText(lines_->serial()); }

void VoucherScreen::clearLine() {
  emptyFields(Part::Line);
  if (Control* const name = find(kItemName.text)) name->enabled = false;
  figuredFor_.clear();
  lineItem_.clear();
  fromUnit_ = 0;
  rateTyped_ = false;
}

void VoucherScreen::showLine(const Row& line) {
  showFields(line, Part::Line);
  if (Control* const name = find(kItemName.text)) name->enabled = entering() && isMisc();
}

Fields VoucherScreen::lineFields() {
  const Session& s = session();
  Fields line = writtenFields(Part::Line);
  // clang-format off
  for (Field& f : Fields{
      {"VOUCH_NO",      value(kNumber)},
      {"VOUCH_DT",      date(kDate)},
      {kind_.tables.key, kind_.code},
      {kind_.tables.serial,    lines_->serial()},
      {"DEPT_CD",       "E001"},
      {"MOBNOCO",       s.mmobile},
      {"DATANM",        s.mdataname},
      {"DATASENT",      "N"},
  }) line.push_back(std::move(f));
  // clang-format on
  return line;
}

void VoucherScreen::showCurrentLine() {
  clearLine();
  if (lines_->onRow()) {
    showLine(lines_->row());
    takeAsWorked(Part::Line);
    lineIsFigured();
    lineItem_ = trimmed(lineKey());
    if (find(kUnit.text))
      fromUnit_ = readUnit(data(), kind_, lineItem_, trimmed(kUnit)).value_or(UnitRates{}).rate;
  }
  shownLine_ = lineTexts();
  at(kLines).grid.current = lines_->position();
  showSerial();
}

std::vector<double> VoucherScreen::inputs() const {
  std::vector<double> figures;
  for (const FieldName input : lineInputs()) figures.push_back(value(input));
  return figures;
}

void VoucherScreen::inputIsFigured(FieldName input) {
  const std::vector<FieldName> all = lineInputs();
  const auto at = std::ranges::find(all, input) - all.begin();
  if (!figuredFor_.empty()) figuredFor_[static_cast<size_t>(at)] = value(input);
}

std::string VoucherScreen::lineTexts() const {
  std::string texts;
  for (const auto& c : controls)
    if (c->editable() && c->ofLine()) texts += c->text + '\n';
  return texts;
}

// A unit that the item brought counts though it was passed over.
bool VoucherScreen::quantityStands() {
  return work(at(kUnit)) && (value(kQuantity) > 0 || host.ask(kOddQuantity));
}

// Says so of the first figure that no bill holds, in the field if one can stand there.
bool VoucherScreen::tooLarge(Part part) {
  for (const auto& c : controls) {
    const bool counts = c->ofLine() == (part == Part::Line) && c->spec->holds == Holds::Figure;
    if (!counts || !figureRefused(c->text)) continue;
    host.message(kFigureRefused, kCheck);
    if (c->focusable()) focus(*c);
    return true;
  }
  return false;
}

// A net amount typed by hand stands for what the line holds now; the rest is worked out for it first.
bool VoucherScreen::figureAmount() {
  if (lineFigured()) return true;
  const Control& net = at(kAmount);
  const bool typed = !net.given && !trim(net.text).empty() && net.worked != net.text;
  const std::string byHand = net.text;
  if (!figureLine()) return false;
  if (typed) put(kAmount, byHand);
  return true;
}

// Left for another field it is only brought up to date.
Go VoucherScreen::amount() {
  if (!entering()) return Go::On;
  const bool complete = !trimmed(kItem).empty() && (!needsUnit() || !trimmed(kUnit).empty());
  if (leaving()) return !complete || figureAmount() ? Go::On : Go::Stay;
  if (!complete) {
    focus(at(kItem));
    return Go::Stay;
  }
  if (lacksName()) return Go::Stay;
  const Control& quantity = at(kQuantity);
  if (quantity.worked != quantity.text && !quantityStands()) {
    focus(at(kQuantity));
    return Go::Stay;
  }
  if (!figureAmount() || tooLarge(Part::Line)) return Go::Stay;
  session().mlastitem = trimmed(kItem);
  storeLine();
  return Go::Stay;
}

// An empty line is walked through by Tab.
Go VoucherScreen::lineTab() {
  const std::string item = trimmed(lineKey());
  if (!entering() || (isHere(lineKey()) ? item != kNoMoreLines : item.empty())) return Go::On;
  enterAgain(here());
  return Go::Stay;
}

Go VoucherScreen::lastTab() {
  if (!entering()) return Go::On;
  enterAgain(here());
  return Go::Stay;
}

// Until all is done it is the line of its row, so that one whose sums a lost server kept back is not stored
// twice.
void VoucherScreen::storeLine() {
  lines_->store(lineFields());
  at(kLines).visible = true;
  sumLines();
  lines_->next();
  showCurrentLine();
  focus(at(lineStart()));
}

// What another line would take the place of is given up only when that is meant.
bool VoucherScreen::mayLeaveLine() {
  return !entering() || lineStands() ||
         host.ask({.text = english("The Line Being Typed Is Not Stored\nGive It Up ?"),
                   .title = kConfirm,
                   .yes = english("&Give It Up"),
                   .no = english("&Keep Typing"),
                   .facts = trimmed(lineName()),
                   .loses = true});
}

void VoucherScreen::lineDown() {
  if (!mayLeaveLine()) return;
  lines_->next();
  showCurrentLine();
  toLineStart();
}

void VoucherScreen::lineUp() {
  if (!mayLeaveLine()) return;
  lines_->previous();
  showCurrentLine();
  toLineStart();
}

// The walk through the lines stays in the field in which a line begins, which is not the same in all.
void VoucherScreen::toLineStart() {
  Control& start = at(lineStart());
  if (&start == &here())
    textChanged();
  else
    focus(start);
}

void VoucherScreen::endLines() { focus(at(afterLines())); }

bool VoucherScreen::itemChanged() const { return !sameText(trimmed(kItem), lineItem_); }

std::string VoucherScreen::unitOf(const std::string& item, const std::string& first) {
  const std::string chosen = std::exchange(chosenUnit_, {});
  const std::string stands = itemChanged() ? std::string() : trimmed(kUnit);
  lineItem_ = item;
  if (!chosen.empty()) return chosen;
  return !stands.empty() && (isMisc() || readUnit(data(), kind_, item, stands)) ? stands : first;
}

void VoucherScreen::takeFromUnit(const UnitRates& rates) {
  const double before = std::exchange(fromUnit_, rates.rate), stands = value(kRate);
  if (rates.rate > 0 && (stands == 0 || (stands == before && !rateTyped_ && !isMisc())))
    put(kRate, rates.rate);
  if (rates.discount > 0 && find(kDiscount.text) && value(kDiscount) == 0) put(kDiscount, rates.discount);
}

bool VoucherScreen::lacksName() {
  if (!isMisc() || !trimmed(kItemName).empty()) return false;
  host.message("Type The Name Of What Is Sold", kCheck);
  focus(at(kItemName));
  return true;
}

bool VoucherScreen::isMisc() { return sameText(trimmed(kItem), kMiscItem); }

bool VoucherScreen::endsLines() {
  if (trimmed(kItem) != kNoMoreLines) return false;
  put(kItem, "");
  endLines();
  return true;
}

void VoucherScreen::keepFreeName() {
  const std::string name = trimmed(kItemName);
  if (!isMisc() || name.empty() || !trimmed(kDetail).empty()) return;
  const auto misc = readSaleItem(data(), kMiscItem);
  if (!misc || misc->name != name) put(kDetail, cut(name, at(kDetail).limit));
}

// Only while its item still stands in the field: one typed over it is not dropped. The serials of the lines
// that remain do not close up, and the totals wait for the next line that is stored, or for Save.
void VoucherScreen::deleteLine() {
  const std::string item = trimmed(lineKey()), column(at(lineKey()).spec->column);
  if (item.empty() || !lines_->onRow() || !sameText(item, lines_->row().text(column))) return;
  const Row& line = lines_->row();
  // A line that is typed later may have its serial.
  for (auto& [source, taken] : taken_) std::erase(taken.serials, line.number(kind_.tables.serial));
  data().exec("DELETE FROM " + kind_.tables.work + " WHERE VOUCH_NO = ? AND " + column + " = ? AND " +
                  kind_.tables.serial + " = ?",
              line.number("VOUCH_NO"), item, line.number(kind_.tables.serial));
  lines_->requery();
  showCurrentLine();
  textChanged();
}

void VoucherScreen::rowChosen() {
  Grid& list = at(kLines).grid;
  if (mayLeaveLine()) {
    lines_->moveTo(list.current);
    showCurrentLine();
  } else {
    list.current = lines_->position();
    focus(at(lineStart()));
  }
}

// The list is entered; a line that is being typed waits until another is chosen.
void VoucherScreen::intoRows() {
  if (entering() && !lineStands())
    at(kLines).grid.current = lines_->position();
  else
    rowChosen();
}

void VoucherScreen::leaveRows() { focus(at(lineStart())); }

#include "platform/workbook/workbook.h"

#include <algorithm>
#include <cmath>

#include "base/text.h"
#include "base/words.h"
#include "platform/workbook/evaluate.h"
#include "platform/workbook/model.h"

namespace workbook {
namespace {

constexpr int kMaxCharacters = 32767;

SheetModel& at(Model& model, size_t index) { return model.sheets[index]; }

}  // namespace

Value Value::date(std::chrono::year_month_day day) { return serialOf(day); }

const std::string& Sheet::name() const { return at(*model_, index_).name; }

// Takes the formula out of a cell that gets another content.
static void drop(Model& model, SheetModel& sheet, Cell& cell) {
  if (cell.formula >= 0) {
    model.formulas[static_cast<size_t>(cell.formula)].live = false;
    sheet.formulaLost = true;
    cell.formula = -1;
  }
  cell.value = {};
  cell.rich = -1;
  cell.changed = true;
}

void Sheet::clearContents() {
  SheetModel& sheet = at(*model_, index_);
  for (auto& [number, row] : sheet.rows)
    for (Cell& cell : row.cells) drop(*model_, sheet, cell);
  model_->stale = true;
}

void Sheet::set(int row, int column, const Value& value) {
  if (row < 1 || row > kMaxRow || column < 1 || column > kMaxColumn)
    throw WorkbookError(words("Row {row}, column {column} is outside the sheet {sheet}.", "row",
                              std::to_string(row), "column", std::to_string(column), "sheet", name()));
  SheetModel& sheet = at(*model_, index_);
  const uint32_t style = sheet.styleAt(row, column);
  Cell& cell = sheet.rows[row].at(column);
  drop(*model_, sheet, cell);
  cell.style = style;
  cell.value = value;
  if (const std::string* text = value.text(); text && text->size() > kMaxCharacters)
    cell.value = cut(*text, kMaxCharacters);
  if (const double* number = value.number(); number && !std::isfinite(*number)) cell.value = Error::Number;
  model_->stale = true;
}

Value Sheet::value(int row, int column) const {
  return Evaluator(*model_).value(static_cast<int>(index_), row, column);
}

std::string Sheet::shown(int row, int column) const {
  const Value value = this->value(row, column);
  const Styles& styles = model_->styles;
  return styles.format(styles.style(at(*model_, index_).styleAt(row, column))).show(value).text;
}

void Sheet::hideRows(int first, int last) {
  SheetModel& sheet = at(*model_, index_);
  // Rows behind what is used and printed need no mark.
  int end = sheet.rows.empty() ? 0 : sheet.rows.rbegin()->first;
  for (const CellBlock& area : sheet.printAreas)
    if (area.lastRow < kMaxRow) end = std::max(end, area.lastRow);
  for (int number = std::max(first, 1); number <= std::min(last, end); ++number) {
    Row& row = sheet.rows[number];
    row.hiddenChanged = row.hiddenChanged || !row.hidden;
    row.hidden = true;
  }
}

void Sheet::resetPageBreaks() {
  SheetModel& sheet = at(*model_, index_);
  sheet.breaksReset = sheet.breaksReset || !sheet.rowBreaks.empty() || !sheet.columnBreaks.empty();
  sheet.rowBreaks.clear();
  sheet.columnBreaks.clear();
}

Workbook::Workbook(std::unique_ptr<Model> model) : model_(std::move(model)) {
  for (size_t i = 0; i < model_->sheets.size(); ++i) sheets_.emplace_back(*model_, i);
}

Workbook::Workbook(Workbook&&) noexcept = default;
Workbook& Workbook::operator=(Workbook&&) noexcept = default;
Workbook::~Workbook() = default;

Workbook Workbook::load(const std::string& path) { return Workbook(loadModel(Container::open(path))); }

Workbook Workbook::fromBytes(std::string bytes) {
  return Workbook(loadModel(Container::fromBytes(std::move(bytes))));
}

std::vector<std::string> Workbook::sheetNames() const {
  std::vector<std::string> names;
  for (const SheetModel& sheet : model_->sheets) names.push_back(sheet.name);
  return names;
}

bool Workbook::hasSheet(std::string_view name) const { return model_->sheet(name) >= 0; }

Sheet& Workbook::sheet(std::string_view name) {
  const int index = model_->sheet(name);
  if (index < 0) model_->container.refuse(words("has no sheet {sheet}.", "sheet", name));
  return sheets_[static_cast<size_t>(index)];
}

void Workbook::setNow(double serial) {
  model_->now = serial;
  model_->stale = true;
}

void Workbook::recalculate() { Evaluator(*model_).all(); }

void Workbook::save(const std::string& path) { saveModel(*model_, path); }

const std::vector<std::string>& Workbook::warnings() const { return model_->warnings; }

}  // namespace workbook

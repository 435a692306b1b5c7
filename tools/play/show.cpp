#include <iostream>

#include "base/text.h"
#include "base/words.h"
#include "platform/shown.h"
#include "player.h"

namespace {

void printGrid(const Control& c) {
  std::cout << "  " << c.fullName() << ": " << c.grid.count() << " rows";
  if (c.grid.current != Grid::kNone) std::cout << ", cursor on " << c.grid.current;
  std::cout << "\n";
  std::vector<std::string> titles;
  for (const GridColumn& column : c.grid.columns) titles.push_back(words(column.title));
  std::cout << "    | " << join(titles, " | ") << "\n";
  constexpr size_t kMost = 30;
  for (size_t row = 0; row < c.grid.count() && row < kMost; ++row) {
    std::vector<std::string> cells;
    for (size_t column = 0; column < c.grid.columns.size(); ++column)
      cells.push_back(c.grid.cell(row, column).text);
    std::cout << "    " << (row == c.grid.current ? "> " : "| ") << join(cells, " | ") << "\n";
  }
  if (c.grid.count() > kMost) std::cout << "    ...\n";
  if (c.grid.count() == 0)
    for (const std::string& line : c.grid.instead) std::cout << "    " << line << "\n";
}

}  // namespace

void printScreen(const Desk& desk, const Screen& screen) {
  std::cout << screen.spec.name << " \"" << words(screen.caption) << "\"";
  if (!screen.mode.empty()) std::cout << " mode " << screen.mode;
  std::cout << "\n";
  for (const auto& c : screen.controls) {
    if (!c->visible) continue;
    if (c->kind == Kind::Grid) {
      printGrid(*c);
      continue;
    }
    std::cout << (c.get() == screen.focused() ? "* " : "  ") << c->fullName();
    if (!c->spec->field.text.empty()) std::cout << " " << c->spec->field.text;
    if (c->editable() && !c->label.empty()) std::cout << " (" << words(c->label) << ")";
    std::cout << ": \"" << replaceAll(shownText(*c), "\n", "\\n") << "\"";
    if (!c->enabled) std::cout << " off";
    if (c->locked) std::cout << " locked";
    std::cout << "\n";
  }
  std::cout << "  hint: " << desk.hint() << "\n";
}

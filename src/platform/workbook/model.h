#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/workbook/container.h"
#include "platform/workbook/formula.h"
#include "platform/workbook/styles.h"
#include "platform/workbook/workbook.h"

// The workbook in memory: what the file said, and what was changed since.
namespace workbook {

struct Cell {
  int column = 0;
  uint32_t style = 0;
  int formula = -1;      // place in Model::formulas
  int rich = -1;         // place in Model::richTexts
  bool changed = false;  // the content differs from the file's
  Value value{};
};

struct Row {
  std::vector<Cell> cells;  // by column
  std::optional<double> height;
  std::optional<uint32_t> style;
  bool hidden = false;
  bool hiddenChanged = false;

  const Cell* find(int column) const;
  Cell* find(int column) { return const_cast<Cell*>(std::as_const(*this).find(column)); }
  Cell& at(int column);
};

struct ColumnSpan {
  int first = 1, last = 1;
  double width = 0;  // in characters
  bool hidden = false;
  std::optional<uint32_t> style{};
};

struct CellBlock {
  int firstRow = 1, firstColumn = 1, lastRow = 1, lastColumn = 1;
};

struct PageSetup {
  double width = 595.276, height = 841.89;  // A4
  double left = 50.4, right = 50.4, top = 54, bottom = 54, header = 21.6, footer = 21.6;
  double scale = 1;
  bool fit = false;
  int fitWidth = 1, fitHeight = 1;  // pages; 0: as many as needed
  bool centreAcross = false, centreDown = false, gridLines = false, overThenDown = false;
  std::optional<int> firstPage;
  std::string oddHeader, oddFooter, evenHeader, evenFooter, firstHeader, firstFooter;
  bool differentOddEven = false, differentFirst = false;
};

// How the pieces of a text look that does not look alike throughout.
using RichText = std::vector<paint::Text::Run>;

// A text with its look, when it has one of its own.
struct StyledText {
  std::string text;
  RichText runs;
};

// A picture between two corners; without the second its size is given.
struct Anchor {
  int row = 0, column = 0;  // 0: measured from the sheet's corner
  double x = 0, y = 0;
};

struct Picture {
  Anchor from;
  std::optional<Anchor> to;
  double width = 0, height = 0;
  std::shared_ptr<const std::string> bytes;
  paint::Rect shown{0, 0, 1, 1};  // what is left when it was cropped
};

struct SheetModel {
  std::string name, part;
  std::map<int, Row> rows;
  std::vector<ColumnSpan> columns;
  double defaultHeight = 15, defaultWidth = 9.140625;  // points, characters
  bool defaultHidden = false;
  std::vector<CellBlock> merges;
  std::vector<int> rowBreaks, columnBreaks;  // the page ends behind this row or column
  PageSetup page;
  std::vector<Picture> pictures;
  std::vector<CellBlock> printAreas;
  std::optional<CellBlock> titleRows, titleColumns;

  bool cleared = false, breaksReset = false, formulaLost = false;

  const Cell* cell(int row, int column) const;
  Cell* cell(int row, int column);
  // Of the row or column where the cell itself has none.
  uint32_t styleAt(int row, int column) const;
  const ColumnSpan* span(int column) const;
};

struct FormulaCell {
  enum class State { Stored, Stale, Running, Waiting, Done };
  int sheet = 0, row = 0, column = 0;
  // An array formula fills a block: the place of this cell in it, counted from 0.
  bool array = false;
  int arrayRow = 0, arrayColumn = 0;
  std::shared_ptr<const Expression> expression;  // none: passed over, the stored value counts
  State state = State::Stored;
  bool circular = false;
  bool live = true;  // false when something else was put into the cell
  Value stored;      // what the file has
};

struct DefinedName {
  std::string name;
  int sheet = -1;  // -1: known in all sheets
  std::string text;
  std::shared_ptr<const Expression> expression;  // made at the first use
};

struct Model : Names {
  explicit Model(Container source) : container(std::move(source)) {}

  Container container;
  std::string workbookPart, calculationChain;
  Styles styles;
  std::vector<SheetModel> sheets;
  std::vector<FormulaCell> formulas;
  std::vector<RichText> richTexts;
  std::vector<DefinedName> names;
  std::optional<double> now;
  bool stale = false;  // something was set since the formulas were calculated
  std::vector<std::string> loadWarnings, warnings;

  int sheet(std::string_view name) const override;
  double nowSerial() const;
  std::string place(int sheet, int row, int column) const;  // "BILL!C14"
};

// load.cpp
std::unique_ptr<Model> loadModel(Container container);
// load_sheet.cpp
void loadSheet(Model& model, int sheet, const std::vector<StyledText>& sharedTexts);
// load_pictures.cpp
void loadPictures(Model& model, SheetModel& sheet, const std::string& part);
// The text of <si> or <is>, phonetic marks left out.
StyledText styledText(const Styles& styles, xml::Node node);
// save.cpp
void saveModel(Model& model, const std::string& path);

}  // namespace workbook

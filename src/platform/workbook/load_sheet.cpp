#include <algorithm>
#include <charconv>
#include <cmath>

#include "base/date.h"
#include "base/text.h"
#include "base/words.h"
#include "platform/utf8.h"
#include "platform/workbook/decimal.h"
#include "platform/workbook/model.h"
#include "platform/workbook/xml.h"

// One sheet: its cells, sizes and print setup.
namespace workbook {
namespace {

using xml::Node;

constexpr size_t kMaxCells = 1000000, kMaxMerges = 50000;
constexpr double kMaxArray = 10000;
constexpr int kMaxText = 32767, kMaxHeader = 512;

struct Paper {
  int number;
  double width, height;  // points
};
constexpr double mm(double x) { return x * 72 / 25.4; }
constexpr double inch(double x) { return x * 72; }
// clang-format off
constexpr Paper kPapers[] = {
  {2, inch(8.5), inch(11)}, {6, inch(5.5), inch(8.5)}, {39, inch(14.875), inch(11)}, {40, inch(8.5), inch(12)},
  {1, inch(8.5), inch(11)}, {3, inch(11), inch(17)},  {4, inch(17), inch(11)},  {5, inch(8.5), inch(14)},
  {7, inch(7.25), inch(10.5)}, {8, mm(297), mm(420)}, {9, mm(210), mm(297)},    {11, mm(148), mm(210)},
  {12, mm(257), mm(364)},   {13, mm(182), mm(257)},   {14, inch(8.5), inch(13)}, {20, inch(4.125), inch(9.5)},
  {27, mm(110), mm(220)},   {28, mm(162), mm(229)},   {41, inch(8.5), inch(13)}, {43, mm(100), mm(148)},
  {66, mm(420), mm(594)},   {70, mm(105), mm(148)},
};
// clang-format on

// "_x000D_" stands for a character that XML cannot hold.
std::string unescaped(std::string text) {
  for (size_t at = text.find("_x"); at != std::string::npos; at = text.find("_x", at + 1)) {
    uint32_t number = 0;
    const char* start = text.data() + at + 2;
    if (at + 7 > text.size() || text[at + 6] != '_') continue;
    const auto [end, error] = std::from_chars(start, start + 4, number, 16);
    if (error == std::errc() && end == start + 4 && number < 0xD800)
      text.replace(at, 7, utf8::encode(static_cast<char32_t>(number)));
  }
  return text;
}

Error errorOf(std::string_view text) {
  for (const Error error : {Error::Null, Error::DivisionByZero, Error::Value, Error::Reference, Error::Name,
                            Error::Number, Error::NotAvailable})
    if (text == errorText(error)) return error;
  return Error::Value;
}

bool blockIn(std::string_view text, CellBlock& block) {
  const size_t colon = text.find(':');
  if (!parseCell(text.substr(0, colon), block.firstRow, block.firstColumn)) return false;
  block.lastRow = block.firstRow;
  block.lastColumn = block.firstColumn;
  if (colon != std::string_view::npos && !parseCell(text.substr(colon + 1), block.lastRow, block.lastColumn))
    return false;
  return block.firstRow <= block.lastRow && block.firstColumn <= block.lastColumn;
}

class SheetReader {
 public:
  SheetReader(Model& model, int sheet, const std::vector<StyledText>& texts)
      : model_(model), sheet_(model.sheets[static_cast<size_t>(sheet)]), number_(sheet), texts_(texts) {}

  void read() {
    const xml::Document document(model_.container, sheet_.part);
    for (const Node node : document.root().children()) {
      const std::string_view name = xml::localName(node);
      if (name == "sheetPr")
        sheet_.page.fit = xml::flag(xml::child(node, "pageSetUpPr"), "fitToPage");
      else if (name == "sheetFormatPr")
        defaults(node);
      else if (name == "cols")
        columns(node);
      else if (name == "sheetData")
        cells(node);
      else if (name == "mergeCells")
        merges(node);
      else if (name == "rowBreaks")
        breaks(node, sheet_.rowBreaks);
      else if (name == "colBreaks")
        breaks(node, sheet_.columnBreaks);
      else
        print(name, node);
    }
    spreadArrays();
  }

 private:
  void defaults(Node node) {
    sheet_.defaultHeight = std::clamp(xml::number(node, "defaultRowHeight").value_or(15), 0.0, 409.5);
    sheet_.defaultWidth = std::clamp(xml::number(node, "defaultColWidth").value_or(9.140625), 0.0, 255.0);
    sheet_.defaultHidden = xml::flag(node, "zeroHeight");
  }

  void columns(Node node) {
    for (const Node column : xml::children(node, "col")) {
      ColumnSpan span{.first = xml::whole(column, "min", 1), .last = xml::whole(column, "max", 1)};
      span.width = std::clamp(xml::number(column, "width").value_or(sheet_.defaultWidth), 0.0, 255.0);
      span.hidden = xml::flag(column, "hidden");
      if (column.attribute("style")) span.style = static_cast<uint32_t>(xml::whole(column, "style", 0));
      if (span.first >= 1 && span.first <= span.last) sheet_.columns.push_back(span);
      if (sheet_.columns.size() > kMaxColumn) model_.container.refuse("is too large.");
    }
  }

  void cells(Node data) {
    int number = 0;
    for (const Node node : data.children()) {
      if (!xml::is(node, "row")) continue;
      number = xml::whole(node, "r", number + 1);
      if (number < 1 || number > kMaxRow) model_.container.damaged();
      Row& row = sheet_.rows[number];
      row.height = xml::number(node, "ht");
      if (row.height) row.height = std::clamp(*row.height, 0.0, 409.5);
      row.hidden = xml::flag(node, "hidden", sheet_.defaultHidden && !row.height);
      if (xml::flag(node, "customFormat")) row.style = static_cast<uint32_t>(xml::whole(node, "s", 0));
      int column = 0;
      for (const Node item : node.children()) {
        if (!xml::is(item, "c")) continue;
        ++column;
        int named = number;
        const std::string_view reference = xml::text(item, "r");
        if (!reference.empty() && (!parseCell(reference, named, column) || named != number))
          model_.container.damaged();
        if (column > kMaxColumn) model_.container.damaged();
        if (++count_ > kMaxCells) model_.container.refuse("is too large.");
        cell(row.at(column), item, number);
      }
    }
  }

  void cell(Cell& cell, Node node, int row) {
    cell.style = static_cast<uint32_t>(xml::whole(node, "s", 0));
    const std::string_view type = xml::text(node, "t");
    if (type == "inlineStr") {
      put(cell, styledText(model_.styles, xml::child(node, "is")));
    } else if (const Node content = xml::child(node, "v")) {
      if (type == "s")
        put(cell, shared(content.text().get()));
      else
        cell.value = value(type, content.text().get());
    }
    if (const Node formula = xml::child(node, "f")) this->formula(cell, formula, row);
  }

  void put(Cell& cell, const StyledText& text) {
    cell.value = text.text;
    if (text.runs.empty()) return;
    cell.rich = static_cast<int>(model_.richTexts.size());
    model_.richTexts.push_back(text.runs);
  }

  const StyledText& shared(std::string_view content) const {
    size_t number = 0;
    const auto [end, error] = std::from_chars(content.data(), content.data() + content.size(), number);
    if (error != std::errc() || number >= texts_.size()) model_.container.damaged();
    return texts_[number];
  }

  Value value(std::string_view type, std::string_view content) const {
    if (type == "str") return cut(unescaped(std::string(content)), kMaxText);
    if (type == "e") return errorOf(content);
    if (type == "d") {
      const auto day = parseDate(content.substr(0, 10));
      return day ? Value(serialOf(*day)) : Value(content);
    }
    double number = 0;
    const auto [end, error] = std::from_chars(content.data(), content.data() + content.size(), number);
    if (error != std::errc() || !std::isfinite(number)) return {};
    if (type == "b") return number != 0;
    return number;
  }

  void formula(Cell& cell, Node node, int row) {
    const std::string_view type = xml::text(node, "t");
    FormulaCell formula{
        .sheet = number_, .row = row, .column = cell.column, .expression = nullptr, .stored = cell.value};
    const auto warn = [&](const std::string& text) {
      model_.loadWarnings.push_back(words("{cell}: {fault}; its stored value is kept", "cell",
                                          model_.place(number_, row, cell.column), "fault", text));
    };
    const std::string_view text = node.text().get();
    if (type == "dataTable") {
      warn(words("tables of variants are passed over"));
    } else if (type == "shared" && text.empty()) {
      const auto master = shared_.find(std::string(xml::text(node, "si")));
      if (master != shared_.end()) formula.expression = master->second;
    } else {
      try {
        formula.expression = std::make_shared<const Expression>(parseFormula(text, row, cell.column, model_));
      } catch (const FormulaError& error) {
        warn(words("the formula {fault}", "fault", words(error.what())));
      }
      if (type == "shared") shared_[std::string(xml::text(node, "si"))] = formula.expression;
    }
    CellBlock block;
    formula.array = type == "array";
    if (formula.array && formula.expression && blockIn(xml::text(node, "ref"), block))
      arrays_.emplace_back(block, formula);
    cell.formula = static_cast<int>(model_.formulas.size());
    model_.formulas.push_back(std::move(formula));
  }

  // The other cells that an array formula fills; one that holds a formula of its own keeps it.
  void spreadArrays() {
    for (const auto& [block, master] : arrays_) {
      if ((block.lastRow - block.firstRow + 1.0) * (block.lastColumn - block.firstColumn + 1.0) > kMaxArray)
        continue;
      for (int row = block.firstRow; row <= block.lastRow; ++row)
        for (int column = block.firstColumn; column <= block.lastColumn; ++column) {
          const uint32_t style = sheet_.styleAt(row, column);
          Cell& cell = sheet_.rows[row].at(column);
          if (cell.formula >= 0) continue;
          cell.style = style;
          FormulaCell part = master;
          part.row = row;
          part.column = column;
          part.arrayRow = row - master.row;
          part.arrayColumn = column - master.column;
          part.stored = cell.value;
          cell.formula = static_cast<int>(model_.formulas.size());
          model_.formulas.push_back(std::move(part));
        }
    }
  }

  void merges(Node node) {
    for (const Node merge : xml::children(node, "mergeCell")) {
      CellBlock block;
      if (blockIn(xml::text(merge, "ref"), block)) sheet_.merges.push_back(block);
      if (sheet_.merges.size() > kMaxMerges) model_.container.refuse("is too large.");
    }
  }

  static void breaks(Node node, std::vector<int>& places) {
    for (const Node item : xml::children(node, "brk"))
      if (xml::flag(item, "man")) places.push_back(xml::whole(item, "id", 0));
    std::sort(places.begin(), places.end());
  }

  void print(std::string_view name, Node node) {
    PageSetup& page = sheet_.page;
    const auto margin = [&](const char* side, double& points) {
      points = std::clamp(xml::number(node, side).value_or(points / 72), 0.0, 20.0) * 72;
    };
    if (name == "printOptions") {
      page.centreAcross = xml::flag(node, "horizontalCentered");
      page.centreDown = xml::flag(node, "verticalCentered");
      page.gridLines = xml::flag(node, "gridLines");
    } else if (name == "pageMargins") {
      margin("left", page.left);
      margin("right", page.right);
      margin("top", page.top);
      margin("bottom", page.bottom);
      margin("header", page.header);
      margin("footer", page.footer);
    } else if (name == "pageSetup") {
      const int paper = xml::whole(node, "paperSize", 9);
      for (const Paper& known : kPapers)
        if (known.number == paper) {
          page.width = known.width;
          page.height = known.height;
        }
      if (xml::text(node, "orientation") == "landscape") std::swap(page.width, page.height);
      page.scale = std::clamp(xml::whole(node, "scale", 100), 10, 400) / 100.0;
      page.fitWidth = std::clamp(xml::whole(node, "fitToWidth", 1), 0, 32767);
      page.fitHeight = std::clamp(xml::whole(node, "fitToHeight", 1), 0, 32767);
      page.overThenDown = xml::text(node, "pageOrder") == "overThenDown";
      if (xml::flag(node, "useFirstPageNumber")) page.firstPage = xml::whole(node, "firstPageNumber", 1);
    } else if (name == "headerFooter") {
      page.differentOddEven = xml::flag(node, "differentOddEven");
      page.differentFirst = xml::flag(node, "differentFirst");
      const auto text = [&](const char* child) {
        return cut(xml::child(node, child).text().get(), kMaxHeader);
      };
      page.oddHeader = text("oddHeader");
      page.oddFooter = text("oddFooter");
      page.evenHeader = text("evenHeader");
      page.evenFooter = text("evenFooter");
      page.firstHeader = text("firstHeader");
      page.firstFooter = text("firstFooter");
    } else if (name == "drawing") {
      for (const Relation& relation : model_.container.relations(sheet_.part))
        if (relation.id == xml::prefixed(node, "id")) loadPictures(model_, sheet_, relation.target);
    }
  }

  Model& model_;
  SheetModel& sheet_;
  int number_;
  const std::vector<StyledText>& texts_;
  std::map<std::string, std::shared_ptr<const Expression>> shared_;
  std::vector<std::pair<CellBlock, FormulaCell>> arrays_;
  size_t count_ = 0;
};

}  // namespace

StyledText styledText(const Styles& styles, Node node) {
  StyledText whole;
  bool plain = true;
  for (const Node part : node.children()) {
    const bool run = xml::is(part, "r");
    if (!run && !xml::is(part, "t")) continue;
    const std::string text = unescaped((run ? xml::child(part, "t") : part).text().get());
    const Node look = run ? xml::child(part, "rPr") : Node();
    plain = plain && !look;
    whole.text += text;
    whole.runs.push_back(styles.run(look, text.size()));
  }
  if (plain) whole.runs.clear();
  if (whole.text.size() > kMaxText) whole = {.text = cut(whole.text, kMaxText), .runs = {}};
  return whole;
}

void loadSheet(Model& model, int sheet, const std::vector<StyledText>& texts) {
  SheetReader(model, sheet, texts).read();
}

}  // namespace workbook

#include <algorithm>
#include <charconv>

#include "platform/workbook/decimal.h"
#include "platform/workbook/evaluate.h"
#include "platform/workbook/model.h"
#include "platform/workbook/xml.h"

// Writes what was changed into the parts it came from and leaves the rest alone.
namespace workbook {
namespace {

using xml::Node;

std::string numberText(double x) {
  char text[32];
  const auto end = std::to_chars(text, text + sizeof text, x).ptr;
  return {text, end};
}

// As XML holds it; a carriage return, which reading would turn into a line end, and what would be read
// as an escape, as "_x000D_".
std::string escaped(std::string_view given) {
  const std::string text = xml::holdable(given);
  std::string out;
  for (size_t i = 0; i < text.size(); ++i) {
    const auto c = static_cast<unsigned char>(text[i]);
    const bool looksEscaped =
        text[i] == '_' && i + 6 < text.size() && text[i + 1] == 'x' && text[i + 6] == '_';
    if (c == '\r' || looksEscaped) {
      constexpr const char* kDigits = "0123456789ABCDEF";
      out += "_x00";
      out += kDigits[c >> 4];
      out += kDigits[c & 15];
      out += '_';
    } else {
      out += text[i];
    }
  }
  return out;
}

class SheetWriter {
 public:
  SheetWriter(const Model& model, const SheetModel& sheet)
      : model_(model), sheet_(sheet), document_(model.container, sheet.part), prefix_(document_.prefix()) {}

  std::string write() {
    Node root = document_.root();
    if (Node data = xml::child(root, "sheetData")) {
      settleShared(data);
      rows(data);
    }
    if (sheet_.breaksReset)
      for (const char* name : {"rowBreaks", "colBreaks"})
        while (Node breaks = xml::child(root, name)) root.remove_child(breaks);
    dimension(root);
    return document_.bytes();
  }

 private:
  std::string named(const char* name) const { return prefix_ + name; }

  void rows(Node data) {
    std::map<int, Node> known;
    int number = 0;
    for (const Node node : xml::children(data, "row")) {
      number = xml::whole(node, "r", number + 1);
      known.emplace(number, node);
    }
    for (const auto& [index, row] : sheet_.rows) {
      const bool touched =
          row.hiddenChanged || std::any_of(row.cells.begin(), row.cells.end(),
                                           [](const Cell& c) { return c.changed || c.formula >= 0; });
      if (!touched) continue;
      auto found = known.find(index);
      if (found == known.end()) {
        const bool filled =
            std::any_of(row.cells.begin(), row.cells.end(), [](const Cell& c) { return !c.value.empty(); });
        if (!filled && !row.hidden) continue;
        const auto next = known.upper_bound(index);
        Node node = next == known.end() ? data.append_child(named("row").c_str())
                                        : data.insert_child_before(named("row").c_str(), next->second);
        node.append_attribute("r") = index;
        found = known.emplace(index, node).first;
      }
      if (row.hiddenChanged) attribute(found->second, "hidden", row.hidden ? "1" : "0");
      cells(found->second, index, row);
    }
  }

  void cells(Node node, int index, const Row& row) {
    std::vector<std::pair<int, Node>> known;
    int column = 0, same = index;
    for (const Node item : xml::children(node, "c")) {
      ++column;
      parseCell(xml::text(item, "r"), same, column);
      known.emplace_back(column, item);
    }
    auto next = known.begin();
    for (const Cell& cell : row.cells) {
      while (next != known.end() && next->first < cell.column) ++next;
      const bool there = next != known.end() && next->first == cell.column;
      if (cell.changed) {
        if (!there && cell.value.empty()) continue;
        Node own = there                 ? next->second
                   : next == known.end() ? node.append_child(named("c").c_str())
                                         : node.insert_child_before(named("c").c_str(), next->second);
        if (!there) {
          own.append_attribute("r") = cellName(index, cell.column).c_str();
          if (cell.style) own.append_attribute("s") = cell.style;
          node.remove_attribute("spans");
        }
        content(own, cell.value);
      } else if (cell.formula >= 0 && there) {
        const FormulaCell& formula = model_.formulas[static_cast<size_t>(cell.formula)];
        if (!(formula.stored == cell.value)) result(next->second, cell.value);
      }
    }
  }

  static void attribute(Node node, const char* name, const char* value) {
    if (!node.attribute(name)) node.append_attribute(name);
    node.attribute(name) = value;
  }

  // The value in place of all that the cell held.
  void content(Node node, const Value& value) {
    for (const char* name : {"f", "v", "is"})
      while (Node old = xml::child(node, name)) node.remove_child(old);
    for (const char* name : {"t", "cm", "vm"}) node.remove_attribute(name);
    if (const std::string* text = value.text()) {
      attribute(node, "t", "inlineStr");
      Node into = node.append_child(named("is").c_str()).append_child(named("t").c_str());
      into.append_attribute("xml:space") = "preserve";
      into.text().set(escaped(*text).c_str());
    } else if (!value.empty()) {
      result(node, value);
    }
  }

  // The value beside the cell's formula.
  void result(Node node, const Value& value) {
    const char* type = value.text() ? "str" : value.truth() ? "b" : value.error() ? "e" : nullptr;
    if (type)
      attribute(node, "t", type);
    else
      node.remove_attribute("t");
    Node into = xml::child(node, "v");
    if (!into) {
      const Node formula = xml::child(node, "f");
      into = formula ? node.insert_child_after(named("v").c_str(), formula)
                     : node.append_child(named("v").c_str());
    }
    while (into.first_child()) into.remove_child(into.first_child());
    const std::string text = value.number()  ? numberText(*value.number())
                             : value.truth() ? (*value.truth() ? "1" : "0")
                                             : escaped(textOf(value));
    if (!text.empty()) into.text().set(text.c_str());
  }

  // A shared formula stands in its first cell. When that one was overwritten, the next of
  // its cells takes it over.
  void settleShared(Node data) {
    struct Master {
      std::string text;
      int row = 0, column = 0;
      bool lost = false;
    };
    std::map<std::string, Master> masters;
    int row = 0;
    for (const Node line : xml::children(data, "row")) {
      row = xml::whole(line, "r", row + 1);
      int column = 0;
      for (const Node item : xml::children(line, "c")) {
        ++column;
        parseCell(xml::text(item, "r"), row, column);
        Node formula = xml::child(item, "f");
        if (!formula || xml::text(formula, "t") != "shared") continue;
        const Cell* cell = sheet_.cell(row, column);
        const bool kept = cell && !cell->changed;
        Master& master = masters[std::string(xml::text(formula, "si"))];
        const std::string text = formula.text().get();
        if (!text.empty()) {
          master = {.text = text, .row = row, .column = column, .lost = !kept};
        } else if (master.lost && kept) {
          formula.remove_attribute("t");
          formula.remove_attribute("si");
          formula.text().set(movedFormula(master.text, row - master.row, column - master.column).c_str());
        }
      }
    }
  }

  void dimension(Node root) {
    Node node = xml::child(root, "dimension");
    if (!node) return;
    int firstRow = 0, lastRow = 0, firstColumn = kMaxColumn, lastColumn = 0;
    for (const auto& [index, row] : sheet_.rows)
      for (const Cell& cell : row.cells) {
        if (cell.value.empty() && cell.changed && !cell.style) continue;
        if (!firstRow) firstRow = index;
        lastRow = index;
        firstColumn = std::min(firstColumn, cell.column);
        lastColumn = std::max(lastColumn, cell.column);
      }
    const std::string first = firstRow ? cellName(firstRow, firstColumn) : "A1";
    const std::string last = firstRow ? cellName(lastRow, lastColumn) : "A1";
    attribute(node, "ref", (first == last ? first : first + ":" + last).c_str());
  }

  const Model& model_;
  const SheetModel& sheet_;
  xml::Document document_;
  std::string prefix_;
};

bool touched(const Model& model, size_t index) {
  const SheetModel& sheet = model.sheets[index];
  if (sheet.breaksReset || sheet.formulaLost) return true;
  for (const auto& [number, row] : sheet.rows) {
    if (row.hiddenChanged) return true;
    for (const Cell& cell : row.cells) {
      if (cell.changed) return true;
      if (cell.formula >= 0 && !(model.formulas[static_cast<size_t>(cell.formula)].stored == cell.value))
        return true;
    }
  }
  return false;
}

// The order in which formulas were calculated names cells; where one lost its formula the
// whole list goes, with its relation and its content type. Programs make a new one.
void dropCalculationChain(const Model& model, PartChanges& changes) {
  const std::string& part = model.calculationChain;
  if (part.empty() || !model.container.has(part)) return;
  changes.removed.insert(part);
  const auto without = [&](const std::string& list, const char* element, const auto& names) {
    const xml::Document document(model.container, list);
    for (const Node node : xml::children(document.root(), element))
      if (names(node)) document.root().remove_child(node);
    changes.replaced[list] = document.bytes();
  };
  without("[Content_Types].xml", "Override",
          [&](Node node) { return xml::text(node, "PartName") == "/" + part; });
  without(relationsPart(model.workbookPart), "Relationship",
          [](Node node) { return xml::text(node, "Type").ends_with("/calcChain"); });
}

}  // namespace

void saveModel(Model& model, const std::string& path) {
  if (model.stale) Evaluator(model).all();
  PartChanges changes;
  bool formulaLost = false;
  for (size_t i = 0; i < model.sheets.size(); ++i) {
    const SheetModel& sheet = model.sheets[i];
    if (sheet.part.empty() || !touched(model, i)) continue;
    changes.replaced[sheet.part] = SheetWriter(model, sheet).write();
    formulaLost = formulaLost || sheet.formulaLost;
  }
  if (formulaLost) dropCalculationChain(model, changes);
  model.container.save(path, changes);
}

}  // namespace workbook

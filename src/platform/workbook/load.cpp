#include <algorithm>

#include "base/text.h"
#include "base/words.h"
#include "platform/workbook/evaluate.h"
#include "platform/workbook/model.h"
#include "platform/workbook/xml.h"

// The workbook part: sheets, shared texts, styles, defined names.
namespace workbook {
namespace {

struct Parts {
  std::string styles, theme, texts;
  std::vector<Relation> relations;
};

std::string mainPart(const Container& container) {
  for (const Relation& relation : container.relations(""))
    if (relation.type == "officeDocument" && container.has(relation.target)) return relation.target;
  container.refuse("is not a workbook.");
}

Parts partsOf(Model& model) {
  Parts parts;
  parts.relations = model.container.relations(model.workbookPart);
  for (const Relation& relation : parts.relations) {
    const bool needed = relation.type == "styles" || relation.type == "sharedStrings";
    if (needed && !model.container.has(relation.target)) model.container.damaged();
    if (relation.type == "styles") parts.styles = relation.target;
    if (relation.type == "theme") parts.theme = relation.target;
    if (relation.type == "sharedStrings") parts.texts = relation.target;
    if (relation.type == "calcChain") model.calculationChain = relation.target;
  }
  return parts;
}

std::vector<StyledText> sharedTexts(const Model& model, const std::string& part) {
  std::vector<StyledText> texts;
  if (!model.container.has(part)) return texts;
  const xml::Document document(model.container, part);
  for (const xml::Node node : document.root().children())
    if (xml::is(node, "si")) texts.push_back(styledText(model.styles, node));
  return texts;
}

constexpr size_t kMaxNames = 10000, kMaxAreas = 64;

void readNames(Model& model, xml::Node root) {
  for (const xml::Node node : xml::children(xml::child(root, "definedNames"), "definedName")) {
    DefinedName name{.name = std::string(xml::text(node, "name")),
                     .sheet = xml::whole(node, "localSheetId", -1),
                     .text = node.text().get(),
                     .expression = nullptr};
    if (name.sheet < static_cast<int>(model.sheets.size())) model.names.push_back(std::move(name));
    if (model.names.size() > kMaxNames) model.container.refuse("is too large.");
  }
}

// "Bill!$A$1:$H$60,Bill!$A$70:$H$90" as blocks of the sheet.
std::vector<CellBlock> blocksIn(Model& model, int sheet, std::string_view text) {
  std::vector<CellBlock> blocks;
  size_t start = 0;
  bool quoted = false;
  Evaluator evaluator(model);
  for (size_t at = 0; at <= text.size(); ++at) {
    if (at < text.size() && text[at] == '\'') quoted = !quoted;
    if (at < text.size() && (text[at] != ',' || quoted)) continue;
    try {
      const Operand found = evaluator.reference(trim(text.substr(start, at - start)), {.sheet = sheet});
      const Block& block = std::get<Block>(found);
      if (block.sheet == sheet && blocks.size() < kMaxAreas)
        blocks.push_back({block.firstRow, block.firstColumn, block.lastRow, block.lastColumn});
    } catch (const Failure&) {
      // A print area whose sheet or cells were deleted: the whole sheet is printed.
    }
    start = at + 1;
  }
  return blocks;
}

void settlePrintNames(Model& model) {
  for (const DefinedName& name : model.names) {
    if (name.sheet < 0) continue;
    SheetModel& sheet = model.sheets[static_cast<size_t>(name.sheet)];
    if (name.name == "_xlnm.Print_Area") {
      sheet.printAreas = blocksIn(model, name.sheet, name.text);
    } else if (name.name == "_xlnm.Print_Titles") {
      for (const CellBlock& block : blocksIn(model, name.sheet, name.text)) {
        if (block.lastColumn - block.firstColumn == kMaxColumn - 1)
          sheet.titleRows = block;
        else if (block.lastRow - block.firstRow == kMaxRow - 1)
          sheet.titleColumns = block;
      }
    }
  }
}

}  // namespace

std::unique_ptr<Model> loadModel(Container container) {
  auto model = std::make_unique<Model>(std::move(container));
  model->workbookPart = mainPart(model->container);
  const Parts parts = partsOf(*model);
  model->styles = Styles(model->container, parts.styles, parts.theme);
  const std::vector<StyledText> texts = sharedTexts(*model, parts.texts);

  const xml::Document document(model->container, model->workbookPart);
  const xml::Node root = document.root();
  if (!xml::is(root, "workbook")) model->container.refuse("is not a workbook.");
  if (xml::flag(xml::child(root, "workbookPr"), "date1904"))
    model->loadWarnings.push_back(
        words("The workbook counts its dates from 1904: they are shown four years early."));
  for (const xml::Node node : xml::children(xml::child(root, "sheets"), "sheet")) {
    SheetModel sheet;
    sheet.name = xml::text(node, "name");
    const std::string_view id = xml::prefixed(node, "id");
    const auto relation = std::find_if(parts.relations.begin(), parts.relations.end(),
                                       [&](const Relation& r) { return r.id == id; });
    if (relation == parts.relations.end()) model->container.damaged();
    if (relation->type == "worksheet") sheet.part = relation->target;  // else a sheet that is a chart
    model->sheets.push_back(std::move(sheet));
  }
  if (model->sheets.empty()) model->container.refuse("has no sheets.");
  readNames(*model, root);
  for (size_t i = 0; i < model->sheets.size(); ++i)
    if (!model->sheets[i].part.empty()) loadSheet(*model, static_cast<int>(i), texts);
  settlePrintNames(*model);
  model->warnings = model->loadWarnings;
  return model;
}

}  // namespace workbook

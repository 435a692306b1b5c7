#include <algorithm>
#include <cmath>

#include "base/words.h"
#include "platform/workbook/model.h"
#include "platform/workbook/xml.h"

// Pictures of a sheet's drawing part, anchored to cells or to the sheet.
namespace workbook {
namespace {

using xml::Node;

constexpr size_t kMaxPictures = 200;

double points(double units) { return std::clamp(units / 12700, -1e6, 1e6); }

Anchor anchor(Node node) {
  const auto number = [&](const char* name) {
    const double told = xml::child(node, name).text().as_double();
    return std::isfinite(told) ? told : 0;
  };
  const auto place = [&](const char* name, int most) {
    return static_cast<int>(std::clamp(number(name), 0.0, most - 1.0)) + 1;
  };
  return {.row = place("row", kMaxRow),
          .column = place("col", kMaxColumn),
          .x = points(number("colOff")),
          .y = points(number("rowOff"))};
}

bool drawable(std::string_view bytes) {
  for (const std::string_view kind : {"\x89PNG", "\xFF\xD8\xFF", "GIF8", "BM"})
    if (bytes.starts_with(kind)) return true;
  return false;
}

// Cropped away at each side, in thousandths of a percent.
paint::Rect shownPart(Node crop) {
  const auto side = [&](const char* name) {
    return std::clamp(xml::number(crop, name).value_or(0) / 100000, 0.0, 1.0);
  };
  const paint::Rect part{side("l"), side("t"), 1 - side("l") - side("r"), 1 - side("t") - side("b")};
  return part.w > 0 && part.h > 0 ? part : paint::Rect{0, 0, 1, 1};
}

}  // namespace

void loadPictures(Model& model, SheetModel& sheet, const std::string& part) {
  if (!model.container.has(part)) return;
  const auto relations = model.container.relations(part);
  std::map<std::string, std::shared_ptr<const std::string>> files;
  const xml::Document document(model.container, part);
  bool others = false;
  for (const Node node : document.root().children()) {
    const Node picture = xml::child(node, "pic");
    if (!picture) {
      others = others || xml::child(node, "clientData");
      continue;
    }
    const std::string_view id = xml::prefixed(xml::child(xml::child(picture, "blipFill"), "blip"), "embed");
    const auto relation =
        std::find_if(relations.begin(), relations.end(), [&](const Relation& r) { return r.id == id; });
    if (relation == relations.end() || !model.container.has(relation->target)) continue;
    auto& bytes = files[relation->target];
    if (!bytes) bytes = std::make_shared<const std::string>(model.container.read(relation->target));
    if (!drawable(*bytes)) {
      model.loadWarnings.push_back(
          words("Sheet {sheet}: {part} is neither PNG, JPEG, GIF nor BMP and is left out.", "sheet",
                sheet.name, "part", relation->target));
      continue;
    }
    Picture result{.from = anchor(xml::child(node, "from")),
                   .to = {},
                   .bytes = bytes,
                   .shown = shownPart(xml::child(xml::child(picture, "blipFill"), "srcRect"))};
    const Node own = xml::child(xml::child(xml::child(picture, "spPr"), "xfrm"), "ext");
    const Node size = xml::child(node, "ext") ? xml::child(node, "ext") : own;
    result.width = points(xml::number(size, "cx").value_or(0));
    result.height = points(xml::number(size, "cy").value_or(0));
    const std::string_view moves = xml::text(node, "editAs");
    const bool sized = (moves == "oneCell" || moves == "absolute") && result.width > 0 && result.height > 0;
    if (xml::is(node, "twoCellAnchor") && !sized) result.to = anchor(xml::child(node, "to"));
    if (xml::is(node, "absoluteAnchor")) {
      const Node at = xml::child(node, "pos");
      result.from = {.row = 0,
                     .column = 0,
                     .x = points(xml::number(at, "x").value_or(0)),
                     .y = points(xml::number(at, "y").value_or(0))};
    }
    sheet.pictures.push_back(std::move(result));
    if (sheet.pictures.size() > kMaxPictures) model.container.refuse("is too large.");
  }
  if (others)
    model.loadWarnings.push_back(
        words("Sheet {sheet}: drawn shapes and charts are left out.", "sheet", sheet.name));
}

}  // namespace workbook

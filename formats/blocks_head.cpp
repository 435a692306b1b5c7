#include "formats/blocks.h"
#include "formats/styles.h"

namespace formats {

namespace {

const Style kLabel{.size = 7, .colour = kQuiet};
const Style kValue{.size = 8.5, .shrink = true};

}  // namespace

void titleBar(Sheet& sheet, int row, Columns left, Columns middle, Columns right, const std::string& title,
              int page, const std::string& pages) {
  const auto edged = [&](Style style, bool first, bool last) {
    style.fill = kTint;
    style.edges = {first ? Edge::Thin : Edge::None, Edge::Thin, last ? Edge::Thin : Edge::None, Edge::Thin};
    return style;
  };
  sheet.text(at(row, left), edged({.size = 7, .colour = kQuiet, .indent = 1}, true, false),
             "Original / Duplicate / Triplicate");
  sheet.text(at(row, middle),
             edged({.size = 12, .bold = true, .colour = kAccent, .across = Across::Centre}, false, false),
             title);
  sheet.formula(at(row, right), edged({.size = 8, .across = Across::Right, .indent = 1}, false, true),
                quoted("Page " + std::to_string(page) + " of ") + "&" + pages);
}

void companyHead(Sheet& sheet, int row, Columns all, const Company& company) {
  sheet.formula(at(row, all),
                with({.size = 18, .bold = true, .colour = kAccent, .across = Across::Centre, .shrink = true},
                     sides(Edge::Thin)),
                company.name);
  const Style line{.size = 8.5, .across = Across::Centre, .shrink = true};
  sheet.formula(at(row + 1, all), with(line, sides(Edge::Thin)), company.address);
  sheet.formula(at(row + 2, all), with(line, sides(Edge::Thin)), company.contact);
  sheet.formula(at(row + 3, all),
                with({.size = 9, .bold = true, .across = Across::Centre, .shrink = true}, kTray),
                labelled("GSTIN : ", company.gstin) + "&" + labelled("          PAN : ", company.pan) + "&" +
                    labelled("          State : ", company.state));
}

void partyBlock(Sheet& sheet, int row, Columns columns, const std::string& heading, const Party& party) {
  const Style head{.size = 7.5, .bold = true, .colour = kAccent, .indent = 1, .edges = kLid};
  sheet.text(at(row, columns), head, heading);
  const std::vector<std::string> lines = {
      party.name,
      party.line1,
      party.line2,
      party.line3,
      labelled("State : ", party.state),
      "\"GSTIN : \"&IF(" + party.gstin + "=\"\",\"Unregistered\"," + party.gstin + ")",
      labelled("Contact : ", party.contact),
  };
  constexpr size_t kName = 0, kGstin = 5;
  for (size_t i = 0; i < lines.size(); ++i) {
    Style style{.size = 8.5, .shrink = true, .indent = 1, .edges = sides(Edge::Thin)};
    if (i == kName) style.size = 9.5;
    style.bold = i == kName || i == kGstin;
    if (i + 1 == lines.size()) style.edges.bottom = Edge::Thin;
    sheet.formula(at(row + 1 + static_cast<int>(i), columns), style, lines[i]);
  }
}

void factsBlock(Sheet& sheet, int row, const FactColumns& columns,
                const std::vector<std::vector<Fact>>& rows) {
  for (size_t i = 0; i < rows.size(); ++i) {
    const int r = row + static_cast<int>(i);
    const Edge top = i == 0 ? Edge::Thin : Edge::Faint;
    const Edge bottom = i + 1 == rows.size() ? Edge::Thin : Edge::None;
    const auto& facts = rows[i];
    const bool two = facts.size() > 1;
    const auto put = [&](Columns label, Columns value, const Fact& fact, bool first, bool last) {
      Style name = with(kLabel, {first ? Edge::Thin : Edge::None, top, Edge::None, bottom});
      name.indent = 1;
      Style text = with(kValue, {Edge::None, top, last ? Edge::Thin : Edge::None, bottom});
      text.bold = fact.bold;
      text.number = fact.number;
      sheet.text(at(r, label), name, fact.label);
      if (fact.value.empty())
        sheet.blank(at(r, value), text);
      else
        sheet.formula(at(r, value), text, fact.value);
    };
    put(columns.label, two ? columns.value : Columns{columns.value.left, columns.value2.right}, facts[0],
        true, !two);
    if (two) put(columns.label2, columns.value2, facts[1], false, true);
  }
}

void remarksRow(Sheet& sheet, int row, Columns columns, const Bill& bill) {
  sheet.formula(at(row, columns), {.size = 8, .shrink = true, .indent = 1, .edges = kTray},
                labelled("Remarks : ", bill.narration));
}

}  // namespace formats

#include "formats/blocks.h"
#include "formats/styles.h"

namespace formats {

std::string pageOf(int page, const std::string& pages) {
  return quoted("Page " + std::to_string(page) + " of ") + "&" + pages;
}

void copyMark(Sheet& sheet, int row, Columns left, const char* mark, double size) {
  Style style{.size = size * 0.625, .colour = kQuiet, .fill = kTint, .shrink = true, .indent = 1};
  style.edges = {Edge::Thin, Edge::Thin, Edge::None, Edge::Thin};
  sheet.text(at(row, left), style, mark);
}

void titleBar(Sheet& sheet, int row, Columns left, Columns middle, Columns right, const std::string& title,
              int page, const std::string& pages, double size, const char* mark) {
  const auto edged = [&](Style style, bool last) {
    style.fill = kTint;
    style.edges = {Edge::None, Edge::Thin, last ? Edge::Thin : Edge::None, Edge::Thin};
    return style;
  };
  copyMark(sheet, row, left, mark, size);
  const auto named = edged({.size = size, .bold = true, .colour = kAccent, .across = Across::Centre}, false);
  if (title.starts_with('='))
    sheet.formula(at(row, middle), named, title.substr(1));
  else
    sheet.text(at(row, middle), named, title);
  sheet.formula(at(row, right), edged({.size = size * 0.625, .across = Across::Right, .indent = 1}, true),
                pageOf(page, pages));
}

std::string taxNumbers(const Company& company, const std::string& gap) {
  return labelled("GSTIN : ", company.gstin) + "&" + labelled(gap + "PAN : ", company.pan) + "&" +
         labelled(gap + "State : ", company.state);
}

void companyHead(Sheet& sheet, int row, Columns all, const Company& company, double size) {
  sheet.formula(
      at(row, all),
      with({.size = size, .bold = true, .colour = kAccent, .across = Across::Centre, .shrink = true},
           sides(Edge::Thin)),
      company.name);
  const double small = size > 14 ? 8.5 : size / 2;
  const Style line{.size = small, .across = Across::Centre, .shrink = true};
  sheet.formula(at(row + 1, all), with(line, sides(Edge::Thin)), company.address);
  sheet.formula(at(row + 2, all), with(line, sides(Edge::Thin)), company.contact);
  sheet.formula(at(row + 3, all),
                with({.size = small + 0.5, .bold = true, .across = Across::Centre, .shrink = true}, kTray),
                taxNumbers(company, "          "));
}

void partyBlock(Sheet& sheet, int row, Columns columns, const std::string& heading, const Party& party,
                double size) {
  const Style head{.size = size - 1, .bold = true, .colour = kAccent, .indent = 1, .edges = kLid};
  sheet.text(at(row, columns), head, heading);
  const std::vector<std::string> lines = {
      party.name,
      party.line1,
      party.line2,
      party.line3,
      labelled("State : ", party.state),
      party.registration,
      labelled("Contact : ", party.contact),
  };
  constexpr size_t kName = 0, kGstin = 5;
  for (size_t i = 0; i < lines.size(); ++i) {
    Style style{.size = size, .shrink = true, .indent = 1, .edges = sides(Edge::Thin)};
    if (i == kName) style.size = size + 1;
    style.bold = i == kName || i == kGstin;
    if (i + 1 == lines.size()) style.edges.bottom = Edge::Thin;
    sheet.formula(at(row + 1 + static_cast<int>(i), columns), style, lines[i]);
  }
}

std::string dayText(const std::string& date) {
  return "IF(" + date + "=\"\",\"\",TEXT(" + date + ",\"dd/mm/yyyy\"))";
}

std::vector<Fact> closedFacts(Facts& facts, const std::vector<Facts::Named>& all, int rows) {
  std::vector<Fact> shown;
  for (const auto& [label, value] : facts.closed(all, rows))
    shown.push_back({.label = label, .value = value, .ofData = true});
  return shown;
}

FactRows inRows(const std::vector<Fact>& facts, size_t ofRow) {
  FactRows rows;
  for (size_t i = 0; i < facts.size(); ++i) {
    if (i % ofRow == 0) rows.emplace_back();
    rows.back().push_back(facts[i]);
  }
  return rows;
}

void factsBlock(Sheet& sheet, int row, const FactColumns& columns, const FactRows& rows, double size) {
  for (size_t i = 0; i < rows.size(); ++i) {
    const int r = row + static_cast<int>(i);
    const Edge top = i == 0 ? Edge::Thin : Edge::Faint;
    const Edge bottom = i + 1 == rows.size() ? Edge::Thin : Edge::None;
    for (size_t f = 0; f < rows[i].size(); ++f) {
      const Fact& fact = rows[i][f];
      const bool last = f + 1 == rows[i].size();
      Style name{.size = size - 1.5, .colour = kQuiet, .shrink = true, .indent = 1};
      name.edges = {f == 0 ? Edge::Thin : Edge::None, top, Edge::None, bottom};
      Style text{.size = size, .bold = fact.bold, .shrink = true, .number = fact.number};
      text.edges = {Edge::None, top, last ? Edge::Thin : Edge::None, bottom};
      const auto [label, own] = columns[f];
      const Columns value{own.left, last ? columns.back().second.right : own.right};
      if (fact.ofData)
        sheet.formula(at(r, label), name, fact.label);
      else
        sheet.text(at(r, label), name, fact.label);
      if (fact.value.empty())
        sheet.blank(at(r, value), text);
      else
        sheet.formula(at(r, value), text, fact.value);
    }
  }
}

namespace {

void textRow(Sheet& sheet, int row, Columns columns, const std::string& text, double size, Room room) {
  const bool wrap = room == Room::TwoLines;
  sheet.formula(at(row, columns), {.size = size, .wrap = wrap, .shrink = !wrap, .indent = 1, .edges = kTray},
                text);
}

}  // namespace

void remarksRow(Sheet& sheet, int row, Columns columns, const Bill& bill, double size, Room room) {
  textRow(sheet, row, columns, labelled("Remarks : ", bill.narration), size, room);
}

void deliveryAndRemarksRow(Sheet& sheet, int row, Columns columns, const Bill& bill, double size, Room room) {
  const auto between = "IF(OR(" + bill.deliveredTo + "=\"\"," + bill.narration + "=\"\"),\"\"," +
                       (room == Room::TwoLines ? "CHAR(10)" : quoted("     ")) + ")";
  textRow(
      sheet, row, columns,
      labelled("Ship To : ", bill.deliveredTo) + "&" + between + "&" + labelled("Remarks : ", bill.narration),
      size, room);
}

}  // namespace formats

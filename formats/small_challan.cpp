#include "formats/small_challan.h"

#include "formats/paper_facts.h"
#include "formats/sheet3.h"
#include "formats/styles.h"

namespace formats {

const Form kSmallForm{
    .pages = 6,
    .slots = 17,
    .head = {15,   45, 93, 18.75},
    .foot = {13.5, 36, 21, 57   },
    .slot = 15.75,
};

namespace {

constexpr Columns kAll{'A', 'H'}, kCopy{'A', 'C'}, kTitle{'D', 'F'}, kPage{'G', 'H'};
constexpr Columns kName{'A', 'C'}, kLines{'D', 'H'};
constexpr Columns kTo{'A', 'C'}, kNumber{'D', 'F'}, kJourney{'G', 'H'};
constexpr int kWidth = kAll.right - kAll.left + 1;

}  // namespace

DesignTable smallTable(CompanyCells (*company)(), Bill (*facts)(Facts&, const Slots&)) {
  // clang-format off
  return {
      .form = kSmallForm, .all = kAll,
      .widths = {{'A', 15}, {'B', 57}, {'C', 96.75}, {'D', 37.5}, {'E', 36}, {'F', 27}, {'G', 43.5}, {'H', 64.5}},
      .paper = {.size = Paper::Size::A5, .leftRight = 9, .topBottom = 11.5},
      .palette = {.accent = 0x3D4B12, .tint = 0xEEF2E2},
      .table = {.size = 6.5, .headRows = 1},
      .letters = 38,
      .sheet = "D_C", .company = company, .facts = facts,
  };
  // clang-format on
}

SmallChallan::SmallChallan(Book& book, const DesignTable& table, const GoodsFields& fields,
                           std::vector<const char*> marks, const char* numberLabel)
    : ChallanDesign(book, table, fields),
      marks_(std::move(marks)),
      number_(stacked(facts_, "Number lines",
                      {quoted(numberLabel), bill_.number, quoted("Date"), dayText(bill_.date)})),
      sender_(stacked(facts_, "Sender",
                      {company_.address, labelled("Phone : ", company_.phones),
                       labelled("E-mail : ", company_.mail), taxLine_})) {}

std::vector<Columns> SmallChallan::copies() const {
  std::vector<Columns> all;
  for (size_t copy = 0; copy < marks_.size(); ++copy)
    all.push_back(kAll.movedBy(static_cast<int>(copy) * kWidth));
  return all;
}

void SmallChallan::write() {
  ChallanDesign::write();
  for (size_t copy = 1; copy < marks_.size(); ++copy) {
    const int moved = static_cast<int>(copy) * kWidth;
    sheet_.repeat(moved);
  }
  for (size_t copy = 1; copy < marks_.size(); ++copy)
    for (int page = 1; page <= form_.pages; ++page)
      copyMark(sheet_, form_.headAt(page), kCopy.movedBy(static_cast<int>(copy) * kWidth), marks_[copy], 11);
}

void SmallChallan::head(int row, int page) {
  titleBar(sheet_, row, kCopy, kTitle, kPage, "=" + sheet3::cell(2, 1), page, bill_.pages, 11, marks_[0]);
  Style own{.size = 13, .bold = true, .colour = kAccent, .indent = 1};
  own.edges = {Edge::Thin, Edge::None, Edge::None, Edge::Thin};
  cell(at(row + 1, kName), own, company_.name);
  Style lines{.size = 7, .across = Across::Right, .indent = 1};
  lines.edges = {Edge::None, Edge::None, Edge::Thin, Edge::Thin};
  cell(at(row + 1, kLines), lines, sender_);
  Style block{.size = 7, .bold = true, .indent = 1, .edges = kTray};
  cell(at(row + 2, kTo), block, quoted("Consignee") + "&CHAR(10)&" + consignee_);
  block.size = 9;
  block.colour = kAccent;
  block.across = Across::Centre;
  block.indent = 0;
  cell(at(row + 2, kNumber), block, number_);
  cell(at(row + 2, kJourney), {.size = 7, .indent = 1, .edges = kTray}, journey_);
  tableHead(sheet_, row + 3, columns_, table_.table);
}

}  // namespace formats

#include "formats/challan_design.h"
#include "formats/designs.h"
#include "formats/paper_facts.h"
#include "formats/sheet3.h"
#include "formats/styles.h"

// Design 9: a challan of many lines on a whole sheet.
namespace formats {

namespace {

// clang-format off
const Form kForm{
    .pages = 3, .slots = 26,
    .head = {18, 26.25, 39, 27, 69, 18.75},
    .foot = {16.5, 39, 24, 64.5},
    .slot = 18,
};
constexpr Columns kAll{'A', 'H'}, kLeft{'A', 'C'}, kRight{'D', 'H'};
const DesignTable kTable{
    .form = kForm, .all = kAll,
    .widths = {{'A', 21}, {'B', 90}, {'C', 138}, {'D', 48}, {'E', 48}, {'F', 36}, {'G', 63}, {'H', 91.5}},
    .palette = {.accent = 0x6B2D1A, .tint = 0xF6ECE6},
    .table = {.size = 7, .headRows = 1},
    .letters = 50,
    .sheet = "D_C", .company = &companyOfChallan, .facts = &challanFacts,
};
// clang-format on

class Design : public ChallanDesign {
 public:
  explicit Design(Book& book) : ChallanDesign(book, kTable, challanFields()) {}

 private:
  void head(int row, int page) override {
    titleBar(sheet_, row, {'A', 'B'}, {'C', 'E'}, {'F', 'H'}, "=" + sheet3::cell(2, 1), page, bill_.pages, 12,
             "ORIGINAL FOR CONSIGNEE");
    Style line{.size = 20, .bold = true, .colour = kAccent, .across = Across::Centre, .shrink = true};
    sheet_.formula(at(row + 1, kAll), with(line, sides(Edge::Thin)), company_.name);
    cell(at(row + 2, kAll), {.size = 8.5, .across = Across::Centre, .edges = kTray}, sender_);
    const Style heading{.size = 9, .bold = true, .indent = 1, .edges = kLid};
    cell(at(row + 3, kLeft), heading, "\"Consignee : \"&" + bill_.buyer.wholeName);
    cell(at(row + 3, kRight), heading,
         labelled("Challan No : ", bill_.number) + "&\"          Date : \"&" + dayText(bill_.date));
    const Style block{.size = 8.5, .down = Down::Top, .indent = 1, .edges = kTray};
    cell(at(row + 4, kLeft), block, address_);
    cell(at(row + 4, kRight), block, journey_);
    tableHead(sheet_, row + 5, columns_, kTable.table);
  }

  const std::string sender_ = stacked(facts_, "Sender", {company_.address, company_.contact, taxLine_});
};

}  // namespace

void invgen9(const std::string& path) { writeDesign<Design>(path); }

}  // namespace formats

#include "formats/challan_design.h"

#include "formats/paper_facts.h"
#include "formats/styles.h"

namespace formats {

namespace {

constexpr Columns kAll{'A', 'H'}, kLabel{'A', 'D'}, kWords{'A', 'D'}, kSums{'E', 'F'}, kSum{'G', 'H'};
constexpr Columns kReceiver{'A', 'C'}, kBetween{'D', 'E'}, kSigner{'F', 'H'};

using Kind = LineColumn::Kind;

// clang-format off
std::vector<LineColumn> lineColumns(const Bill& bill, const GoodsFields& of) {
  return {
      {.kind = Kind::Serial,      .columns = {'A', 'A'}, .title = "Sr"},
      {.kind = Kind::Description, .columns = {'B', 'C'}, .title = "Description of goods"},
      {.kind = Kind::Text,        .columns = {'D', 'D'}, .title = "HSN/SAC", .field = of.hsn},
      {.kind = Kind::Plain,       .columns = {'E', 'E'}, .title = "Qty",     .field = of.lines + "QUANTITY", .total = bill.quantity, .summed = true},
      {.kind = Kind::Text,        .columns = {'F', 'F'}, .title = "Unit",    .field = of.lines + "SIZE_CD"},
      {.kind = Kind::Rate,        .columns = {'G', 'G'}, .title = "Rate",    .field = of.lines + "RATE"},
      {.kind = Kind::Money,       .columns = {'H', 'H'}, .title = "Taxable value", .field = of.amount, .total = bill.taxable, .summed = true},
  };
}
// clang-format on

// A format with conditions loses the sign of a negative number in some programs.
std::string moneyText(const std::string& x) {
  return "IF(" + x + "<0,\"-\",\"\")&TEXT(ABS(" + x + ")," + quoted(kMoney) + ")";
}

std::vector<Facts::Named> discountAndCharges(const Bill&) {
  const auto percent = ofChallan("CHLN.DISC_PERC");
  return {
      {"\"Discount\"&IF(N(" + percent + ")=0,\"\",\" \"&" + percent + "&\" %\")",
       "-N(" + ofChallan("CHLN.DISC_AMT") + ")"                                                                       },
      {quoted("Charges"),                                                         "N(" + ofChallan("CHLN.CHRGS") + ")"},
  };
}

}  // namespace

GoodsFields challanFields() {
  return {
      .lines = "CHLNPRN:CHLNITM.",
      .hsn = "CHLNPRN:ITEM.HSNCODE",
      .amount = "CHLNPRN:CHLNITM.NET_AMOUNT",
      .more = &discountAndCharges,
  };
}

ChallanDesign::ChallanDesign(Book& book, const DesignTable& table, const GoodsFields& fields)
    : InvoiceDesign(book, table) {
  columns_ = lineColumns(bill_, fields);
  taxLine_ = labelled("GSTIN : ", company_.gstin) + "&" + labelled("     State : ", company_.state);
  const Party& to = bill_.buyer;
  address_ = stacked(
      facts_, "Address lines",
      {to.address, labelled("State : ", to.state), to.registration, labelled("Contact : ", to.contact)});
  consignee_ = facts_.add("Consignee lines", to.wholeName + "&CHAR(10)&" + address_);
  journey_ =
      stacked(facts_, "Journey",
              {labelled("Place of Supply : ", bill_.placeOfSupply), labelled("Order No : ", bill_.order),
               labelled("Transport : ", bill_.transport), labelled("L.R. No : ", bill_.lrNumber),
               labelled("L.R. Date : ", facts_.add("L.R. day", dayText(bill_.lrDate))),
               labelled("Destination : ", bill_.destination)});
  auto sums = fields.more(bill_);
  sums.push_back({quoted("Net value"), bill_.net});
  std::vector<std::string> labels, values;
  for (const auto& [label, value] : sums) {
    const auto own = facts_.add("Sum", "ROUND(" + value + ",2)");
    labels.push_back("IF(" + own + "=0,\"\"," + label + ")");
    values.push_back("IF(" + own + "=0,\"\"," + moneyText(own) + ")");
  }
  labels_ = stacked(facts_, "Labels", labels);
  values_ = stacked(facts_, "Values", values);
}

void ChallanDesign::cell(Cells where, Style style, const std::string& text) {
  style.wrap = true;
  sheet_.formula(where, style, text);
}

void ChallanDesign::remarksAndHands(int row) {
  remarksRow(sheet_, row, kAll, bill_, size(), Room::TwoLines);
  const Style hand{.size = size() + 0.5, .across = Across::Centre};
  const Edges first{Edge::Thin, Edge::None, Edge::None, Edge::Thin};
  const Edges middle{Edge::None, Edge::None, Edge::None, Edge::Thin};
  const Edges last{Edge::None, Edge::None, Edge::Thin, Edge::Thin};
  cell(at(row + 1, kReceiver), with(hand, first),
       quoted("Received the goods in good order") + "&CHAR(10)&CHAR(10)&CHAR(10)&CHAR(10)&" +
           quoted("Receiver's Signature"));
  Style note = with(hand, middle);
  note.colour = kQuiet;
  cell(at(row + 1, kBetween), note, quoted("E. & O.E."));
  Style signer = with(hand, last);
  signer.bold = true;
  cell(
      at(row + 1, kSigner), signer,
      "\"For \"&" + company_.name + "&CHAR(10)&CHAR(10)&CHAR(10)&CHAR(10)&" + quoted("Authorised Signatory"));
}

void ChallanDesign::pageFoot(int row, int page) {
  sums(row, kLabel, quoted("Carried forward"), sumsUpTo(form_, page));
  continued(sheet_, at(row + 1, kAll), page, bill_, size() + 2);
  remarksAndHands(row + 2);
}

void ChallanDesign::closing(int row) {
  sums(row, kLabel, bill_.totalLabel, billSums(form_));
  const Style text{.size = size() + 0.5, .bold = true, .indent = 1};
  cell(at(row + 1, kWords), with(text, kTray), labelled("Rupees : ", bill_.netWords));
  Style figure = with(text, {Edge::Thin, Edge::None, Edge::None, Edge::Thin});
  figure.size = size() + 1;
  cell(at(row + 1, kSums), figure, labels_);
  figure.across = Across::Right;
  figure.indent = 0;
  figure.edges = {Edge::None, Edge::None, Edge::Thin, Edge::Thin};
  cell(at(row + 1, kSum), figure, values_);
  remarksAndHands(row + 2);
}

}  // namespace formats

#pragma once

#include <string>
#include <vector>

#include "formats/invoice_design.h"

// What papers that go with goods have in common: few rows of head and foot, each tall, whose
// cells hold several lines. All have the columns A to H; the head is the design's own.
namespace formats {

// Where a paper finds its figures: "CHLNPRN:CHLNITM.".
struct GoodsFields {
  std::string lines, hsn, amount;
  // What leads from the value of the goods to the net; those that are zero are left out.
  std::vector<Facts::Named> (*more)(const Bill& bill);
};
GoodsFields challanFields();

class ChallanDesign : public InvoiceDesign {
 protected:
  ChallanDesign(Book& book, const DesignTable& table, const GoodsFields& fields);
  void pageFoot(int row, int page) override;
  void closing(int row) override;
  // Rows of a cell, one under the other.
  void cell(Cells where, Style style, const std::string& text);

  std::string taxLine_;    // the company's GSTIN and state
  std::string consignee_;  // name, address, state, GSTIN, contact
  std::string address_;    // the same without the name
  std::string journey_;    // order, transport, L.R., destination, place of supply

 private:
  void remarksAndHands(int row);
  double size() const { return table_.table.size; }

  std::string labels_, values_;  // of the sums
};

}  // namespace formats

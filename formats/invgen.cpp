#include "formats/designs.h"
#include "formats/paper_facts.h"
#include "formats/small_challan.h"

// The delivery slip that is made of a bill. It has the pages of design 8.
namespace formats {

namespace {

const DesignTable kTable = smallTable(&companyOfSlip, &slipFacts);

std::vector<Facts::Named> taxes(const Bill& bill) {
  return {
      {"IF(ROUND(" + bill.otherCharges + ",2)=0,\"GST, round off\",\"Charges, GST, round off\")",
       bill.net + "-" + bill.taxable}
  };
}

class Design : public SmallChallan {
 public:
  explicit Design(Book& book)
      : SmallChallan(book, kTable,
                     {
                         .lines = "BLPRN:SALEITM.",
                         .hsn = "BLPRN:ITEM.HSNCODE",
                         .amount = "BLPRN:SALEITM.AMOUNT",
                         .more = &taxes,
                     },
                     {""}, "Bill No") {}
};

}  // namespace

void invgen(const std::string& path) { writeDesign<Design>(path); }

}  // namespace formats

#include "formats/designs.h"
#include "formats/paper_facts.h"
#include "formats/small_challan.h"

// Design 8: a challan on half a sheet, in three copies.
namespace formats {

namespace {

const DesignTable kTable = smallTable(&companyOfChallan, &challanFacts);

class Design : public SmallChallan {
 public:
  explicit Design(Book& book)
      : SmallChallan(book, kTable, challanFields(),
                     {"ORIGINAL FOR CONSIGNEE", "DUPLICATE FOR TRANSPORTER", "TRIPLICATE FOR CONSIGNER"},
                     "Challan No") {}
};

}  // namespace

void invgen8(const std::string& path) { writeDesign<Design>(path); }

}  // namespace formats

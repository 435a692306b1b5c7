#pragma once

#include "formats/challan_design.h"

// Half a sheet that goes with goods: a challan, or a delivery slip.
namespace formats {

extern const Form kSmallForm;
// The table of such a paper; it shows what `company` and `facts` find.
DesignTable smallTable(CompanyCells (*company)(), Bill (*facts)(Facts&, const Slots&));

class SmallChallan : public ChallanDesign {
 public:
  // The marks of its copies, one behind the other.
  SmallChallan(Book& book, const DesignTable& table, const GoodsFields& fields,
               std::vector<const char*> marks, const char* numberLabel);
  void write() override;

 private:
  std::vector<Columns> copies() const override;
  void head(int row, int page) override;

  std::vector<const char*> marks_;
  std::string number_, sender_;  // lines of a cell
};

}  // namespace formats

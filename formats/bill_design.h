#pragma once

#include <vector>

#include "formats/invoice_design.h"

// What the designs of a bill share: the table of lines, the head over it and the foot under it. A design
// says in a BillTable what it shows and in which columns; rows follow from its form.
namespace formats {

// A column of the lines behind item, quantity, unit and rate, which every bill shows from A to G.
struct BillColumn {
  enum Of {
    DiscountRate,
    Discount,
    Taxable,
    CgstRate,
    Cgst,
    SgstRate,
    Sgst,
    IgstRate,
    Igst,
    TaxRate,
    Tax,
    Net
  } of;
  const char* title;
  const char* group = "";
};

// Rate and amount of every tax, and the total.
const std::vector<BillColumn>& everyTax();

struct BillHead {
  Columns mark = {}, title = {}, page = {};  // the title bar: which copy, "TAX INVOICE", which page
  double titleSize = 12, nameSize = 18;
  int rows = 5;  // over the parties
  Columns buyer = {}, consignee = {};
  const char *billTo = "Bill To", *shipTo = "Ship To";
  double size = 8.5;  // of the parties
};

// Above: HSN summary with the totals beside it, or on a page that another follows the list of all pages.
// Under it two rows of words and the notes; right of the notes the signature, which may begin beside the
// words.
struct BillFoot {
  PageSums pages;
  HsnColumns hsn;
  int hsnRows = 5;
  Columns totalLabel = {}, total = {};
  bool narrowTotals = false;
  Columns notes = {}, receiver = {};
  bool bankLine = true;        // among the notes
  bool bankMakesRoom = false;  // for what the law asks to be said
  Columns signature = {};
  int besideWords = 0;  // rows of words beside which the signature stands
  double size = 8.5, rupeesSize = 8.5, pagesSize = 7.5, hsnSize = 7.5, notesSize = 7, continuedSize = 10;
};

struct BillTable {
  DesignTable design;
  std::vector<BillColumn> lines;
  BillHead head;
  BillFoot foot;
  bool pageTotals = false;  // each page tells its own sum, and what was brought forward
};

class BillDesign : public InvoiceDesign {
 public:
  void write() override;

 protected:
  BillDesign(Book& book, const BillTable& table);

  // Over the parties: title bar and company.
  virtual void top(int row, int page);
  virtual void company(int row);
  void titles(int row, int page);
  // Facts and remarks, from the first row of the parties on.
  virtual void particulars(int row, int page) = 0;
  // What stands left of the HSN summary.
  virtual void besideHsn(int) {}

  // Facts of the order in four rows, without or with how the goods travel.
  std::vector<Fact> orderFacts();
  std::vector<Fact> orderAndTransportFacts();

 private:
  void head(int row, int page) override;
  void pageFoot(int row, int page) override;
  void closing(int row) override;
  void end(int row);

  int wordsAt(int above) const { return above + bill_table_.foot.hsnRows + 2; }
  Columns left() const;  // of the signature

  const BillTable& bill_table_;
  std::vector<Facts::Named> totals_;
};

}  // namespace formats

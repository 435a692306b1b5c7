#pragma once

#include <string>
#include <utility>
#include <vector>

#include "formats/blocks.h"

// What the designs with lines have in common: the printed sheet, the data sheet SHEET3 and
// the facts, and pages of a head, slots and a foot. A design fills in head and feet.
namespace formats {

struct DesignTable {
  const Form& form;
  Columns all;  // from edge to edge of the paper
  std::vector<std::pair<char, double>> widths;
  Paper paper = {};
  Palette palette = {};
  TableStyle table = {};
  int letters = 25;  // as in Slots
  // What the paper is of.
  const char* sheet = "BILL";
  CompanyCells (*company)() = &companyOfBill;
  Bill (*facts)(Facts&, const Slots&) = &billFacts;
};

class InvoiceDesign {
 public:
  virtual ~InvoiceDesign() = default;
  virtual void write();

 protected:
  InvoiceDesign(Book& book, const DesignTable& table);
  virtual void head(int row, int page) = 0;
  virtual void pageFoot(int row, int page) = 0;  // of a page that another follows
  virtual void closing(int row) = 0;
  // What is printed, one behind the other.
  virtual std::vector<Columns> copies() const { return {table_.all}; }
  // What every invoice must tell, and further facts behind it.
  std::vector<Fact> withMainFacts(const std::vector<Fact>& others) const;
  // The row under the slots.
  void sums(int row, Columns label, const std::string& text, const SumOf& sum);

  const DesignTable& table_;
  const Form& form_;
  Sheet& sheet_;
  Sheet& data_;
  Facts facts_;
  const Company company_;
  const Bill bill_;
  std::vector<LineColumn> columns_;
};

template <class Design>
void writeDesign(const std::string& path) {
  Book book(path);
  Design(book).write();
  book.close();
}

}  // namespace formats

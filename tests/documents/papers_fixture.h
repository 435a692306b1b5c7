#pragma once

#include <functional>

#include "documents/challan.h"
#include "documents/delivery_slip.h"
#include "documents/quotation.h"
#include "invoice_fixture.h"

// Offers and challans of the company of InvoiceTest, and their papers.
class PapersTest : public InvoiceTest {
 protected:
  PapersTest();

  struct Offered {
    std::string item, name, quantity, rate, amount;
    double discount, value, rateOfEach, tax;  // of CGST and of SGST
    std::string detail = ".";
  };

  // An offer whose totals are summed from its lines.
  static void quotation(double number, const std::vector<Offered>& lines);
  // So many bottles in line i as its number, at 100.
  static void longQuotation(double number, int lines);
  // So many bottles in line i as its number, at 100.50.
  static void challan(double number, int lines, double discount = 0, double charges = 0);

  // What each makes: a PDF file, without a mode the filled workbook.
  std::string mode = "PDF";
  std::filesystem::path quotationPaper(double number);
  std::filesystem::path challanPaper(double number, int design);
  std::filesystem::path slip(double number);

  Screens screens;
  PaperHost host{screens, folder / "printed.pdf"};

 private:
  std::filesystem::path made(const std::string& name, const std::function<void()>& render);
};

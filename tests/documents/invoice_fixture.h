#pragma once

#include <string>
#include <vector>

#include "base/number.h"
#include "formats/designs.h"
#include "frame/session.h"
#include "platform/paint.h"
#include "support/pdf_file.h"
#include "support/test_host.h"

// A program folder with one company-year, the designs, and a few accounts and items to bill.
class InvoiceTest : public testing::Test {
 protected:
  InvoiceTest();
  ~InvoiceTest() override;

  struct Line {
    std::string item;
    double quantity, rate, discount, amount, cgstRate, igstRate, cgst, igst;
    std::string detail = ".";
  };

  // Stores a bill as the bill screen does, its totals summed from its lines.
  static void bill(double number, const std::vector<Line>& lines, const std::string& party = "A00001",
                   const std::string& shipTo = "");
  // A bill of so many equal lines.
  static void longBill(double number, int lines);

  std::filesystem::path pdf(const std::string& number) const {
    return folder / "BILLS" / ("MIRAV_INV_" + number + ".pdf");
  }
  static int pdfPages(const std::filesystem::path& file) { return std::stoi("0" + pdfInfo(file, "Pages")); }

  TempFolder folder;
};

// The test host with the real painter; a printer that draws into a PDF file of the folder.
class PaperHost : public TestHost {
 public:
  explicit PaperHost(const Screens& screens, const std::filesystem::path& printed = {});
  paint::Painter& painter() override { return *printer_; }
  bool wasBusy = false;
  void busy(bool on) override {
    wasBusy = wasBusy || on;
    TestHost::busy(on);
  }

 private:
  std::unique_ptr<paint::Painter> printer_;
};

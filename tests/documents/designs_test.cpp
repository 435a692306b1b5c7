#include <cmath>

#include "base/text.h"
#include "documents/invoice.h"
#include "invoice_fixture.h"

// What the paper of every invoice design says: figures are read back from the PDF files.
namespace {

struct DesignCase {
  int number, slots, pages, copies;
  double width, height;  // of the paper, in points
  // The line of 5 bottles at 450.50 less 2.5%, taxed with 9% and 9%.
  const char* line;
  bool pageTotals;
};
void PrintTo(const DesignCase& design, std::ostream* out) { *out << "design " << design.number; }

// clang-format off
const DesignCase kDesigns[] = {
    {1, 24, 3, 1, 595, 842, "5 PCS 450.50 2.5 2,196.19 9 197.66 9 197.66 2,591.51", false},
    {2, 22, 3, 3, 595, 842, "5 PCS 450.50 2.5 56.31 2,196.19 18 395.32 2,591.51",   false},
    {3, 22, 7, 1, 595, 842, "5 PCS 450.50 2.5 2,196.19 18 197.66 197.66",           true },
    {4, 20, 2, 1, 842, 595, "5 PCS 450.50 2.5 2,196.19 9 197.66 9 197.66 2,591.51", false},
    {5, 22, 3, 1, 595, 842, "5 PCS 450.50 2.5 2,196.19 18 395.32 2,591.51",         false},
    {6, 22, 7, 1, 420, 595, "5 PCS 450.50 2.5 2,196.19 18 2,591.51",                true },
};
// clang-format on

// 1234567.5 as "12,34,567.50"; paise are given whole.
std::string rupees(long long paise) {
  std::string whole = std::to_string(paise / 100), cents = std::to_string(100 + paise % 100).substr(1);
  for (auto at = static_cast<long long>(whole.size()) - 3; at > 0; at -= 2)
    whole.insert(static_cast<size_t>(at), ",");
  return whole + "." + cents;
}

// The figure behind a label that begins a line or stands behind a blank, in paise.
long long figure(const std::string& text, const std::string& label) {
  for (size_t at = text.find(label); at != std::string::npos; at = text.find(label, at + 1)) {
    const size_t from = text.find_first_not_of(' ', at + label.size());
    const size_t to = std::min(text.find_first_not_of("-0123456789,.", from), text.size());
    if (from == at + label.size() || to < from + 4 || text[to - 3] != '.') continue;
    if (at > 0 && text[at - 1] != ' ' && text[at - 1] != '\n') continue;
    return std::llround(Val(replaceAll(text.substr(from, to - from), ",", "")) * 100);
  }
  return 0;
}

class Designs : public InvoiceTest, public testing::WithParamInterface<DesignCase> {
 protected:
  // Makes the paper of a stored bill and gives its file.
  std::filesystem::path paper(double number) {
    session().mbillformat = GetParam().number;
    session().mprnmode = "PDF";
    RenderGstInvoice(host, number, "SALE");
    EXPECT_EQ(host.lastMessage(), "");
    return pdf(numText(number));
  }

  // Line i has i bottles at 100: 100 i, with 9 i of each tax.
  void countedBill(double number, int lines) {
    std::vector<Line> all;
    for (int i = 1; i <= lines; ++i)
      all.push_back({"I0000002", 1.0 * i, 100, 0, 100.0 * i, 9, 0, 9.0 * i, 0});
    bill(number, all);
  }

  Screens screens;
  PaperHost host{screens};
};

std::string nameOf(const testing::TestParamInfo<DesignCase>& info) {
  return std::to_string(info.param.number);
}
INSTANTIATE_TEST_SUITE_P(Invoice, Designs, testing::ValuesIn(kDesigns), nameOf);

TEST_P(Designs, SaysWhatATaxInvoiceMust) {
  bill(1,
       {
           {"I0000002", 5,   450.5, 2.5,  2196.19, 9, 0,     197.66, 0        },
           { "MISC",         0,   0,     0,  150,       9, 0,  13.5,      0, "FREIGHT"},
           { "I0000001",         2, 799,     0, 1598,     2.5, 0, 39.95,      0, "BLUE 42"},
  },
       "A00001", "A00002");
  const auto file = paper(1);
  ASSERT_EQ(pdfPages(file), GetParam().copies);
  const char* const marks[] = {"ORIGINAL FOR RECIPIENT", "DUPLICATE FOR TRANSPORTER",
                               "TRIPLICATE FOR SUPPLIER"};
  for (int copy = 0; copy < GetParam().copies; ++copy)
    EXPECT_TRUE(has(pdfText(file, copy + 1), marks[copy])) << copy;
  const std::string text = squeezed(pdfText(file, 1));
  expectAll(text,
            {"TAX INVOICE", "Page 1 of 1",
             // The supplier, the buyer, and where the goods go.
             "SHREE GANESH TRADERS", "12, ASHRAM ROAD", "GSTIN : 24ABCDE1234F1Z5", "RAJESH & SONS",
             "24AAACR5055K1Z7", "MEHTA BROTHERS", "Place of Supply Gujarat (24)", "Reverse Charge No", "001",
             "15/06/2026", "GOODS ONCE SOLD",
             // The goods: those of the category MISC come last.
             "1 STEEL BOTTLE 73239390", "2 COTTON SHIRT, BLUE 42 62052000", "3 FREIGHT",
             // Words, and who signs.
             "FOUR THOUSAND FOUR HUNDRED FOURTY SIX ONLY", "FIVE HUNDRED TWO AND TWENTY TWO PAISE ONLY",
             "For SHREE GANESH TRADERS", "Authorised Signatory", "Subject to jurisdiction of AHMEDABAD"});
  EXPECT_TRUE(has(text, GetParam().line)) << text;
  EXPECT_FALSE(has(text, "#"));

  // 2196.19 + 150 + 1598 and twice 251.11 make 4446.41.
  EXPECT_EQ(figure(text, "Taxable value"), 394419) << text;
  EXPECT_EQ(figure(text, "CGST"), 25111);
  EXPECT_EQ(figure(text, "SGST"), 25111);
  EXPECT_EQ(figure(text, "Round off"), -41);
  EXPECT_EQ(figure(text, "₹"), 444600) << text;
}

TEST_P(Designs, AddsUpPageByPage) {
  const DesignCase& design = GetParam();
  const int lines = design.slots * 2 + (design.pages > 2 ? 3 : 0), pages = std::min(design.pages, 3);
  countedBill(2, lines);
  const auto file = paper(2);
  ASSERT_EQ(pdfPages(file), pages * design.copies);
  // Of the lines from one to another: so many hundreds of taxable value, 118 with taxes.
  const auto taxable = [](int from, int to) { return rupees((from + to) * (to - from + 1) / 2 * 10000LL); };
  long long listed = 0;
  for (int page = 1; page <= pages; ++page) {
    const std::string text = squeezed(pdfText(file, page));
    const int from = (page - 1) * design.slots + 1, to = std::min(page * design.slots, lines);
    EXPECT_TRUE(has(text, "Page " + std::to_string(page) + " of " + std::to_string(pages)));
    EXPECT_EQ(count(text, "STEEL BOTTLE"), static_cast<size_t>(to - from + 1));
    for (int line = from; line <= to; ++line) {
      const auto start =
          std::to_string(line) + " STEEL BOTTLE 73239390 " + std::to_string(line) + " PCS 100.00 ";
      EXPECT_TRUE(has(text, start + rupees(line * 10000LL))) << start << "\n" << text;
      listed += line * 10000LL;
    }
    const bool last = page == pages;
    EXPECT_EQ(has(text, "Carried forward"), !last) << text;
    EXPECT_EQ(has(text, "Bill Amount"), last);
    const auto sumRow = [&](const std::string& label, int first) {
      const int quantity = (first + to) * (to - first + 1) / 2;
      const auto row = label + " " + std::to_string(quantity) + " " + taxable(first, to);
      EXPECT_TRUE(has(text, row)) << row << "\n" << text;
    };
    if (!last) sumRow("Carried forward", 1);
    if (design.pageTotals) sumRow("Total of page " + std::to_string(page), from);
    if (design.pageTotals && page > 1) {
      const auto brought = std::to_string((from - 1) * from / 2) + " " + taxable(1, from - 1);
      EXPECT_TRUE(has(text, "Brought forward " + brought)) << text;
    }
    // A foot lists all pages.
    for (int p = 1; p <= pages && !last; ++p)
      EXPECT_TRUE(has(text, taxable((p - 1) * design.slots + 1, std::min(p * design.slots, lines)))) << p;
  }
  const std::string end = squeezed(pdfText(file, pages));
  EXPECT_EQ(figure(end, "Taxable value"), listed);
  EXPECT_EQ(figure(end, "CGST"), listed * 9 / 100);
  EXPECT_EQ(figure(end, "Taxable value") + 2 * figure(end, "CGST") + figure(end, "Round off"),
            figure(end, "₹"));
}

TEST_P(Designs, HasNoPageWithoutALine) {
  const DesignCase& design = GetParam();
  const std::tuple<int, int, bool> cases[] = {
      {design.slots,                    1,            true },
      {design.slots * design.pages + 2, design.pages, false},
  };
  for (const auto& [lines, pages, whole] : cases) {
    longBill(lines, lines);
    const auto file = paper(lines);
    EXPECT_EQ(pdfPages(file), pages * design.copies) << lines;
    const std::string text = pdfText(file);
    EXPECT_EQ(has(text, whole ? "more lines not shown" : "2 more lines not shown"), !whole) << lines;
    const auto printed = std::min(lines, design.slots * design.pages);
    EXPECT_EQ(count(text, "STEEL BOTTLE"), static_cast<size_t>(printed * design.copies)) << lines;
  }
}

TEST_P(Designs, ChargesIgstToAnotherState) {
  bill(3,
       {
           {"I0000002", 1, 1234567.5, 0, 1234567.5, 0, 18, 0, 222222.15}
  },
       "A00002");
  const std::string text = squeezed(pdfText(paper(3), 1));
  EXPECT_TRUE(has(text, "Place of Supply Maharashtra (27)")) << text;
  EXPECT_EQ(figure(text, "IGST"), 22222215) << text;
  EXPECT_EQ(figure(text, "CGST"), 0);
  EXPECT_EQ(figure(text, "₹"), 145679000);
  EXPECT_TRUE(has(text, "12,34,567.50"));
  EXPECT_NE(text.find("-"), std::string::npos);
}

TEST_P(Designs, KeepsEverythingOnThePaper) {
  const char* const longName = "SHREE MAHALAXMI ELECTRICALS AND HARDWARE TRADING COMPANY PRIVATE LIMITED";
  data().exec("UPDATE ACCOUNT SET ACC_NAME = ?, ADD1 = ?, ADD2 = ? WHERE ACC_CD = 'A00001'", longName,
              "SHOP NO 14-15-16, GROUND FLOOR, SILVER BUSINESS POINT, OPPOSITE CITY LIGHT",
              "NEAR THE RAILWAY OVER BRIDGE, UTRAN TO MOTA VARACHHA ROAD");
  data().exec("UPDATE ITEM SET ITEM_NAME = ? WHERE ITEM_CD = 'I0000001'",
              "CERAMIC CONNECTOR THREE WAY WITH BRASS TERMINALS AND MOUNTING SCREWS SET OF TEN");
  bill(4, {
              {"I0000001", 99999, 99999.99, 0, 847457626.27, 9, 0, 76271186.36, 0}
  });
  const auto file = paper(4);
  const std::string text = pdfText(file, 1);
  // 99,99,99,999 rupees: the words, and each figure whole.
  expectAll(text, {"NINTY NINE CRORE NINTY NINE LAKH NINTY NINE THOUSAND NINE HUNDRED NINTY NINE ONLY",
                   "MAHALAXMI", "LIMITED", "SILVER", "VARACHHA", "UDHNA", "394210", "CERAMIC", "…"});
  EXPECT_EQ(figure(text, "Taxable value"), 84745762627) << text;
  EXPECT_EQ(figure(text, "₹"), 99999999900);
  EXPECT_FALSE(has(text, "#"));
  EXPECT_GT(pdfWords(file).size(), 100u);
  expectOnPaper(file, GetParam().width, GetParam().height);
}

}  // namespace

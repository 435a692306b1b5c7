#include <fstream>

#include "papers_fixture.h"

// What the papers beside the invoice say: figures are read back from the PDF files.
namespace {

namespace fs = std::filesystem;
using Papers = PapersTest;

TEST_F(Papers, AQuotationSaysWhatIsOffered) {
  quotation(1, {
                   {"I0000002",              "STEEL BOTTLE", "5",   "450.5",  "2591.51", 2.5,  2196.19, 9,     197.66   },
                   { "I0000001",         "COTTON SHIRT",            "2", "799", "1677.9",         0, 1598,     2.5, 39.95, "BLUE 42"},
                   { "MISC", "INSTALLATION AT SITE",            "1", "150",    "150",         0,  150,       0,     0,     "JOB"},
  });
  const auto file = quotationPaper(1);
  ASSERT_EQ(pdfPages(file), 1);
  const auto text = squeezed(pdfText(file));
  // 2196.19 + 1598 + 150 and twice 237.61 make 4419.41.
  expectAll(text, {
                      "QUOTATION",
                      "Page 1 of 1",
                      "SHREE GANESH TRADERS",
                      "RAJESH & SONS",
                      "GSTIN : 24AAACR5055K1Z7",
                      "Quotation No 1 Date 15/06/2026",
                      "Place of Supply Gujarat (24)",
                      "Kind Attn. : R PATEL",
                      "Your Ref. : MAIL OF 12 JUNE",
                      "Subject : BOTTLES FOR THE CANTEEN",
                      "1 STEEL BOTTLE 73239390 5 PCS 450.50 2.5 2,196.19 18 395.32 2,591.51",
                      "2 COTTON SHIRT, BLUE 42 62052000 2 PCS 799.00 1,598.00 5 79.90 1,677.90",
                      "3 INSTALLATION AT SITE, JOB 1 PCS 150.00 150.00 150.00",
                      "Total 8 3,944.19 475.22 4,419.41",
                      "Taxable value 3,944.19",
                      "CGST 237.61",
                      "SGST 237.61",
                      "Round off -0.41",
                      "₹ 4,419.00",
                      "Rupees : FOUR THOUSAND FOUR HUNDRED NINTEEN ONLY",
                      "Authorised Signatory",
                  });
}

TEST_F(Papers, AChallanSaysWhatGoesWithTheGoods) {
  challan(1, 2, 30, 5.25);
  data().exec("UPDATE CHLNITM SET ITEM_CD = 'MISC', ITEM_DESC = 'LOOSE PARTS' WHERE SR_NO = 2");
  for (const int design : {8, 9}) {
    const auto text = squeezed(pdfText(challanPaper(1, design), 1));
    // 100.5 + 201 = 301.5, less 30 with 5.25
    expectAll(text, {
                        "DELIVERY CHALLAN",
                        "ORIGINAL FOR CONSIGNEE",
                        "SHREE GANESH TRADERS",
                        "12, ASHRAM ROAD, AHMEDABAD",
                        "GSTIN : 24ABCDE1234F1Z5 State : Gujarat (24)",
                        "RAJESH & SONS",
                        "PLOT 14, UDHNA, SURAT - 394210",
                        "GSTIN : 24AAACR5055K1Z7",
                        "DC / 1",
                        "15/06/2026",
                        "Place of Supply : Gujarat (24)",
                        "Order No : PO/7",
                        "Transport : MARUTI",
                        "Destination : ANAND",
                        "1 STEEL BOTTLE 73239390 1 PCS 100.50 100.50",
                        "2 LOOSE PARTS 2 PCS 100.50 201.00",
                        "Total 3 301.50",
                        "Discount 10 % -30.00",
                        "Charges 5.25",
                        "276.75",
                        "TWO HUNDRED SEVENTY SIX AND SEVENTY FIVE",
                        "Remarks : ON APPROVAL",
                        "Receiver's Signature",
                        "Authorised Signatory",
                    });
    EXPECT_FALSE(has(text, "L.R."));
  }
  const char* const marks[] = {"ORIGINAL FOR CONSIGNEE", "DUPLICATE FOR TRANSPORTER",
                               "TRIPLICATE FOR CONSIGNER"};
  const auto copies = challanPaper(1, 8);
  ASSERT_EQ(pdfPages(copies), 3);
  for (int copy = 0; copy < 3; ++copy) {
    const auto text = pdfText(copies, copy + 1);
    for (const char* mark : marks) EXPECT_EQ(has(text, mark), mark == marks[copy]) << copy;
  }

  // Without rates it tells quantities alone.
  data().exec("UPDATE CHLNITM SET RATE = 0, NET_AMOUNT = 0");
  data().exec("UPDATE CHLN SET DISC_PERC = 0, DISC_AMT = 0, CHRGS = 0, NET_AMT = 0");
  const auto bare = squeezed(pdfText(challanPaper(1, 9)));
  expectAll(bare, {"1 STEEL BOTTLE 73239390 1 PCS", "Total 3"});
  for (const char* none : {"0.00", "Rupees", "Net value", "Discount"})
    EXPECT_EQ(count(bare, none), 0u) << none;
}

TEST_F(Papers, AChallanRunsOverItsPages) {
  const std::tuple<int, int, int, int> designs[] = {
      {8, 17, 6, 3},
      {9, 26, 3, 1},
  };  // with their slots, pages and copies
  for (const auto& [design, slots, pages, copies] : designs)
    for (const int lines : {slots, slots * pages + 2}) {
      const double number = 1000 * design + lines;
      challan(number, lines);
      const auto file = challanPaper(number, design);
      const int printed = std::min((lines + slots - 1) / slots, pages);
      ASSERT_EQ(pdfPages(file), printed * copies) << lines;
      const auto first = squeezed(pdfText(file, 1)), last = squeezed(pdfText(file, printed));
      EXPECT_EQ(count(pdfText(file), "STEEL BOTTLE"),
                static_cast<size_t>(std::min(lines, slots * pages) * copies));
      EXPECT_EQ(has(first, "Carried forward " + std::to_string(slots * (slots + 1) / 2) + " "), printed > 1);
      EXPECT_TRUE(has(last, "Total " + std::to_string(lines * (lines + 1) / 2) + " ")) << last;
      const bool more = lines > slots * pages;
      EXPECT_EQ(has(last, more ? "2 more lines not shown" : "more lines not shown"), more);
    }
}

TEST_F(Papers, ADeliverySlipIsMadeOfABill) {
  longBill(7, 18);
  data().exec("UPDATE SALE SET BL_TYPE = 'RETAIL'");
  const auto file = slip(7);
  ASSERT_EQ(pdfPages(file), 2);
  expectAll(
      squeezed(pdfText(file, 1)),
      {"Delivery Slip", "GSTIN : 24ABCDE1234F1Z5", "RAJESH & SONS", "007", "15/06/2026", "L.R. No : LR-4471",
       "17 STEEL BOTTLE 73239390 1 PCS 100.00 100.00", "Carried forward 17 1,700.00"});
  expectAll(squeezed(pdfText(file, 2)), {"18 STEEL BOTTLE", "Total 18 1,800.00", "GST, round off 324.00",
                                         "Net value 2,124.00", "TWO THOUSAND ONE HUNDRED TWENTY FOUR"});
}

}  // namespace

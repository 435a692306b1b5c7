#include "papers_fixture.h"

PapersTest::PapersTest() {
  session().mquotformat = 7;
  session().mchlnformat = 8;
  session().mprnmode = "PDF";
}

void PapersTest::quotation(double number, const std::vector<Offered>& lines) {
  double total = 0, tax = 0, quantity = 0;
  int serial = 0;
  for (const auto& line : lines) {
    data().exec(
        "INSERT INTO QUOTITM (VOUCH_NO, VOUCH_DT, SRNO, ITEM_CD, ITEM_NAME, SIZE_CD, QUANTITY, RATE, DISC,"
        " AMOUNT, ITEM_DESC, ENTRY_TYP, CGSTRT, SGSTRT, IGSTRT, CGSTAMT, SGSTAMT, IGSTAMT, ASSIVAL)"
        " VALUES (?, '2026-06-15', ?, ?, ?, 'PCS', ?, ?, ?, ?, ?, 'QUOTATION', ?, ?, 0, ?, ?, 0, ?)",
        number, ++serial, line.item, line.name, line.quantity, line.rate, line.discount, line.amount,
        line.detail, line.rateOfEach, line.rateOfEach, line.tax, line.tax, line.value);
    total += line.value + 2 * line.tax;
    tax += line.tax;
    quantity += std::stod(line.quantity);
  }
  data().exec(
      "INSERT INTO QUOT (VOUCH_NO, VOUCH_DT, PARTY_CD, BL_PARTY_CD, TO_NAME, SUB_DESC, YOUR_REF_NO, DESC1,"
      " DESC2, DESC3, DESC8, ITEM_AMT, TOTQTY, NET_AMT, TCGST, TSGST, TIGST, ENTRY_TYP)"
      " VALUES (?, '2026-06-15', 'A00001', 'A00001', 'R PATEL', 'BOTTLES FOR THE CANTEEN',"
      " 'MAIL OF 12 JUNE', 'FIRM', '.', '50% ADVANCE', '30 DAYS', ?, ?, ?, ?, ?, 0, 'QUOTATION')",
      number, Round(total, 2), quantity, Round(total, 0), Round(tax, 2), Round(tax, 2));
}

void PapersTest::longQuotation(double number, int lines) {
  std::vector<Offered> all;
  for (int i = 1; i <= lines; ++i)
    all.push_back({"I0000002", "STEEL BOTTLE", std::to_string(i), "100", std::to_string(118 * i), 0,
                   100.0 * i, 9, 9.0 * i});
  quotation(number, all);
}

void PapersTest::challan(double number, int lines, double discount, double charges) {
  double total = 0;
  for (int i = 1; i <= lines; ++i) {
    data().exec(
        "INSERT INTO CHLNITM (VOUCH_NO, VOUCH_DT, BOOK_CD, SR_NO, ITEM_CD, SIZE_CD, QUANTITY, RATE,"
        " NET_AMOUNT, DESC1, ITEM_DESC)"
        " VALUES (?, '2026-06-15', 'CH', ?, 'I0000002', 'PCS', ?, 100.5, ?, '.', '.')",
        number, i, i, 100.5 * i);
    total += 100.5 * i;
  }
  data().exec(
      "INSERT INTO CHLN (VOUCH_NO, VOUCH_DT, BOOK_CD, PARTY_CD, CHLN_NO, CHLN_TYP, ORDER_NO, TRANSPORT,"
      " GR_NO, GR_DATE, DESTI, NARRATION, ITEM_AMT, DISC_PERC, DISC_AMT, CHRGS, NET_AMT)"
      " VALUES (?, '2026-06-15', 'CH', 'A00001', ?, 'DC', 'PO/7', 'MARUTI', '.', '2026-06-16', 'ANAND',"
      " 'ON APPROVAL', ?, 10, ?, ?, ?)",
      number, number, total, discount, charges, total - discount + charges);
}

std::filesystem::path PapersTest::made(const std::string& name, const std::function<void()>& render) {
  session().mprnmode = mode;
  render();
  EXPECT_EQ(host.lastMessage(), "") << name;
  return folder / "BILLS" / (name + ".pdf");
}

std::filesystem::path PapersTest::quotationPaper(double number) {
  return made("MIRAV_QUOT_" + numText(number), [&] { RenderQuotation(host, number, "QUOTATION"); });
}

std::filesystem::path PapersTest::challanPaper(double number, int design) {
  session().mchlnformat = design;
  return made("MIRAV_CH_" + numText(number), [&] { RenderChallan(host, number, "CH"); });
}

std::filesystem::path PapersTest::slip(double number) {
  session().mchlnformat = 8;
  session().mprnsheet = "D_C";
  return made("MIRAV_INV_" + numText(number), [&] { RenderDeliverySlip(host, number, "Delivery Slip"); });
}

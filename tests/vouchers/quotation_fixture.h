#pragma once

#include "vouchers/bill_fixture.h"
#include "vouchers/quotation_lines.h"
#include "vouchers/quotations.h"

class QuotationTest : public BillTest {
 protected:
  static const Book& book() { return quotationBook("QUOTATION"); }

  void openAs(const std::string& type = "QUOTATION") {
    session().mentrytype = type;
    host.open("FRMQUOT", {});
  }
  // From Add to the first item field.
  void startOffer(const std::string& party = "A00001") {
    if (host.onTop() != "FRMQUOT") openAs();
    host.press("cmdadd");
    host.enter();  // the date
    host.fillEnter("Text1(4)", party);
    host.keys({KeyCode::Enter, KeyCode::Enter, KeyCode::Enter, KeyCode::Enter});
  }
  void typeOffered(const std::string& item, const std::string& quantity, const std::string& rate,
                   const std::string& discount) {
    host.fillEnter("Text1(12)", item);
    host.fillEnter("Text1(8)", quantity);
    host.fillEnter("Text1(9)", rate);
    host.fillEnter("Text1(16)", discount);
    host.enter();
  }
  void saveOffer(const std::string& button = "CancelButton") {
    host.go("Text1(6)");
    host.enter();
    host.insideModal.push_back([this, button] {
      closingWords = host.text("Label1");
      host.press(button);
    });
    host.press("CMDSAVE");
  }

  // An offer past the screen; its lines come from the work table.
  static QuotationHeader offer(double number, double amount = 106.19) {
    return {
        .number = number,
        .date = bill(0).date,
        .party = "A00001 ",
        .reference = "Q/0012",
        .attention = "O'NEIL ",
        .subject = "પંખા",
        .yourReference = "MAIL",
        .terms = {"T1", "T2", "T3", "T4", "T5", "T6", "T7 ", "T8"},
        .quantity = 3,
        .cgst = 8.1,
        .sgst = 8.1,
        .igst = 0,
        .items = amount,
        .amount = amount
    };
  }
  static void offeredLine(Database& db, const std::string& item, double quantity, double serial,
                          double number = 99) {
    db.exec(
        "INSERT INTO T_QUOTITM (VOUCH_NO, SRNO, TNO, T_NO, ITEM_CD, QUANTITY, RATE, AMOUNT, ENTRY_TYP)"
        " VALUES (?, ?, ?, ?, ?, ?, 33.25, ?, 'QUOTATION')",
        number, serial, serial, serial, item, quantity, 33.25 * quantity);
  }
};

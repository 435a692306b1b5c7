#pragma once

#include "vouchers/bill_fixture.h"
#include "vouchers/challans.h"

class ChallanTest : public BillTest {
 protected:
  void openChallans(const Entry& entry = {}) {
    session().mentrytype = "CH";
    host.open("FRMCHLN", entry);
  }
  // From Add to the first item field.
  void startChallan(const std::string& party = "A00001", const std::string& type = "DC") {
    if (host.onTop() != "FRMCHLN") openChallans();
    host.press("cmdadd");
    host.enter();  // the date
    host.fillEnter("Text1(4)", party);
    host.fillEnter("Text1(15)", "PO/7");
    host.fillEnter("Text1(23)", type);
    host.enter();
  }
  void typeGoods(const std::string& item, const std::string& quantity, const std::string& rate) {
    host.fillEnter("Text1(5)", item);
    host.fillEnter("Text1(8)", quantity);
    host.fillEnter("Text1(9)", rate);
    host.enter();
  }
  void saveGoods(const std::string& button = "CancelButton") {
    host.go("Text1(11)");
    host.enter();
    host.insideModal.push_back([this, button] {
      closingWords = host.text("Label1");
      host.press(button);
    });
    host.press("CMDSAVE");
  }

  // A challan past the screen; its lines come from the work table.
  static ChallanHeader challan(double number, double amount = 105.5) {
    return {
        .number = number,
        .date = bill(0).date,
        .party = "A00001",
        .orderNumber = "PO/7 ",
        .type = "DC",
        .challanNumber = "012",
        .narration = "O'NEIL_ગુજરાતી_% ",
        .discountPercent = 5,
        .discount = 5,
        .charges = 10.5,
        .transport = "MARUTI",
        .lrNumber = "LR'9",
        .destination = " ",
        .items = 100,
        .quantity = 2,
        .amount = amount,
    };
  }
  static void goods(Database& db, const std::string& item, double quantity, double serial) {
    db.exec("INSERT INTO T_CHLNITM (VOUCH_NO, BOOK_CD, SR_NO, ITEM_CD, QUANTITY) VALUES (99, 'CH', ?, ?, ?)",
            serial, item, quantity);
  }
  std::string ledger(const std::string& where = "BOOK_CD = 'CH'") {
    return line(
        "SELECT GROUP_CONCAT(VOUCH_TYPE || ' ' || PARTY_CD || ' ' || PARTY_TCD || ' ' || NUMTEXT(VOUCH_AMT)"
        " || ' ' || PARTY_BL || ' ' || NARRATION || ' ' || BW_AB || ' ' || IFNULL(SUB_DESC, '-'), '/')"
        " FROM (SELECT * FROM ALEDGER WHERE " +
        where + " ORDER BY rowid)");
  }
};

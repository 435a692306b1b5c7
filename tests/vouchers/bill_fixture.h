#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "base/number.h"
#include "base/pattern.h"
#include "base/text.h"
#include "documents/mymsgfrm.h"
#include "frame/session.h"
#include "masters/frmhlp.h"
#include "store/row_writer.h"
#include "store/templates.h"
#include "support/on_server.h"
#include "support/temp_folder.h"
#include "support/test_host.h"
#include "vouchers/challans.h"
#include "vouchers/quotations.h"
#include "vouchers/saving.h"
#include "vouchers/screens.h"

// Stands for the print dialog: keeps with what it was opened.
class StandIn : public Screen {
 public:
  explicit StandIn(Host& theHost) : Screen(theHost, look()) {}
  void opened(const Opening& opening) override { last = opening; }
  static inline Opening last;

 private:
  static const ScreenSpec& look() {
    static const ScreenSpec s{
        .name = "dlg1", .caption = "", .window = Window::Dialog, .layout = {}, .controls = {}};
    return s;
  }
};

// A company of Gujarat (24) with a few parties and items, open in the session; bills, challans and
// offers are typed on their screens or saved past them.
class BillTest : public ::testing::Test {
 protected:
  BillTest() : host(known()) {
    static const TempFolder made;
    if (!std::filesystem::exists(made / "M00126.mdb")) {
      makeCompanyDatabase(made / "M00126.mdb");
      Database db;
      db.open(made / "M00126.mdb");
      fill(db);
    }
    std::filesystem::copy_file(made / "M00126.mdb", folder / "M00126.mdb");
    ontoServer(folder / "M00126.mdb");
    Session& s = session();
    s.cndata = std::make_unique<Database>();
    s.cndata->open(folder / "M00126.mdb");
    s.mapppath = folder.path().string();
    s.mdataname = "M00126";
    s.mmobile = "9090909090";
    s.musername = "RAJ";
    s.mstatecd = "24";
    s.mstartdt = Date{std::chrono::year{2026}, std::chrono::April, std::chrono::day{1}};
    s.menddt = Date{std::chrono::year{2027}, std::chrono::March, std::chrono::day{31}};
    s.mlastacc = s.mlastitem = "";
  }
  ~BillTest() override { session().cndata.reset(); }

  static void addItem(Database& db, const std::string& code, const std::string& name, const Value& tax,
                      double rate = 0, double discount = 0) {
    db.exec("INSERT INTO ITEM (ITEM_CD, ITEM_NAME, DEPT_CD, RATEOFTAX) VALUES (?, ?, 'E001', ?)", code, name,
            tax);
    db.exec("INSERT INTO ITEMDTL (ITEM_CD, SIZE_CD, SALE_RATE1, SALE_DISC) VALUES (?, 'PCS', ?, ?)", code,
            rate, discount);
  }

  static void fill(Database& db) {
    db.exec(R"(
      INSERT INTO ACCOUNT (ACC_CD, ACC_NAME, STATECD, AREA, GSTINNO, CREDIT_DAY, GROUP_CD, OP_BAL, CL_BAL, ADD1, ADD2, PHONE1)
      SELECT *, 85, 38460, 38460, '14 STATION ROAD', 'NEAR BUS STAND', '9800000023' FROM (VALUES
        ('A00001', 'PATEL TRADING CO', 24,   'ANAND',     '24ABCDE1234F1Z5', 30),
        ('A00002', 'MUMBAI STORES',    27,   'DADAR',     '27ABCDE1234F1Z5', 0),
        ('A00003', 'CASH',             NULL, '',          '',                0),
        ('A00004', 'O''NEIL & ભાઈ',     24,   'ગાંધીનગર',   '',                0)))");
    addItem(db, "I0000001", "CEILING FAN", 18, 1640, 8);
    addItem(db, "I0000002", "PVC WIRE", 18);
    addItem(db, "I0000003", "SALT", 0, 20);
    addItem(db, "I0000004", "NO RATE SET", Value(), 10);
    db.exec("INSERT INTO ITEM (ITEM_CD, ITEM_NAME, DEPT_CD) VALUES ('I0000009', 'WITHOUT UNITS', 'E001')");
  }

  static const Screens& known() {
    static const Screens screens = [] {
      Screens s;
      addVoucherScreens(s);
      s.add<mymsgfrm>("mymsgfrm");
      s.add<FRMHLP>("FRMHLP");
      s.add<StandIn>("dlg1");
      return s;
    }();
    return screens;
  }

  Database& db() { return data(); }
  std::string line(const std::string& sql) {
    const auto row = db().first(sql);
    if (!row) return "none";
    std::string text;
    for (int i = 0; i < row->count(); ++i) text += (i > 0 ? "|" : "") + row->text(i);
    return text;
  }
  // Vouchers whose debits and credits differ, or whose header stands without its ledger.
  static std::string unbalanced(Database& db) {
    return db.text(R"(SELECT GROUP_CONCAT(VOUCH_NO) FROM SALE WHERE ABS((SELECT IFNULL(SUM(
      CASE VOUCH_TYPE WHEN 'D' THEN VOUCH_AMT ELSE -VOUCH_AMT END), 1e9) FROM ALEDGER AS A
      WHERE A.VOUCH_NO = SALE.VOUCH_NO AND A.BOOK_CD = SALE.BOOK_CD)) > 0.004)");
  }

  // Vouchers and who saves them, past the screen; lines come from the work tables.
  static constexpr Date kDay{std::chrono::year{2026}, std::chrono::June, std::chrono::day{15}};
  // clang-format off
  static Fields bill(double number, double amount = 118) {
    return {
        {"VOUCH_NO", number},  {"VOUCH_DT", kDay},       {"PARTY_CD", "A00001"}, {"CASH_CD", "A00002"},
        {"BL_TYPE", "TAX"},    {"BILL_NO", "0001 "},     {"ORDER_NO", "PO/7"},   {"CHLN_NO", 12.5},
        {"NARRATION", "O'NEIL_ગુજરાતી_% "},              {"TRANS_CD", 3},        {"TRANSPORT", "MARUTI"},
        {"DESTI", "ANAND"},    {"GR_NO", "LR'9"},        {"PARCLE", "2"},        {"CR_DAYS", 30},
        {"ITEM_AMT", 100},     {"NO_OF_ITEM", 2},        {"TCGSTRT", 9},         {"TSGSTRT", 9},
        {"TIGSTRT", 0},        {"ROUND_OFF", Round(amount - 118, 2)},            {"NET_AMT", amount},
    };
  }
  static Fields challan(double number, double amount = 105.5) {
    return {
        {"VOUCH_NO", number},  {"VOUCH_DT", kDay},       {"PARTY_CD", "A00001"}, {"ORDER_NO", "PO/7 "},
        {"CHLN_TYP", "DC"},    {"CHLN_NO", "012"},       {"NARRATION", "O'NEIL_ગુજરાતી_% "},
        {"DISC_PERC", 5},      {"DISC_AMT", 5},          {"CHRGS", 10.5},        {"TRANSPORT", "MARUTI"},
        {"GR_NO", "LR'9"},     {"DESTI", " "},           {"ITEM_AMT", 100},      {"NO_OF_ITEM", 2},
        {"NET_AMT", amount},
    };
  }
  static Fields offer(double number, double amount = 106.19) {
    return {
        {"VOUCH_NO", number},  {"VOUCH_DT", kDay},       {"PARTY_CD", "A00001 "}, {"REF_NO", "Q/0012"},
        {"TO_NAME", "O'NEIL "}, {"SUB_DESC", "પંખા"},     {"YOUR_REF_NO", "MAIL"},
        {"DESC1", "T1"}, {"DESC2", "T2"}, {"DESC3", "T3"}, {"DESC4", "T4"},
        {"DESC5", "T5"}, {"DESC6", "T6"}, {"DESC7", "T7 "}, {"DESC8", "T8"},
        {"TOTQTY", 3},         {"TCGST", 8.1},           {"TSGST", 8.1},          {"TIGST", 0},
        {"ITEM_AMT", amount},  {"NET_AMT", amount},
    };
  }
  // clang-format on
  static SaveStamp stamp() {
    return {
        {kDay, 10, 30, 0},
        "RAJ", "9090909090", "M00126"
    };
  }
  static void workLine(Database& db, const std::string& item, double quantity, double serial) {
    db.exec("INSERT INTO T_SLITM (VOUCH_NO, BOOK_CD, SR_NO, ITEM_CD, QUANTITY) VALUES (99, 'SA', ?, ?, ?)",
            serial, item, quantity);
  }
  static void goods(Database& db, const std::string& item, double quantity, double serial) {
    db.exec("INSERT INTO T_CHLNITM (VOUCH_NO, BOOK_CD, SR_NO, ITEM_CD, QUANTITY) VALUES (99, 'CH', ?, ?, ?)",
            serial, item, quantity);
  }
  static void offeredLine(Database& db, const std::string& item, double quantity, double serial,
                          double number = 99) {
    db.exec(
        "INSERT INTO T_QUOTITM (VOUCH_NO, SRNO, TNO, T_NO, ITEM_CD, QUANTITY, RATE, AMOUNT, ENTRY_TYP)"
        " VALUES (?, ?, ?, ?, ?, ?, 33.25, ?, 'QUOTATION')",
        number, serial, serial, serial, item, quantity, 33.25 * quantity);
  }

  void open() { host.open("GSTSAPU", {.entryType = billType}); }
  // From Add to the first item field.
  void startBill(const std::string& party = "A00001") {
    startVoucher("GSTSAPU", billType, party);
    host.go("bill_type");
    host.keys({KeyCode::Enter, KeyCode::Enter, KeyCode::Enter, KeyCode::Enter});
  }
  void startChallan(const std::string& party = "A00001", const std::string& type = "DC") {
    startVoucher("FRMCHLN", "CH", party);
    host.fillEnter("order_no", "PO/7");
    host.fillEnter("challan_type", type);
    host.enter();
  }
  void startOffer(const std::string& party = "A00001") {
    startVoucher("FRMQUOT", "QUOTATION", party);
    host.keys({KeyCode::Enter, KeyCode::Enter, KeyCode::Enter, KeyCode::Enter});
  }
  // A whole line by its item, quantity, rate and, but for a challan, discount.
  void typeLine(const std::string& item, const std::string& quantity, const std::string& rate,
                const std::string& discount) {
    typeFields({
        {"item",     item    },
        {"quantity", quantity},
        {"rate",     rate    },
        {"discount", discount}
    });
  }
  void typeGoods(const std::string& item, const std::string& quantity, const std::string& rate) {
    typeFields({
        {"item",     item    },
        {"quantity", quantity},
        {"rate",     rate    }
    });
  }
  // From the last line through Save; the message window is answered by the given button.
  void save(const std::string& button = "CancelButton") {
    host.fillEnter("parcels", "1");
    pressSave(button);
  }
  void saveGoods(const std::string& button = "CancelButton") { saveAfter("destination", button); }
  void saveOffer(const std::string& button = "CancelButton") { saveAfter("subject_to", button); }
  void saveAfter(const std::string& lastField, const std::string& button = "CancelButton") {
    host.go(lastField);
    host.enter();
    pressSave(button);
  }

  // What some of the fields show, by their names.
  std::string shown(const std::string& names) const {
    std::string text;
    for (const std::string& name : split(names, " ")) text += "|" + host.text(name);
    return text.substr(1);
  }

  std::string billType;  // the kind that the bill screen opens with
  std::string closingWords;
  TempFolder folder;
  TestHost host;

 private:
  // To the field after the party; a screen that stands open is gone on with.
  void startVoucher(const std::string& screen, const std::string& entryType, const std::string& party) {
    if (host.onTop() != screen) host.open(screen, {.entryType = entryType});
    host.press("cmdadd");
    host.enter();  // the date
    host.fillEnter("party", party);
  }
  void typeFields(std::initializer_list<std::pair<const char*, std::string>> typed) {
    for (const auto& [field, text] : typed) host.fillEnter(field, text);
    host.enter();
  }
  void pressSave(const std::string& button) {
    host.insideModal.push_back([this, button] {
      closingWords = host.text("Label1");
      host.press(button);
    });
    host.press("CMDSAVE");
  }
};

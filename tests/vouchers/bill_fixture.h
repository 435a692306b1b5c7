#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "base/number.h"
#include "documents/mymsgfrm.h"
#include "frame/session.h"
#include "masters/frmhlp.h"
#include "store/row_writer.h"
#include "store/templates.h"
#include "support/temp_folder.h"
#include "support/test_host.h"
#include "vouchers/screens.h"

// Stands for a screen that a bill opens: keeps with what, and closes when told.
class StandIn : public Screen {
 public:
  StandIn(Host& theHost, const ScreenSpec& look) : Screen(theHost, look) {}
  void opened(const Entry& entry) override { last = entry; }
  static inline Entry last;
};

template <int>
class NamedStandIn : public StandIn {
 public:
  explicit NamedStandIn(Host& theHost) : StandIn(theHost, look()) {}
  static inline std::string name;

 private:
  static const ScreenSpec& look() {
    static const ScreenSpec s{
        .name = name, .caption = name, .window = Window::Dialog, .layout = {}, .controls = {}};
    return s;
  }
};

// A company of Gujarat (24) with a few parties and items, open in the session.
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
    s.mlastacc = s.mlastitem = s.mreportkey = "";
  }
  ~BillTest() override { session().cndata.reset(); }

  static void addItem(Database& db, const std::string& code, const std::string& name, const Value& tax,
                      double rate = 0, double discount = 0, const std::string& unit = "PCS") {
    insertRow(db, "ITEM",
              {
                  {"ITEM_CD",   code  },
                  {"ITEM_NAME", name  },
                  {"DEPT_CD",   "E001"},
                  {"RATEOFTAX", tax   }
    });
    insertRow(db, "ITEMDTL",
              {
                  {"ITEM_CD",    code    },
                  {"SIZE_CD",    unit    },
                  {"SALE_RATE1", rate    },
                  {"SALE_DISC",  discount}
    });
  }

  static void fill(Database& db) {
    struct Party {
      const char *code, *name;
      Value state;
      const char *area, *gstin;
      double days;
    };
    const std::vector<Party> parties = {
        {"A00001", "PATEL TRADING CO",   24,      "ANAND",                    "24ABCDE1234F1Z5", 30},
        {"A00002", "MUMBAI STORES",      27,      "DADAR",                    "27ABCDE1234F1Z5", 0 },
        {"A00003", "CASH",               Value(), "",                         "",                0 },
        {"A00004", "O'NEIL & ભાઈ", 24,      "ગાંધીનગર", "",                0 },
    };
    for (const Party& p : parties)
      insertRow(db, "ACCOUNT",
                {
                    {"ACC_CD",     p.code           },
                    {"ACC_NAME",   p.name           },
                    {"GROUP_CD",   85               },
                    {"STATECD",    p.state          },
                    {"AREA",       p.area           },
                    {"GSTINNO",    p.gstin          },
                    {"CREDIT_DAY", p.days           },
                    {"CL_BAL",     38460            },
                    {"ADD1",       "14 STATION ROAD"},
                    {"ADD2",       "NEAR BUS STAND" },
                    {"PHONE1",     "9800000023"     }
      });
    addItem(db, "I0000001", "CEILING FAN", 18, 1640, 8);
    addItem(db, "I0000002", "PVC WIRE", 18);
    addItem(db, "I0000003", "SALT", 0, 20);
    addItem(db, "I0000004", "NO RATE SET", Value(), 10);
    insertRow(db, "ITEM",
              {
                  {"ITEM_CD",   "I0000009"     },
                  {"ITEM_NAME", "WITHOUT UNITS"},
                  {"DEPT_CD",   "E001"         }
    });
  }

  static const Screens& known() {
    static const Screens screens = [] {
      Screens s;
      addVoucherScreens(s);
      s.add<mymsgfrm>("mymsgfrm");
      s.add<FRMHLP>("FRMHLP");
      NamedStandIn<1>::name = "dlg1";
      s.add<NamedStandIn<1>>("dlg1");
      NamedStandIn<2>::name = "frmacc";
      s.add<NamedStandIn<2>>("frmacc");
      NamedStandIn<3>::name = "FRMITEM1";
      s.add<NamedStandIn<3>>("FRMITEM1");
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

  void open() { host.open("GSTSAPU", {}); }
  // From Add to the first item field.
  void startBill(const std::string& party = "A00001") {
    if (host.onTop() != "GSTSAPU") open();
    host.press("cmdadd");
    host.enter();  // the date
    host.fillEnter("Text1(4)", party);
    host.go("Text1(47)");
    host.keys({KeyCode::Enter, KeyCode::Enter, KeyCode::Enter, KeyCode::Enter});
  }
  void typeLine(const std::string& item, const std::string& quantity, const std::string& rate,
                const std::string& discount) {
    host.fillEnter("Text1(5)", item);
    host.fillEnter("Text1(8)", quantity);
    host.fillEnter("Text1(9)", rate);
    host.fillEnter("Text1(11)", discount);
    host.enter();
  }
  // From the last line through Save; the message window is answered by the given button.
  void save(const std::string& button = "CancelButton") {
    host.fillEnter("Text1(45)", "1");
    host.insideModal.push_back([this, button] {
      closingWords = host.text("Label1");
      host.press(button);
    });
    host.press("CMDSAVE");
  }

  std::string closingWords;
  TempFolder folder;
  TestHost host;
};

#include "vouchers/bill_fixture.h"

namespace {

using enum KeyCode;

class Lookups : public BillTest {
 protected:
  struct Keys {
    const char* field;
    std::vector<Key> keys;
    size_t columns = 0;  // where they are looked at
  };
  // Each opens a lookup that has rows, and Escape leaves the field as it is.
  void readEach(const std::vector<Keys>& cases) {
    for (const auto& [field, keys, columns] : cases)
      for (const Key& key : keys) {
        SCOPED_TRACE(host.onTop() + " " + field + " " + nameOf(key));
        bool asked = false;
        host.insideModal = {[&] {
          asked = true;
          EXPECT_GE(host.at("grdDataGrid").grid.count(), 1U);
          if (columns > 0) {
            EXPECT_EQ(host.at("grdDataGrid").grid.columns.size(), columns);
          }
          host.escape();
        }};
        Screen::set(host.at("Text1(5)"), "I0000001");
        host.fill(field, "");
        host.key(key);
        EXPECT_TRUE(asked);
        EXPECT_EQ(host.focus(), field);
      }
  }
};

}  // namespace

TEST_F(Lookups, OfABillRead) {
  startBill();
  host.fill("Text1(46)", "IVORY");
  typeLine("I0000001", "2", "100", "0");
  for (const auto& [field, typed] : {
           std::pair{"Text1(29)", "URGENT"},
           {"Text1(40)", "LR1"   }
  })
    host.fill(field, typed);
  save();
  addTransporterRow();
  startBill();
  readEach({
      {"Text1(0)",  {Enter, F1, F2, F3, F4, F5, F8, F9, F10, F11}},
      {"Text1(4)",  {Enter, F1, F2, F4, F8}                      },
      {"Text1(32)", {Enter, F8}                                  },
      {"Text1(47)", {Enter}                                      },
      {"Text1(5)",  {Enter, F1, F2}                              },
      {"Text1(46)", {F1, F2}                                     },
      {"Text1(7)",  {Enter}                                      },
      {"Text1(29)", {F1}                                         },
      {"Text1(40)", {F1}                                         },
      {"Text1(41)", {Enter}                                      },
      {"Text1(42)", {Enter}                                      },
  });
  // A choice runs the field's Enter once.
  host.insideModal = {[&] { host.enter(); }};
  session().mlastacc = "A00002";
  host.fillEnter("Text1(4)", "");
  EXPECT_EQ(host.text("Text2") + host.focus(), "MUMBAI STORESText1(32)");
}

TEST_F(Lookups, OfAChallanRead) {
  startChallan();
  typeGoods("I0000001", "2", "100");
  saveGoods();
  startChallan();
  readEach({
      {"Text1(0)",  {Enter, F1, F2}, 8},
      {"Text1(4)",  {Enter},         4},
      {"Text1(23)", {Enter},         1},
      {"Text1(5)",  {Enter},         3},
      {"Text1(10)", {F1},            1},
      {"Text1(7)",  {Enter},         6},
      {"Text1(7)",  {F1},            7},
  });
}

#include "documents/dlg1.h"

#include "documents/screens.h"
#include "invoice_fixture.h"
#include "masters/screens.h"

namespace {

// Stands for a screen that opens the dialog and hides behind it.
constexpr const char* kBehind[] = {"GSTSAPU", "FRMCHLN", "FRMQUOT"};
template <int N>
class Behind : public Screen {
 public:
  explicit Behind(Host& theHost) : Screen(theHost, table()) {}
  static const ScreenSpec& table() {
    static const ScreenSpec spec{.name = kBehind[N], .caption = "BEHIND", .layout = {}, .controls = {}};
    return spec;
  }
};

class PrintDialog : public InvoiceTest {
 protected:
  PrintDialog() {
    addDocumentScreens(screens);
    addMasterScreens(screens);
    screens.add<Behind<0>>(kBehind[0]);
    screens.add<Behind<1>>(kBehind[1]);
    screens.add<Behind<2>>(kBehind[2]);
  }
  void show(const std::string& key, const std::string& number = "") {
    host.open("dlg1", {.reportKey = key, .value = number});
  }

  Screens screens;
  PaperHost host{screens};
};

TEST_F(PrintDialog, MakesThePdfOfTheNumberItWasOpenedWith) {
  longBill(3, 2);
  show("GST INVOICE", "3");
  EXPECT_EQ(host.focus(), "cmdpdf");
  EXPECT_EQ(host.hint(), "Press Enter To Proceed");
  host.enter();
  EXPECT_EQ(host.viewed, std::vector<std::string>{pdf("3").string()});
  EXPECT_EQ(session().mprnmode, "PDF");
  EXPECT_EQ(host.focus(), "number");
  EXPECT_TRUE(host.at("cmdpdf").enabled);
  EXPECT_TRUE(host.at("cmdprn").enabled);
  EXPECT_EQ(host.hint(), "Press Enter For Help");

  // Where nothing shows a PDF file, the person learns where it lies, each time.
  host.hasViewer = false;
  for (int i = 0; i < 2; ++i) {
    host.enter();
    EXPECT_EQ(host.hint(), "Press Enter To Proceed");
    host.enter();
    EXPECT_EQ(host.hint(), "No Program Shows " + pdf("3").string());
  }
}

TEST_F(PrintDialog, TakesATypedNumberAndComesBackAfterAFailure) {
  longBill(3, 2);
  show("GST INVOICE");
  host.press("cmdpdf");
  EXPECT_EQ(host.lastMessage(), "Wrong Selection");
  host.fillEnter("number", "44");
  EXPECT_EQ(host.focus(), "cmdpdf");
  host.enter();
  EXPECT_EQ(host.messages.size(), 2u);
  EXPECT_EQ(host.onTop(), "dlg1");
  EXPECT_TRUE(host.at("cmdpdf").enabled);
  host.fillEnter("number", "3");
  EXPECT_EQ(session().mprnmode, "");
  host.key(Key::Alt('P'));
  EXPECT_EQ(host.lastMessage(), "There is no printer.");
  EXPECT_EQ(session().mprnmode, "PRN");
}

TEST_F(PrintDialog, LooksUpBillsByEnterAndByNumber) {
  longBill(3, 2);
  longBill(4, 2);
  data().exec("UPDATE SALE SET GSTPOST = 0 WHERE VOUCH_NO = 4");
  show("GST INVOICE");

  // Ahead of a lookup by Enter, F1 has no table.
  session().mhlptable = " FROM ACCOUNT ORDER BY ACC_NAME";
  host.key(KeyCode::F1);
  EXPECT_EQ(host.hint(), "Nothing To Look Up Yet: Press Enter In The Empty Field First");

  host.insideModal.push_back([&] {
    ASSERT_EQ(host.at("grdDataGrid").grid.count(), 1u);  // only posted bills
    EXPECT_EQ(host.cell("grdDataGrid", 0, 1), "RAJESH & SONS");
    EXPECT_EQ(host.cell("grdDataGrid", 0, 5), "15/06/2026");
    host.enter();
  });
  host.enter();
  EXPECT_EQ(host.text("number"), "3");
  EXPECT_EQ(host.focus(), "cmdpdf");

  host.fill("number", "");
  host.insideModal.push_back([&] {
    ASSERT_EQ(host.at("grdDataGrid").grid.count(), 1u);
    EXPECT_EQ(host.cell("grdDataGrid", 0, 1), "003");
    host.type("003");  // searches the bill number
    EXPECT_EQ(host.text("Text2"), "003");
    host.enter();
  });
  host.key(KeyCode::F1);
  EXPECT_EQ(host.text("number"), "3");
}

TEST_F(PrintDialog, BringsBackTheScreenItCameFrom) {
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"GST INVOICE", "GSTSAPU", "BEHIND"                },
      {"CHLNPRN",     "FRMCHLN", "DELIVERY CHALLAN ENTRY"},
      {"QUOTPRN",     "FRMQUOT", "QUOTATION ENTRY"       },
  };
  for (const auto& [key, screen, caption] : cases) {
    host.open(screen);
    Screen* const behind = host.find(screen);
    behind->visible = false;
    session().mprnmode = "PDF";
    show(key);
    host.press("CancelButton");
    EXPECT_EQ(host.top(), behind) << key;
    EXPECT_EQ(behind->caption, caption);
    EXPECT_EQ(session().mprnmode, "");
  }
}

}  // namespace

#include "documents/invoice.h"

#include <unistd.h>
#include <xlsxwriter.h>

#include "frame/full_disk.h"
#include "invoice_fixture.h"
#include "platform/workbook/workbook.h"

namespace {

namespace fs = std::filesystem;

class Invoice : public InvoiceTest {
 protected:
  void render(double number, const std::string& mode = "PDF") {
    session().mprnmode = mode;
    RenderGstInvoice(host, number, "SALE");
  }

  Screens screens;
  PaperHost host{screens, folder / "printed.pdf"};
};

TEST_F(Invoice, MakesAPdfAndShowsIt) {
  longBill(1, 30);
  render(1);
  ASSERT_EQ(host.lastMessage(), "");
  EXPECT_EQ(host.viewed, std::vector<std::string>{pdf("1").string()});
  EXPECT_EQ(session().mpdfpath, pdf("1").string());
  EXPECT_TRUE(host.wasBusy);
  EXPECT_FALSE(host.isBusy);
  EXPECT_EQ(pdfPages(pdf("1")), 2);
  expectSound(pdf("1"));
  data().exec("UPDATE SALE SET NARRATION = 'SECOND TIME'");
  render(1);
  EXPECT_TRUE(has(pdfText(pdf("1")), "SECOND TIME"));
}

TEST_F(Invoice, AddsUpHsnCodesThatHaveNoRow) {
  std::vector<Line> lines;
  for (int i = 0; i < 7; ++i) {
    const std::string item = "I000010" + std::to_string(i);
    data().exec(
        "INSERT INTO ITEM (ITEM_CD, ITEM_NAME, ITEM_SNAME, DEPT_CD, HSNCODE) VALUES (?, ?, '.', 'E010', ?)",
        item, "ITEM " + std::to_string(i), "8500" + std::to_string(i));
    lines.push_back({item, 1, 1000, 0, 1000, 9, 0, 90, 0});
  }
  bill(6, lines);
  render(6);
  const std::string text = pdfText(pdf("6"));
  EXPECT_TRUE(has(text, "Others (3)")) << text;
  EXPECT_TRUE(has(text, "3,000.00"));
  EXPECT_TRUE(has(text, "540.00"));
  EXPECT_EQ(count(text, "85003"), 2u);  // its line and its own row
  EXPECT_EQ(count(text, "85004"), 1u);  // its line alone
}

TEST_F(Invoice, OpensTheFilledWorkbook) {
  longBill(1, 30);
  render(1, "");
  const auto copy = (folder / "FORMATS" / "INVGST.xlsx").string();
  EXPECT_EQ(host.viewed, std::vector<std::string>{copy});
  auto book = workbook::Workbook::load(copy);
  EXPECT_EQ(book.sheet("SHEET3").shown(1, 3), "SHREE GANESH TRADERS");
  EXPECT_EQ(book.sheet("BILL").shown(17, 16), "118.00");
  EXPECT_EQ(book.sheet("BILL").shown(69, 1), "25");
}

TEST_F(Invoice, APaperThatFailsCostsNothing) {
  longBill(1, 3);
  PaperHost without(screens);
  const auto copy = folder / "FORMATS" / "INVGST.xlsx";
  const auto fails = [&] {
    session().mprnmode = "PRN";
    RenderGstInvoice(without, 1, "SALE");
    EXPECT_EQ(without.lastMessage(), "There is no printer.");
    const FullDisk full;
    render(1);
    render(1, "");
    EXPECT_EQ(std::exchange(host.messages, {}).size(), 2u);
  };
  render(1);
  fails();
  EXPECT_EQ(pdfPages(pdf("1")), 1);
  render(1, "");
  EXPECT_FALSE(fs::exists(pdf("1")));
  fails();
  EXPECT_EQ(workbook::Workbook::load(copy.string()).sheet("SHEET3").shown(1, 3), "SHREE GANESH TRADERS");
  const fs::directory_iterator all(copy.parent_path());
  EXPECT_EQ(std::count_if(begin(all), end(all),
                          [](const auto& f) { return f.path().string().find('~') != std::string::npos; }),
            0);
}

// The copy of the last invoice stands open in a spreadsheet program, which leaves a mark beside it.
TEST_F(Invoice, LeavesACopyAloneThatIsOpen) {
  longBill(1, 1);
  render(1, "");
  const auto mark = folder / "FORMATS" / ".~lock.INVGST.xlsx#";
  std::ofstream(mark) << ",RAMESH,elsewhere,15.06.2026 10:30,file:///home;";
  for (const char* mode : {"", "PDF", "PRN"}) {
    render(1, mode);
    EXPECT_EQ(host.lastMessage(), "Excel File Is Already Open\nClose It First") << mode;
  }
  EXPECT_EQ(host.messages.back().title, "Mirav Message");
  EXPECT_FALSE(fs::exists(pdf("1")));
  // A mark of this machine without a program behind it was left by a crash.
  char name[256] = "";
  gethostname(name, sizeof name - 1);
  std::ofstream(mark) << ",RAMESH," << name << ",15.06.2026 10:30,file:///home;";
  host.messages.clear();
  render(1);
  EXPECT_EQ(host.lastMessage(), "");
  EXPECT_TRUE(fs::exists(pdf("1")));
}

// A design's faults are told once, not with every paper of a day.
TEST_F(Invoice, NamesTheCellsThatADesignCannotCalculate) {
  longBill(1, 1);
  const auto path = (folder / "FORMATS" / "INVGST1.xlsx").string();
  lxw_workbook* const made = workbook_new(path.c_str());
  lxw_worksheet* const sheet = workbook_add_worksheet(made, "BILL");
  workbook_add_worksheet(made, "SHEET3");
  worksheet_write_formula(sheet, 13, 2, "=SPELLNUMBER(SHEET3!N8)", nullptr);
  worksheet_write_formula(sheet, 14, 2, "=C16+SHEET3!N8", nullptr);
  worksheet_write_formula(sheet, 15, 2, "=C15", nullptr);
  workbook_close(made);
  render(1);
  expectAll(host.lastMessage(), {"INVGST1.xlsx", "BILL!C14: the function SPELLNUMBER is not known",
                                 "BILL!C15: the formula refers to itself"});
  EXPECT_TRUE(has(pdfText(pdf("1")), "#NAME?"));
  render(1);
  EXPECT_EQ(host.messages.size(), 1u);
  formats::writeAll((folder / "FORMATS").string());
  render(1);
  EXPECT_EQ(host.messages.size(), 1u);
}

TEST_F(Invoice, SaysWhatIsMissing) {
  longBill(1, 1);
  render(2);
  EXPECT_EQ(host.lastMessage(), "Wrong Selection");
  EXPECT_EQ(host.messages.back().title, "Mirav Message");

  session().mbillformat = 5000;
  render(1);
  EXPECT_EQ(host.lastMessage(), "Format File Is Missing Or Deleted Pl Contact Vendor");

  session().mbillformat = 1;
  std::ofstream(folder / "FORMATS" / "INVGST1.xlsx") << "not a workbook";
  render(1);
  EXPECT_NE(host.lastMessage(), "Format File Is Missing Or Deleted Pl Contact Vendor");
  EXPECT_EQ(host.messages.size(), 3u);

  data().exec("DELETE FROM COMP_DET");
  render(1);
  EXPECT_EQ(host.lastMessage(), "Company Details Not Filled Pl. Check");
  EXPECT_FALSE(fs::exists(pdf("1")));
  EXPECT_FALSE(host.isBusy);
}

}  // namespace

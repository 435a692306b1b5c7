// mirav-pictures FOLDER: paints the first page of every design that stands in FORMATS, with a
// document of the sample company, into a picture of its name in pics.

#include <exception>
#include <filesystem>
#include <iostream>
#include <set>
#include <stdexcept>

#include "base/number.h"
#include "documents/renderers.h"
#include "frame/session.h"
#include "platform/desk.h"
#include "platform/qt/paint_qt.h"
#include "store/database.h"

namespace fs = std::filesystem;

namespace {

constexpr double kDots = 110;

struct Design {
  const char* name;  // of its workbook and its picture
  const char* printKey;
  int number;
};
constexpr Design kDesigns[] = {
    {"INVGST1",  "GST INVOICE", 1},
    {"INVGST2",  "GST INVOICE", 2},
    {"INVGST3",  "GST INVOICE", 3},
    {"INVGST4",  "GST INVOICE", 4},
    {"INVGST5",  "GST INVOICE", 5},
    {"INVGST6",  "GST INVOICE", 6},
    {"QUOTITM7", "QUOTPRN",     7},
    {"INVGEN8",  "CHLNPRN",     8},
    {"INVGEN9",  "CHLNPRN",     9},
};

// What goes to the printer becomes a picture.
class PicturePainter : public paint::Painter {
 public:
  std::string file;
  const paint::Metrics& metrics() const override { return real_->metrics(); }
  std::unique_ptr<paint::Canvas> pdf(const std::string& path) override { return real_->pdf(path); }
  std::unique_ptr<paint::Canvas> image(const std::string& path, double dpi) override {
    return real_->image(path, dpi);
  }
  std::unique_ptr<paint::Canvas> printer() override { return real_->image(file, kDots); }

 private:
  std::unique_ptr<paint::Painter> real_ = paint::makePainter();
};

// A machine with a printer and nobody at it.
class Machine : public Desk {
 public:
  explicit Machine(const Screens& screens) : Desk(screens) {}
  PicturePainter pictures;

  bool answerTo(const Question&) override { return false; }
  std::optional<std::string> input(const std::string&, const std::string&, const std::string&) override {
    return std::nullopt;
  }
  void busy(bool) override {}
  void refresh() override {}
  Moment now() const override { return {}; }
  ScreenSize display() const override { return {}; }
  bool online() const override { return false; }
  bool running(const std::string&) const override { return false; }
  void endProcess(const std::string&) override {}
  void launch(const std::string&, const std::vector<std::string>&) override {}
  void openLink(const std::string&) override {}
  void view(const std::string&) override {}
  paint::Painter& painter() override { return pictures; }
  std::string clipboard() const override { return {}; }
  void setClipboard(const std::string&) override {}

 protected:
  void box(const std::string& text, const std::string&) override { throw std::runtime_error(text); }
  void nest(Screen&) override {}
  void changed() override {}
};

void openSample(const fs::path& folder) {
  Session& s = session();
  s.mapppath = folder.string();
  for (const auto& entry : fs::directory_iterator(folder))
    if (entry.path().extension() == ".mdb" && entry.path().filename() != "comp.mdb") {
      s.cndata = std::make_unique<Database>();
      s.cndata->open(entry.path());
      s.mcompname = s.cndata->text("SELECT COMPNM FROM COMP_DET");
      return;
    }
  throw std::runtime_error("No company stands in " + folder.string());
}

// Gathers the lines of all bills within the state in one, so that the picture shows some.
double fullBill(Database& db) {
  const double bill = db.number("SELECT MIN(VOUCH_NO) FROM SALEITM WHERE BOOK_CD = 'SA' AND CGSTRT > 0");
  db.exec(
      "UPDATE SALEITM SET SR_NO = 100 * VOUCH_NO + SR_NO, VOUCH_NO = ? WHERE BOOK_CD = 'SA' AND IGSTRT = 0",
      bill);
  db.exec(
      "UPDATE SALE SET (ITEM_AMT, NO_OF_ITEM, TCGSTRT, TSGSTRT) ="
      " (SELECT SUM(AMOUNT), SUM(QUANTITY), SUM(CGSTAMT), SUM(SGSTAMT) FROM SALEITM"
      " WHERE BOOK_CD = 'SA' AND VOUCH_NO = ?1) WHERE BOOK_CD = 'SA' AND VOUCH_NO = ?1",
      bill);
  db.exec(
      "UPDATE SALE SET NET_AMT = ROUND(ITEM_AMT + TCGSTRT + TSGSTRT),"
      " ROUND_OFF = ROUNDED(ROUND(ITEM_AMT + TCGSTRT + TSGSTRT) - (ITEM_AMT + TCGSTRT + TSGSTRT), 2)"
      " WHERE BOOK_CD = 'SA' AND VOUCH_NO = ?",
      bill);
  return bill;
}

// The bill once more as a quotation and as a challan, of the same number.
void quoteAndDeliver(Database& db, double bill) {
  db.exec("DELETE FROM QUOT");
  db.exec("DELETE FROM QUOTITM");
  db.exec("DELETE FROM CHLN");
  db.exec("DELETE FROM CHLNITM");
  const char* const statements[] = {
      "INSERT INTO QUOT (VOUCH_DT, VOUCH_NO, PARTY_CD, BL_PARTY_CD, ITEM_AMT, TOTQTY, NET_AMT, TCGST, TSGST,"
      " TIGST, ENTRY_TYP, TO_NAME, SUB_DESC, YOUR_REF_NO, DESC8, DESC1, DESC2, DESC4)"
      " SELECT VOUCH_DT, VOUCH_NO, PARTY_CD, PARTY_CD, ITEM_AMT + TCGSTRT + TSGSTRT + TIGSTRT, NO_OF_ITEM,"
      " NET_AMT, TCGSTRT, TSGSTRT, TIGSTRT, 'QUOTATION', 'THE PURCHASE OFFICER', 'WIRING OF THE FIRST FLOOR',"
      " 'YOUR MAIL OF THE 21ST', '30 DAYS', 'FIRM', '50% ADVANCE, THE REST ON DELIVERY', 'WITHIN A WEEK'"
      " FROM SALE WHERE BOOK_CD = 'SA' AND VOUCH_NO = ?",
      "INSERT INTO QUOTITM (VOUCH_DT, VOUCH_NO, SRNO, ITEM_CD, ITEM_NAME, SIZE_CD, QUANTITY, RATE, DISC, "
      "AMOUNT,"
      " ITEM_DESC, ENTRY_TYP, CGSTRT, SGSTRT, IGSTRT, CGSTAMT, SGSTAMT, IGSTAMT, ASSIVAL)"
      " SELECT L.VOUCH_DT, L.VOUCH_NO, L.SR_NO, L.ITEM_CD, I.ITEM_NAME, L.SIZE_CD, L.QUANTITY, L.RATE, "
      "L.SALE_DISC,"
      " L.NET_AMOUNT, L.ITEM_DESC, 'QUOTATION', L.CGSTRT, L.SGSTRT, L.IGSTRT, L.CGSTAMT, L.SGSTAMT, "
      "L.IGSTAMT,"
      " L.AMOUNT FROM SALEITM AS L JOIN ITEM AS I ON L.ITEM_CD = I.ITEM_CD WHERE L.BOOK_CD = 'SA' AND "
      "L.VOUCH_NO = ?",
      "INSERT INTO CHLN (VOUCH_DT, VOUCH_NO, BOOK_CD, CHLN_NO, CHLN_TYP, PARTY_CD, ITEM_AMT, NARRATION, "
      "NO_OF_ITEM,"
      " NET_AMT, TRANSPORT, DESTI) SELECT VOUCH_DT, VOUCH_NO, 'CH', '1', 'DC', PARTY_CD, ITEM_AMT, "
      "NARRATION,"
      " NO_OF_ITEM, ITEM_AMT, TRANSPORT, DESTI FROM SALE WHERE BOOK_CD = 'SA' AND VOUCH_NO = ?",
      "INSERT INTO CHLNITM (VOUCH_DT, VOUCH_NO, BOOK_CD, ITEM_CD, SIZE_CD, QUANTITY, RATE, SALE_DISC, AMOUNT,"
      " NET_AMOUNT, ITEM_DESC, SR_NO) SELECT VOUCH_DT, VOUCH_NO, 'CH', ITEM_CD, SIZE_CD, QUANTITY, RATE, "
      "SALE_DISC,"
      " AMOUNT, AMOUNT, ITEM_DESC, SR_NO FROM SALEITM WHERE BOOK_CD = 'SA' AND VOUCH_NO = ?",
  };
  for (const char* statement : statements) db.exec(statement, bill);
}

// Further pages stand beside the first, as x-2.JPG and so on.
void keepFirstPage(const fs::path& picture) {
  for (int page = 2;; ++page) {
    const auto name = picture.stem().string() + "-" + std::to_string(page) + picture.extension().string();
    if (!fs::remove(picture.parent_path() / name)) return;
  }
}

std::set<fs::path> filesIn(const fs::path& folder) {
  std::set<fs::path> files;
  for (const char* inner : {"FORMATS", "BILLS"})
    if (fs::exists(folder / inner))
      for (const auto& entry : fs::directory_iterator(folder / inner)) files.insert(entry.path());
  return files;
}

void paintAll(const fs::path& folder) {
  openSample(folder);
  Session& s = session();
  s.mprnmode = "PRN";
  fs::create_directories(folder / "pics");
  const Screens screens;
  Machine machine(screens);
  const Transaction never(data());  // the sample stays as it is
  const double number = fullBill(data());
  quoteAndDeliver(data(), number);
  for (const Design& design : kDesigns) {
    const Renderer* const renderer = rendererOf(design.printKey);
    if (!renderer || !fs::exists(folder / "FORMATS" / (std::string(design.name) + ".xlsx"))) continue;
    s.mbillformat = s.mquotformat = s.mchlnformat = design.number;
    const fs::path picture = folder / "pics" / (std::string(design.name) + ".JPG");
    machine.pictures.file = picture.string();
    renderer->make(machine, numText(number), renderer->kind);
    keepFirstPage(picture);
  }
}

}  // namespace

int main(int argc, char** argv) try {
  if (argc != 2) {
    std::cerr << "mirav-pictures FOLDER: paints the designs of a program folder into its pics\n";
    return 2;
  }
  const fs::path folder = fs::canonical(argv[1]);
  const auto before = filesIn(folder);
  paintAll(folder);
  session().cndata.reset();
  for (const fs::path& file : filesIn(folder))
    if (!before.contains(file)) fs::remove(file);  // working copies
  return 0;
} catch (const std::exception& error) {
  std::cerr << "mirav-pictures: " << error.what() << "\n";
  return 1;
}

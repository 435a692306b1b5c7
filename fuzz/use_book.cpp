#include "fuzz/use_book.h"

#include "fuzz/scratch.h"
#include "platform/workbook/draw.h"
#include "platform/workbook/workbook.h"
#include "workbook/recorder.h"

namespace {

// Takes what is drawn and keeps none of it; reads each text as a painter would.
class Nothing : public paint::Canvas {
 public:
  size_t letters = 0;
  void page(double, double) override {}
  void text(const paint::Text& text) override {
    for (const char c : text.text) letters += c != ' ';
  }
  void line(double, double, double, double, double, paint::Colour, paint::Dash) override {}
  void fill(const paint::Rect&, paint::Colour) override {}
  void picture(const paint::Rect&, std::string_view bytes, const paint::Rect&) override {
    letters += bytes.size();
  }
  void finish() override {}
};

void fillIn(workbook::Workbook& book) {
  for (const std::string& name : book.sheetNames()) {
    auto& sheet = book.sheet(name);
    sheet.set(1, 1, 12.5);
    sheet.set(2, 2, "RUPEES");
    sheet.set(3, 3, workbook::Value::date(std::chrono::year{2026} / 4 / 1));
    for (int row = 1; row <= 12; ++row)
      for (int column = 1; column <= 8; ++column) sheet.shown(row, column);
    sheet.hideRows(8, 9);
  }
}

void drawAll(workbook::Workbook& book) {
  Nothing canvas;
  for (const std::string& name : book.sheetNames()) {
    try {
      workbook::draw(book, name, canvas, books::HalfMetrics());
    } catch (const workbook::WorkbookError&) {
      // Too many pages.
    }
  }
}

constexpr const char* kXml = R"(<?xml version="1.0" encoding="UTF-8"?>)";
constexpr const char* kSheetRelation =
    R"(Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/)";

std::string relations(const std::string& list) {
  return kXml + std::string("<Relationships>") + list + "</Relationships>";
}
std::string relation(const std::string& id, const std::string& type, const std::string& target) {
  return "<Relationship Id=\"" + id + "\" " + kSheetRelation + type + "\" Target=\"" + target + "\"/>";
}

}  // namespace

void useBook(std::string bytes) {
  try {
    auto book = workbook::Workbook::fromBytes(std::move(bytes));
    book.setNow(46188.4);
    fillIn(book);
    book.recalculate();
    drawAll(book);
    const std::string path = scratch() / "saved.xlsx";
    book.save(path);
    auto again = workbook::Workbook::load(path);
    again.setNow(46188.4);
    again.recalculate();
  } catch (const workbook::WorkbookError&) {
  }
}

books::Parts plainBook() {
  books::Parts parts = books::withSheet(books::sheet(R"(<row r="1"><c r="A1"><v>1</v></c></row>)"));
  parts["_rels/.rels"] = relations(relation("rId1", "officeDocument", "xl/workbook.xml"));
  parts["xl/_rels/workbook.xml.rels"] = relations(
      relation("rId1", "worksheet", "worksheets/sheet1.xml") +
      relation("rId2", "worksheet", "worksheets/sheet2.xml") + relation("rId3", "styles", "styles.xml") +
      relation("rId4", "sharedStrings", "sharedStrings.xml") + relation("rId5", "theme", "theme.xml"));
  parts["xl/workbook.xml"] =
      std::string(kXml) +
      R"(<workbook xmlns:r="r"><sheets><sheet name="BILL" sheetId="1" r:id="rId1"/><sheet name="SHEET3" sheetId="2" r:id="rId2"/></sheets>)"
      R"(<definedNames><definedName name="RATE">SHEET3!$A$1</definedName><definedName name="_xlnm.Print_Titles" localSheetId="0">BILL!$1:$1</definedName></definedNames></workbook>)";
  parts["xl/worksheets/sheet1.xml"] = books::sheet(
      R"(<row r="1"><c r="A1" t="s"><v>0</v></c><c r="B1" s="1"><f>SHEET3!A1*RATE</f></c></row>)",
      R"(<mergeCells><mergeCell ref="A1:B2"/></mergeCells><drawing r:id="rId1"/>)");
  parts["xl/worksheets/sheet2.xml"] = books::sheet(
      R"(<row r="1"><c r="A1"><v>18</v></c><c r="B1" t="inlineStr"><is><t>A</t></is></c></row>)");
  parts["xl/worksheets/_rels/sheet1.xml.rels"] =
      relations(relation("rId1", "drawing", "../drawings/drawing1.xml"));
  parts["xl/drawings/_rels/drawing1.xml.rels"] = relations(relation("rId1", "image", "../media/image1.png"));
  parts["xl/drawings/drawing1.xml"] =
      R"(<wsDr><twoCellAnchor><from><col>1</col><row>1</row></from><to><col>3</col><row>4</row></to>)"
      R"(<pic><blipFill><blip r:embed="rId1"/></blipFill></pic><clientData/></twoCellAnchor></wsDr>)";
  parts["xl/media/image1.png"] = "\x89PNG";
  parts["xl/styles.xml"] =
      R"(<styleSheet><numFmts><numFmt numFmtId="164" formatCode="0.00"/></numFmts><fonts><font><sz val="11"/></font></fonts>)"
      R"(<cellXfs><xf numFmtId="0"/><xf numFmtId="164"/></cellXfs></styleSheet>)";
  parts["xl/sharedStrings.xml"] = R"(<sst><si><t>TAX INVOICE</t></si></sst>)";
  parts["xl/theme.xml"] =
      R"(<theme><themeElements><clrScheme><dk1><srgbClr val="000000"/></dk1></clrScheme></themeElements></theme>)";
  return parts;
}

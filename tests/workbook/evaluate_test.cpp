#include <gtest/gtest.h>

#include "workbook/books.h"

namespace {

using workbook::Workbook;

// A formula and what it gives.
using Cases = std::vector<std::pair<std::string, std::string>>;

// The sheet "Data" that the formulas look at, from A1; D6 is a formula that gives "".
// clang-format off
const std::vector<std::vector<std::string>> kData = {
    {"Code",   "Qty", "Rate",  "Name",        "",  "=TRUE()"},
    {"A00001", "2",   "10.5",  "Steel rod",   "",  "=NA()"},
    {"A00002", "3",   "20",    "Copper wire"},
    {"A00003", "0",   "7.25",  "steel pipe"},
    {"",       "1.5", "100",   "Brass"},
    {"A00005", "-4",  "2.675", "=\"\"",       "5"},
};
// clang-format on

std::string book(const Cases& cases) {
  return books::written([&](lxw_workbook* made) {
    lxw_worksheet* calc = workbook_add_worksheet(made, "Calc");
    lxw_worksheet* data = workbook_add_worksheet(made, "Data");
    for (lxw_row_t row = 0; row < kData.size(); ++row)
      for (lxw_col_t column = 0; column < kData[row].size(); ++column) {
        const std::string& cell = kData[row][column];
        if (cell.starts_with("="))
          worksheet_write_formula(data, row, column, cell.c_str(), nullptr);
        else if (row > 0 && (column == 1 || column == 2))
          worksheet_write_number(data, row, column, std::stod(cell), nullptr);
        else if (!cell.empty())
          worksheet_write_string(data, row, column, cell.c_str(), nullptr);
      }
    workbook_define_name(made, "Rates", "=Data!$C$2:$C$6");
    workbook_define_name(made, "Gst", "=0.18");
    workbook_define_name(made, "Calc!Local", "=Data!$D$2");
    for (size_t i = 0; i < cases.size(); ++i)
      worksheet_write_formula(calc, static_cast<lxw_row_t>(i), 7, ("=" + cases[i].first).c_str(), nullptr);
  });
}

void check(const Cases& cases) {
  Workbook made = Workbook::fromBytes(book(cases));
  made.setNow(46188.75);  // 15 June 2026, 18:00
  made.recalculate();
  for (size_t i = 0; i < cases.size(); ++i)
    EXPECT_EQ(books::said(made.sheet("calc").value(static_cast<int>(i) + 1, 8)), cases[i].second)
        << cases[i].first;
}

// clang-format off
TEST(Evaluate, Operators) {
  check({
    {"1+2*3",                     "7"},
    {"-2^2",                      "4"},          // the sign binds closer than the power
    {"2^3^2",                     "64"},         // from the left
    {"10%+1",                     "1.1"},
    {"-Data!B2+-+1",              "-3"},
    {"\"a\"&1+1&\"b\"",           "a2b"},
    {"1/0",                       "#DIV/0!"},
    {"0^0",                       "#NUM!"},
    {"\"1,250.50\"*2",            "2501"},
    {"\"x\"+1",                   "#VALUE!"},
    {"0.1+0.2-0.3",               "0"},
    {"0.1+0.2=0.3",               "TRUE"},
    {"\"ABC\"=\"abc\"",           "TRUE"},
    {"2<\"1\"",                   "TRUE"},       // numbers come before texts
    {"TRUE>\"z\"",                "TRUE"},
    {"Data!E1=0",                 "TRUE"},       // an empty cell equals both
    {"Data!E1=\"\"",              "TRUE"},
    {"\"say \"\"hi\"\"\"",        "say \"hi\""},
    {"1/3&\"\"",                  "0.333333333333333"},
  });
}

TEST(Evaluate, NumbersAndRounding) {
  check({
    {"ROUND(2.675,2)",            "2.68"},       // on the decimal digits, half away from zero
    {"ROUND(-2.5,0)",             "-3"},
    {"ROUND(1.005,2)",            "1.01"},
    {"ROUNDUP(-2.1,0)",           "-3"},
    {"ROUNDDOWN(2.999,2)",        "2.99"},
    {"INT(-0.5)",                 "-1"},
    {"MOD(-3,2)",                 "1"},
    {"MOD(3,-2)",                 "-1"},
    {"CEILING(2.1,0.5)",          "2.5"},
    {"FLOOR(2.9,0.5)",            "2.5"},
    {"_xlfn.CEILING.MATH(-2.1,2)&_xlfn.FLOOR.MATH(-2.1,2)", "-2-4"},
    {"SQRT(16)+POWER(2,5)",       "36"},
  });
}

TEST(Evaluate, TotalsOverBlocks) {
  check({
    {"SUM(Data!B1:B6)",                       "2.5"},   // the heading does not count
    {"SUM(Data!B:B,10,\"5\")",                "17.5"},
    {"SUM(Data!F1:F2)",                       "#N/A"},
    {"AVERAGE(Data!E1:E2)",                   "#DIV/0!"},
    {"MIN(Data!B2:B6)&\"|\"&MAX(Data!B2:B6)", "-4|3"},
    {"COUNT(Data!A1:C6)",                     "10"},
    {"COUNTA(Data!A1:A6)",                    "5"},
    {"COUNTA(Data!D1:D6)",                    "6"},     // a formula that gives "" counts
    {"COUNTBLANK(Data!D1:E6)",                "6"},
    {"LARGE(Rates,2)&\"|\"&SMALL(Rates,1)",   "20|2.675"},
    {"SUBTOTAL(9,Data!B2:B6)",                "2.5"},
    {"SUMIF(Data!D1:D6,\"steel*\",Data!C1:C6)",        "17.75"},
    {"SUMIF(Data!B2:B6,\">1\")",                       "6.5"},
    {"SUMIF(Data!A1:A6,\"A0000?\",Data!B1)",           "1"},     // the sum block takes the size
    {"SUMIFS(Data!C2:C6,Data!B2:B6,\">0\",Data!D2:D6,\"<>Brass\")", "30.5"},
    {"COUNTIF(Data!D1:D6,\"<>\")",                     "6"},
    {"COUNTIF(Data!E:E,5)",                            "1"},     // a text of digits counts too
    {"COUNTIF(Data!A1:A10,\"=\")",                     "5"},
    {"MAXIFS(Data!C2:C6,Data!B2:B6,\">0\")&\"|\"&MINIFS(Data!C2:C6,Data!B2:B6,\">0\")", "100|10.5"},
    {"RANK(20,Data!C2:C6)&RANK(20,Data!C2:C6,1)",      "24"},
    {"SUMPRODUCT((Data!B2:B6>0)*(Data!C2:C6<50)*Data!C2:C6)", "30.5"},
    {"SUMPRODUCT(--(LEFT(Data!D1:D6,5)=\"steel\"))",   "2"},
    {"SUMPRODUCT(ROUND(Data!B2:B6*Data!C2:C6,0))",     "220"},
    {"SUM(IFERROR(VLOOKUP(\"none\",Data!A1:B6,2,FALSE),7))", "7"},
  });
}

TEST(Evaluate, Texts) {
  check({
    {"LEFT(\"abc\",2)&RIGHT(\"abc\",2)&MID(\"abcdef\",3,2)", "abbccd"},
    {"LEFT(\"ab\",-1)",                       "#VALUE!"},
    {"MID(\"abc\",9,2)",                      ""},
    {"LEN(\"\u0AA8\u0AAE\u0AB8\")",           "3"},      // characters, not bytes
    {"TRIM(\"  a   b \")",                    "a b"},
    {"UPPER(\"aB1\")&LOWER(\"Cd\")&PROPER(\"steel ROD-x 2ND\")", "AB1cdSteel Rod-X 2Nd"},
    {"CONCAT(Data!A2:A3,\"!\")",              "A00001A00002!"},
    {"TEXTJOIN(\", \",TRUE,Data!A2:A6)",      "A00001, A00002, A00003, A00005"},
    {"CHAR(65)&CHAR(10)&CODE(\"A\")",         "A\n65"},
    {"CHAR(128)&UNICHAR(8377)",               "\u20AC\u20B9"},
    {"REPT(\"x\",40000)",                     "#VALUE!"},
    {"SUBSTITUTE(\"a-b-c\",\"-\",\"\",2)",    "a-bc"},
    {"REPLACE(\"abcdef\",2,3,\"X\")",         "aXef"},
    {"FIND(\"b\",\"aBb\")&SEARCH(\"b\",\"aBb\")", "32"},
    {"SEARCH(\"r?d\",\"Steel rod\")",         "7"},
    {"SEARCH(\"~*x*~?\",\"a*b*x-y?\")",      "4"},
    {"SEARCH(\"*d\",\"Steel rod\",3)",       "3"},
    {"T(5)&T(\"x\")&N(\"x\")&N(7)",           "x07"},
    {"VALUE(\" 1,234.5 \")+VALUE(\"20%\")",   "1234.7"},
    {"VALUE(\"(15)\")",                       "-15"},
    {"TEXT(1234.5,\"#,##0.00\")",             "1,234.50"},
    {"TEXT(46188,\"dd/mmm/yyyy\")",           "15/Jun/2026"},
    {"FIXED(1234.567,1)&FIXED(1234.567,0,TRUE)", "1,234.61235"},
  });
}

TEST(Evaluate, LogicAndKinds) {
  check({
    {"IF(Data!B2>1,\"y\",1/0)",               "y"},      // the other branch is not looked at
    {"IF(TRUE,)",                             "0"},
    {"IF(\"x\",1,2)",                         "#VALUE!"},
    {"AND(TRUE,1,Data!B2)&OR(FALSE,0)&NOT(0)&XOR(TRUE,TRUE)", "TRUEFALSETRUEFALSE"},
    {"IFERROR(1/0,\"none\")&IFERROR(5,0)",    "none5"},
    {"IFNA(1/0,1)",                           "#DIV/0!"},
    {"IFS(FALSE,1,Data!B2=2,\"two\")",        "two"},
    {"SWITCH(3,1,\"a\",3,\"c\",\"else\")&SWITCH(9,1,\"a\",\"else\")", "celse"},
    {"CHOOSE(3,\"a\",\"b\")",                 "#VALUE!"},
    {"ISBLANK(Data!E1)&ISBLANK(Data!D6)",     "TRUEFALSE"},
    {"ISNUMBER(Data!B2)&ISNUMBER(Data!E6)&ISTEXT(Data!E6)&ISNONTEXT(Data!B2)", "TRUEFALSETRUETRUE"},
    {"ISERROR(Data!F2)&ISERR(Data!F2)&ISNA(Data!F2)&ISLOGICAL(Data!F1)", "TRUEFALSETRUETRUE"},
    {"TYPE(1)&TYPE(\"a\")&TYPE(TRUE)&TYPE(NA())", "12416"},
    {"Gst*100",                               "18"},
    {"Local",                                 "Steel rod"},
    {"NoSuchFunction(1)",                     "#NAME?"},
    {"IFERROR(NoSuchFunction(1),\"caught\")", "caught"},
    {"NoSheet!A1",                            "#REF!"},
  });
}

TEST(Evaluate, Lookups) {
  check({
    {"_xlfn.XLOOKUP(\"A00002\",Data!A1:A6,Data!D1:D6)",           "Copper wire"},
    {"_xlfn.XLOOKUP(\"none\",Data!A1:A6,Data!D1:D6,\"no\")",       "no"},
    {"_xlfn.XLOOKUP(11,Data!C2:C6,Data!D2:D6,\"\",-1)",           "Steel rod"},
    {"_xlfn.XLOOKUP(11,Data!C2:C6,Data!D2:D6,\"\",1)",            "Copper wire"},
    {"SUM(_xlfn.XLOOKUP(\"A00001\",Data!A1:A6,Data!B1:C6))",      "12.5"},
    {"SUMPRODUCT(TRANSPOSE({1,2,3})*{4;5;6})",                    "32"},
    {"VLOOKUP(\"a00002\",Data!A1:D6,4,FALSE)",     "Copper wire"},
    {"VLOOKUP(\"A0000*\",Data!A:D,2,0)",           "2"},
    {"VLOOKUP(\"A00001\",Data!A1:B6,3,FALSE)",     "#REF!"},
    {"VLOOKUP(2.5,{1,\"a\";2,\"b\";3,\"c\"},2)",   "b"},
    {"HLOOKUP(\"Rate\",Data!A1:D6,3,FALSE)",       "20"},
    {"INDEX(Data!A1:D6,9,1)",                      "#REF!"},
    {"SUM(INDEX(Data!A1:D6,0,3))",                 "140.425"},
    {"SUM(Data!C2:INDEX(Data!C:C,4))",             "37.75"},
    {"MATCH(\"Copper wire\",Data!D1:D6,0)",        "3"},
    {"MATCH(15,{1,10,20})&MATCH(10,{1,10,20})&MATCH(15,{20,16,10},-1)", "222"},
    {"MATCH(5,Data!E1:E6,0)",                      "#N/A"},  // "5" is a text
    {"INDEX(Data!D1:D6,MATCH(\"A00003\",Data!A1:A6,0))", "steel pipe"},
    {"LOOKUP(2,1/(Data!B2:B6>1),Data!D2:D6)",      "Brass"},  // the last that holds
    {"SUM(OFFSET(Data!C6,0,0,-2,1))",              "102.675"},
    {"SUM(INDIRECT(\"'Data'!B2:B3\"))",            "5"},
    {"INDIRECT(\"nothing here\")",                 "#REF!"},
    {"ROW()-ROW(H23)&COLUMN()&ROW(Data!C5)&COLUMN(Data!C5)", "0853"},
    {"ADDRESS(3,28)&ADDRESS(1,2,4)",               "$AB$3B1"},
  });
}

TEST(Evaluate, Dates) {
  check({
    {"DATE(2026,6,15)",                       "46188"},
    {"DATE(2026,14,1)",                       "46419"},      // month 14 is February of 2027
    {"DATE(2026,3,0)",                        "46081"},      // 28 February
    {"TODAY()&\"|\"&NOW()",                   "46188|46188.75"},
    {"HOUR(0.75)&MINUTE(0.5208333333)&SECOND(TIME(1,2,3))", "18303"},
    {"WEEKDAY(46188)&WEEKDAY(46188,2)",       "21"},         // a Monday
    {"TEXT(EDATE(DATE(2026,1,31),1),\"dd/mm/yyyy\")", "28/02/2026"},
    {"TEXT(EOMONTH(DATE(2024,1,15),1),\"dd/mm/yyyy\")", "29/02/2024"},
    {"DATEVALUE(\"15/06/2026\")&DATEVALUE(\"15/Jun/2026\")", "4618846188"},
    {"\"15/06/2026\"+1",                      "46189"},
    {"DATEDIF(DATE(2025,1,31),DATE(2026,3,1),\"M\")&DATEDIF(1,366,\"Y\")&DATEDIF(1,32,\"M\")", "1301"},
    {"YEAR(-1)",                              "#NUM!"},
  });
}
// clang-format on

// A calculated workbook of these rows; cells that say no place follow each other.
Workbook fromFormulas(const std::string& rows) {
  Workbook book = Workbook::fromBytes(books::zipped(books::withSheet(books::sheet(rows))));
  book.recalculate();
  return book;
}

// What stands in the cells of a row from A on.
std::vector<std::string> rowOf(Workbook& book, int row, int count) {
  std::vector<std::string> values;
  for (int column = 1; column <= count; ++column)
    values.push_back(books::said(book.sheet("S").value(row, column)));
  return values;
}

using Row = std::vector<std::string>;

// 20,000 cells, each needing the next, asked for from the first: deeper than any stack.
TEST(Evaluate, LongChainsAreCalculatedAndLongCirclesEnd) {
  std::string rows, circle;
  constexpr int kRows = 20000;
  for (int row = 1; row <= kRows; ++row) {
    rows +=
        "<row><c>" + (row < kRows ? "<f>A" + std::to_string(row + 1) + "+1</f>" : "<v>1</v>") + "</c></row>";
    circle += "<row><c><f>A" + std::to_string(row % kRows + 1) + "+1</f></c></row>";
  }
  Workbook chain = fromFormulas(rows), round = fromFormulas(circle);
  EXPECT_EQ(rowOf(chain, 1, 1), Row{"20000"});
  EXPECT_EQ(rowOf(round, 1, 1), Row{"#REF!"});
  EXPECT_EQ(rowOf(round, kRows / 2, 1), Row{"#REF!"});
}

TEST(Evaluate, HostileFormulasEnd) {
  const std::pair<std::string, const char*> cases[] = {
      {std::string(5000, '(') + "1", "8"}, // not understood: what is stored stays
      {std::string(6000,                '-') + "1",           "8"},
      {"SUM(A1:XFD1048576)",             "#REF!"            }, // its own cell is in the block
      {"SUMPRODUCT(B1:XFD1048576*1)","0"},
      {"REPT(REPT(\"x\",30000),30000)",                 "#VALUE!"                                },
      {"COUNTIF(B1:XFD1048576,\"\")","17178820608"},
      {"SUMPRODUCT(ROW(1:1048576)*COLUMN(A:XFD))",             "#NUM!"                                                      },
  };
  std::string rows;
  for (const auto& [formula, expected] : cases) rows += "<row><c><f>" + formula + "</f><v>8</v></c></row>";
  Workbook book = fromFormulas(rows);
  int row = 0;
  for (const auto& [formula, expected] : cases)
    EXPECT_EQ(rowOf(book, ++row, 1), Row{expected}) << formula.substr(0, 50);
}

// A formula that moves its references, one over whole blocks in one cell, one filling several
// cells; the cells behind it follow it.
TEST(Evaluate, SharedAndArrayFormulas) {
  Workbook shared = fromFormulas(
      "<row><c><v>2</v></c><c><f t=\"shared\" ref=\"B1:B3\" si=\"0\">A1*$A$3</f></c></row>"
      "<row><c><v>3</v></c><c><f t=\"shared\" si=\"0\"/></c></row>"
      "<row><c><v>10</v></c><c><f t=\"shared\" si=\"0\"/></c></row>");
  EXPECT_EQ(rowOf(shared, 1, 2), (Row{"2", "20"}));
  EXPECT_EQ(rowOf(shared, 2, 2), (Row{"3", "30"}));
  EXPECT_EQ(rowOf(shared, 3, 2), (Row{"10", "100"}));

  Workbook book = fromFormulas(
      "<row><c><v>2</v></c><c><v>5</v></c><c><f t=\"array\" ref=\"C1\">SUM(A1:A3*B1:B3)</f></c>"
      "<c><f t=\"array\" ref=\"D1:E3\">A1:A3*{1,10}</f><v>0</v></c></row>"
      "<row><c><v>3</v></c><c><v>7</v></c><c r=\"D2\"><v>0</v></c></row>"
      "<row><c><v>4</v></c><c><v>1</v></c><c r=\"E3\"><v>0</v></c></row>"
      "<row><c><f>E3+D2</f></c><c><f t=\"array\" ref=\"B4:B5\">A1:A1</f></c>"
      "<c><f t=\"array\" ref=\"C4\">MAX(IF(B1:B3&gt;2,A1:A3))</f></c></row>");
  EXPECT_EQ(rowOf(book, 1, 5), (Row{"2", "5", "35", "2", "20"}));
  EXPECT_EQ(rowOf(book, 2, 4), (Row{"3", "7", "", "3"}));
  EXPECT_EQ(rowOf(book, 3, 5), (Row{"4", "1", "", "4", "40"}));
  EXPECT_EQ(rowOf(book, 4, 3), (Row{"43", "2", "3"}));
  EXPECT_EQ(rowOf(book, 5, 2), (Row{"", "2"}));
  book.sheet("S").set(3, 1, 100);
  EXPECT_EQ(rowOf(book, 4, 1), Row{"1003"});
  EXPECT_TRUE(book.warnings().empty());
}

TEST(Evaluate, PassedOverFormulasKeepTheirStoredValueAndAreNamed) {
  Workbook book = fromFormulas(
      "<row><c><f>[1]Other!A1</f><v>5</v></c><c><f t=\"dataTable\" ref=\"B1\"/><v>6</v></c>"
      "<c><f>Table1[Qty]</f><v>7</v></c><c><f>A1+B1+C1</f></c><c><f>FOO(1)</f></c></row>");
  EXPECT_EQ(rowOf(book, 1, 5), (Row{"5", "6", "7", "18", "#NAME?"}));
  EXPECT_EQ(book.warnings(),
            (Row{"S!A1: the formula refers to another workbook or to a table; its stored value is kept",
                 "S!B1: tables of variants are passed over; its stored value is kept",
                 "S!C1: the formula refers to a table; its stored value is kept",
                 "S!E1: the function FOO is not known"}));
}

TEST(Evaluate, ASetValueReachesWhatDependsOnIt) {
  Workbook book = Workbook::fromBytes(books::zipped(
      books::withSheet(books::sheet("<row><c><v>2</v></c><c><f>A1*10</f><v>99</v></c></row>"))));
  auto& sheet = book.sheet("s");
  EXPECT_EQ(rowOf(book, 1, 2), (Row{"2", "99"}));  // as stored, until something is set
  sheet.set(1, 1, 7);
  EXPECT_EQ(rowOf(book, 1, 2), (Row{"7", "70"}));
  sheet.set(1, 2, "typed over");
  sheet.set(1, 1, 8);
  EXPECT_EQ(rowOf(book, 1, 2), (Row{"8", "typed over"}));
  EXPECT_THROW(sheet.set(0, 1, 1), workbook::WorkbookError);
  EXPECT_THROW(sheet.set(1, 16385, 1), workbook::WorkbookError);
}

}  // namespace

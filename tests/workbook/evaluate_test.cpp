#include <gtest/gtest.h>

#include <chrono>

#include "workbook/books.h"

namespace {

using workbook::Workbook;

struct Case {
  const char* formula;
  const char* expected;
};

// The data the formulas look at, on the sheet "Data":
//      A          B     C      D            E        F
//   1  Code       Qty   Rate   Name         (empty)  TRUE
//   2  A00001     2     10.5   Steel rod    (empty)  #N/A
//   3  A00002     3     20     Copper wire
//   4  A00003     0     7.25   steel pipe
//   5  (empty)    1.5   100    Brass
//   6  A00005     -4    2.675  ""           5 (as text)
std::string book(const std::vector<Case>& cases) {
  return books::written([&](lxw_workbook* made) {
    lxw_worksheet* calc = workbook_add_worksheet(made, "Calc");
    lxw_worksheet* data = workbook_add_worksheet(made, "Data");
    const char* codes[] = {"Code", "A00001", "A00002", "A00003", nullptr, "A00005"};
    const char* names[] = {"Name", "Steel rod", "Copper wire", "steel pipe", "Brass", nullptr};
    const double quantities[] = {0, 2, 3, 0, 1.5, -4}, rates[] = {0, 10.5, 20, 7.25, 100, 2.675};
    for (lxw_row_t row = 0; row < 6; ++row) {
      if (codes[row]) worksheet_write_string(data, row, 0, codes[row], nullptr);
      if (row) worksheet_write_number(data, row, 1, quantities[row], nullptr);
      if (row) worksheet_write_number(data, row, 2, rates[row], nullptr);
      if (names[row]) worksheet_write_string(data, row, 3, names[row], nullptr);
    }
    worksheet_write_string(data, 0, 1, "Qty", nullptr);
    worksheet_write_string(data, 0, 2, "Rate", nullptr);
    worksheet_write_formula(data, 5, 3, "=\"\"", nullptr);
    worksheet_write_string(data, 5, 4, "5", nullptr);
    worksheet_write_boolean(data, 0, 5, 1, nullptr);
    worksheet_write_formula(data, 1, 5, "=NA()", nullptr);
    workbook_define_name(made, "Rates", "=Data!$C$2:$C$6");
    workbook_define_name(made, "Gst", "=0.18");
    workbook_define_name(made, "Calc!Local", "=Data!$D$2");
    for (size_t i = 0; i < cases.size(); ++i)
      worksheet_write_formula(calc, static_cast<lxw_row_t>(i), 7,
                              (std::string("=") + cases[i].formula).c_str(), nullptr);
  });
}

void check(const std::vector<Case>& cases) {
  Workbook made = Workbook::fromBytes(book(cases));
  made.setNow(46188.75);  // 15 June 2026, 18:00
  made.recalculate();
  for (size_t i = 0; i < cases.size(); ++i)
    EXPECT_EQ(books::said(made.sheet("calc").value(static_cast<int>(i) + 1, 8)), cases[i].expected)
        << cases[i].formula;
}

// clang-format off
TEST(Evaluate, Operators) {
  check({
    {"1+2*3",                     "7"},
    {"(1+2)*3",                   "9"},
    {"-2^2",                      "4"},          // the sign binds closer than the power
    {"2^3^2",                     "64"},         // from the left
    {"10%+1",                     "1.1"},
    {"50%%",                      "0.005"},
    {"-Data!B2+-+1",              "-3"},
    {"\"a\"&1+1&\"b\"",           "a2b"},
    {"1/0",                       "#DIV/0!"},
    {"0^0",                       "#NUM!"},
    {"\"12\"+1",                  "13"},
    {"\"1,250.50\"*2",            "2501"},
    {"\"x\"+1",                   "#VALUE!"},
    {"0.1+0.2-0.3",               "0"},
    {"0.1+0.2=0.3",               "TRUE"},
    {"\"ABC\"=\"abc\"",           "TRUE"},
    {"\"b\">\"A\"",               "TRUE"},
    {"2<\"1\"",                   "TRUE"},       // numbers come before texts
    {"TRUE>\"z\"",                "TRUE"},
    {"Data!E1=0",                 "TRUE"},       // an empty cell equals both
    {"Data!E1=\"\"",              "TRUE"},
    {"1<>2",                      "TRUE"},
    {"Data!E1",                   "0"},
    {"\"say \"\"hi\"\"\"",        "say \"hi\""},
    {"123456789*1000&\"\"",       "123456789000"},
    {"1/3&\"\"",                  "0.333333333333333"},
    {"1E+22&\"\"",                "1E+22"},
    {" 1 + ( 2 ) ",               "3"},
  });
}

TEST(Evaluate, NumbersAndRounding) {
  check({
    {"ROUND(2.675,2)",            "2.68"},       // on the decimal digits, half away from zero
    {"ROUND(-2.5,0)",             "-3"},
    {"ROUND(1.005,2)",            "1.01"},
    {"ROUND(1234.5,-2)",          "1200"},
    {"ROUNDUP(2.001,2)",          "2.01"},
    {"ROUNDUP(-2.1,0)",           "-3"},
    {"ROUNDUP(2.3,1)",            "2.3"},
    {"ROUNDUP(0,-2)",             "0"},
    {"ROUNDUP(12,-3)",            "1000"},
    {"ROUNDDOWN(2.999,2)",        "2.99"},
    {"ROUNDDOWN(-2.99,0)",        "-2"},
    {"INT(-0.5)",                 "-1"},
    {"TRUNC(-8.9)",               "-8"},
    {"MOD(-3,2)",                 "1"},
    {"MOD(3,-2)",                 "-1"},
    {"MOD(5,0)",                  "#DIV/0!"},
    {"ABS(-4.5)",                 "4.5"},
    {"CEILING(2.1,0.5)",          "2.5"},
    {"FLOOR(2.9,0.5)",            "2.5"},
    {"_xlfn.CEILING.MATH(-2.1,2)&_xlfn.FLOOR.MATH(-2.1,2)", "-2-4"},
    {"MROUND(7.3,0.5)",           "7.5"},
    {"QUOTIENT(-7,2)",            "-3"},
    {"SQRT(-1)",                  "#NUM!"},
    {"SQRT(16)+POWER(2,5)",       "36"},
    {"SIGN(-3)&EVEN(3)&ODD(2)",   "-143"},
    {"LOG(1000)+LN(EXP(2))",      "5"},
    {"FACT(5)",                   "120"},
  });
}

TEST(Evaluate, TotalsOverBlocks) {
  check({
    {"SUM(Data!B1:B6)",                       "2.5"},   // the heading does not count
    {"SUM(Data!B:B,10,\"5\")",                "17.5"},
    {"SUM(Data!E1:E6)",                       "0"},     // nor does a text in a cell
    {"SUM(Data!F1:F2)",                       "#N/A"},
    {"SUM(Rates)",                            "140.425"},
    {"AVERAGE(Data!B2:B6)",                   "0.5"},
    {"AVERAGE(Data!E1:E2)",                   "#DIV/0!"},
    {"MIN(Data!B2:B6)&\"|\"&MAX(Data!B2:B6)", "-4|3"},
    {"MAX(Data!E1:E3)",                       "0"},
    {"COUNT(Data!A1:C6)",                     "10"},
    {"COUNTA(Data!A1:A6)",                    "5"},
    {"COUNTA(Data!D1:D6)",                    "6"},     // a formula that gives "" counts
    {"COUNTBLANK(Data!D1:E6)",                "6"},
    {"PRODUCT(Data!B2:B3,2)",                 "12"},
    {"LARGE(Rates,2)&\"|\"&SMALL(Rates,1)",   "20|2.675"},
    {"MEDIAN(Rates)",                         "10.5"},
    {"SUMSQ(3,4)",                            "25"},
    {"SUBTOTAL(9,Data!B2:B6)",                "2.5"},
    {"SUMIF(Data!D1:D6,\"steel*\",Data!C1:C6)",        "17.75"},
    {"SUMIF(Data!B2:B6,\">1\")",                       "6.5"},
    {"SUMIF(Data!A1:A6,\"A0000?\",Data!B1)",           "1"},     // the sum block takes the size
    {"SUMIFS(Data!C2:C6,Data!B2:B6,\">0\",Data!D2:D6,\"<>Brass\")", "30.5"},
    {"COUNTIF(Data!B2:B6,\"<=0\")",                    "2"},
    {"COUNTIF(Data!D1:D6,\"<>\")",                     "6"},
    {"COUNTIF(Data!A1:A6,\"\")",                       "1"},
    {"COUNTIF(Data!E:E,5)",                            "1"},     // a text of digits counts too
    {"COUNTIF(Data!A1:A10,\"=\")",                     "5"},
    {"MAXIFS(Data!C2:C6,Data!B2:B6,\">0\")&\"|\"&MINIFS(Data!C2:C6,Data!B2:B6,\">0\")", "100|10.5"},
    {"RANK(20,Data!C2:C6)&RANK(20,Data!C2:C6,1)",      "24"},
    {"COUNTIFS(Data!A1:A6,\"A*\",Data!B1:B6,\"<>0\")", "3"},
    {"AVERAGEIF(Data!B2:B6,\">0\",Data!C2:C6)",        "43.5"},
    {"SUMPRODUCT(Data!B2:B6,Data!C2:C6)",              "220.3"},
    {"SUMPRODUCT((Data!B2:B6>0)*(Data!C2:C6<50)*Data!C2:C6)", "30.5"},
    {"SUMPRODUCT(--(LEFT(Data!D1:D6,5)=\"steel\"))",   "2"},
    {"SUMPRODUCT(ROUND(Data!B2:B6*Data!C2:C6,0))",     "220"},
    {"SUM({1,2;3,4})",                                 "10"},
    {"SUM(IF(1,5,1/0),1)",                             "6"},
    {"SUM(IFERROR(VLOOKUP(\"none\",Data!A1:B6,2,FALSE),7))", "7"},
  });
}

TEST(Evaluate, Texts) {
  check({
    {"LEFT(\"abc\",2)&RIGHT(\"abc\",2)&MID(\"abcdef\",3,2)", "abbccd"},
    {"LEFT(\"ab\")&LEFT(\"ab\",9)",           "aab"},
    {"LEFT(\"ab\",-1)",                       "#VALUE!"},
    {"MID(\"abc\",9,2)",                      ""},
    {"LEN(\"\u0AA8\u0AAE\u0AB8\")",           "3"},      // characters, not bytes
    {"RIGHT(\"\u20B9 50\",2)",                "50"},
    {"TRIM(\"  a   b \")",                    "a b"},
    {"UPPER(\"aB1\")&LOWER(\"Cd\")&PROPER(\"steel ROD-x 2ND\")", "AB1cdSteel Rod-X 2Nd"},
    {"CONCATENATE(\"a\",1,TRUE)",             "a1TRUE"},
    {"CONCAT(Data!A2:A3,\"!\")",              "A00001A00002!"},
    {"TEXTJOIN(\", \",TRUE,Data!A2:A6)",      "A00001, A00002, A00003, A00005"},
    {"CHAR(65)&CHAR(10)&CODE(\"A\")",         "A\n65"},
    {"CHAR(128)&UNICHAR(8377)",               "\u20AC\u20B9"},
    {"REPT(\"ab\",3)",                        "ababab"},
    {"REPT(\"x\",40000)",                     "#VALUE!"},
    {"SUBSTITUTE(\"a-b-c\",\"-\",\"+\")",     "a+b+c"},
    {"SUBSTITUTE(\"a-b-c\",\"-\",\"\",2)",    "a-bc"},
    {"REPLACE(\"abcdef\",2,3,\"X\")",         "aXef"},
    {"FIND(\"b\",\"aBb\")&SEARCH(\"b\",\"aBb\")", "32"},
    {"FIND(\"x\",\"abc\")",                   "#VALUE!"},
    {"SEARCH(\"r?d\",\"Steel rod\")",         "7"},
    {"EXACT(\"a\",\"A\")",                    "FALSE"},
    {"T(5)&T(\"x\")&N(\"x\")&N(7)",           "x07"},
    {"VALUE(\" 1,234.5 \")+VALUE(\"20%\")",   "1234.7"},
    {"VALUE(\"(15)\")",                       "-15"},
    {"VALUE(\"abc\")",                        "#VALUE!"},
    {"TEXT(1234.5,\"#,##0.00\")",             "1,234.50"},
    {"TEXT(46188,\"dd/mmm/yyyy\")",           "15/Jun/2026"},
    {"TEXT(\"abc\",\"0\")",                   "abc"},
    {"TEXT(0.256,\"0.0%\")",                  "25.6%"},
    {"FIXED(1234.567,1)&FIXED(1234.567,0,TRUE)", "1,234.61235"},
    {"CLEAN(\"a\"&CHAR(10)&\"b\")",           "ab"},
    {"HYPERLINK(\"http://x\",\"open\")",      "open"},
  });
}

TEST(Evaluate, LogicAndKinds) {
  check({
    {"IF(Data!B2>1,\"y\",1/0)",               "y"},      // the other branch is not looked at
    {"IF(FALSE,1)",                           "FALSE"},
    {"IF(TRUE,)",                             "0"},
    {"IF(\"x\",1,2)",                         "#VALUE!"},
    {"AND(TRUE,1,Data!B2)&OR(FALSE,0)&NOT(0)&XOR(TRUE,TRUE)", "TRUEFALSETRUEFALSE"},
    {"AND(Data!D2:D5)",                       "#VALUE!"},
    {"IFERROR(1/0,\"none\")&IFERROR(5,0)",    "none5"},
    {"IFNA(NA(),1)",                          "1"},
    {"IFNA(1/0,1)",                           "#DIV/0!"},
    {"IFS(FALSE,1,Data!B2=2,\"two\")",        "two"},
    {"SWITCH(3,1,\"a\",3,\"c\",\"else\")&SWITCH(9,1,\"a\",\"else\")", "celse"},
    {"CHOOSE(2,\"a\",\"b\")",                 "b"},
    {"CHOOSE(3,\"a\",\"b\")",                 "#VALUE!"},
    {"ISBLANK(Data!E1)&ISBLANK(Data!D6)",     "TRUEFALSE"},
    {"ISNUMBER(Data!B2)&ISNUMBER(Data!E6)&ISTEXT(Data!E6)&ISNONTEXT(Data!B2)", "TRUEFALSETRUETRUE"},
    {"ISERROR(Data!F2)&ISERR(Data!F2)&ISNA(Data!F2)&ISLOGICAL(Data!F1)", "TRUEFALSETRUETRUE"},
    {"ISEVEN(4)&ISODD(4)&ISREF(Data!A1)",     "TRUEFALSETRUE"},
    {"TYPE(1)&TYPE(\"a\")&TYPE(TRUE)&TYPE(NA())", "12416"},
    {"Gst*100",                               "18"},
    {"Local",                                 "Steel rod"},
    {"NoSuchName+1",                          "#NAME?"},
    {"NoSuchFunction(1)",                     "#NAME?"},
    {"IFERROR(NoSuchFunction(1),\"caught\")", "caught"},
    {"NoSheet!A1",                            "#REF!"},
  });
}

TEST(Evaluate, Lookups) {
  check({
    {"_xlfn.XLOOKUP(\"A00002\",Data!A1:A6,Data!D1:D6)",           "Copper wire"},
    {"_xlfn.XLOOKUP(\"none\",Data!A1:A6,Data!D1:D6,\"no\")",       "no"},
    {"_xlfn.XLOOKUP(\"none\",Data!A1:A6,Data!D1:D6)",             "#N/A"},
    {"_xlfn.XLOOKUP(11,Data!C2:C6,Data!D2:D6,\"\",-1)",           "Steel rod"},
    {"_xlfn.XLOOKUP(11,Data!C2:C6,Data!D2:D6,\"\",1)",            "Copper wire"},
    {"SUM(_xlfn.XLOOKUP(\"A00001\",Data!A1:A6,Data!B1:C6))",      "12.5"},
    {"SUMPRODUCT(TRANSPOSE({1,2,3})*{4;5;6})",                    "32"},
    {"VLOOKUP(\"a00002\",Data!A1:D6,4,FALSE)",     "Copper wire"},
    {"VLOOKUP(\"A0000*\",Data!A:D,2,0)",           "2"},
    {"VLOOKUP(\"zz\",Data!A1:D6,4,FALSE)",         "#N/A"},
    {"VLOOKUP(\"A00001\",Data!A1:B6,3,FALSE)",     "#REF!"},
    {"VLOOKUP(2.5,{1,\"a\";2,\"b\";3,\"c\"},2)",   "b"},
    {"HLOOKUP(\"Rate\",Data!A1:D6,3,FALSE)",       "20"},
    {"INDEX(Data!A1:D6,3,4)",                      "Copper wire"},
    {"INDEX(Data!A1:D6,9,1)",                      "#REF!"},
    {"INDEX(Data!A1:D1,2)",                        "Qty"},
    {"SUM(INDEX(Data!A1:D6,0,3))",                 "140.425"},
    {"SUM(Data!C2:INDEX(Data!C:C,4))",             "37.75"},
    {"MATCH(\"Copper wire\",Data!D1:D6,0)",        "3"},
    {"MATCH(15,{1,10,20})&MATCH(15,{20,16,10},-1)", "22"},
    {"MATCH(5,Data!E1:E6,0)",                      "#N/A"},  // "5" is a text
    {"INDEX(Data!D1:D6,MATCH(\"A00003\",Data!A1:A6,0))", "steel pipe"},
    {"LOOKUP(2,1/(Data!B2:B6>1),Data!D2:D6)",      "Brass"},  // the last that holds
    {"OFFSET(Data!A1,2,3)",                        "Copper wire"},
    {"SUM(OFFSET(Data!C6,0,0,-2,1))",              "102.675"},
    {"OFFSET(Data!A1,-1,0)",                       "#REF!"},
    {"INDIRECT(\"Data!D\"&1+1)",                   "Steel rod"},
    {"SUM(INDIRECT(\"'Data'!B2:B3\"))",            "5"},
    {"INDIRECT(\"nothing here\")",                 "#REF!"},
    {"ROW()-ROW(H30)&COLUMN()&ROW(Data!C5)&COLUMN(Data!C5)", "0853"},
    {"ROWS(Data!A1:D6)*COLUMNS(Data!A1:D6)",       "24"},
    {"SUMPRODUCT(ROW(1:4))",                       "10"},
    {"ADDRESS(3,28)&ADDRESS(1,2,4)",               "$AB$3B1"},
  });
}

TEST(Evaluate, Dates) {
  check({
    {"DATE(2026,6,15)",                       "46188"},
    {"DATE(2026,14,1)",                       "46419"},      // month 14 is February of 2027
    {"DATE(2026,3,0)",                        "46081"},      // 28 February
    {"DATE(1900,1,1)&DATE(1900,3,1)",         "161"},
    {"YEAR(46188)&MONTH(46188)&DAY(46188)",   "2026615"},
    {"TODAY()&\"|\"&NOW()",                   "46188|46188.75"},
    {"HOUR(0.75)&MINUTE(0.5208333333)&SECOND(TIME(1,2,3))", "18303"},
    {"WEEKDAY(46188)&WEEKDAY(46188,2)",       "21"},         // a Monday
    {"TEXT(EDATE(DATE(2026,1,31),1),\"dd/mm/yyyy\")", "28/02/2026"},
    {"TEXT(EOMONTH(DATE(2024,1,15),1),\"dd/mm/yyyy\")", "29/02/2024"},
    {"DATEVALUE(\"15/06/2026\")&DATEVALUE(\"15/Jun/2026\")", "4618846188"},
    {"\"15/06/2026\"+1",                      "46189"},
    {"DAYS(DATE(2026,6,15),DATE(2026,6,1))",  "14"},
    {"DATEDIF(DATE(2025,1,31),DATE(2026,3,1),\"M\")&DATEDIF(1,366,\"Y\")", "130"},
    {"YEAR(-1)",                              "#NUM!"},
  });
}
// clang-format on

workbook::Workbook fromFormulas(const std::string& rows) {
  return Workbook::fromBytes(books::zipped(books::withSheet(books::sheet(rows))));
}

TEST(Evaluate, CirclesGiveAnErrorAndEnd) {
  Workbook book = fromFormulas(
      "<row r=\"1\"><c r=\"A1\"><f>A1+1</f></c><c r=\"B1\"><f>IFERROR(C1,5)</f></c><c "
      "r=\"C1\"><f>B1*2</f></c>"
      "<c r=\"D1\"><f>IFERROR(A1,7)</f></c><c r=\"E1\"><f>SUM(A1:F1)</f></c><c r=\"F1\"><v>3</v></c></row>");
  book.recalculate();
  auto& sheet = book.sheet("S");
  for (const int column : {1, 2, 3, 5}) EXPECT_EQ(books::said(sheet.value(1, column)), "#REF!") << column;
  EXPECT_EQ(books::said(sheet.value(1, 4)), "7");  // beside the circle, not in it
  const std::vector<std::string> expected{"S!A1: the formula refers to itself",
                                          "S!C1: the formula refers to itself",
                                          "S!B1: the formula refers to itself"};
  EXPECT_EQ(book.warnings(), expected);
}

// 20,000 cells, each needing the next, asked for from the first: deeper than any stack.
TEST(Evaluate, LongChainsAreCalculatedAndLongCirclesEnd) {
  std::string rows, circle;
  constexpr int kRows = 20000;
  for (int row = 1; row <= kRows; ++row) {
    const std::string cell = "<row r=\"" + std::to_string(row) + "\"><c r=\"A" + std::to_string(row) + "\">";
    rows += cell + (row < kRows ? "<f>A" + std::to_string(row + 1) + "+1</f>" : "<v>1</v>") + "</c></row>";
    circle += cell + "<f>A" + std::to_string(row % kRows + 1) + "+1</f></c></row>";
  }
  Workbook chain = fromFormulas(rows);
  chain.recalculate();
  EXPECT_EQ(books::said(chain.sheet("S").value(1, 1)), std::to_string(kRows));
  Workbook round = fromFormulas(circle);
  round.recalculate();
  EXPECT_EQ(books::said(round.sheet("S").value(1, 1)), "#REF!");
  EXPECT_EQ(books::said(round.sheet("S").value(kRows / 2, 1)), "#REF!");
}

TEST(Evaluate, HostileFormulasEnd) {
  const std::string deep(5000, '('), minus(6000, '-');
  std::string names;
  for (const char* formula : {"SUM(A1:XFD1048576)", "SUMPRODUCT(B1:XFD1048576*1)",
                              "SUMPRODUCT(ROW(A1:A1048576))", "REPT(REPT(\"x\",30000),30000)",
                              "COUNTIF(B1:XFD1048576,\"\")", "SUMPRODUCT(ROW(1:1048576)*COLUMN(A:XFD))"})
    names += "<row><c><f>" + std::string(formula) + "</f></c></row>";
  Workbook book = fromFormulas("<row r=\"5\"><c><f>" + deep + "1</f><v>8</v></c></row><row><c><f>" + minus +
                               "1</f><v>9</v></c></row>" + names);
  book.recalculate();
  auto& sheet = book.sheet("S");
  EXPECT_EQ(books::said(sheet.value(5, 1)), "8");  // not understood: what is stored stays
  EXPECT_EQ(books::said(sheet.value(6, 1)), "9");
  EXPECT_EQ(books::said(sheet.value(7, 1)), "#REF!");  // its own cell is in the block
  EXPECT_EQ(books::said(sheet.value(8, 1)), "0");
  EXPECT_EQ(books::said(sheet.value(10, 1)), "#VALUE!");
  EXPECT_EQ(books::said(sheet.value(11, 1)), "17178820608");
  EXPECT_EQ(books::said(sheet.value(12, 1)), "#NUM!");
}

// Ten thousand sums over ten thousand cells: the work is cut off, not done.
TEST(Evaluate, EndlessWorkIsCutOff) {
  std::string rows;
  for (int row = 1; row <= 10000; ++row) rows += "<row><c><v>1</v></c><c><f>SUM(A:A)</f></c></row>";
  Workbook book = fromFormulas(rows);
  book.recalculate();
  EXPECT_EQ(books::said(book.sheet("S").value(1, 2)), "10000");
  EXPECT_EQ(books::said(book.sheet("S").value(10000, 2)), "#NUM!");
}

TEST(Evaluate, SharedFormulasMoveTheirReferences) {
  Workbook book = fromFormulas(
      "<row r=\"1\"><c r=\"A1\"><v>2</v></c><c r=\"B1\"><f t=\"shared\" ref=\"B1:B3\" "
      "si=\"0\">A1*$A$3</f></c></row>"
      "<row r=\"2\"><c r=\"A2\"><v>3</v></c><c r=\"B2\"><f t=\"shared\" si=\"0\"/></c></row>"
      "<row r=\"3\"><c r=\"A3\"><v>10</v></c><c r=\"B3\"><f t=\"shared\" si=\"0\"/></c></row>");
  book.recalculate();
  for (const auto& [row, expected] : {std::pair(1, "20"), std::pair(2, "30"), std::pair(3, "100")})
    EXPECT_EQ(books::said(book.sheet("S").value(row, 2)), expected);
}

// A formula over whole blocks, in one cell or filling several; the cells behind it follow it.
TEST(Evaluate, ArrayFormulas) {
  Workbook book = fromFormulas(
      "<row r=\"1\"><c r=\"A1\"><v>2</v></c><c r=\"B1\"><v>5</v></c><c r=\"C1\"><f t=\"array\" ref=\"C1\">"
      "SUM(A1:A3*B1:B3)</f></c><c r=\"D1\"><f t=\"array\" ref=\"D1:E3\">A1:A3*{1,10}</f><v>0</v></c></row>"
      "<row r=\"2\"><c r=\"A2\"><v>3</v></c><c r=\"B2\"><v>7</v></c><c r=\"D2\"><v>0</v></c></row>"
      "<row r=\"3\"><c r=\"A3\"><v>4</v></c><c r=\"B3\"><v>1</v></c><c r=\"E3\"><v>0</v></c></row>"
      "<row r=\"4\"><c r=\"A4\"><f>E3+D2</f></c><c r=\"B4\"><f t=\"array\" ref=\"B4:B5\">A1:A1</f></c>"
      "<c r=\"C4\"><f t=\"array\" ref=\"C4\">MAX(IF(B1:B3&gt;2,A1:A3))</f></c></row>");
  book.recalculate();
  auto& sheet = book.sheet("S");
  const std::tuple<int, int, const char*> cells[] = {
      {1, 3, "35"},
      {1, 4, "2" },
      {1, 5, "20"},
      {2, 4, "3" },
      {3, 5, "40"},
      {4, 1, "43"},
      {5, 2, "2" },
      {4, 3, "3" },
  };
  for (const auto& [row, column, expected] : cells)
    EXPECT_EQ(books::said(sheet.value(row, column)), expected) << row << " " << column;
  sheet.set(3, 1, 100);
  EXPECT_EQ(books::said(sheet.value(4, 1)), "1003");
  EXPECT_TRUE(book.warnings().empty());
}

TEST(Evaluate, PassedOverFormulasKeepTheirStoredValueAndAreNamed) {
  Workbook book = fromFormulas(
      "<row r=\"1\"><c r=\"A1\"><f>[1]Other!A1</f><v>5</v></c><c r=\"B1\"><f t=\"dataTable\" ref=\"B1\"/>"
      "<v>6</v></c><c r=\"C1\"><f>Table1[Qty]</f><v>7</v></c><c r=\"D1\"><f>A1+B1+C1</f></c>"
      "<c r=\"E1\"><f>FOO(1)</f></c></row>");
  book.recalculate();
  EXPECT_EQ(books::said(book.sheet("S").value(1, 4)), "18");
  const std::vector<std::string> expected{
      "S!A1: the formula refers to another workbook or to a table; its stored value is kept",
      "S!B1: tables of variants are passed over; its stored value is kept",
      "S!C1: the formula refers to a table; its stored value is kept", "S!E1: the function FOO is not known"};
  EXPECT_EQ(book.warnings(), expected);
}

TEST(Evaluate, ASetValueReachesWhatDependsOnIt) {
  Workbook book =
      fromFormulas("<row r=\"1\"><c r=\"A1\"><v>2</v></c><c r=\"B1\"><f>A1*10</f><v>99</v></c></row>");
  auto& sheet = book.sheet("s");
  EXPECT_EQ(books::said(sheet.value(1, 2)), "99");  // as stored, until something is set
  sheet.set(1, 1, 7);
  EXPECT_EQ(books::said(sheet.value(1, 2)), "70");
  sheet.set(1, 2, "typed over");
  sheet.set(1, 1, 8);
  EXPECT_EQ(books::said(sheet.value(1, 2)), "typed over");
  EXPECT_THROW(sheet.set(0, 1, 1), workbook::WorkbookError);
  EXPECT_THROW(sheet.set(1, 16385, 1), workbook::WorkbookError);
}

}  // namespace

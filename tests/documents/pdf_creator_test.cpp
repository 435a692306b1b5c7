#include "documents/pdf/pdf_creator.h"

#include <functional>
#include <locale>
#include <sstream>
#include <system_error>

#include "base/text.h"
#include "documents/pdf/ascii85.h"
#include "documents/pdf/win_ansi.h"
#include "frame/full_disk.h"
#include "pdf_file.h"
#include "support/temp_folder.h"

namespace {

namespace fs = std::filesystem;

class PdfWriter : public testing::Test {
 protected:
  // A file of one page on which the function draws.
  std::string drawn(const std::function<void(clsPDFCreator&)>& draw) {
    clsPDFCreator pdf;
    pdf.PaperSize(0);
    pdf.InitPDFFile(file());
    pdf.LoadFont("Fnt1", "Times New Roman", 0);
    pdf.BeginPage();
    draw(pdf);
    pdf.EndPage();
    pdf.ClosePDFFile();
    expectSound(file());
    const std::string bytes = bytesOf(file());
    const size_t start = bytes.find("stream\r\n") + 8;
    return replaceAll(bytes.substr(start, bytes.find("endstream") - start), "\r\n", "\n");
  }

  std::string file() const { return (folder / "page.pdf").string(); }
  size_t files() const {
    return static_cast<size_t>(
        std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()));
  }

  TempFolder folder;
};

TEST_F(PdfWriter, WritesItsObjectsInOrderAndWording) {
  clsPDFCreator pdf;
  pdf.PaperSize(0);
  pdf.Margin(10);
  pdf.Title("Ledger (A\\B)");
  pdf.InitPDFFile(file());
  pdf.InitPDFFile((folder / "other.pdf").string());  // one is open
  pdf.LoadFontStandard("F2", "Helvetica Neue", 1);
  pdf.StartObject("Ftrs");
  pdf.DrawText(20, 800, "(c) a\\b", "F2", 9);
  pdf.EndObject();
  EXPECT_EQ(pdf.BeginPage(), 1);
  pdf.DrawObject("Ftrs");
  pdf.EndPage();
  EXPECT_EQ(pdf.Pages(), 1);
  pdf.ClosePDFFile();
  const std::string bytes = bytesOf(file());
  EXPECT_EQ(
      replaceAll(replaceAll(bytes.substr(0, bytes.find("xref")), "\r\n", "\n"), "\r", "~"),
      "%PDF-1.5\n"
      "1 0 obj\n<<~/Title (Ledger \\(A\\\\B\\))~/Author (TOVA)~/Creator  (clsPDFCreator)"
      "~/Producer (Mirav 2024-2026)~>>\nendobj\n"
      "2 0 obj\n<<~/Type /Catalog~/Pages 3 0 R~/PageLayout /OneColumn~/PageMODE /UseNone~/Lang (it) ~"
      "/VIEWerPreferences << /HideToolbar false /DisplayDocTitle true /HideWindowUI false >>~>>\nendobj\n"
      "5 0 obj\n<< /Type /Font ~/Subtype /Type1 ~/Name /F2 ~/BaseFont /HelveticaNeue,Bold ~"
      "/Encoding /WinAnsiEncoding >>\nendobj\n"
      "6 0 obj\n<<~/Type /XObject~/Subtype /Form~/FormType 1~/Name /Ftrs~/BBox [10 10 585.2 832]~"
      "/Matrix [1 0 0 1 0 0]~/Length 7 0 R >>\nstream\n"
      "BT\n/F2 9 Tf\n30 810 Td\n(\\(c\\) a\\\\b) Tj\nET\n"
      "endstream\nendobj\n7 0 obj\n46\nendobj\n"
      "8 0 obj\n<<~/Type /Page~/Parent 3 0 R~/Contents 9 0 R~>>\nendobj\n"
      "9 0 obj\n<< /Length 10 0 R >>\nstream\n/Ftrs Do\nendstream\nendobj\n10 0 obj\n10\nendobj\n"
      "4 0 obj\n<<~/Font <<~/F2 5 0 R ~>>~/ProcSet [/PDF /Text ]~/XObject <<~/Ftrs 6 0 R ~>>~>>\nendobj\n"
      "3 0 obj\n<<~/Type /Pages~/Count 1~/MediaBox [0 0 595.2 842]~/CropBox [10 10 585.2 832]~"
      "/Kids [8 0 R ]~/Resources 4 0 R~>>\nendobj\n");
  EXPECT_EQ(files(), 1u);
  expectSound(file());
  EXPECT_EQ(pdfInfo(file(), "Title"), "Ledger (A\\B)");
  EXPECT_NE(pdfText(file()).find("(c) a\\b"), std::string::npos);
}

// Each entry of the table has twenty bytes and leads to its object; the end leads to the table.
TEST_F(PdfWriter, FindsEveryObjectToTheByte) {
  drawn([](clsPDFCreator& pdf) {
    for (int page = 0; page < 3; ++page) {
      pdf.DrawText(50, 50, "પાનું " + std::to_string(page), "Fnt1", 9);
      pdf.EndPage();
      pdf.BeginPage();
    }
  });
  const std::string bytes = bytesOf(file());
  const size_t table = bytes.find("xref\r\n"), trailer = bytes.find("trailer");
  constexpr size_t kEntry = 20;
  const std::string head = "xref\r\n0 19\r\n";
  ASSERT_EQ(bytes.substr(table, head.size()), head);
  ASSERT_EQ(trailer, table + head.size() + 19 * kEntry);
  for (size_t n = 0; n < 19; ++n) {
    const std::string entry = bytes.substr(table + head.size() + n * kEntry, kEntry);
    if (n == 0) {
      EXPECT_EQ(entry, "0000000000 65535 f\r\n");
      continue;
    }
    EXPECT_EQ(entry.substr(10), " 00000 n\r\n");
    const std::string object = std::to_string(n) + " 0 obj\r\n";
    EXPECT_EQ(bytes.substr(std::stoul(entry), object.size()), object);
  }
  EXPECT_EQ(bytes.substr(trailer), "trailer\r\n<<\r/Size 19\r/Info 1 0 R\r/Root 2 0 R\r>>\r\nstartxref\r\n" +
                                       std::to_string(table) + "\r\n%%EOF\r\n");
  EXPECT_EQ(pdfInfo(file(), "Pages"), "4");
}

TEST_F(PdfWriter, LeavesOutFontsAndPicturesThatThereAreNot) {
  clsPDFCreator pdf;
  pdf.PaperWidth(100);
  EXPECT_EQ(pdf.PaperSize(), 255);
  pdf.PaperHeight(50);
  pdf.InitPDFFile(file());
  pdf.BeginPage();
  pdf.DrawText(10, 10, "X", "None", 9);  // in a font that was not loaded
  EXPECT_EQ(pdf.Length("X", "None", 9), 0);
  pdf.EndPage();
  pdf.ClosePDFFile();
  const std::string bytes = bytesOf(file());
  EXPECT_NE(bytes.find("/None 9 Tf\r\n"), std::string::npos);
  EXPECT_NE(bytes.find("<<\r/ProcSet [/PDF /Text ]\r>>"), std::string::npos);
  EXPECT_NE(bytes.find("/Title (\\(Mirav Reports\\))"), std::string::npos);
  EXPECT_EQ(pdfInfo(file(), "Page size"), "100 x 50 pts");
  expectSound(file());
}

TEST_F(PdfWriter, DrawsByOperators) {
  using Pdf = clsPDFCreator;
  struct Case {
    std::function<void(Pdf&)> draw;
    const char* operators;
  };
  const Case cases[] = {
      {[](Pdf& p) { p.SetWordSpacing(1.5); },                               "1.5 Tw\n"                        },
      {[](Pdf& p) { p.SetCharSpacing(-0.25); },                             "-0.25 Tc\n"                      },
      {[](Pdf& p) { p.SetTextHorizontalScaling(70); },                      "70 Tz\n"                         },
      {[](Pdf& p) { p.SetTextRenderingMODE(2); },                           "2 Tr\n"                          },
      {[](Pdf& p) { p.SetColorStroke(0x0000FF); },                          "1 0 0 RG\n"                      },
      {[](Pdf& p) { p.SetColorStroke(0x333333); },                          "0.2 G\n"                         },
      {[](Pdf& p) { p.SetColorFill(0xFF0033); },                            "0.2 0 1 rg\n"                    },
      {[](Pdf& p) { p.SetColorFill(0); },                                   "0 g\n"                           },
      {[](Pdf& p) { p.SetDash(3, 1.5); },                                   "[3 1.5] 0 d\n"                   },
      {[](Pdf& p) { p.SetDash(); },                                         "[ ] 0 d\n"                       },
      {[](Pdf& p) { p.SetLineWidth(0.01); },                                "0.01 w\n"                        },
      {[](Pdf& p) { p.SetLineCap(1); },                                     "1 J\n"                           },
      {[](Pdf& p) { p.SetLineJoin(2); },                                    "2 j\n"                           },
      {[](Pdf& p) { p.SetMiterLimit(10); },                                 "10 M\n"                          },
      {[](Pdf& p) {
         p.MoveTo(1, 2);
         p.LineTo(1234.56789, -0.00001, Pdf::kStroke);
       },                                                            "1 2 m\n1234.5679 0 l\nS\n"       },
      {[](Pdf& p) { p.Rectangle(1, 2, 30, 40, Pdf::kFill); },               "1 2 30 40 re\nf\n"               },
      {[](Pdf& p) { p.Rectangle(0, 0, 1, 1, Pdf::kClose | Pdf::kFill); },   "0 0 1 1 re\nf\n"                 },
      {[](Pdf& p) { p.Rectangle(0, 0, 1, 1, Pdf::kStroke | Pdf::kFill); },  "0 0 1 1 re\nB\n"                 },
      {[](Pdf& p) { p.Rectangle(0, 0, 1, 1, 7); },                          "0 0 1 1 re\nb\n"                 },
      {[](Pdf& p) { p.Rectangle(0, 0, 1, 1, Pdf::kStroke | Pdf::kClose); }, "0 0 1 1 re\nh\nS\n"              },
      {[](Pdf& p) {
         p.Rectangle(0, 0, 1, 1, Pdf::kClose);
         p.LineTo(1, 1);
       },                                                            "0 0 1 1 re\nh\n1 1 l\nS\n"       },
      {[](Pdf& p) {
         p.MoveTo(0, 0);
         p.Curve(1, 2, 3, 4, 5, 6);
       },                                                            "0 0 m\n1 2 3 4 5 6 c\nS\n"       },
      {[](Pdf& p) { p.DrawCircle(10, 10, 10); },
       "20 10 m\n20 15.5 15.5 20 10 20 c\n4.5 20 0 15.5 0 10 c\n0 4.5 4.5 0 10 0 c\n15.5 0 20 4.5 20 10 "
       "c\nS\n"                                                                                               },
      {[](Pdf& p) { p.DrawArc(0, 0, 10, 90, 95, Pdf::kStroke); },           "n\n0 10 m\n-0.8716 9.9619 l\nS\n"},
      {[](Pdf& p) { p.DrawText(10, 20, "A", "Fnt1", 9, Pdf::kLeft, 90); },
       "BT\n/Fnt1 9 Tf\n0 1 -1 0 10 20 Tm\n(A) Tj\nET\n"                                                      },
      {[](Pdf& p) { p.DrawText(10, 20, "A", "Fnt1", 9, Pdf::kLeft, 30); },
       "BT\n/Fnt1 9 Tf\n0.866 0.5 -0.5 0.866 10 20 Tm\n(A) Tj\nET\n"                                          },
  };
  for (const Case& c : cases) EXPECT_EQ(drawn(c.draw), c.operators);
}

TEST_F(PdfWriter, RoundsCornersWithinTheRectangle) {
  const std::string path =
      drawn([](clsPDFCreator& p) { p.Rectangle(0, 0, 100, 40, clsPDFCreator::kStroke, 500); });
  EXPECT_TRUE(path.starts_with("20 0 m\n80 0 l\n91 0 100 9 100 20 c\n")) << path;
  EXPECT_TRUE(path.ends_with("S\n"));
}

// A is 722 wide, B 667, a blank 250; a rupee sign is written Rs.
TEST_F(PdfWriter, AlignsByTheWidthsOfItsFont) {
  drawn([](clsPDFCreator& pdf) {
    EXPECT_DOUBLE_EQ(pdf.Length("AB", "Fnt1", 10), 13.89);
    EXPECT_DOUBLE_EQ(pdf.Length("₹", "Fnt1", 10), 6.67 + 3.89);
    EXPECT_DOUBLE_EQ(pdf.Length("", "Fnt1", 10), 0);
    pdf.SetWordSpacing(2);
    EXPECT_DOUBLE_EQ(pdf.Length("A B", "Fnt1", 10), 13.89 + 2.5 + 2);
    pdf.ScaleMODE(1);
    EXPECT_DOUBLE_EQ(pdf.Length("AB", "Fnt1", 10), 13.89 / 72);
  });
  EXPECT_EQ(drawn([](clsPDFCreator& pdf) {
              pdf.DrawText(100, 50, "AB", "Fnt1", 10, clsPDFCreator::kRight);
              pdf.DrawText(100, 50, "AB", "Fnt1", 10, clsPDFCreator::kCentre);
            }),
            "BT\n/Fnt1 10 Tf\n86.11 50 Td\n(AB) Tj\nET\nBT\n/Fnt1 10 Tf\n93.055 50 Td\n(AB) Tj\nET\n");
}

TEST_F(PdfWriter, MeasuresInEveryUnitFromTheMargin) {
  struct Case {
    int unit;
    const char* operators;
  };
  for (const auto& [unit, operators] : {
           Case{0, "11 12 m\n"          },
           Case{1, "144 216 m\n"        },
           Case{2, "56.6929 85.0394 m\n"},
           Case{3, "5.6693 8.5039 m\n"  }
  }) {
    EXPECT_EQ(drawn([&](clsPDFCreator& pdf) {
                pdf.ScaleMODE(unit);
                pdf.Margin(unit == 0 ? 10 : 1);
                pdf.MoveTo(1, 2);
              }),
              operators);
  }
}

TEST_F(PdfWriter, ChoosesTheMetricsByFamilyAndStyle) {
  struct Case {
    const char* family;
    int style;
    const char *base, *descriptor;
  };
  constexpr Case kCases[] = {
      {"Times New Roman", 0, "TimesNewRoman",
       "/Flags 34 /FontBBox [-250 -216 1200 1000] \r/MissingWidth 333 /StemV 73 \r/StemH 73 /ItalicAngle 0 "
       "/CapHeight 891 /XHeight 446 \r/Ascent 891 /Descent -216 /Leading 149 \r/MaxWidth 1000 /AvgWidth 401"          },
      {"courier NEW",     1, "CourierNew,Bold",
       "/Flags 16418 /FontBBox [-250 -300 720 1000] \r/MissingWidth 600 /StemV 191 "                                  },
      {"Symbol",          2, "Symbol,Italic",
       "/Flags 70 /FontBBox [-250 -220 1246 1005] \r/MissingWidth 332 /StemV 109 "                                    },
      {"Arial",           3, "Calibri,BoldItalic", "/Flags 16480 /FontBBox [-250 -221 1190 1000] \r/MissingWidth 272 "},
  };
  for (const Case& c : kCases) {
    {
      clsPDFCreator pdf;
      pdf.PaperSize(0);
      pdf.InitPDFFile(file());
      pdf.LoadFont("F2", c.family, c.style);
      pdf.BeginPage();
      EXPECT_THROW(pdf.LoadFont("F3", c.family, c.style), std::logic_error);
      pdf.EndPage();
      pdf.ClosePDFFile();
    }
    expectSound(file());
    const std::string bytes = bytesOf(file());
    EXPECT_NE(bytes.find(std::string("/FontName /") + c.base + "\r" + c.descriptor), std::string::npos)
        << c.family;
    EXPECT_NE(bytes.find(std::string("/BaseFont /") + c.base + "\r/FirstChar 32\r/LastChar 255\r"),
              std::string::npos);
  }
  clsPDFCreator pdf;
  pdf.InitPDFFile(file());
  EXPECT_THROW(pdf.LoadFont("F", "Calibri", 4), std::out_of_range);
  EXPECT_THROW(pdf.PaperSize(6), std::out_of_range);
  EXPECT_THROW(pdf.ScaleMODE(-1), std::out_of_range);
}

// The published widths are those of the metric twins that every Debian has.
TEST(PdfFonts, HaveTheWidthsOfTheirTwins) {
  const std::string fonts = "/usr/share/fonts/truetype/";
  struct Case {
    const char* family;
    const char* twin;
  };
  const char* const styles[] = {"Regular", "Bold", "Italic", "BoldItalic"};
  for (const auto& [family, twin] : {
           Case{"Times New Roman", "liberation/LiberationSerif-"},
           Case{"Calibri",         "crosextra/Carlito-"         },
           Case{"Courier New",     "liberation/LiberationMono-" }
  }) {
    for (int style = 0; style < 4; ++style) {
      const std::string font = fonts + twin + styles[style] + ".ttf";
      ASSERT_TRUE(fs::exists(font));
      std::istringstream lines(outputOf("python3 '" + fs::path(MIRAV_TEST_DATA).parent_path().string() +
                                        "/pdf_font_widths.py' " + font));
      const pdf::CharacterWidths& ours = *pdf::fontMetrics(family, style).widths;
      size_t n = 0;
      for (std::string line; std::getline(lines, line); ++n)
        EXPECT_TRUE(line == "-" || std::to_string(ours[n]) == line) << font << " " << n + 32 << " " << line;
      EXPECT_EQ(n, ours.size()) << font;
    }
  }
}

TEST(PdfText, IsPutIntoTheEncodingOfTheFonts) {
  struct Case {
    const char *given, *bytes;
    size_t lost;
  };
  constexpr Case kCases[] = {
      {"Plain ~",                      "Plain ~",                   0},
      {"₹ 1,500 – “net”",      "Rs 1,500 \x96 \x93net\x94", 0},
      {"€ ‚ Œ ž Ÿ",             "\x80 \x82 \x8C \x9E \x9F",  0},
      {"Café Ñandú ÿ ½",
       "Caf\xE9 \xD1"
       "and\xFA \xFF \xBD",                                         0},
      {"Łódź Āśrama Ṛṣi Ệ",
       "L\xF3"
       "dz Asrama Rsi E",                                           0},
      {"e\xCC\x81t\xC3\xA9",           "et\xE9",                    0}, // an accent that follows its letter
      {"A\tB\r\nC\x07\x7F",            "A B  C  ",                  0},
      {"−5 ≤ x′ → №",        "-5 <= x' -> No",            0},
      {"ﬁn Ｍｉｒａｖ",         "fin Mirav",                 0},
      {"a\xE2\x80\x8D\xEF\xBB\xBF"
       "b",                     "ab",                        0},
      {"ગુજ 日本 😀",        "??? ?? ?",                  6},
      {"bad \xFF\xC3",                 "bad ??",                    2},
  };
  for (const Case& c : kCases) {
    const pdf::AnsiText text = pdf::winAnsi(c.given);
    EXPECT_EQ(text.bytes, c.bytes) << c.given;
    EXPECT_EQ(text.lost, c.lost) << c.given;
  }
}

TEST_F(PdfWriter, ShowsTextsThatTheFontsLackInOtherWords) {
  clsPDFCreator pdf;
  pdf.PaperSize(1);
  pdf.Title("વેચાણ 😀 Śrī");
  pdf.InitPDFFile(file());
  pdf.LoadFont("Fnt1", "Courier New", 0);
  pdf.BeginPage();
  pdf.DrawText(50, 700, "₹500 – José, ગુજ - )(\\\n", "Fnt1", 9);
  EXPECT_EQ(pdf.lostLetters(), 3u);
  pdf.EndPage();
  pdf.ClosePDFFile();
  expectSound(file());
  EXPECT_NE(pdfText(file()).find("Rs500 – José, ??? - )(\\"), std::string::npos) << pdfText(file());
  EXPECT_EQ(pdfInfo(file(), "Title"), "વેચાણ 😀 Śrī");
}

TEST(Ascii85, FollowsThePublishedEncoding) {
  EXPECT_EQ(pdf::ascii85("Man "), "9jqo^~>");
  EXPECT_EQ(pdf::ascii85(std::string(8, '\0')), "zz~>");
  EXPECT_EQ(pdf::ascii85(std::string(3, '\0')), "!!!!~>");
  EXPECT_EQ(pdf::ascii85("\xFF\xFF\xFF\xFF"), "s8W-!~>");
  EXPECT_EQ(pdf::ascii85("."), "/c~>");
  EXPECT_EQ(pdf::ascii85(""), "~>");
}

TEST_F(PdfWriter, RefusesMoreThanItsNumbersReachAndLeavesNothing) {
  clsPDFCreator pdf;
  pdf.PaperSize(0);
  pdf.InitPDFFile(file());
  for (int page = 0; page < 10'921; ++page) {  // 4 + 3 * 10,921 = 32,767
    pdf.BeginPage();
    pdf.EndPage();
  }
  try {
    pdf.BeginPage();
    FAIL();
  } catch (const std::runtime_error& error) {
    EXPECT_EQ(std::string(error.what()),
              "page.pdf cannot be written: it has more than 32767 parts, about 10922 pages");
  }
  pdf.ClosePDFFile();  // what there is makes a file
  expectSound(file());
  EXPECT_EQ(pdfInfo(file(), "Pages"), "10921");
}

TEST_F(PdfWriter, StandsWholeOrNotAtAll) {
  std::ofstream(file()) << "before";
  {
    clsPDFCreator pdf;
    pdf.PaperSize(0);
    pdf.InitPDFFile(file());
    pdf.BeginPage();
    EXPECT_EQ(bytesOf(file()), "before");
  }
  EXPECT_EQ(files(), 1u);  // dropped
  {
    clsPDFCreator pdf;
    pdf.PaperSize(0);
    pdf.InitPDFFile(file());
    pdf.BeginPage();
    const FullDisk full;
    EXPECT_THROW(
        {
          for (int i = 0; i < 10'000; ++i) pdf.MoveTo(1, i);
        },
        std::system_error);
  }
  EXPECT_EQ(bytesOf(file()), "before");
  EXPECT_EQ(files(), 1u);
  clsPDFCreator pdf;
  try {
    pdf.InitPDFFile((folder / "none" / "x.pdf").string());
    FAIL();
  } catch (const std::system_error& error) {
    EXPECT_EQ(std::string(error.what()), "x.pdf cannot be written: No such file or directory");
  }
  EXPECT_THROW(pdf.BeginPage(), std::logic_error);
}

TEST_F(PdfWriter, MakesANameInTheProgramsFolder) {
  clsPDFCreator pdf(folder.path());
  pdf.PaperSize(0);
  pdf.InitPDFFile();
  pdf.BeginPage();
  pdf.EndPage();
  pdf.ClosePDFFile();
  const fs::path made = pdf.filePath();
  EXPECT_EQ(made.parent_path(), folder.path());
  EXPECT_TRUE(made.filename().string().starts_with("~"));
  EXPECT_EQ(made.extension(), ".pdf");
  expectSound(made);
}

struct Comma : std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

TEST_F(PdfWriter, WritesAFullStopUnderADecimalComma) {
  const std::locale before = std::locale::global(std::locale(std::locale::classic(), new Comma));
  const std::string operators = drawn([](clsPDFCreator& pdf) {
    pdf.SetLineWidth(12345.5);
    pdf.DrawText(1.25, 2, "1,5", "Fnt1", 9.5);
  });
  std::locale::global(before);
  EXPECT_EQ(operators, "12345.5 w\nBT\n/Fnt1 9.5 Tf\n1.25 2 Td\n(1,5) Tj\nET\n");
  EXPECT_THROW(drawn([](clsPDFCreator& pdf) { pdf.SetLineWidth(std::numeric_limits<double>::quiet_NaN()); }),
               std::invalid_argument);
}

}  // namespace

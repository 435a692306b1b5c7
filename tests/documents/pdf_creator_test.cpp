#include "documents/pdf/pdf_creator.h"

#include <functional>
#include <system_error>

#include "base/text.h"
#include "documents/pdf/ascii85.h"
#include "documents/pdf/win_ansi.h"
#include "frame/full_disk.h"
#include "platform/qt/paint_qt.h"
#include "platform/utf8.h"
#include "support/pdf_file.h"
#include "support/temp_folder.h"

namespace {

namespace fs = std::filesystem;

using Draw = std::function<void(clsPDFCreator&)>;

class PdfWriter : public testing::Test {
 protected:
  // A file of one page on which the function draws.
  void write(const Draw& draw, const std::string& title = "") {
    clsPDFCreator pdf;
    pdf.PaperSize(0);
    pdf.Title(title);
    pdf.InitPDFFile(file());
    pdf.LoadFont("Fnt1", "Times New Roman", 0);
    pdf.BeginPage();
    draw(pdf);
    pdf.EndPage();
    pdf.ClosePDFFile();
    expectSound(file());
  }
  // The operators of the page.
  std::string drawn(const Draw& draw) {
    write(draw);
    const std::string bytes = bytesOf(file());
    const size_t start = bytes.find("stream\r\n") + 8;
    return replaceAll(bytes.substr(start, bytes.find("endstream") - start), "\r\n", "\n");
  }

  std::string file() const { return folder / "page.pdf"; }

  TempFolder folder;
};

// Each entry of the table has twenty bytes and leads to its object; the end leads to the table.
void expectTable(const std::string& bytes, size_t objects) {
  const size_t table = bytes.find("xref\r\n");
  const std::string size = std::to_string(objects + 1);
  std::string expected = "xref\r\n0 " + size + "\r\n0000000000 65535 f\r\n";
  for (size_t n = 1; n <= objects; ++n) {
    const std::string at = std::to_string(bytes.find("\n" + std::to_string(n) + " 0 obj\r\n") + 1);
    expected += std::string(10 - at.size(), '0') + at + " 00000 n\r\n";
  }
  EXPECT_EQ(bytes.substr(table), expected + "trailer\r\n<<\r/Size " + size +
                                     "\r/Info 1 0 R\r/Root 2 0 R\r>>\r\nstartxref\r\n" +
                                     std::to_string(table) + "\r\n%%EOF\r\n");
}

TEST_F(PdfWriter, WritesItsObjectsInOrderAndWording) {
  clsPDFCreator pdf;
  pdf.PaperSize(0);
  pdf.Margin(10);
  pdf.Title("Ledger (A\\B)");
  pdf.InitPDFFile(file());
  pdf.InitPDFFile(folder / "other.pdf");  // one is open
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
  expectTable(bytes, 10);
  EXPECT_EQ(folder.names(), std::vector<std::string>{"page.pdf"});
  expectSound(file());
  EXPECT_EQ(pdfInfo(file(), "Title"), "Ledger (A\\B)");
  EXPECT_TRUE(has(pdfText(file()), "(c) a\\b"));
}

TEST_F(PdfWriter, DrawsByOperators) {
  using Pdf = clsPDFCreator;
  EXPECT_EQ(drawn([](Pdf& p) {
              p.SetWordSpacing(1.5);
              p.SetCharSpacing(-0.25);
              p.SetTextHorizontalScaling(70);
              p.SetTextRenderingMODE(2);
              p.SetColorStroke(0x0000FF);
              p.SetColorStroke(0x333333);
              p.SetColorFill(0xFF0033);
              p.SetColorFill(0);
              p.SetDash(3, 1.5);
              p.SetDash();
              p.SetLineWidth(0.01);
              p.SetLineCap(1);
              p.SetLineJoin(2);
              p.SetMiterLimit(10);
              p.DrawText(10, 20, "A", "Fnt1", 9, Pdf::kLeft, 90);
              p.DrawText(10, 20, "A", "Fnt1", 9, Pdf::kLeft, 30);
            }),
            "1.5 Tw\n-0.25 Tc\n70 Tz\n2 Tr\n1 0 0 RG\n0.2 G\n0.2 0 1 rg\n0 g\n[3 1.5] 0 d\n[ ] 0 d\n0.01 w\n"
            "1 J\n2 j\n10 M\n"
            "BT\n/Fnt1 9 Tf\n0 1 -1 0 10 20 Tm\n(A) Tj\nET\n"
            "BT\n/Fnt1 9 Tf\n0.866 0.5 -0.5 0.866 10 20 Tm\n(A) Tj\nET\n");
  EXPECT_EQ(
      drawn([](Pdf& p) {
        p.MoveTo(1, 2);
        p.LineTo(1234.56789, -0.00001, Pdf::kStroke);
        p.Rectangle(1, 2, 30, 40, Pdf::kFill);
        p.Rectangle(0, 0, 1, 1, Pdf::kClose | Pdf::kFill);
        p.Rectangle(0, 0, 1, 1, Pdf::kStroke | Pdf::kFill);
        p.Rectangle(0, 0, 1, 1, 7);
        p.Rectangle(0, 0, 1, 1, Pdf::kStroke | Pdf::kClose);
        p.Rectangle(0, 0, 1, 1, Pdf::kClose);
        p.LineTo(1, 1);
        p.MoveTo(0, 0);
        p.Curve(1, 2, 3, 4, 5, 6);
        p.DrawCircle(10, 10, 10);
        p.DrawArc(0, 0, 10, 90, 95, Pdf::kStroke);
      }),
      "1 2 m\n1234.5679 0 l\nS\n1 2 30 40 re\nf\n0 0 1 1 re\nf\n0 0 1 1 re\nB\n0 0 1 1 re\nb\n"
      "0 0 1 1 re\nh\nS\n0 0 1 1 re\nh\n1 1 l\nS\n0 0 m\n1 2 3 4 5 6 c\nS\n"
      "20 10 m\n20 15.5 15.5 20 10 20 c\n4.5 20 0 15.5 0 10 c\n0 4.5 4.5 0 10 0 c\n15.5 0 20 4.5 20 10 c\nS\n"
      "n\n0 10 m\n-0.8716 9.9619 l\nS\n");
  // Corners are round within the rectangle.
  const std::string path = drawn([](Pdf& p) { p.Rectangle(0, 0, 100, 40, Pdf::kStroke, 500); });
  EXPECT_TRUE(path.starts_with("20 0 m\n80 0 l\n91 0 100 9 100 20 c\n")) << path;
  EXPECT_TRUE(path.ends_with("S\n"));
}

// The published widths are those of the metric twins that every Debian has, as Qt measures them.
TEST(PdfFonts, HaveTheWidthsOfTheirTwins) {
  std::vector<std::pair<int, std::string>> letters;
  for (int code = 32; code < 256; ++code)
    if (code < 127 || (code > 160 && code != 173))  // Qt shows no soft hyphen
      letters.emplace_back(code, utf8::encode(std::u32string(1, static_cast<char32_t>(code))));
  const std::u32string others = U"€ ‚ƒ„…†‡ˆ‰Š‹Œ Ž  ‘’“”•–—˜™š›œ žŸ";  // from 128
  for (size_t i = 0; i < others.size(); ++i)
    if (others[i] != U' ') letters.emplace_back(128 + i, utf8::encode(others.substr(i, 1)));
  const auto painter = paint::makePainter();
  for (const auto& [family, twin] :
       {std::pair("Times New Roman", "Liberation Serif"), std::pair("Calibri", "Carlito"),
        std::pair("Courier New", "Liberation Mono")})
    for (int style = 0; style < 4; ++style) {
      const pdf::CharacterWidths& ours = *pdf::fontMetrics(family, style).widths;
      const paint::Font font{.family = twin, .size = 100, .bold = style % 2 == 1, .italic = style > 1};
      const auto width = [&](const std::string& text) {
        return painter->metrics().width("0" + text + "0", font);
      };
      for (const auto& [code, letter] : letters)
        EXPECT_NEAR((width(letter) - width("")) * 10, ours.at(static_cast<size_t>(code - 32)), 0.75)
            << twin << style << " " << letter;
    }
}

TEST(PdfText, IsPutIntoTheEncodingOfTheFonts) {
  constexpr std::tuple<const char*, const char*, size_t> kCases[] = {
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
  for (const auto& [given, bytes, lost] : kCases) {
    const pdf::AnsiText text = pdf::winAnsi(given);
    EXPECT_EQ(text.bytes, bytes) << given;
    EXPECT_EQ(text.lost, lost) << given;
  }
}

TEST(Ascii85, FollowsThePublishedEncoding) {
  const std::pair<std::string, const char*> cases[] = {
      {"Man ",        "9jqo^~>"},
      {std::string(8, '\0'),     "zz~>"},
      {std::string(3,             '\0'),          "!!!!~>"},
      {"\xFF\xFF\xFF\xFF",     "s8W-!~>"    },
      {".","/c~>"    },
      {"",        "~>"            },
  };
  for (const auto& [bytes, encoded] : cases) EXPECT_EQ(pdf::ascii85(bytes), encoded);
}

TEST_F(PdfWriter, StandsWholeOrNotAtAll) {
  std::ofstream(file()) << "before";
  for (const bool dropped : {true, false}) {
    clsPDFCreator pdf;
    pdf.PaperSize(0);
    pdf.InitPDFFile(file());
    pdf.BeginPage();
    const auto overfill = [&] {
      const FullDisk full;
      for (int i = 0; i < 10'000; ++i) pdf.MoveTo(1, i);
    };
    if (!dropped) {
      EXPECT_THROW(overfill(), std::system_error);
    }
    EXPECT_EQ(bytesOf(file()), "before");
  }
  EXPECT_EQ(folder.names(), std::vector<std::string>{"page.pdf"});
  clsPDFCreator pdf;
  try {
    pdf.InitPDFFile(folder / "none/x.pdf");
    FAIL();
  } catch (const std::system_error& error) {
    EXPECT_STREQ(error.what(), "x.pdf cannot be written: No such file or directory");
  }
  EXPECT_THROW(pdf.BeginPage(), std::logic_error);
}

struct Comma : std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

}  // namespace

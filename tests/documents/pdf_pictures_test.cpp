#include <functional>
#include <vector>

#include "documents/pdf/pdf_creator.h"
#include "support/pdf_file.h"

namespace {

using Rows = std::vector<std::string>;  // from the bottom up, as they stand in the file

std::string little(uint32_t value, int bytes) {
  std::string text;
  for (int i = 0; i < bytes; ++i) text += static_cast<char>(i < 4 ? value >> 8 * i : 0);
  return text;
}

// The BMP file of such rows; colours are blue, green, red and a byte unused.
std::string bmp(int width, int height, int bits, const std::string& colours, const Rows& rows) {
  std::string pixels;
  for (const std::string& row : rows) {
    pixels += row;
    pixels.append((4 - row.size() % 4) % 4, '\x55');
  }
  const uint32_t start = static_cast<uint32_t>(54 + colours.size());
  return "BM" + little(start + static_cast<uint32_t>(pixels.size()), 4) + little(0, 4) + little(start, 4) +
         little(40, 4) + little(static_cast<uint32_t>(width), 4) + little(static_cast<uint32_t>(height), 4) +
         little(1, 2) + little(static_cast<uint32_t>(bits), 2) + little(0, 4) + little(0, 12) +
         little(static_cast<uint32_t>(colours.size() / 4), 4) + little(0, 4) + colours + pixels;
}

const std::string kRed("\x00\x00\xFF", 3), kGreen("\x00\xFF\x00", 3), kBlue("\xFF\x00\x00", 3),
    kWhite("\xFF\xFF\xFF", 3), kPad(1, '\0');
const std::string kFour = kRed + kPad + kGreen + kPad + kBlue + kPad + kWhite + kPad;

class PdfPictures : public testing::Test {
 protected:
  // The picture fills a page of its size; what stands in its four corners, as letters:
  // "RG BW" is red and green above blue and white.
  std::string corners(const std::string& bytes, bool encoded) {
    std::ofstream(folder / "x.bmp", std::ios::binary) << bytes;
    const std::string file = (folder / "x.pdf").string();
    clsPDFCreator pdf;
    pdf.EncodeASCII85(encoded);
    pdf.PaperWidth(40);
    pdf.PaperHeight(40);
    pdf.InitPDFFile(file);
    pdf.LoadImgFromBMPFile("Img1", folder / "x.bmp");
    pdf.BeginPage();
    pdf.DrawImg("Img1", 0, 40, 40, 40);
    pdf.EndPage();
    pdf.ClosePDFFile();
    expectSound(file);
    EXPECT_NE(bytesOf(file).find("/ProcSet [/PDF /Text /ImageB /ImageC /ImageI ]"), std::string::npos);
    EXPECT_EQ(bytesOf(file).find("/ASCII85Decode") != std::string::npos, encoded);
    const std::string ppm = outputOf("pdftoppm -r 72 '" + file + "' 2>&1");
    const std::string pixels = ppm.substr(ppm.size() - 40 * 40 * 3);
    const auto letter = [&](int x, int y) {
      const std::string p = pixels.substr(static_cast<size_t>(3 * (40 * y + x)), 3);
      if (p == std::string("\xFF\x00\x00", 3)) return 'R';
      if (p == std::string("\x00\xFF\x00", 3)) return 'G';
      if (p == std::string("\x00\x00\xFF", 3)) return 'B';
      return p == "\xFF\xFF\xFF" ? 'W' : '?';
    };
    return {letter(5, 5), letter(35, 5), ' ', letter(5, 35), letter(35, 35)};
  }

  TempFolder folder;
};

TEST_F(PdfPictures, ComeFromEveryKindOfBmpFile) {
  const std::string table(256 * 4 - 16, '\0');
  // clang-format off
  const std::pair<const char*, std::string> cases[] = {
      {"true colour", bmp(2, 2, 24, "", {kBlue + kWhite, kRed + kGreen})                            },
      {"top down",    bmp(2, -2, 24, "", {kRed + kGreen, kBlue + kWhite})                           },
      {"8 bits",      bmp(2, 2, 8, kFour + table, {"\x02\x03", std::string("\x00\x01", 2)})         },
      {"8, top down", bmp(2, -2, 8, kFour, {std::string("\x00\x01", 2), "\x02\x03"})                },
      {"4 bits",      bmp(2, 2, 4, kFour, {"\x23", "\x01"})                                         },
      {"3 wide",      bmp(3, 2, 4, kFour, {"\x22\x30", std::string("\x00\x10", 2)})                 },
  };
  // clang-format on
  for (const bool encoded : {false, true})
    for (const auto& [what, bytes] : cases) EXPECT_EQ(corners(bytes, encoded), "RG BW") << what << encoded;
  EXPECT_EQ(corners(bmp(2, 2, 1, kRed + kPad + kWhite + kPad, {"\x40", "\x80"}), true), "WR RW");
  EXPECT_NE(bytesOf(folder / "x.pdf").find("/ColorSpace [/Indexed /DeviceRGB 1 7 0 R]\r/Length 6 0 R"),
            std::string::npos);
}

TEST_F(PdfPictures, OfBrokenFilesAreRefusedInWords) {
  const std::string good = bmp(2, 2, 24, "", {kBlue + kWhite, kRed + kGreen});
  const auto changed = [&](size_t at, const std::string& by) {
    return std::string(good).replace(at, by.size(), by);
  };
  // clang-format off
  const std::pair<std::string, const char*> cases[] = {
      {"",                               "it is not a BMP file"                     },
      {"BM",                             "it is cut short"                          },
      {good.substr(0, good.size() - 1),  "it is cut short"                          },
      {changed(14, "\x0C"),              "it is of a kind that is not known"        },
      {changed(18, "\xFF\xFF\xFF\xFF"),  "its size makes no sense"                  },
      {changed(22, std::string("\0\0\0\x80", 4)), "its size makes no sense"         },
      {changed(28, "\x20"),              "pixels of 32 bits are not known"          },
      {changed(30, "\x01"),              "it is packed"                             },
      {bmp(2, 2, 1, kFour, {"\x40", "\x80"}), "its colour table is too long"        },
  };
  // clang-format on
  for (const auto& [bytes, why] : cases) {
    std::ofstream(folder / "x.bmp", std::ios::binary) << bytes;
    try {
      pdf::readBmp(folder / "x.bmp");
      ADD_FAILURE() << why;
    } catch (const std::runtime_error& error) {
      EXPECT_EQ(std::string(error.what()), std::string("The picture x.bmp cannot be used: ") + why + ".");
    }
  }
  EXPECT_THROW(pdf::readBmp(folder / "none.bmp"), std::runtime_error);
}

}  // namespace

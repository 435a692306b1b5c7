#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace pdf {

// A picture as a PDF file takes it: rows from the bottom up, without padding between pixels, each
// row starting on a byte.
struct Bitmap {
  int width = 0, height = 0;
  int bits = 8;         // of a pixel's part: 8, or 1, 4, 8 with a colour table
  bool grey = false;    // one byte a pixel in place of three
  std::string pixels;   // red, green, blue; or numbers of colours
  std::string colours;  // the colour table: red, green, blue each; empty for none
};

// Bytes that the pixels of such a picture take; 0 where its measures make no sense.
size_t pixelBytes(const Bitmap& bitmap);

// Reads a BMP file of 24 bits a pixel, or of 1, 4 or 8 with a colour table. Raises
// std::runtime_error with a sentence for one that is broken, packed or of another kind.
Bitmap readBmp(const std::filesystem::path& file);

}  // namespace pdf

#include "documents/pdf/bitmap.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string_view>

#include "base/words.h"

namespace pdf {
namespace {

constexpr int kMostPixels = 30000;  // a side
constexpr size_t kFileHeader = 14, kInfoHeader = 40;
constexpr int kTrueColour = 24;

class BmpReader {
 public:
  BmpReader(std::string name, std::string bytes) : name_(std::move(name)), bytes_(std::move(bytes)) {}

  Bitmap read() {
    header();
    if (bits_ != kTrueColour) colourTable();
    const size_t stride = (static_cast<size_t>(picture_.width) * bits_ + 31) / 32 * 4;
    const size_t start = number(10, 4);
    if (start > bytes_.size() || bytes_.size() - start < stride * picture_.height) refuse("it is cut short");
    const size_t row = pixelBytes(picture_) / picture_.height;
    picture_.pixels.reserve(row * picture_.height);
    for (int y = 0; y < picture_.height; ++y) {
      const size_t at = start + stride * (topDown_ ? picture_.height - 1 - y : y);
      append(std::string_view(bytes_).substr(at, row));
    }
    return std::move(picture_);
  }

 private:
  [[noreturn]] void refuse(const std::string& why) const {
    throw std::runtime_error(
        words("The picture {picture} cannot be used: {reason}.", "picture", name_, "reason", words(why)));
  }

  uint32_t number(size_t at, size_t size) const {
    if (at + size > bytes_.size()) refuse("it is cut short");
    uint32_t value = 0;
    for (size_t i = size; i-- > 0;) value = value << 8 | static_cast<unsigned char>(bytes_[at + i]);
    return value;
  }

  void header() {
    if (!bytes_.starts_with("BM")) refuse("it is not a BMP file");
    if (number(kFileHeader, 4) < kInfoHeader) refuse("it is of a kind that is not known");
    const auto width = static_cast<int32_t>(number(18, 4)), height = static_cast<int32_t>(number(22, 4));
    topDown_ = height < 0;
    bits_ = static_cast<int>(number(28, 2));
    if (width <= 0 || width > kMostPixels || height == 0 || height > kMostPixels || height < -kMostPixels)
      refuse("its size makes no sense");
    if (bits_ != 1 && bits_ != 4 && bits_ != 8 && bits_ != kTrueColour)
      refuse(words("pixels of {count} bits are not known", "count", std::to_string(bits_)));
    if (number(30, 4) != 0) refuse("it is packed");
    picture_.width = width;
    picture_.height = std::abs(height);
  }

  void colourTable() {
    picture_.bits = bits_;
    const uint32_t most = 1u << bits_, told = number(46, 4);
    const uint32_t count = told == 0 ? most : told;
    if (count > most) refuse("its colour table is too long");
    const size_t start = kFileHeader + number(kFileHeader, 4);
    for (uint32_t i = 0; i < count; ++i) {
      const uint32_t colour = number(start + 4 * i, 4);
      for (const int shift : {16, 8, 0}) picture_.colours += static_cast<char>(colour >> shift);
    }
  }

  void append(std::string_view row) {
    if (bits_ != kTrueColour) {
      picture_.pixels += row;
      return;
    }
    for (size_t i = 0; i + 2 < row.size(); i += 3) picture_.pixels += {row[i + 2], row[i + 1], row[i]};
  }

  const std::string name_, bytes_;
  Bitmap picture_;
  bool topDown_ = false;
  int bits_ = 0;
};

}  // namespace

size_t pixelBytes(const Bitmap& bitmap) {
  if (bitmap.width <= 0 || bitmap.height <= 0) return 0;
  const size_t parts = bitmap.grey || !bitmap.colours.empty() ? 1 : 3;
  return (static_cast<size_t>(bitmap.width) * parts * bitmap.bits + 7) / 8 * bitmap.height;
}

Bitmap readBmp(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in)
    throw std::runtime_error(
        words("The picture {picture} cannot be read.", "picture", file.filename().string()));
  return BmpReader(file.filename().string(), {std::istreambuf_iterator<char>(in), {}}).read();
}

}  // namespace pdf

#include "formats/logo.h"

#include <png.h>

#include <cmath>
#include <numbers>
#include <vector>

namespace formats {

namespace {

constexpr int kSide = 288;      // pixels
constexpr double kPoints = 72;  // the side on paper
constexpr int kSamples = 4;     // of a pixel, each way
constexpr uint32_t kDisc = 0x7A2E3B;

// A disc with a ring and eight petals left white; the centre is the origin, the rim 1.
bool coloured(double x, double y) {
  constexpr double kRim = 0.99, kRingInner = 0.86, kRingOuter = 0.89, kHeart = 0.1;
  constexpr double kPetalFrom = 0.16, kPetalTo = 0.78, kPetalWidth = 0.17;
  constexpr double kTurn = std::numbers::pi / 4;
  const double radius = std::hypot(x, y);
  if (radius > kRim || (radius > kRingInner && radius < kRingOuter) || radius < kHeart) return false;
  const double angle = std::remainder(std::atan2(y, x), kTurn);
  const double along = radius * std::cos(angle), across = radius * std::sin(angle);
  if (along < kPetalFrom || along > kPetalTo) return true;
  const double part = (along - kPetalFrom) / (kPetalTo - kPetalFrom);
  return std::abs(across) > kPetalWidth * std::sin(part * std::numbers::pi);
}

// How much of a pixel is coloured, from 0 to 1.
double cover(int column, int row) {
  int hits = 0;
  for (int i = 0; i < kSamples; ++i)
    for (int j = 0; j < kSamples; ++j) {
      const auto place = [](int pixel, int sample) {
        return (pixel + (sample + 0.5) / kSamples) * 2 / kSide - 1;
      };
      hits += coloured(place(column, i), place(row, j));
    }
  return static_cast<double>(hits) / (kSamples * kSamples);
}

std::vector<png_byte> pixels() {
  std::vector<png_byte> bytes;
  bytes.reserve(static_cast<size_t>(kSide) * kSide * 3);
  for (int row = 0; row < kSide; ++row)
    for (int column = 0; column < kSide; ++column)
      for (const int shift : {16, 8, 0}) {
        const int ink = static_cast<int>(kDisc >> shift & 0xFF);
        bytes.push_back(static_cast<png_byte>(std::lround(255 - (255 - ink) * cover(column, row))));
      }
  return bytes;
}

std::string encoded(const std::vector<png_byte>& bytes) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = image.height = kSide;
  image.format = PNG_FORMAT_RGB;
  png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(image);
  std::string png(size, '\0');
  if (!png_image_write_to_memory(&image, png.data(), &size, 0, bytes.data(), 0, nullptr))
    throw BookError(std::string("Cannot make the logo: ") + image.message);
  png.resize(size);
  return png;
}

}  // namespace

const Picture& logo() {
  // A file that says nothing of its resolution is taken to have 96 dots an inch.
  static const Picture picture{.png = encoded(pixels()), .points = kSide * kPoints / 96};
  return picture;
}

}  // namespace formats

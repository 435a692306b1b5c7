#include "documents/pdf/pdf_creator.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <ctime>
#include <limits>
#include <random>
#include <stdexcept>

#include "base/number.h"
#include "base/text.h"
#include "base/words.h"
#include "documents/pdf/ascii85.h"
#include "documents/pdf/pdf_text.h"

// The file: objects one after another, the table of their places at its end.

namespace {

constexpr int kInfo = 1, kCatalog = 2, kPageTree = 3, kResources = 4;
constexpr int kMostObjects = std::numeric_limits<int16_t>::max();
constexpr int16_t kCustomPaper = 255;
constexpr const char* kProducer = "Mirav 2024-2026";

struct Paper {
  double width, height;
};
constexpr Paper kPapers[] = {
    {595.2, 842   },
    {842,   1190.5},
    {612,   792   },
    {612,   864   },
    {842,   595.2 },
    {842,   342   },
};

constexpr double kPointsPerInch = 72, kCentimetres = 2.54, kMillimetres = 25.4;

std::string reference(int number) { return std::to_string(number) + " 0 R"; }

// "~" and the hexadecimal form of day, time and one digit by chance.
std::string temporaryName() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  char time[16];
  std::strftime(time, sizeof time, "%d%H%M%S", &local);
  std::random_device chance;
  const auto value = static_cast<unsigned>(Val(time)) * 10 + chance() % 10;
  char name[16];
  std::snprintf(name, sizeof name, "~%X.pdf", value);
  return name;
}

}  // namespace

clsPDFCreator::clsPDFCreator(std::filesystem::path mapppath) : folder_(std::move(mapppath)) {}

clsPDFCreator::~clsPDFCreator() = default;

// Measures

double clsPDFCreator::points(double value) const {
  constexpr double kUnits[] = {1, kPointsPerInch, kPointsPerInch / kCentimetres,
                               kPointsPerInch / kMillimetres};
  return value * kUnits[scale_];
}

void clsPDFCreator::ScaleMODE(int unit) {
  if (unit < 0 || unit > 3) throw std::out_of_range("there is no unit " + std::to_string(unit));
  scale_ = static_cast<int16_t>(unit);
}

void clsPDFCreator::Margin(double value) { margin_ = points(value); }

void clsPDFCreator::PaperWidth(double value) {
  width_ = points(value);
  paperSize_ = kCustomPaper;
}

void clsPDFCreator::PaperHeight(double value) {
  height_ = points(value);
  paperSize_ = kCustomPaper;
}

void clsPDFCreator::PaperSize(int index) {
  if (index < 0 || index >= static_cast<int>(std::size(kPapers)))
    throw std::out_of_range("there is no paper " + std::to_string(index));
  paperSize_ = static_cast<int16_t>(index);
  width_ = kPapers[index].width;
  height_ = kPapers[index].height;
}

// The file

void clsPDFCreator::InitPDFFile(const std::string& path) {
  if (file_) return;
  path_ = path.empty() ? (folder_ / temporaryName()).string() : path;
  file_ = std::make_unique<WholeFile>(path_);
  pages_ = 0;
  places_.assign(kResources + 1, 0);
  for (std::string* list : {&pageList_, &fonts_, &images_, &forms_}) list->clear();
  fontTable_.clear();
  streamLength_ = 0;
  lost_ = 0;

  line("%PDF-1.5");
  writeInfo();
  object(kCatalog,
         "<<\r/Type /Catalog\r/Pages 3 0 R\r/PageLayout /OneColumn\r/PageMODE /UseNone\r/Lang (it) \r"
         "/VIEWerPreferences << /HideToolbar false /DisplayDocTitle true /HideWindowUI false >>\r>>");
  objects_ = kResources;
}

void clsPDFCreator::writeInfo() {
  object(kInfo, "<<\r/Title " + pdf::textString(title_) +
                    "\r/Author (TOVA)\r/Creator  (clsPDFCreator)\r/Producer (" + kProducer + ")\r>>");
}

void clsPDFCreator::ClosePDFFile() {
  if (!file_) return;
  writeResources();
  writePageTree();
  writeTable();
  file_->finish();
  file_.reset();
}

void clsPDFCreator::writeResources() {
  std::string body = "<<\r";
  if (!fonts_.empty()) body += "/Font <<\r" + fonts_ + ">>\r";
  body += "/ProcSet [/PDF /Text";
  if (!images_.empty()) body += " /ImageB /ImageC /ImageI";
  body += " ]\r";
  if (!images_.empty() || !forms_.empty()) body += "/XObject <<\r" + images_ + forms_ + ">>\r";
  object(kResources, body + ">>");
}

std::string clsPDFCreator::box(const char* name, double inset) const {
  const std::string low = pdf::numberText(inset);
  return std::string(name) + " [" + low + " " + low + " " + pdf::numberText(width_ - inset) + " " +
         pdf::numberText(height_ - inset) + "]";
}

void clsPDFCreator::writePageTree() {
  object(kPageTree, "<<\r/Type /Pages\r/Count " + std::to_string(pages_) + "\r" + box("/MediaBox", 0) + "\r" +
                        box("/CropBox", margin_) + "\r/Kids [" + pageList_ + "]\r/Resources " +
                        reference(kResources) + "\r>>");
}

void clsPDFCreator::writeTable() {
  const uint64_t start = file().position();
  const std::string count = std::to_string(objects_ + 1);
  line("xref");
  line("0 " + count);
  line("0000000000 65535 f");
  for (int n = 1; n <= objects_; ++n)
    line(padLeft(std::to_string(places_[static_cast<size_t>(n)]), 10, '0') + " 00000 n");
  line("trailer");
  line("<<\r/Size " + count + "\r/Info 1 0 R\r/Root 2 0 R\r>>");
  line("startxref");
  line(std::to_string(start));
  line("%%EOF");
}

// Objects

WholeFile& clsPDFCreator::file() {
  if (!file_) throw std::logic_error("no PDF file is open");
  return *file_;
}

void clsPDFCreator::out(std::string_view text) { file().write(text); }

// Reserves a number and `more` behind it, so that a page is begun only where it can be ended.
int clsPDFCreator::fresh(int more) {
  if (streamLength_ != 0) throw std::logic_error("a page or form of the PDF file is open");
  if (objects_ + 1 + more > kMostObjects)
    throw std::runtime_error(
        words("{file} cannot be written: it has more than {parts} parts, about {pages} pages", "file",
              std::filesystem::path(path_).filename().string(), "parts", std::to_string(kMostObjects),
              "pages", std::to_string(kMostObjects / 3)));
  const int first = objects_ + 1;
  objects_ = static_cast<int16_t>(objects_ + 1 + more);
  places_.resize(static_cast<size_t>(objects_) + 1);
  return first;
}

void clsPDFCreator::begin(int number) {
  places_[static_cast<size_t>(number)] = file().position();
  line(std::to_string(number) + " 0 obj");
}

void clsPDFCreator::object(int number, const std::string& body) {
  begin(number);
  line(body);
  line("endobj");
}

void clsPDFCreator::beginStream(int lengthNumber) {
  line("stream");
  streamStart_ = file().position();
  streamLength_ = lengthNumber;
  wordSpacing_ = 0;
}

void clsPDFCreator::endStream() {
  if (streamLength_ == 0) return;
  const uint64_t length = file().position() - streamStart_;
  line("endstream");
  line("endobj");
  object(streamLength_, std::to_string(length));
  streamLength_ = 0;
}

int32_t clsPDFCreator::BeginPage() {
  const int page = fresh(2);
  ++pages_;
  object(page, "<<\r/Type /Page\r/Parent 3 0 R\r/Contents " + reference(page + 1) + "\r>>");
  pageList_ += reference(page) + " ";
  begin(page + 1);
  line("<< /Length " + reference(page + 2) + " >>");
  beginStream(page + 2);
  return pages_;
}

void clsPDFCreator::EndPage() { endStream(); }

void clsPDFCreator::StartObject(std::string_view name) {
  const int form = fresh(1);
  begin(form);
  line("<<\r/Type /XObject\r/Subtype /Form\r/FormType 1\r/Name " + pdf::nameText(name) + "\r" +
       box("/BBox", margin_) + "\r/Matrix [1 0 0 1 0 0]\r/Length " + reference(form + 1) + " >>");
  beginStream(form + 1);
  forms_ += pdf::nameText(name) + " " + reference(form) + " \r";
}

void clsPDFCreator::EndObject() { endStream(); }

// Fonts

void clsPDFCreator::LoadFont(std::string_view name, std::string_view family, int style) {
  const pdf::FontMetrics metrics = pdf::fontMetrics(family, style);
  const int font = fresh(1);
  std::string widths;
  for (const uint16_t width : *metrics.widths) widths += std::to_string(width) + " ";
  object(font, "<< /Type /Font \r/Subtype /TrueType\r/Name " + pdf::nameText(name) + "\r/BaseFont /" +
                   metrics.base + "\r/FirstChar 32\r/LastChar 255\r/FontDescriptor " + reference(font + 1) +
                   "\r/Encoding /WinAnsiEncoding\r/Widths [" + widths + "] >>");
  object(font + 1,
         "<<\r/Type /FontDescriptor\r/FontName /" + metrics.base + "\r" + metrics.descriptor + "\r>>");
  fonts_ += pdf::nameText(name) + " " + reference(font) + " \r";
  fontTable_[std::string(name)] = metrics.widths;
}

void clsPDFCreator::LoadFontStandard(std::string_view name, std::string_view base, int style) {
  const std::string ending(pdf::styleEnding(style));
  const int font = fresh();
  object(font, "<< /Type /Font \r/Subtype /Type1 \r/Name " + pdf::nameText(name) + " \r/BaseFont " +
                   pdf::nameText(replaceAll(base, " ", "") + ending) + " \r/Encoding /WinAnsiEncoding >>");
  fonts_ += pdf::nameText(name) + " " + reference(font) + " \r";
}

// Pictures

void clsPDFCreator::bytesObject(int number, const std::string& dictionary, std::string_view bytes) {
  begin(number);
  line(dictionary);
  line("stream");
  line(bytes);
  line("endstream");
  line("endobj");
}

void clsPDFCreator::LoadImgFromArray(std::string_view name, const pdf::Bitmap& bitmap) {
  if (bitmap.pixels.empty() || bitmap.pixels.size() != pdf::pixelBytes(bitmap))
    throw std::runtime_error(words("The picture {picture} has not the pixels of its size.", "picture", name));
  const bool paletted = !bitmap.colours.empty();
  const int image = fresh(paletted ? 2 : 1);
  const auto encoded = [&](const std::string& bytes) { return ascii85_ ? pdf::ascii85(bytes) : bytes; };
  const std::string filter = ascii85_ ? "/Filter /ASCII85Decode\r" : "";

  std::string dictionary = "<<\r/Type /XObject\r/Subtype /Image\r/Name " + pdf::nameText(name) + "\r/Width " +
                           std::to_string(bitmap.width) + "\r/Height " + std::to_string(bitmap.height) +
                           "\r" + filter;
  dictionary += "/BitsPerComponent " + std::to_string(bitmap.bits) + "\r/ColorSpace ";
  if (paletted)
    dictionary += "[/Indexed /DeviceRGB " + std::to_string(bitmap.colours.size() / 3 - 1) + " " +
                  reference(image + 2) + "]";
  else
    dictionary += bitmap.grey ? "/DeviceGray" : "/DeviceRGB";
  const std::string pixels = encoded(bitmap.pixels);
  bytesObject(image, dictionary + "\r/Length " + reference(image + 1) + "\r>>", pixels);
  object(image + 1, std::to_string(pixels.size()));
  if (paletted) {
    const std::string colours = encoded(bitmap.colours);
    bytesObject(image + 2, "<<\r" + filter + "/Length " + std::to_string(colours.size()) + "\r>>", colours);
  }
  images_ += pdf::nameText(name) + " " + reference(image) + " \r";
}

void clsPDFCreator::LoadImgFromArray(std::string_view name, int width, int height, std::string_view pixels) {
  LoadImgFromArray(name, {.width = width, .height = height, .pixels = std::string(pixels)});
}

void clsPDFCreator::LoadImgFromBMPFile(std::string_view name, const std::filesystem::path& file) {
  LoadImgFromArray(name, pdf::readBmp(file));
}

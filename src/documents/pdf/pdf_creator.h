#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "documents/pdf/bitmap.h"
#include "documents/pdf/font_metrics.h"
#include "platform/whole_file.h"

// Writes a PDF file as its pages are drawn: nothing of them is kept, nothing is packed, and fonts
// are named, not carried.
//
//   clsPDFCreator pdf;
//   pdf.PaperSize(0);
//   pdf.InitPDFFile("BILLS/RPT.pdf");
//   pdf.LoadFont("Fnt1", "Times New Roman", 0);
//   pdf.BeginPage();
//   pdf.DrawText(40, 800, "Total", "Fnt1", 9);
//   pdf.EndPage();
//   pdf.ClosePDFFile();
//
// Lengths are in the unit of ScaleMODE, sizes of fonts and widths of lines in points. Coordinates
// count from the lower left corner of the page plus the margin. Texts are UTF-8; what the fonts'
// encoding lacks is put in other words or stands as "?" (lostLetters).
//
// The file stands under its name when it is closed; one that is dropped before leaves none. What
// cannot be written raises std::system_error, what cannot be drawn std::runtime_error: a file has
// at most 32,767 objects, three of them to a page.
class clsPDFCreator {
 public:
  enum Alignment { kLeft = 0, kRight = 1, kCentre = 2 };
  enum Paint { kStroke = 1, kClose = 2, kFill = 4 };
  using Colour = uint32_t;  // blue, green, red: 0x0000FF is red

  // A file without a name is made in this folder.
  explicit clsPDFCreator(std::filesystem::path mapppath = ".");
  ~clsPDFCreator();

  void EncodeASCII85(bool on) { ascii85_ = on; }
  void Margin(double value);
  void PaperWidth(double value);
  void PaperHeight(double value);
  int32_t Pages() const { return pages_; }
  void ScaleMODE(int unit);  // 0 points, 1 inches, 2 centimetres, 3 millimetres
  // 0 A4, 1 A3, 2 letter, 3 12 inches high, 4 A4 wide, 5 a slip; the landscape sheets are sizes of
  // their own whatever the orientation.
  void PaperSize(int index);
  int PaperSize() const { return paperSize_; }  // 255 for one of other measures
  void Orientation(int value) { orientation_ = static_cast<int16_t>(value); }
  int Orientation() const { return orientation_; }
  void Title(std::string text) { title_ = std::move(text); }

  void InitPDFFile(const std::string& path = "");
  void ClosePDFFile();
  const std::string& filePath() const { return path_; }
  int32_t BeginPage();  // the page's number
  void EndPage();

  // State of what is drawn next on the page or form.
  void SetWordSpacing(double value);
  void SetCharSpacing(double value);
  void SetTextHorizontalScaling(double percent);
  void SetTextRenderingMODE(int value);
  void SetColorStroke(Colour colour);
  void SetColorFill(Colour colour);
  void SetDash(double dash = 0, double gap = 0);
  void SetLineWidth(double value);
  void SetLineCap(int value);
  void SetLineJoin(int value);
  void SetMiterLimit(double value);

  // The angle is in degrees against the clock, about the point.
  void DrawText(double x, double y, std::string_view text, std::string_view font, double size,
                int alignment = kLeft, double angle = 0);
  // Width of the text in a loaded font, 0 in another.
  double Length(std::string_view text, std::string_view font, double size) const;
  size_t lostLetters() const { return lost_; }

  // `paint` is a sum of Paint; 0 leaves the path open for more.
  void MoveTo(double x, double y);
  void LineTo(double x, double y, int paint = kStroke);
  void Rectangle(double x, double y, double width, double height, int paint = kStroke, double round = 0);
  void Curve(double x1, double y1, double x2, double y2, double x3, double y3, int paint = kStroke);
  void DrawCircle(double x, double y, double radius, int paint = kStroke);
  void DrawArc(double x, double y, double radius, double from, double to, int paint = kStroke);

  void LoadImgFromBMPFile(std::string_view name, const std::filesystem::path& file);
  void LoadImgFromArray(std::string_view name, int width, int height, std::string_view pixels);
  void LoadImgFromArray(std::string_view name, const pdf::Bitmap& bitmap);
  // The point is the picture's upper left corner.
  void DrawImg(std::string_view name, double x, double y, double width, double height);

  void LoadFontStandard(std::string_view name, std::string_view base, int style);
  void LoadFont(std::string_view name, std::string_view family, int style);

  // What is drawn between the two is a form, for DrawObject to put on any page.
  void StartObject(std::string_view name);
  void EndObject();
  void DrawObject(std::string_view name);

 private:
  double points(double value) const;
  double x(double value) const { return points(value) + margin_; }
  double y(double value) const { return points(value) + margin_; }

  // Objects and their parts. A line ends in CR LF, the lines of a dictionary are joined by CR.
  void line(std::string_view text) { out(text), out("\r\n"); }
  void out(std::string_view text);
  WholeFile& file();
  int fresh(int more = 0);
  void begin(int number);
  void object(int number, const std::string& body);
  void beginStream(int lengthNumber);
  void endStream();
  void bytesObject(int number, const std::string& dictionary, std::string_view bytes);
  std::string box(const char* name, double inset) const;

  void writeInfo();
  void writeResources();
  void writePageTree();
  void writeTable();

  void number(double value);
  template <class... Numbers>
  void operation(std::string_view operatorName, Numbers... numbers);
  void paintWith(int paint);
  void roundedPath(double left, double bottom, double width, double height, double round);
  double lengthOf(std::string_view bytes, std::string_view font, double size) const;

  std::filesystem::path folder_;
  std::unique_ptr<WholeFile> file_;
  std::string path_, title_ = "(Mirav Reports)";
  double width_ = 0, height_ = 0, margin_ = 0;
  int16_t paperSize_ = 0, scale_ = 0, orientation_ = 0;
  bool ascii85_ = false;

  int32_t pages_ = 0;
  int16_t objects_ = 0;
  std::vector<uint64_t> places_;  // of the objects, by number
  std::string pageList_, fonts_, images_, forms_;
  std::map<std::string, const pdf::CharacterWidths*, std::less<>> fontTable_;
  uint64_t streamStart_ = 0;
  int streamLength_ = 0;  // the object of the open stream's length; 0 when none is open
  double wordSpacing_ = 0;
  size_t lost_ = 0;
  std::string operation_;  // the line that is being put together
};

#pragma once

#include <compare>
#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// A workbook being authored. Rows count from 1, columns are letters, lengths are points.

struct lxw_workbook;
struct lxw_worksheet;
struct lxw_format;

namespace formats {

enum class Across { Left, Centre, Right };
enum class Down { Top, Middle, Bottom };
enum class Edge { None, Faint, Thin, Medium };

struct Edges {
  Edge left = Edge::None, top = Edge::None, right = Edge::None, bottom = Edge::None;
  auto operator<=>(const Edges&) const = default;
};
constexpr Edges around(Edge edge) { return {edge, edge, edge, edge}; }
constexpr Edges sides(Edge edge) { return {edge, Edge::None, edge, Edge::None}; }

constexpr Edges kTray{Edge::Thin, Edge::None, Edge::Thin, Edge::Thin};  // all but the top
constexpr Edges kLid{Edge::Thin, Edge::Thin, Edge::Thin, Edge::None};   // all but the bottom

constexpr uint32_t kInk = 0x1D2B2E;
constexpr uint32_t kQuiet = 0x47565A;
constexpr uint32_t kAccent = 0x00626A;
constexpr uint32_t kTint = 0xE4F1F0;
constexpr uint32_t kNoFill = 0xFFFFFFFF;

// What stands for kAccent and kTint on a sheet, so that one block suits designs of any colour.
struct Palette {
  uint32_t accent = kAccent, tint = kTint;
};

struct Style {
  double size = 8;
  bool bold = false, italic = false;
  uint32_t colour = kInk, fill = kNoFill;
  Across across = Across::Left;
  Down down = Down::Middle;
  bool wrap = false, shrink = false;
  int indent = 0;
  std::string number = {};  // number format
  Edges edges = {};
  auto operator<=>(const Style&) const = default;
};

// One cell or a block of cells that is merged.
struct Cells {
  int top = 1;
  char left = 'A';
  int bottom = 0;  // 0: one row
  char right = 0;  // 0: one column

  int lastRow() const { return bottom == 0 ? top : bottom; }
  char lastColumn() const { return right == 0 ? left : right; }
};

struct Picture {
  std::string png;
  double points = 0;  // its own width
};

struct Paper {
  enum class Size { A4 = 9, A5 = 11 } size = Size::A4;
  bool landscape = false;
  // Margins. Spreadsheet programs take columns to be up to 6.3% wider than they are here; the
  // columns of a page must fit all the same, or the page is made smaller.
  double leftRight = 12, topBottom = 14.4;
  bool centred = true;  // from left to right

  double room() const;  // from the upper margin to the lower
};

class Sheet {
 public:
  Sheet(class Book& book, lxw_worksheet* sheet, std::string name)
      : book_(book), sheet_(sheet), name_(std::move(name)) {}

  const std::string& name() const { return name_; }
  void palette(const Palette& palette) { palette_ = palette; }
  void width(char column, double points);
  void height(int row, double points);
  void hide();

  void text(Cells where, const Style& style, std::string_view text);
  // Without its "="; an empty text stands as its value until the workbook is calculated.
  void formula(Cells where, const Style& style, const std::string& formula);
  void number(Cells where, const Style& style, double number);
  void blank(Cells where, const Style& style);

  // So many points wide, its top left corner `dx` and `dy` points inside the cell.
  void picture(Cells where, const Picture& picture, double points, double dx, double dy);

  // Shows all texts and formulas so far once more, so many columns further right; what was
  // calculated is taken from the first.
  void repeat(int columns);

  // Each block begins a new page and is as wide as the paper or less.
  void paper(const Paper& paper, const std::vector<Cells>& printed);

 private:
  struct Written {
    Cells where;
    Style style;
    bool formula = false;
    std::string text;  // of a formula: not kept
  };
  void frame(Cells where, const Style& style);
  lxw_format* format(const Cells& where, Style style);
  void write(const Written& cell, const std::string& formula);

  Book& book_;
  lxw_worksheet* sheet_;
  std::string name_;
  Palette palette_;
  std::vector<Written> written_;
  std::map<char, double> widths_;
  std::set<std::pair<int, char>>
      merged_;  // first cells of blocks: a block that is written again is merged once
};

// Raised when the workbook cannot be written.
struct BookError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

class Book {
 public:
  explicit Book(const std::string& path);
  ~Book();
  Book(const Book&) = delete;
  Book& operator=(const Book&) = delete;

  Sheet& sheet(const std::string& name);
  void close();

 private:
  friend class Sheet;
  lxw_format* format(const Style& style);

  std::string path_;
  lxw_workbook* book_;
  std::vector<std::unique_ptr<Sheet>> sheets_;
  std::map<Style, lxw_format*> formats_;
};

}  // namespace formats

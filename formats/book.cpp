#include "formats/book.h"

#include <xlsxwriter.h>

#include <cmath>
#include <ctime>
#include <utility>

namespace formats {

namespace {

constexpr const char* kFont = "Calibri";
constexpr double kPointsPerInch = 72;
constexpr double kPointsPerPixel = 0.75;
constexpr uint32_t kLine = 0x6B7B7D;
constexpr uint32_t kFaintLine = 0xD3DCDC;

lxw_row_t row(int r) { return static_cast<lxw_row_t>(r - 1); }
lxw_col_t column(char c) { return static_cast<lxw_col_t>(c - 'A'); }

uint8_t across(Across a) {
  switch (a) {
    case Across::Centre:
      return LXW_ALIGN_CENTER;
    case Across::Right:
      return LXW_ALIGN_RIGHT;
    default:
      return LXW_ALIGN_LEFT;
  }
}

uint8_t down(Down d) {
  switch (d) {
    case Down::Top:
      return LXW_ALIGN_VERTICAL_TOP;
    case Down::Bottom:
      return LXW_ALIGN_VERTICAL_BOTTOM;
    default:
      return LXW_ALIGN_VERTICAL_CENTER;
  }
}

uint8_t border(Edge edge) {
  switch (edge) {
    case Edge::Faint:
    case Edge::Thin:
      return LXW_BORDER_THIN;
    case Edge::Medium:
      return LXW_BORDER_MEDIUM;
    default:
      return LXW_BORDER_NONE;
  }
}

lxw_color_t lineColour(Edge edge) { return edge == Edge::Faint ? kFaintLine : kLine; }

}  // namespace

Book::Book(const std::string& path) : path_(path), book_(workbook_new(path.c_str())) {
  if (!book_) throw BookError("Cannot make " + path);
  // The same design is the same file, whenever it is written.
  constexpr time_t kWritten = 1767225600;  // 1 January 2026
  std::string title = "Print design", author = "Mirav";
  lxw_doc_properties properties{};
  properties.title = title.data();
  properties.author = author.data();
  properties.created = kWritten;
  workbook_set_properties(book_, &properties);
}

Book::~Book() {
  if (book_) workbook_close(book_);
}

void Book::close() {
  const auto result = workbook_close(std::exchange(book_, nullptr));
  if (result != LXW_NO_ERROR) throw BookError("Cannot write " + path_ + ": " + lxw_strerror(result));
}

Sheet& Book::sheet(const std::string& name) {
  sheets_.push_back(std::make_unique<Sheet>(*this, workbook_add_worksheet(book_, name.c_str()), name));
  return *sheets_.back();
}

lxw_format* Book::format(const Style& style) {
  auto& format = formats_[style];
  if (format) return format;
  format = workbook_add_format(book_);
  format_set_font_name(format, kFont);
  format_set_font_size(format, style.size);
  format_set_font_color(format, style.colour);
  if (style.bold) format_set_bold(format);
  if (style.italic) format_set_italic(format);
  if (style.fill != kNoFill) {
    format_set_pattern(format, LXW_PATTERN_SOLID);
    format_set_bg_color(format, style.fill);
  }
  format_set_align(format, across(style.across));
  format_set_align(format, down(style.down));
  if (style.wrap) format_set_text_wrap(format);
  if (style.shrink) format_set_shrink(format);
  if (style.indent > 0) format_set_indent(format, static_cast<uint8_t>(style.indent));
  if (!style.number.empty()) format_set_num_format(format, style.number.c_str());
  format_set_left(format, border(style.edges.left));
  format_set_top(format, border(style.edges.top));
  format_set_right(format, border(style.edges.right));
  format_set_bottom(format, border(style.edges.bottom));
  format_set_left_color(format, lineColour(style.edges.left));
  format_set_top_color(format, lineColour(style.edges.top));
  format_set_right_color(format, lineColour(style.edges.right));
  format_set_bottom_color(format, lineColour(style.edges.bottom));
  return format;
}

void Sheet::width(char c, double points) {
  worksheet_set_column_pixels(sheet_, column(c), column(c),
                              static_cast<uint32_t>(std::lround(points / kPointsPerPixel)), nullptr);
}

void Sheet::height(int r, double points) { worksheet_set_row(sheet_, row(r), points, nullptr); }

void Sheet::hide() { worksheet_hide(sheet_); }

// Merges a block and gives each of its cells only those edges that lie on the block's rim.
void Sheet::frame(Cells where, const Style& style) {
  const int last = where.lastRow();
  const char right = where.lastColumn();
  if (last != where.top || right != where.left)
    worksheet_merge_range(sheet_, row(where.top), column(where.left), row(last), column(right), "", nullptr);
  for (int r = where.top; r <= last; ++r)
    for (char c = where.left; c <= right; ++c) {
      Style cell = style;
      if (r != where.top) cell.edges.top = Edge::None;
      if (r != last) cell.edges.bottom = Edge::None;
      if (c != where.left) cell.edges.left = Edge::None;
      if (c != right) cell.edges.right = Edge::None;
      worksheet_write_blank(sheet_, row(r), column(c), book_.format(cell));
    }
}

namespace {

// The style of the first cell of a block.
Style first(const Cells& where, Style style) {
  if (where.lastRow() != where.top) style.edges.bottom = Edge::None;
  if (where.lastColumn() != where.left) style.edges.right = Edge::None;
  return style;
}

}  // namespace

void Sheet::text(Cells where, const Style& style, std::string_view text) {
  frame(where, style);
  worksheet_write_string(sheet_, row(where.top), column(where.left), std::string(text).c_str(),
                         book_.format(first(where, style)));
}

void Sheet::formula(Cells where, const Style& style, const std::string& formula) {
  frame(where, style);
  worksheet_write_formula_str(sheet_, row(where.top), column(where.left), ("=" + formula).c_str(),
                              book_.format(first(where, style)), "");
}

void Sheet::number(Cells where, const Style& style, double number) {
  frame(where, style);
  worksheet_write_number(sheet_, row(where.top), column(where.left), number,
                         book_.format(first(where, style)));
}

void Sheet::blank(Cells where, const Style& style) { frame(where, style); }

void Sheet::paper(double leftRight, double topBottom, Cells printed) {
  constexpr uint8_t kA4 = 9;
  worksheet_set_paper(sheet_, kA4);
  worksheet_set_portrait(sheet_);
  const double inchesX = leftRight / kPointsPerInch, inchesY = topBottom / kPointsPerInch;
  worksheet_set_margins(sheet_, inchesX, inchesX, inchesY, inchesY);
  lxw_header_footer_options none{};
  none.margin = 0.1;
  worksheet_set_header_opt(sheet_, "", &none);
  worksheet_set_footer_opt(sheet_, "", &none);
  worksheet_center_horizontally(sheet_);
  worksheet_fit_to_pages(sheet_, 1, 0);
  worksheet_print_area(sheet_, row(printed.top), column(printed.left), row(printed.lastRow()),
                       column(printed.lastColumn()));
  worksheet_gridlines(sheet_, LXW_HIDE_ALL_GRIDLINES);
}

}  // namespace formats

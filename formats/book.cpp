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

// "$A$1"; columns beyond Z have two letters.
std::string cellName(char c, int r) {
  const int n = c - 'A';
  std::string letters(1, static_cast<char>('A' + n % 26));
  if (n >= 26) letters.insert(letters.begin(), static_cast<char>('A' + n / 26 - 1));
  return "$" + letters + "$" + std::to_string(r);
}

lxw_color_t lineColour(Edge edge) { return edge == Edge::Faint ? kFaintLine : kLine; }

}  // namespace

double Paper::room() const {
  constexpr double kShortOfA4 = 595.28, kLongOfA4 = 841.89, kShortOfA5 = 419.53;
  const bool a4 = size == Size::A4;
  const double height = a4 ? (landscape ? kShortOfA4 : kLongOfA4) : (landscape ? kShortOfA5 : kShortOfA4);
  return height - 2 * topBottom;
}

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
  widths_[c] = points;
  worksheet_set_column_pixels(sheet_, column(c), column(c),
                              static_cast<uint32_t>(std::lround(points / kPointsPerPixel)), nullptr);
}

void Sheet::height(int r, double points) { worksheet_set_row(sheet_, row(r), points, nullptr); }

void Sheet::hide() { worksheet_hide(sheet_); }

// Merges a block and gives each of its cells only those edges that lie on the block's rim.
void Sheet::frame(Cells where, const Style& style) {
  const int last = where.lastRow();
  const char right = where.lastColumn();
  if ((last != where.top || right != where.left) && merged_.emplace(where.top, where.left).second)
    worksheet_merge_range(sheet_, row(where.top), column(where.left), row(last), column(right), "", nullptr);
  for (int r = where.top; r <= last; ++r)
    for (char c = where.left; c <= right; ++c) {
      Style cell = style;
      if (r != where.top) cell.edges.top = Edge::None;
      if (c != where.left) cell.edges.left = Edge::None;
      worksheet_write_blank(sheet_, row(r), column(c),
                            format({.top = r, .left = c, .bottom = last, .right = right}, cell));
    }
}

// Of the first cell of a block.
lxw_format* Sheet::format(const Cells& where, Style style) {
  if (where.lastRow() != where.top) style.edges.bottom = Edge::None;
  if (where.lastColumn() != where.left) style.edges.right = Edge::None;
  if (style.colour == kAccent) style.colour = palette_.accent;
  if (style.fill == kAccent) style.fill = palette_.accent;
  if (style.fill == kTint) style.fill = palette_.tint;
  return book_.format(style);
}

void Sheet::write(const Written& cell, const std::string& formula) {
  frame(cell.where, cell.style);
  const auto r = row(cell.where.top);
  const auto c = column(cell.where.left);
  lxw_format* const made = format(cell.where, cell.style);
  if (cell.formula)
    worksheet_write_formula_str(sheet_, r, c, ("=" + formula).c_str(), made, "");
  else if (!cell.text.empty())
    worksheet_write_string(sheet_, r, c, cell.text.c_str(), made);
}

void Sheet::text(Cells where, const Style& style, std::string_view text) {
  written_.push_back({where, style, false, std::string(text)});
  write(written_.back(), {});
}

void Sheet::formula(Cells where, const Style& style, const std::string& formula) {
  written_.push_back({where, style, true, {}});
  write(written_.back(), formula);
}

void Sheet::number(Cells where, const Style& style, double number) {
  frame(where, style);
  worksheet_write_number(sheet_, row(where.top), column(where.left), number, format(where, style));
}

void Sheet::blank(Cells where, const Style& style) { text(where, style, {}); }

void Sheet::picture(Cells where, const Picture& picture, double points, double dx, double dy) {
  std::string description = "Logo";
  lxw_image_options options{};
  options.x_offset = static_cast<int32_t>(std::lround(dx / kPointsPerPixel));
  options.y_offset = static_cast<int32_t>(std::lround(dy / kPointsPerPixel));
  options.x_scale = options.y_scale = points / picture.points;
  options.object_position = LXW_OBJECT_MOVE_AND_SIZE;
  options.description = description.data();
  const auto result = worksheet_insert_image_buffer_opt(
      sheet_, row(where.top), column(where.left), reinterpret_cast<const unsigned char*>(picture.png.data()),
      picture.png.size(), &options);
  if (result != LXW_NO_ERROR) throw BookError(std::string("Cannot place a picture: ") + lxw_strerror(result));
}

void Sheet::repeat(int columns) {
  const auto moved = [&](char c) { return static_cast<char>(c + columns); };
  const auto shifted = [&](Cells where) {
    if (where.right != 0) where.right = moved(where.right);
    where.left = moved(where.left);
    return where;
  };
  for (const auto& [c, points] : std::map(widths_)) width(moved(c), points);
  for (const Written& cell : written_) {
    Written copy = cell;
    copy.where = shifted(cell.where);
    write(copy, std::string(1, cell.where.left) + std::to_string(cell.where.top));
  }
}

void Sheet::paper(const Paper& paper, const std::vector<Cells>& printed) {
  worksheet_set_paper(sheet_, static_cast<uint8_t>(paper.size));
  if (paper.landscape)
    worksheet_set_landscape(sheet_);
  else
    worksheet_set_portrait(sheet_);
  const double inchesX = paper.leftRight / kPointsPerInch, inchesY = paper.topBottom / kPointsPerInch;
  worksheet_set_margins(sheet_, inchesX, inchesX, inchesY, inchesY);
  lxw_header_footer_options none{};
  none.margin = 0.1;
  worksheet_set_header_opt(sheet_, "", &none);
  worksheet_set_footer_opt(sheet_, "", &none);
  if (paper.centred) worksheet_center_horizontally(sheet_);
  worksheet_fit_to_pages(sheet_, 1, 0);
  std::string areas;
  for (const Cells& area : printed)
    areas += (areas.empty() ? "=" : ",") + name_ + "!" + cellName(area.left, area.top) + ":" +
             cellName(area.lastColumn(), area.lastRow());
  // The name itself, since a sheet takes one area only.
  workbook_define_name(book_.book_, (name_ + "!_xlnm.Print_Area").c_str(), areas.c_str());
  worksheet_gridlines(sheet_, LXW_HIDE_ALL_GRIDLINES);
}

}  // namespace formats

#include "platform/workbook/create.h"

#include <xlsxwriter.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <map>
#include <system_error>
#include <utility>

#include "base/words.h"
#include "platform/utf8.h"
#include "platform/whole_file.h"
#include "platform/workbook/held.h"
#include "platform/workbook/xml.h"

namespace workbook {
namespace {

constexpr size_t kMostCharacters = 32767;
constexpr double kNarrowest = 8, kWidest = 60;
constexpr lxw_row_t kMostRows = LXW_ROW_MAX;

bool isPlain(const std::string& text) {
  return std::ranges::all_of(text, [](char c) { return (c >= ' ' && c <= '~') || c == '\n'; });
}

// What a workbook may hold of it, and no longer than a cell can hold.
std::string cellText(const std::string& text) {
  std::u32string letters = utf8::decode(xml::holdable(text));
  letters.resize(std::min(letters.size(), kMostCharacters));
  return utf8::encode(letters);
}

// One sheet.
class ListWriter {
 public:
  ListWriter(lxw_workbook* book, const List& list)
      : list_(list),
        longest_(list.columns.size()),
        largest_(list.columns.size()),
        book_(book),
        sheet_(workbook_add_worksheet(book, list.sheet.c_str())) {}

  // Empty when its rows were written.
  std::string write() {
    if (!sheet_) return words("it cannot be made");
    head();
    if (!rows()) return words("it has more rows than a sheet holds");
    widths();
    page();
    errno = 0;
    // The rows lie in a file of the library, which does not look whether they went into it.
    if (std::FILE* const rows = sheet_->optimize_tmpfile)
      if (std::fflush(rows) != 0 || std::ferror(rows)) return std::strerror(errno ? errno : ENOSPC);
    return {};
  }

 private:
  lxw_row_t headingRow() const { return static_cast<lxw_row_t>(list_.titles.size()); }
  bool ofFigures(size_t column) const { return list_.columns[column].format.starts_with('0'); }

  void put(lxw_row_t row, size_t column, const Value& value, lxw_format* format) {
    const auto at = static_cast<lxw_col_t>(column);
    if (const std::string* text = value.text()) {
      const bool plain = text->size() <= kMostCharacters && isPlain(*text);
      worksheet_write_string(sheet_, row, at, plain ? text->c_str() : cellText(*text).c_str(), format);
      if (row < headingRow()) return;
      longest_[column] = std::max(longest_[column], plain ? text->size() : utf8::length(*text));
    } else if (const double* number = value.number()) {
      worksheet_write_number(sheet_, row, at, *number, format);
      largest_[column] = std::max(largest_[column], std::abs(*number));
    } else if (const bool* truth = value.truth()) {
      worksheet_write_boolean(sheet_, row, at, *truth ? 1 : 0, format);
    }
  }

  void head() {
    constexpr double kTitleSize = 14;
    for (lxw_row_t row = 0; row < headingRow(); ++row) {
      lxw_format* const title = row == 0 ? workbook_add_format(book_) : nullptr;
      if (title) format_set_bold(title), format_set_font_size(title, kTitleSize);
      put(row, 0, list_.titles[row], title);
    }
    lxw_format* headings[2];
    for (const bool right : {false, true}) {
      lxw_format* const format = headings[right ? 1 : 0] = workbook_add_format(book_);
      format_set_bold(format);
      format_set_bottom(format, LXW_BORDER_THIN);
      if (right) format_set_align(format, LXW_ALIGN_RIGHT);
    }
    for (size_t c = 0; c < list_.columns.size(); ++c)
      put(headingRow(), c, list_.columns[c].heading, headings[ofFigures(c) ? 1 : 0]);
    worksheet_freeze_panes(sheet_, headingRow() + 1, 0);
    worksheet_repeat_rows(sheet_, headingRow(), headingRow());
  }

  // One of a kind: the library looks a second one up anew for each cell.
  lxw_format* formatOf(std::string_view format) {
    if (format.empty()) return nullptr;
    const auto known = formats_.find(format);
    if (known != formats_.end()) return known->second;
    lxw_format* const made = formats_.emplace(format, workbook_add_format(book_)).first->second;
    format_set_num_format(made, std::string(format).c_str());
    if (!format.starts_with('0')) format_set_align(made, LXW_ALIGN_LEFT);
    return made;
  }

  bool rows() {
    std::vector<lxw_format*> formats;
    for (const ListColumn& column : list_.columns) formats.push_back(formatOf(column.format));
    std::vector<ListCell> row;
    for (lxw_row_t number = headingRow() + 1; list_.next && list_.next(row); ++number) {
      if (number >= kMostRows) return false;
      for (size_t c = 0; c < std::min(row.size(), formats.size()); ++c) {
        const std::string_view own = row[c].format;
        put(number, c, row[c].value,
            own.empty() || own == list_.columns[c].format ? formats[c] : formatOf(own));
      }
    }
    return true;
  }

  double widthOf(size_t column) const {
    constexpr double kRoom = 2, kSignAndDecimals = 4;
    const double given = list_.columns[column].width, figure = largest_[column];
    double needed = static_cast<double>(longest_[column]);
    if (ofFigures(column) && figure >= 1)
      needed = std::max(needed, std::floor(std::log10(figure)) + 1 + kSignAndDecimals);
    return std::max(given > 0 ? given : kNarrowest, std::min(needed + kRoom, kWidest));
  }

  void widths() {
    for (size_t c = 0; c < list_.columns.size(); ++c) {
      const auto at = static_cast<lxw_col_t>(c);
      worksheet_set_column(sheet_, at, at, widthOf(c), nullptr);
    }
  }

  void page() {
    constexpr uint8_t kA4 = 9;
    constexpr double kSide = 0.4, kTop = 0.5, kBottom = 0.7;  // inches
    worksheet_set_paper(sheet_, kA4);
    if (list_.landscape) worksheet_set_landscape(sheet_);
    worksheet_set_margins(sheet_, kSide, kSide, kTop, kBottom);
    worksheet_fit_to_pages(sheet_, 1, 0);
    worksheet_set_footer(sheet_, "&RPage &P of &N");
  }

  const List& list_;
  std::vector<size_t> longest_;  // text of each column, in characters
  std::vector<double> largest_;  // number of each column
  std::map<std::string, lxw_format*, std::less<>> formats_;
  lxw_workbook* book_;
  lxw_worksheet* sheet_;
};

class BookWriter {
 public:
  explicit BookWriter(const std::string& path) {
    std::string folder = std::filesystem::path(path).parent_path().string();
    lxw_workbook_options options{.constant_memory = LXW_TRUE,
                                 .tmpdir = folder.empty() ? nullptr : folder.data(),
                                 .use_zip64 = LXW_FALSE};
    book_ = workbook_new_opt(path.c_str(), &options);
  }
  ~BookWriter() {
    if (book_) lxw_workbook_free(book_);
  }
  BookWriter(const BookWriter&) = delete;
  BookWriter& operator=(const BookWriter&) = delete;

  // Empty when the file was written.
  std::string write(std::span<const List> lists) {
    if (!book_) return words("it cannot be made");
    for (const List& list : lists)
      if (const std::string failure = ListWriter(book_, list).write(); !failure.empty()) return failure;
    errno = 0;
    const lxw_error result = workbook_close(std::exchange(book_, nullptr));
    if (result == LXW_NO_ERROR) return {};
    return result == LXW_ERROR_ZIP_FILE_OPERATION && errno != 0 ? std::strerror(errno) : lxw_strerror(result);
  }

 private:
  lxw_workbook* book_ = nullptr;
};

}  // namespace

void createList(const std::string& path, const List& list) { createLists(path, {&list, 1}); }

void createLists(const std::string& path, std::span<const List> lists) {
  if (heldElsewhere(path)) throw WorkbookHeld(english("Excel File Is Already Open\r\nClose It First"));
  std::string failure;
  try {
    WholeFile file(path);
    failure = BookWriter(file.making()).write(lists);
    if (failure.empty()) return file.finish();
  } catch (const std::system_error& error) {
    failure = error.code().message();
  }
  throw WorkbookError(words("The workbook {workbook} cannot be written to {file}: {reason}.", "workbook",
                            std::filesystem::path(path).filename().string(), "file", path, "reason",
                            failure));
}

}  // namespace workbook

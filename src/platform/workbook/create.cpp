#include "platform/workbook/create.h"

#include <fcntl.h>
#include <unistd.h>
#include <xlsxwriter.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include "platform/utf8.h"

namespace workbook {
namespace {

constexpr size_t kMostCharacters = 32767;
constexpr double kNarrowest = 8, kWidest = 60;

// Broken UTF-8 mended, and no longer than a cell can hold.
std::string cellText(const std::string& text) {
  std::u32string letters = utf8::decode(text);
  letters.resize(std::min(letters.size(), kMostCharacters));
  return utf8::encode(letters);
}

std::string sentence(const std::string& path, const std::string& why) {
  return "The workbook " + std::filesystem::path(path).filename().string() + " cannot be written to " + path +
         ": " + why + ".";
}

// Spreadsheet programs hold a lock on the workbook that they show.
void refuseHeld(const std::string& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return;
  struct flock wanted {};
  wanted.l_type = F_WRLCK;
  wanted.l_whence = SEEK_SET;
  const bool held = fcntl(file, F_GETLK, &wanted) == 0 && wanted.l_type != F_UNLCK;
  close(file);
  if (held) throw WorkbookError("Excel File Is Already Open\r\nClose It First");
}

class ListWriter {
 public:
  ListWriter(const std::string& path, const List& list)
      : list_(list), book_(workbook_new(path.c_str())), sheet_(book_ ? add(list.sheet) : nullptr) {}

  // Empty when the file was written.
  std::string write() {
    if (!sheet_) {
      lxw_workbook_free(book_);
      return "it cannot be made";
    }
    head();
    rows();
    widths();
    page();
    errno = 0;
    const lxw_error result = workbook_close(book_);
    if (result == LXW_NO_ERROR) return {};
    return result == LXW_ERROR_ZIP_FILE_OPERATION && errno != 0 ? std::strerror(errno) : lxw_strerror(result);
  }

 private:
  lxw_worksheet* add(const std::string& name) { return workbook_add_worksheet(book_, name.c_str()); }

  lxw_row_t firstRow() const { return list_.title.empty() ? 1 : 2; }
  bool ofNumbers(size_t column) const { return !list_.columns[column].format.empty(); }

  void put(lxw_row_t row, size_t column, const Value& value, lxw_format* format) {
    const auto at = static_cast<lxw_col_t>(column);
    if (const std::string* text = value.text())
      worksheet_write_string(sheet_, row, at, cellText(*text).c_str(), format);
    else if (const double* number = value.number())
      worksheet_write_number(sheet_, row, at, *number, format);
    else if (const bool* truth = value.truth())
      worksheet_write_boolean(sheet_, row, at, *truth ? 1 : 0, format);
  }

  void head() {
    constexpr double kTitleSize = 14;
    lxw_format* const title = workbook_add_format(book_);
    format_set_bold(title);
    format_set_font_size(title, kTitleSize);
    if (!list_.title.empty()) put(0, 0, list_.title, title);
    lxw_format* headings[2];
    for (const bool right : {false, true}) {
      lxw_format* const format = headings[right ? 1 : 0] = workbook_add_format(book_);
      format_set_bold(format);
      format_set_bottom(format, LXW_BORDER_THIN);
      if (right) format_set_align(format, LXW_ALIGN_RIGHT);
    }
    for (size_t c = 0; c < list_.columns.size(); ++c)
      put(firstRow() - 1, c, list_.columns[c].heading, headings[ofNumbers(c) ? 1 : 0]);
    worksheet_freeze_panes(sheet_, firstRow(), 0);
    worksheet_repeat_rows(sheet_, firstRow() - 1, firstRow() - 1);
  }

  void rows() {
    std::vector<lxw_format*> formats;
    for (size_t c = 0; c < list_.columns.size(); ++c) {
      formats.push_back(ofNumbers(c) ? workbook_add_format(book_) : nullptr);
      if (formats.back()) format_set_num_format(formats.back(), list_.columns[c].format.c_str());
    }
    lxw_row_t number = firstRow();
    for (const auto& row : list_.rows) {
      for (size_t c = 0; c < std::min(row.size(), formats.size()); ++c) put(number, c, row[c], formats[c]);
      ++number;
    }
  }

  double widthOf(size_t column) const {
    const ListColumn& c = list_.columns[column];
    if (c.width > 0) return c.width;
    size_t longest = utf8::length(c.heading);
    for (const auto& row : list_.rows)
      if (const std::string* text = column < row.size() ? row[column].text() : nullptr)
        longest = std::max(longest, utf8::length(*text));
    return std::clamp(static_cast<double>(longest) + 2, kNarrowest, kWidest);
  }

  void widths() {
    for (size_t c = 0; c < list_.columns.size(); ++c) {
      const auto at = static_cast<lxw_col_t>(c);
      worksheet_set_column(sheet_, at, at, widthOf(c), nullptr);
    }
  }

  void page() {
    constexpr uint8_t kA4 = 9;
    worksheet_set_paper(sheet_, kA4);
    worksheet_fit_to_pages(sheet_, 1, 0);
    worksheet_set_footer(sheet_, "&RPage &P of &N");
  }

  const List& list_;
  lxw_workbook* book_;
  lxw_worksheet* sheet_;
};

}  // namespace

void createList(const std::string& path, const List& list) {
  refuseHeld(path);
  const std::string making = path + "~" + std::to_string(getpid());
  const int file = open(making.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  if (file < 0) throw WorkbookError(sentence(path, std::strerror(errno)));
  // The library writes by name; the descriptor stays for the flush behind it.
  std::string failure = ListWriter(making, list).write();
  if (failure.empty() && fsync(file) != 0) failure = std::strerror(errno);
  close(file);
  if (failure.empty() && std::rename(making.c_str(), path.c_str()) != 0) failure = std::strerror(errno);
  if (failure.empty()) return;
  std::remove(making.c_str());
  throw WorkbookError(sentence(path, failure));
}

}  // namespace workbook

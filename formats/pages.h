#pragma once

#include <functional>
#include <string>
#include <vector>

#include "formats/book.h"

// The long sheet of a design: so many pages, each a head, item slots of one row, and a foot;
// the last foot closes the paper. The heights of one page fill one sheet of paper, so that a
// page begins with its head wherever pages before it are hidden.
namespace formats {

struct Form {
  int pages = 1, slots = 1;
  std::vector<double> head, foot;  // heights of their rows in points
  double slot = 18;
  std::vector<double> firstHead = {};  // of page 1 where it differs; as high as the others together

  double pageHeight() const;
  int headRows() const { return static_cast<int>(head.size()); }
  int footRows() const { return static_cast<int>(foot.size()); }
  int pageRows() const { return headRows() + slots + footRows(); }
  int rows() const { return pages * pageRows(); }
  int headAt(int page) const { return (page - 1) * pageRows() + 1; }
  int slotsAt(int page) const { return headAt(page) + headRows(); }
  int footAt(int page) const { return slotsAt(page) + slots; }
};

// What stands on the pages; each is given its first row.
struct PageParts {
  std::function<void(int row, int page)> head, slots, foot;  // the foot of a page that another follows
  std::function<void(int row)> closing;
};
void writePages(Sheet& sheet, const Form& form, const PageParts& parts);

// Sums of a column of the slots.
std::string sumOfPage(const Form& form, int page, char column);
std::string sumUpTo(const Form& form, int page, char column);
// Of the page that the paper ends with; `pages` is the reference to its number.
std::string sumOfLastPage(const Form& form, const std::string& pages, char column);

}  // namespace formats

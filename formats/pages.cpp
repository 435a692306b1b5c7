#include "formats/pages.h"

#include <numeric>

namespace formats {

double Form::pageHeight() const {
  return std::accumulate(head.begin(), head.end(), 0.0) + slots * slot +
         std::accumulate(foot.begin(), foot.end(), 0.0);
}

void writePages(Sheet& sheet, const Form& form, const PageParts& parts) {
  for (int page = 1; page <= form.pages; ++page) {
    int row = form.headAt(page);
    const bool own = page == 1 && !form.firstHead.empty();
    for (const double height : own ? form.firstHead : form.head) sheet.height(row++, height);
    for (int slot = 0; slot < form.slots; ++slot) sheet.height(row++, form.slot);
    for (const double height : form.foot) sheet.height(row++, height);
    parts.head(form.headAt(page), page);
    parts.slots(form.slotsAt(page), page);
    if (page == form.pages)
      parts.closing(form.footAt(page));
    else
      parts.foot(form.footAt(page), page);
  }
}

namespace {

std::string rangeOfPage(const Form& form, int page, char column) {
  const auto at = [&](int row) { return std::string(1, column) + std::to_string(row); };
  return at(form.slotsAt(page)) + ":" + at(form.footAt(page) - 1);
}

}  // namespace

std::string sumOfPage(const Form& form, int page, char column) {
  return "SUM(" + rangeOfPage(form, page, column) + ")";
}

std::string sumUpTo(const Form& form, int page, char column) {
  std::string ranges;
  for (int p = 1; p <= page; ++p) ranges += (p > 1 ? "," : "") + rangeOfPage(form, p, column);
  return "SUM(" + ranges + ")";
}

std::string sumOfLastPage(const Form& form, const std::string& pages, char column) {
  std::string sums;
  for (int page = 1; page <= form.pages; ++page) sums += "," + sumOfPage(form, page, column);
  return "CHOOSE(" + pages + sums + ")";
}

}  // namespace formats

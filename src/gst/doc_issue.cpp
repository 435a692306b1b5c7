#include "gst/doc_issue.h"

#include <algorithm>
#include <map>
#include <optional>
#include <tuple>

#include "base/number.h"
#include "base/text.h"
#include "frame/number_series.h"
#include "gst/documents.h"
#include "gst/period.h"

namespace {

// More missing numbers than that in a row were never given out: the series was begun anew.
constexpr double kLargestGap = 50;

struct Numbered {
  double count;
  std::string number;
  Date day;
};

// Type, and what stands before and behind the count.
using Key = std::tuple<std::string, std::string, std::string>;

struct Parts {
  std::string before, behind;
  double count = 0;
};

// Of a series that the shop has set by its own parts, else the last digits count.
std::optional<Parts> partsOf(const std::string& number, const std::vector<NumberSeries>& series) {
  for (const NumberSeries& its : series)
    if (const auto count = countIn(its, number)) return Parts{its.prefix, its.suffix, *count};
  const size_t last = number.find_last_of("0123456789");
  if (last == std::string::npos) return {};
  const size_t first = number.find_last_not_of("0123456789", last) + 1;
  if (last - first >= 15) return {};
  return Parts{number.substr(0, first), number.substr(last + 1), Val(number.substr(first, last - first + 1))};
}

// The digits of a series, as those of a number beside the missing one.
std::string numberLike(const std::string& like, const Parts& parts, double count) {
  const int width = length(like) - length(parts.before) - length(parts.behind);
  return parts.before + padLeft(numText(count), width, '0') + parts.behind;
}

class Series {
 public:
  Series(const VoucherKind& kind, std::string type) : kind_(kind), type_(std::move(type)) {}

  void issue(std::vector<Numbered> numbers, Date from, Date to, const Parts& parts,
             std::vector<IssuedSeries>& found) {
    // One that stands twice counts where it came first.
    std::ranges::sort(numbers, [](const Numbered& a, const Numbered& b) {
      return std::tie(a.count, a.day, a.number) < std::tie(b.count, b.day, b.number);
    });
    const Numbered* before = nullptr;
    IssuedSeries row{.kind = &kind_, .type = type_};
    for (const Numbered& number : numbers) {
      const bool again = before && number.count == before->count;
      double gap = before ? number.count - before->count - 1 : 0;
      const bool anew = gap > kLargestGap;
      if (anew) {
        end(row, found);
        gap = 0;
      }
      if (number.day >= from && number.day <= to && !again) {
        if (row.total == 0)
          row.from = gap > 0 ? numberLike(number.number, parts, before->count + 1) : number.number;
        if (gap > 0) row.cancelled += static_cast<int>(gap);
        row.total += 1 + static_cast<int>(std::max(gap, 0.0));
        row.to = number.number;
      }
      before = &number;
    }
    end(row, found);
  }

 private:
  void end(IssuedSeries& row, std::vector<IssuedSeries>& found) const {
    if (row.total > 0) found.push_back(row);
    row = {.kind = &kind_, .type = type_};
  }

  const VoucherKind& kind_;
  std::string type_;
};

void readKind(Database& db, const VoucherKind& kind, Date from, Date to, std::vector<IssuedSeries>& found) {
  std::vector<NumberSeries> set;
  for (const NumberSeries& series : allSeries(db))
    if (sameText(series.book, kind.code)) set.push_back(inYear(series, yearStart(from)));
  std::map<Key, std::vector<Numbered>> all;
  for (auto rows = db.query("SELECT BILL_NO, BL_TYPE, VOUCH_DT FROM SALE WHERE BOOK_CD = ? AND GSTPOST = 1"
                            " AND VOUCH_DT >= ? AND VOUCH_DT < ?",
                            kind.code, yearStart(from), addMonths(yearStart(from), 12));
       rows.next();) {
    const std::string number = trim(rows.text(0));
    const auto day = rows.date(2);
    const auto parts = partsOf(number, set);
    if (!parts || !day) continue;
    // A type of its own is a series of its own, unless the number says which it is of.
    const bool named = !parts->before.empty() || !parts->behind.empty();
    all[{named ? "" : upper(rows.text(1)), upper(parts->before), upper(parts->behind)}].push_back(
        {parts->count, number, *day});
  }
  for (auto& [key, numbers] : all)
    Series(kind, std::get<0>(key))
        .issue(std::move(numbers), from, to, {std::get<1>(key), std::get<2>(key)}, found);
}

}  // namespace

int issuedNature(const VoucherKind& kind) {
  if (!kind.isNote()) return 1;
  return kind.ledger.partySide == saleKind().ledger.partySide ? 4 : 5;
}

const char* issuedWords(int nature) {
  return nature == 1 ? "Invoices for outward supply" : nature == 4 ? "Debit Note" : "Credit Note";
}

std::vector<IssuedSeries> issuedSeries(Database& db, Date from, Date to) {
  std::vector<IssuedSeries> found;
  for (const VoucherKind* kind : taxedKinds(true)) readKind(db, *kind, from, to, found);
  return found;
}

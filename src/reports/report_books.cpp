#include "base/words.h"
#include "frame/books_check.h"
#include "reports/reports.h"

// What does not agree in the books, each row with its voucher behind it.

namespace {

ReportPlan planFaults(Database&, const ReportQuery&) {
  BooksCheck check = booksCheck();
  ReportPlan plan{.none = english("Everything Agrees In These Books"),
                  .note = english("Posting Clears What Only The Ledger Holds Or Lacks")};
  plan.rows = {check.text, check.values};
  // clang-format off
  plan.columns = {
      {.heading = "What",      .twips = 2600},
      {.heading = "Bk.",       .twips = 500},
      {.heading = "No",        .twips = 800,  .type = ColumnType::Count},
      {.heading = "Date",      .twips = 1200, .type = ColumnType::Date},
      {.heading = "Party",     .twips = 2600},
      {.heading = "Stands",    .twips = 1300, .type = ColumnType::Money},
      {.heading = "Should Be", .twips = 1300, .type = ColumnType::Money},
      {.heading = "Differs",   .twips = 1300, .type = ColumnType::Money},
  };
  // clang-format on
  plan.voucher = {.book = "OPENS", .number = "VOUCH_NO"};
  return plan;
}

}  // namespace

const Report& booksCheckList() {
  static const Report report{
      .key = kBooksCheck,
      .caption = "What Does Not Agree In The Books",
      .undated = true,
      .plan = planFaults,
  };
  return report;
}

#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/date.h"
#include "documents/grid_output.h"
#include "frame/field_names.h"
#include "frame/links.h"
#include "platform/chart.h"
#include "platform/host.h"
#include "store/database.h"

// One report of the report screen: what stands in the screen before it is shown, and a plan of what
// is shown. The plan is a statement with a layout over its result; the screen reads its rows into
// the grid, adds the total row and opens the vouchers behind the rows.
//
//   const Report& cityList() {
//     static const Report report{.key = "cities", .caption = "Cities", .fields = {kCity}, .plan =
//     planCities}; return report;
//   }
//
// Each report is a piece of its own in report_*.cpp and stands in the list of reports.cpp.

// The filter fields.
using ReportField = FieldName;
using fields::kParty, fields::kCity, fields::kState, fields::kItem, fields::kCategory, fields::kSalesman;

// What the person asked for. A field that is off is empty.
struct ReportQuery {
  std::map<std::string_view, std::string> fields;  // by name, as typed, without blanks around
  Date from{}, to{};
  Date periodStart{}, periodEnd{};
  std::string gstin;  // of the company
  bool yes = false;   // the answer to a question that is asked first

  const std::string& operator[](ReportField field) const {
    static const std::string none;
    const auto found = fields.find(field.text);
    return found == fields.end() ? none : found->second;
  }
};

// A text in the store's own SQL with the values bound to its "?" in order.
struct Statement {
  std::string text;
  std::vector<Value> values = {};
};

// Rows that code makes where no statement is fast enough, read one after the other like those of a
// statement.
class ReportReading {
 public:
  virtual ~ReportReading() = default;
  virtual const ColumnNames& names() const = 0;
  virtual bool next() = 0;
  virtual std::string text(int column) const = 0;  // dates as yyyy-MM-dd
};

// The condition of a report: its parts are joined by AND, each with one "?" for its value.
class Condition {
 public:
  Condition& add(std::string_view part, Date value);
  Condition& add(std::string_view part, const std::string& value);
  Condition& add(std::string_view part, double value);
  // Only when the field was filled.
  Condition& addFilled(std::string_view part, const std::string& field) {
    return field.empty() ? *this : add(part, field);
  }
  bool empty() const { return text_.empty(); }
  const std::string& text() const { return text_; }
  const std::vector<Value>& values() const { return values_; }
  // Of a statement that asks for something else first.
  std::vector<Value> valuesAfter(const std::string& first) const;
  // With the values in it, as mfilter has it: "vouch_dt >= #01/Apr/2026# and area = 'ANAND'".
  const std::string& shown() const { return shown_; }

 private:
  void add(std::string_view part, Value value, std::string_view literal);
  std::string text_, shown_;
  std::vector<Value> values_;
};

// Column i shows column i of the result; columns of the result beyond the layout are only read.
struct ReportColumn {
  std::string heading;  // empty: the result's own name
  double twips = 0;     // 0: not shown
  ColumnType type = ColumnType::Text;
  bool summed = false;  // in the total row; main rows over details have it as "0.00"
  // What detail rows have here, figures then as "0.00". None: the same, as it comes.
  std::optional<ColumnType> detail = {};
  double pixels = 0;   // least width on the screen, where the twips would cut its texts
  bool right = false;  // on paper too, though it is not summed
};

// Detail rows under a main row. They are read when they come into view, so their count must be
// known beforehand.
struct ReportDetails {
  Statement rows;                 // of one main row: the last "?" are that row's `keys`
  std::vector<std::string> keys;  // columns of the main result
  std::string count;              // column of the main result: how many detail rows the row has
};

// Where the voucher that a row stands for is told: columns of the result. Books are those of the kinds of
// voucher: "SA", "CH", "RC", "QT".
struct ReportVoucher {
  std::string book, number;
};

struct ReportPlan {
  std::string refusal;  // told under "Mirav Message" instead of showing anything
  std::string none;     // told where there are no rows; empty: "No Records"
  std::string caption;  // from now on; empty: that of the opening
  std::string filter;   // mfilter: the condition as a text, for reading only
  std::vector<ReportColumn> columns;
  Statement rows;
  std::function<std::unique_ptr<ReportReading>(Database&)> reading;  // in place of `rows`
  // With details dates stand as dd/MM/yyyy, and a blank row under a row without details. Without,
  // fields stand as they come, dates as dd/MMM/yyyy.
  std::optional<ReportDetails> details;
  std::optional<ReportVoucher> voucher;        // of the main row, and so of its details
  std::optional<ReportVoucher> detailVoucher;  // of a detail row of its own: columns of the details
  std::string note;                            // for the hint line: what the reader must know
};

inline constexpr const char* kReportQuestion = english("Mirav Confirmation");

struct ReportQuestion {
  // First: the answer goes into the query. WithRows: only when there are rows; No drops the details.
  enum class When { First, WithRows } when = When::First;
  std::string_view setting;  // that may have answered it
  Question asked;
};

struct Report {
  std::string_view key;
  std::string caption;                   // on opening
  bool captionWithGstin = false;         // the company's GSTIN stands behind it
  std::vector<ReportField> fields = {};  // enabled
  std::string salesmanLabel = {};        // of the last field; empty: as designed
  std::string partyLabel = {};           // of the first one
  std::string offered = {};              // condition of the accounts that its list offers; empty: all
  bool groups = false;                   // the category field looks up account groups
  bool ignoresEscape = false;
  bool undated = false;  // shows what there is, whatever its date
  bool ofToday = false;  // opens on the last day alone
  // The To date that Enter on a From date brings along ("01/02/2026" -> "28/02/2026").
  std::string (*toDate)(std::string_view from) = nullptr;
  std::optional<ReportQuestion> question = {};
  std::string Links::*video = &Links::reportVideo;
  // Files that the shown rows go into: the first by the Excel button, the second by F2 on it.
  std::vector<const GridTarget*> exports = {&kToWorkbook, &kToCsv};
  // Drawn beside the shown rows on F9.
  Chart (*chart)(Database& db, const TypedRows& rows) = nullptr;
  // Raises DatabaseError.
  ReportPlan (*plan)(Database& db, const ReportQuery& query) = nullptr;
};

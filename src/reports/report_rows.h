#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "documents/typed_rows.h"
#include "reports/report.h"
#include "reports/statement.h"

// The rows of a report in the grid: the main rows with their details under them and, once all have
// been read and a column is summed, the total row. Main rows are kept in one compact text, details
// are read as they come into view, so that a register of 100,000 bills with all their lines opens
// at once. What cannot be read any more stays blank.
class ReportRows : public TypedRows {
 public:
  struct Colours {
    Bgr total = kNoColour, detail = kNoColour;
  };

  // Starts the plan's statement. Raises DatabaseError, as read does.
  ReportRows(Database& db, const ReportPlan& plan, Colours colours);

  // Reads on, so many main rows at most; false when there are no more.
  bool read(size_t most);

  size_t count() const override { return size_ + (totalled_ ? 1 : 0); }
  Cell cell(size_t row, size_t column) const override;
  ColumnType type(size_t row, size_t column) const override;

  double totalSize = 0;  // points of the total row; 0 is the grid's own

  // The shown columns with the result's own names where the plan has no heading.
  const std::vector<ReportColumn>& columns() const { return columns_; }
  // The same for paper and files: summed columns stand to the right.
  std::vector<TypedColumn> outputColumns() const;
  std::string total(size_t column) const;  // as the total row shows it; empty when it is not summed

  std::optional<VoucherKey> voucher(size_t row) const;

  // Where a row is found again after the report was read anew: what it stands for and the keys
  // of its main row; at the least the nearest row.
  struct Place {
    size_t row = 0, detail = 0;
    std::optional<VoucherKey> voucher = {};
    std::vector<std::string> keys = {};
  };
  Place place(size_t row) const;
  size_t find(const Place& place) const;

 private:
  struct Details {
    size_t main;
    std::vector<std::vector<std::string>> rows;
    std::vector<std::optional<VoucherKey>> vouchers;
  };
  struct Spot {
    size_t main = 0, detail = 0;  // detail 0 is the main row itself
  };

  size_t placeOf(const std::string& column);
  void keep(const ReportReading& rows);
  void keepCell(const ReportReading& rows, size_t column);
  const std::string& dateShown(const std::string& stored);
  Spot spot(size_t row) const;
  std::string_view kept(size_t main, size_t at) const;
  std::optional<VoucherKey> voucherOf(size_t main) const;
  std::vector<std::string> keysOf(size_t main) const;
  const Details& details(size_t main) const;
  Details readDetails(size_t main) const;
  bool isDate(size_t column) const { return columns_[column].type == ColumnType::Date; }
  size_t firstRow(size_t main) const { return plan_.details ? starts_[main] : main; }
  size_t mains() const { return ends_.size() / kept_.size(); }

  Database& db_;
  const ReportPlan plan_;
  const Colours colours_;
  std::unique_ptr<ReportReading> reading_;
  std::vector<ReportColumn> columns_;
  std::vector<int> kept_;  // columns of the result: those shown, then those that only tell
  // Places in kept_.
  std::vector<size_t> keyPlaces_;
  size_t bookPlace_ = 0, numberPlace_ = 0;
  int countColumn_ = 0;
  bool summed_ = false, totalled_ = false;
  std::vector<double> totals_;  // of the summed columns, rounded to paise at each row
  struct {
    std::string stored, shown;
  } lastDate_;
  size_t size_ = 0;               // rows without the total row
  std::string text_;              // the kept cells of all main rows, one after the other
  std::vector<uint32_t> ends_;    // where each ends in it
  std::vector<uint32_t> starts_;  // of each main row in the grid
  mutable std::deque<Details> recent_;
};

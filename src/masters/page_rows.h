#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "frame/select.h"
#include "platform/grid.h"
#include "store/database.h"

// The rows of a select, read a page at a time as a grid asks for them; the few pages looked at last
// are kept. A statement that fails gives no rows. Dates show as dd/MMM/yyyy, numbers as number text.
class PageRows : public RowSource {
 public:
  // Whole: all rows are counted at once. Ahead: only some way past those that have been asked for
  // (`reach`), so that 100,000 rows cost no more to open than a thousand.
  enum class Counting { Whole, Ahead };

  // With a row to begin on: the first whose first column holds the text.
  PageRows(Database& database, Select select, Counting counting = Counting::Whole,
           const std::string& beginOn = {});

  // The rows counted so far.
  size_t count() const override { return count_; }
  bool counted() const { return counted_; }
  // Counts on until the row is among them or there are no more.
  void reach(size_t row);
  void countAll();

  // For drawing: what cannot be read stays blank.
  Cell cell(size_t row, size_t column) const override;
  std::string text(size_t row, size_t column) const;

  struct ResultColumn {
    std::string name;
    std::string type;  // as declared: "TEXT(6)", "DOUBLE", "DATE"; empty for an expression
  };
  const std::vector<ResultColumn>& columns() const { return columns_; }

  // Where the row to begin on stands; 0 when there is none.
  size_t begin() const { return begin_; }

 private:
  struct Page {
    size_t number;
    std::vector<std::vector<std::string>> rows;
  };
  void readColumns();
  void beginWith(const std::string& code);
  size_t walkTo(const std::string& code) const;
  void countTo(size_t most);
  const Page& page(size_t number) const;
  const std::vector<std::string>* row(size_t number) const;
  size_t pageOf(size_t row) const;
  size_t firstRow(size_t page) const;
  size_t pageShift() const;

  Database& database_;
  Select select_;
  size_t count_ = 0, begin_ = 0;
  bool counted_ = false;
  // The first row of those that share a value of the order; rows behind it are read from there.
  size_t markRow_ = 0;
  std::optional<Value> mark_;
  std::vector<ResultColumn> columns_;
  mutable std::deque<Page> pages_;  // the last one used in front
};

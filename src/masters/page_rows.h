#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "masters/select_text.h"
#include "platform/grid.h"
#include "store/database.h"

// The rows of a select, read a page at a time as a grid asks for them: they are counted when
// the source is made, and the few pages looked at last are kept. A statement that fails gives
// no rows. Dates show as dd/MMM/yyyy, numbers as number text.
class PageRows : public RowSource {
 public:
  PageRows(Database& database, Select select);

  size_t count() const override { return count_; }
  Cell cell(size_t row, size_t column) const override { return {.text = text(row, column)}; }
  std::string text(size_t row, size_t column) const;

  struct ResultColumn {
    std::string name;
    std::string type;  // as declared: "TEXT(6)", "DOUBLE", "DATE"; empty for an expression
  };
  const std::vector<ResultColumn>& columns() const { return columns_; }

  // The first row whose column holds the text, without regard to case.
  std::optional<size_t> find(size_t column, const std::string& text) const;

 private:
  struct Page {
    size_t number;
    std::vector<std::vector<std::string>> rows;
  };
  const Page& page(size_t number) const;

  Database& database_;
  Select select_;
  size_t count_ = 0;
  std::vector<ResultColumn> columns_;
  mutable std::deque<Page> pages_;  // the last one used in front
};

// A column of any type as the text that a typed filter is compared with.
std::string filterText(const std::string& expression, const std::string& declaredType);

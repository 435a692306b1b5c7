#pragma once

#include <string>
#include <utility>
#include <vector>

#include "base/words.h"
#include "documents/grid_output.h"

// Rows of texts for a small paper, under columns that say what they are.
class TextRows : public TypedRows {
 public:
  explicit TextRows(std::vector<TypedColumn> columns) : columns_(std::move(columns)) {}

  void add(std::vector<std::string> cells, bool bold = false) { rows_.push_back({std::move(cells), bold}); }
  // With their headings looked up.
  std::vector<TypedColumn> columns() const {
    std::vector<TypedColumn> all = columns_;
    for (TypedColumn& column : all) column.heading = words(column.heading);
    return all;
  }

  size_t count() const override { return rows_.size(); }
  Cell cell(size_t row, size_t column) const override {
    return {.text = rows_[row].cells[column], .bold = rows_[row].bold};
  }
  ColumnType type(size_t, size_t column) const override { return columns_[column].type; }

 private:
  struct Row {
    std::vector<std::string> cells;
    bool bold;
  };
  std::vector<TypedColumn> columns_;
  std::vector<Row> rows_;
};

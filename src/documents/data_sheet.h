#pragma once

#include <map>
#include <string>
#include <utility>

#include "platform/workbook/workbook.h"
#include "store/database.h"

// What a document puts on the data sheet of its design, cell by cell. Rows and columns
// count from 1; a later value takes the place of an earlier one.
class DataSheet {
 public:
  // An empty value or text leaves the cell as it is.
  void set(int row, int column, const workbook::Value& value);

  // A label above a value of the company; the value only when it has text.
  void labelled(int column, const std::string& label, const Row& company, const std::string& field);

  // Names of a block's columns and the values of one row of it, from a column on.
  void names(int row, int column, const ColumnNames& names);
  void values(int row, int column, const Rows& rows);

  // Takes the place of everything on the sheet.
  void fill(workbook::Sheet& sheet) const;

  // The value of a cell, empty where nothing stands.
  workbook::Value at(int row, int column) const;
  const std::map<std::pair<int, int>, workbook::Value>& cells() const { return cells_; }

 private:
  std::map<std::pair<int, int>, workbook::Value> cells_;
};

// A stored value with its type: numbers, texts, and dates of date columns as dates.
workbook::Value cellValue(const Value& value, const std::string& declaredType = "");

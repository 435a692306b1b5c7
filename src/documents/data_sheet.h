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

  // A stored field in a cell; nothing when the row has no such column.
  void field(int row, int column, const Row& from, const std::string& name);

  // The amount of a field in words, a zero too; nothing for Null and for exactly -1.
  void words(int row, int column, const Row& from, const std::string& name);

  // Names of a block's columns and the values of one row of it, from a column on.
  void names(int row, int column, const ColumnNames& names);
  void values(int row, int column, const Rows& rows);

  // Names and all rows of a block; nothing at all when it has no row. Gives the number of rows.
  int block(Rows found, int namesRow, int firstRow, int column = 1);

  // Takes the place of everything on the sheet.
  void fill(workbook::Sheet& sheet) const;

  // The value of a cell, empty where nothing stands.
  workbook::Value at(int row, int column) const;
  const std::map<std::pair<int, int>, workbook::Value>& cells() const { return cells_; }

 private:
  std::map<std::pair<int, int>, workbook::Value> cells_;
};

// The file format between the program and its designs: the filled data sheet, and how many lines
// the document has. None: there is no such document.
struct FilledSheet {
  DataSheet cells;
  int lines = 0;
};

// A stored value with its type: numbers, texts, and dates of date columns as dates.
workbook::Value cellValue(const Value& value, const std::string& declaredType = "");

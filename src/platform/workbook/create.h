#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/workbook/workbook.h"

// Makes an .xlsx workbook of one sheet: titles, a row of headings that stays in view and is
// repeated on every page, rows of values. Rows are written as they come and none is kept, so that
// a long list costs no memory. A text stays a text, whatever sign it begins with.
//
//   workbook::createList("FORMATS/list.xlsx", {.titles = {"Category Listing"},
//                                              .columns = {{"CODE"}, {"NAME"}},
//                                              .next = [&](auto& row) { ... }});
namespace workbook {

struct ListColumn {
  std::string heading = {};
  double width = 0;         // characters, at least; grows with what it holds, within reason
  std::string format = {};  // "0.00" stands right with its heading; "@" text and "dd/mm/yy" left
};

struct ListCell {
  Value value;
  std::string_view format = {};  // its own, where it is not of the column's kind
};

struct List {
  std::vector<std::string> titles = {};  // over the headings, the first one large
  std::string sheet = "LIST";
  std::vector<ListColumn> columns = {};
  bool landscape = false;
  // Puts the next row's values in place of what stands in the row; false when there is none.
  std::function<bool(std::vector<ListCell>& row)> next = {};
};

// Another program has the file open.
struct WorkbookHeld : WorkbookError {
  using WorkbookError::WorkbookError;
};

// Takes the place of what stood under the path, whole or not at all. Raises WorkbookHeld, or
// WorkbookError when it cannot be written or there are more rows than a sheet holds.
void createList(const std::string& path, const List& list);
// The same with a sheet for each list.
void createLists(const std::string& path, std::span<const List> lists);

}  // namespace workbook

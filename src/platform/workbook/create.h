#pragma once

#include <string>
#include <vector>

#include "platform/workbook/workbook.h"

// Makes an .xlsx workbook of one sheet: a title, a row of headings that stays in view and is
// repeated on every page, rows of values. A text stays a text, whatever sign it begins with.
//
//   workbook::createList("FORMATS/list.xlsx", {.title = "Category Listing",
//                                              .columns = {{"CODE"}, {"NAME"}},
//                                              .rows = {{"E001", "MISC"}}});
namespace workbook {

struct ListColumn {
  std::string heading = {};
  double width = 0;         // characters; 0 is as wide as its longest text
  std::string format = {};  // of its numbers: "0.00"; headings of numbers stand right
};

struct List {
  std::string title = {};  // over the headings; empty for none
  std::string sheet = "LIST";
  std::vector<ListColumn> columns = {};
  std::vector<std::vector<Value>> rows = {};
};

// Takes the place of what stood under the path, whole or not at all. Raises WorkbookError when
// another program holds that file or it cannot be written.
void createList(const std::string& path, const List& list);

}  // namespace workbook

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// Rows of cells of all the tables of an HTML page, one after the other: many banks give such a page away as a
// workbook. Tags within a cell are left out.
std::vector<std::vector<std::string>> rowsOfHtml(std::string_view page, size_t mostRows, size_t mostColumns);

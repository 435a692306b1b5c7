#pragma once

#include <string>

#include "workbook/books.h"

// Everything the program does with a workbook that somebody hands it: load, set cells, hide rows,
// calculate, draw every sheet, save, and load again what was saved. A WorkbookError is an answer;
// whatever else is raised is a fault.
void useBook(std::string bytes);

// A small workbook in parts: three sheets, styles, shared texts, names, a drawing with a picture.
books::Parts plainBook();

#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "platform/host.h"
#include "platform/workbook/workbook.h"

// What all documents made from a design do alike: a working copy of the design is filled and
// goes to paper, into a PDF file, or to the person's own spreadsheet program.

// Folder of the program and its spellings on the disk.
std::filesystem::path formatsFolder();
std::filesystem::path billsFolder();

struct Paper {
  std::filesystem::path design;  // FORMATS/INVGST1.xlsx
  std::filesystem::path copy;    // FORMATS/INVGST.xlsx
  std::filesystem::path pdf;     // BILLS/MIRAV_INV_1.pdf
  std::string sheet;             // the sheet that is printed
  // Fills the data sheet and hides rows.
  std::function<void(workbook::Workbook&)> fill;
};

// By mprnmode: "PDF" makes the file and shows it, "PRN" prints, empty saves the filled copy
// and shows it. Formulas of the design that could not be calculated are named in a message.
void makePaper(Host& host, const Paper& paper);

// Runs the making of a document with the busy pointer; whatever goes wrong is told in a message.
void tellFailures(Host& host, const std::function<void()>& making);

constexpr const char* kMessageTitle = "Mirav Message";

#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "documents/data_sheet.h"
#include "documents/page_model.h"
#include "frame/voucher_kinds.h"
#include "platform/host.h"

// What all documents made from a design do alike: a working copy of the design is filled and
// goes to paper, into a PDF file, or to the person's own spreadsheet program.

// Folder of the program and its spellings on the disk.
std::filesystem::path formatsFolder();
std::filesystem::path billsFolder();

struct Paper {
  std::filesystem::path design;      // FORMATS/INVGST1.xlsx
  std::filesystem::path copy;        // FORMATS/INVGST.xlsx
  std::filesystem::path pdf;         // BILLS/MIRAV_INV_1.pdf
  std::string dataSheet = "SHEET3";  // the sheet that is filled
  std::string sheet = {};            // the sheet that is printed
  // Rows that the document does not need are hidden by the page model of its family and design
  // number; without a family none are.
  std::string family = {};
  int number = 0;
  SlotsKept kept = SlotsKept::All;
};

// That of a voucher: the design of its kind with that number, copied into BILLS.
Paper voucherPaper(const VoucherKind& kind, double voucher, int design);

// By mprnmode: "PDF" makes the file and shows it, "PRN" prints, empty saves the filled copy
// and shows it. Formulas of the design that could not be calculated are named in a message, once
// until they are others. Sets mpdfpath. A PDF that stands there from before goes in any case, and a
// workbook too, but not before the new paper is made.
void makePaper(Host& host, const Paper& paper, const FilledSheet& filled);

// Runs the making of a document with the busy pointer; whatever goes wrong is told in a message.
void tellFailures(Host& host, const std::function<void()>& making);

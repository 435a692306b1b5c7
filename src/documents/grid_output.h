#pragma once

#include <memory>
#include <string>
#include <vector>

#include "documents/typed_rows.h"
#include "platform/host.h"

// A report goes to a PDF file, to the printer or into another file. The outcome is shown; whatever
// goes wrong is told in a message and the report stays on the screen.

struct GridOutput {
  std::string caption, period;
  std::vector<TypedColumn> columns = {};
  std::shared_ptr<const TypedRows> rows = {};  // null: none yet
  std::string key = {};                        // the report's, for those laid out in their own way

  size_t count() const { return rows ? rows->count() : 0; }
};

// Paper holds so many columns; those beyond go to the screen and into files only.
inline constexpr size_t kPaperColumns = 15;

// Makes BILLS/<name>.pdf in place of an old one and shows it. Its fonts have no letters of the
// Indian scripts: those stand as "?", which the hint line then says.
void GridToPdf(Host& host, const std::string& name, const GridOutput& out);

// On the default printer. The preview is the same paper as a PDF file, BILLS/PREVIEW.pdf, shown.
enum class PrintTo { Printer, Preview };
void GridToPrinter(Host& host, const GridOutput& out, PrintTo to = PrintTo::Printer);

// Makes report.xlsx in the program's folder and shows it.
void GridToExcel(Host& host, const GridOutput& out);

// Makes BILLS/<name>.csv and shows it: the headings and all rows by RFC 4180 in UTF-8, dates as
// yyyy-MM-dd, figures without groups.
void GridToCsv(Host& host, const std::string& name, const GridOutput& out);

// Where the buttons of a screen with a report send it. A file of its own is named "RPT" and mstamp.
struct GridTarget {
  const char* name;
  bool onPaper;  // printed, under dates as dd/MM/yyyy
  void (*send)(Host& host, const GridOutput& out);
};
extern const GridTarget kToPrinter, kToPreview, kToPdf, kToWorkbook, kToCsv;

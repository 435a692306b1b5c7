#pragma once

#include <string>

#include "documents/data_sheet.h"

// The data sheet of a sale bill: the file format between the program and its invoice designs.
struct InvoiceSheet {
  DataSheet cells;
  int lines = 0;  // of the bill, those of the category MISC too; 0: there is no such bill
};

// `company` is the row of COMP_DET, `name` the company's name. Kinds are "SALE", "SALERET",
// "PURCH" and "PURCHRET"; they decide which summaries the sheet holds. Raises DatabaseError.
InvoiceSheet invoiceSheet(Database& db, const std::string& name, const Row& company, double number,
                          const std::string& kind);

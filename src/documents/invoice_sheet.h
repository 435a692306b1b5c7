#pragma once

#include <string>

#include "documents/data_sheet.h"

// The data sheet of a sale bill; its lines count those of the category MISC too. `company` is the
// row of COMP_DET, `name` the company's name. Kinds are "SALE", "SALERET", "PURCH" and "PURCHRET";
// they decide which summaries the sheet holds. Raises DatabaseError.
FilledSheet invoiceSheet(Database& db, const std::string& name, const Row& company, double number,
                         const std::string& kind);

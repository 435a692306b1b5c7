#pragma once

#include "base/words.h"
#include "documents/data_sheet.h"

// What the data sheets of the documents say of the company alike.

// The row of COMP_DET. Raises std::runtime_error with the words for the user when there is none.
Row companyDetails(Database& db,
                   const std::string& missing = english("Company Details Not Filled Pl. Check"));

// Address and telephones: R3C1, R3C3, R3C5.
void companyAddress(DataSheet& sheet, const Row& company);

// Labels in row 3 above the company's values in row 4: bank, tax numbers, place.
void companyPairs(DataSheet& sheet, const Row& company);

// The older registrations R4C1 and R5C1, of which a company-year may have none.
void companyRegistrations(DataSheet& sheet, const Row& company);

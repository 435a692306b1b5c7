#pragma once

#include <string>

#include "documents/data_sheet.h"
#include "platform/host.h"

// The data sheet of a quotation; `kind` is QUOT.ENTRY_TYP, `company` the row of COMP_DET.
FilledSheet quotationSheet(Database& db, const std::string& name, const Row& company, double number,
                           const std::string& kind);

// Makes the quotation QUOT.VOUCH_NO from the design `mquotformat`, where mprnmode says.
void RenderQuotation(Host& host, double number, const std::string& kind);

#pragma once

#include <string>

#include "documents/data_sheet.h"
#include "platform/host.h"

// The data sheet of a delivery challan; `kind` is CHLN.BOOK_CD.
FilledSheet challanSheet(Database& db, const std::string& name, double number, const std::string& kind);

// Makes the challan CHLN.VOUCH_NO from the design `mchlnformat`, where mprnmode says.
void RenderChallan(Host& host, double number, const std::string& kind);

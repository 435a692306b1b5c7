#pragma once

#include <string>

#include "platform/host.h"

// Makes the invoice of a saved sale bill from the design `mbillformat`. `number` is
// SALE.VOUCH_NO, `kind` is "SALE" ("SALERET", "PURCH", "PURCHRET" are understood). Where it
// goes is told by mprnmode: "PDF", "PRN", or empty for the open workbook. The outcome is
// shown to the user.
void RenderGstInvoice(Host& host, double number, const std::string& kind);

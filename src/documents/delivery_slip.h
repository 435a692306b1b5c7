#pragma once

#include <string>

#include "documents/data_sheet.h"
#include "platform/host.h"

// The data sheet of a delivery slip, which is made of a sale bill.
FilledSheet deliverySlipSheet(Database& db, const std::string& name, const Row& company, double number);

// Makes the slip of the bill SALE.VOUCH_NO, where mprnmode says. `key` is the print key; it
// decides the name of the PDF file.
void RenderDeliverySlip(Host& host, double number, const std::string& key);

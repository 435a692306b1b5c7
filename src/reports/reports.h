#pragma once

#include <string_view>

#include "reports/report.h"

// The reports of the report screen by their keys; null for a key without one.
const Report* reportByKey(std::string_view key);

// Each piece, in its own report_*.cpp.
const Report& partyList();
const Report& categoryList();
const Report& priceList();
const Report& closingBalanceList();
const Report& groupedBalanceList();
const Report& gstr1Registered();
const Report& gstr1Unregistered();
const Report& saleBillRegister();
const Report& saleBillDetailRegister();
const Report& quotationRegister();
const Report& quotationDetailRegister();
const Report& quotationsAsked();
const Report& quotationDetailsAsked();
const Report& challanRegister();
const Report& challanDetailRegister();
const Report& challansAsked();
const Report& challanDetailsAsked();
const Report& receiptRegister();
const Report& purchaseRegister();
const Report& noteRegister();
const Report& paymentRegister();
const Report& incomeAndExpenseRegister();
const Report& taxAtSourceRegister();
const Report& journalRegister();
const Report& dayBook();
const Report& cashBook();
const Report& bankBook();
const Report& outstandingList();
const Report& booksCheckList();

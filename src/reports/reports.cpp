#include "reports/reports.h"

namespace {

using Piece = const Report& (*)();

// In the order of the menus.
// clang-format off
constexpr Piece kPieces[] = {
    partyList,
    categoryList,
    priceList,
    closingBalanceList,
    groupedBalanceList,
    gstr1Registered,
    gstr1Unregistered,
    saleBillRegister,
    saleBillDetailRegister,
    quotationRegister,
    quotationDetailRegister,
    quotationsAsked,
    quotationDetailsAsked,
    challanRegister,
    challanDetailRegister,
    challansAsked,
    challanDetailsAsked,
    receiptRegister,
    purchaseRegister,
    noteRegister,
    paymentRegister,
    incomeAndExpenseRegister,
    taxAtSourceRegister,
    journalRegister,
    dayBook,
    cashBook,
    bankBook,
    outstandingList,
    booksCheckList,
};
// clang-format on

}  // namespace

const Report* reportByKey(std::string_view key) {
  for (const Piece piece : kPieces)
    if (piece().key == key) return &piece();
  return nullptr;
}

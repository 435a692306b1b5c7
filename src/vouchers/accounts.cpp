#include "vouchers/accounts.h"

#include "base/number.h"
#include "base/text.h"
#include "base/words.h"
#include "frame/routines.h"
#include "masters/accounts.h"
#include "store/balances.h"

namespace {

std::optional<double> filled(const Row& row, const char* column) {
  if (trim(row.text(column)).empty()) return std::nullopt;
  return row.number(column);
}

}  // namespace

std::string fullCode(Database& db, const std::string& typed) {
  constexpr size_t kMostDigits = 5;
  const bool isShort = !typed.empty() && typed.size() <= kMostDigits &&
                       typed.find_first_not_of("0123456789") == std::string::npos;
  if (!isShort || findAccount(db, typed)) return typed;
  const std::string full = accountCode(Val(typed));
  return findAccount(db, full) ? full : typed;
}

std::optional<AccountFacts> readAccount(Database& db, const std::string& code) {
  const auto row = findAccount(db, code);
  if (!row) return std::nullopt;
  return AccountFacts{.name = row->text("ACC_NAME"),
                      .stateCode = filled(*row, "STATECD"),
                      .balance = ledgerBalance(db, code),
                      .gstin = row->text("GSTINNO"),
                      .registration = row->text("GSTREGTYP"),
                      .phone = row->text("PHONE1"),
                      .address1 = row->text("ADD1"),
                      .address2 = row->text("ADD2"),
                      .area = row->text("AREA"),
                      .person = row->text("PERSON_NM"),
                      .creditDays = filled(*row, "CREDIT_DAY")};
}

std::string partyLines(const AccountFacts& p) {
  const std::string state = p.stateCode ? numText(*p.stateCode) : "";
  return words("{address}\nBal : {balance}\nStatecd : {state} Gstin No. {gstin}\n{phone}", "address",
               p.address1 + " " + p.address2 + " " + p.area, "balance", numText(p.balance), "state", state,
               "gstin", p.gstin, "phone", p.phone);
}

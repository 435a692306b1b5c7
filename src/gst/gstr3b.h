#pragma once

#include <array>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "gst/gstr1.h"
#include "gst/set_off.h"

// GSTR-3B of a month or quarter: what is owed and what may be taken as credit. What we sold comes from
// GSTR-1, what we bought from purchases and purchase returns of the same period. What has changed in returns
// that are filed counts by its difference.

// A cell of the return and the documents that it is made of.
enum class Gstr3bRow {
  Taxed,           // 3.1(a), without what is zero-rated, untaxed or under reverse charge
  ZeroRated,       // 3.1(b)
  NilExempt,       // 3.1(c)
  Reverse,         // 3.1(d), purchases of which we owe the tax
  NonGst,          // 3.1(e)
  ImportGoods,     // 4(A)(1)
  ImportServices,  // 4(A)(2)
  ReverseCredit,   // 4(A)(3)
  OtherCredit,     // 4(A)(5), what bears our tax among all other purchases, also what is no credit
  Ineligible,      // 4(B)(1), what of 4(A) is none
  Untaxed,         // 5, purchases that bear no tax or come from composition dealers
  UntaxedNonGst,   // 5
  kCount
};

struct PlaceSum {
  int place = 0;
  TaxAmounts sums;
};

struct Gstr3b {
  ReturnPeriod period;
  std::shared_ptr<const TaxShop> shop;
  std::array<TaxAmounts, static_cast<size_t>(Gstr3bRow::kCount)> rows;
  Paise untaxedInter = 0, untaxedIntra = 0, nonGstInter = 0, nonGstIntra = 0;  // the two of 5 by place
  std::vector<PlaceSum> unregistered, composition, uin;                        // 3.2

  const TaxAmounts& operator[](Gstr3bRow row) const { return rows[static_cast<size_t>(row)]; }
  TaxAmounts netCredit() const;  // 4(C), taxes alone
  // What is owed beside what is owed under reverse charge, which only cash pays.
  TaxAmounts owed() const;
};

// In which cells a document counts; of one of ours under reverse charge there is none.
std::vector<Gstr3bRow> rowsOf(const TaxDocument& document);

Gstr3b readGstr3b(Database& db, const Gstr1& gstr1);
// What a document adds to a cell, as its sign has it.
TaxAmounts amountIn(const TaxDocument& document, Gstr3bRow row);
// The vouchers behind a cell; amendments, which count there by their difference, are those of GSTR-1.
std::vector<TaxDocument> documentsBehind(Database& db, const Gstr1& gstr1, Gstr3bRow row);

// The journal that pays a return: what is owed in the accounts of our taxes, against credit in those of
// theirs and cash from the bank. Cess has no account and is left out.
struct PayingLine {
  std::string account;
  Paise debit = 0, credit = 0;
};
std::vector<PayingLine> payingEntry(const SetOff& paid, const std::string& bank);
// GSTR3B_<GSTIN>_<MMYYYY>.json; failures are std::system_error.
std::filesystem::path writeGstr3b(const Gstr3b& gstr3b, const std::filesystem::path& folder);

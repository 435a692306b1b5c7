#pragma once

#include <optional>
#include <string>

#include "base/date.h"
#include "base/words.h"
#include "frame/number_series.h"
#include "frame/voucher_kinds.h"
#include "store/database.h"

// Numbers of vouchers and bills. There are no counters: a number follows the voucher with the
// highest number that is stored, so the number of a deleted last voucher is used again.

// Voucher numbers are whole, from 1.
bool isVoucherNumber(double number);
inline constexpr const char* kNoVoucherNumber = english("A Voucher Number Is A Whole Number From 1");
// What is told when another program took the number of a voucher that was being typed.
std::string takenWords(const std::string& what, const std::string& taken, const std::string& next);

struct LastVoucher {
  double number = 0;
  std::optional<Date> date;  // none in an empty book
};
LastVoucher lastVoucher(Database& db, const VoucherKind& kind);
bool isStored(Database& db, const VoucherKind& kind, double voucher);

// Number on the paper of the voucher with the highest number, in a series where the kind has several;
// none in an empty one.
std::optional<std::string> lastPaperNumber(Database& db, const VoucherKind& kind,
                                           const std::string& series = "");

// The documented rule is for kinds and types without a series of their own (frame/number_series): in one the
// next number is the highest that stands in any type of the kind, and 1 more, so that none comes twice.
std::string nextInSeries(Database& db, const VoucherKind& kind, const NumberSeries& series);
// The number after one that is taken; none without a series.
std::optional<std::string> afterInSeries(Database& db, const VoucherKind& kind, const std::string& type,
                                         const std::string& number);
// What of a number against the law is told where the kind keeps a series; empty for all others.
std::string numberWarning(Database& db, const VoucherKind& kind, const std::string& type,
                          const std::string& number);

// Each bill type is a series of its own; it goes on from the bill with the highest voucher
// number, whatever its bill number. A series with a prefix is not followed: "A12" counts as 0.
std::string nextBillNumber(Database& db, const VoucherKind& kind, const std::string& billType);

// The number after a stored one. Below 10000 only the first four characters count. Padding is
// that of the series as it has always run: 0009, 0010, 00100, 1000.
std::string billNumberAfter(const std::string& stored);

struct BillReference {
  std::string party, type, number;
  double voucher = 0;
};
// Another bill of the type has the number, or of any type where the number has the prefix or suffix of a
// series; one of the same party where the book does not number its bills.
bool isDuplicateBill(Database& db, const VoucherKind& kind, const BillReference& bill);

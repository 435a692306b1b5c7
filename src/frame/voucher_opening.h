#pragma once

#include <string>

#include "platform/host.h"

// The voucher behind a row, opened in its screen as the shell's menu opens it. Books are those of
// the ledger, and "QT" for quotations.

struct VoucherKey {
  std::string book;
  double number = 0;
  bool operator==(const VoucherKey&) const = default;
};

bool canOpen(const VoucherKey& voucher);
// The hint on its row: which key opens what. Only of one that can be opened.
std::string openingHint(const VoucherKey& voucher);
// False when no screen is known for the book.
bool openVoucher(Host& host, const Screen& caller, const VoucherKey& voucher);

#pragma once

#include <string>
#include <vector>

#include "frame/session.h"
#include "vouchers/challans.h"
#include "vouchers/voucher_screen.h"

// Goods sent out to a party under a delivery challan.
class FRMCHLN : public VoucherScreen {
 public:
  explicit FRMCHLN(Host& host, const VoucherKind& kind = challanKind());

 protected:
  void startNew() override;
  bool load(double number) override;
  void remove(double number) override { deleteChallan(data(), kind_, number); }
  void clearHead() override;
  void clearLine() override;
  void showLine(const Row& line) override;
  Fields lineFields() override;
  void sumLines() override;
  Control& itemField() override { return text1(5); }
  Control& afterLines() override { return text1(29); }
  std::string tutorial() const override;
  SavedMessage closingMessage() const override;

 private:
  static const ScreenSpec& table();
  static std::vector<KeyLookup> lookups(const VoucherKind& kind);

  // Enter, by field.
  Go voucherNumber();
  Go voucherDate() { return date(0) ? Go::On : Go::Stay; }
  Go party();
  Go challanType();
  Go challanNumber();
  Go item();
  void nameLeft() { keepFreeName(6, 10); }
  Go unit();
  void quantity();
  void rate();
  Go amount();
  void discountPercent();
  void showTotal();
  Go destination() { return toSave(); }
  void save();

  void showParty(const AccountFacts& party);
  void rateHints();
  ChallanHeader header() const;
  void showHeader(const Row& challan);
};

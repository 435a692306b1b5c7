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
  void clearHead() override;
  Fields lineFields() override;
  void sumLines() override;
  void sumAgain() override;
  std::vector<FieldName> lineInputs() const override { return {fields::kQuantity, fields::kRate}; }
  bool figureLine() override;
  bool write(const SaveStamp& stamp, const Saving& how) override;
  FieldName paperNumber() const override { return fields::kChallanNumber; }
  bool paperNumberTaken() const override;
  Go checkPaperNumber() override;
  void renumber() override;
  std::string paperNumberAfter(const std::string& number) const override;
  std::string tutorial() const override;
  SavedMessage closingMessage() const override;
  bool partyTaken() override { return party() == Go::On; }
  bool putSourceLine(const SourceLine& line) override;

 private:
  static const ScreenSpec& table();
  static std::vector<KeyLookup> lookups(const VoucherKind& kind);

  // Enter, by field.
  Go voucherNumber();
  Go voucherDate() { return dateStands(); }
  Go party();
  Go challanType();
  Go item();
  Go unit();
  Go quantity();
  void rate();
  void discountPercent();
  void showTotal();
  Go destination() { return toSave(); }

  void showParty(const AccountFacts& party);
  void rateHints();
};

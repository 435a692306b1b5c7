#pragma once

#include <string>
#include <vector>

#include "frame/session.h"
#include "vouchers/quotation_lines.h"
#include "vouchers/quotations.h"
#include "vouchers/voucher_screen.h"

// What is offered on: the narrations of the company-year help with these.
inline constexpr FieldName kTerms[] = {
    fields::kValidity,      fields::kRateTerms,    fields::kPaymentTerms,      fields::kTaxTerms,
    fields::kDeliveryTerms, fields::kPackingTerms, fields::kInstallationTerms, fields::kSubjectTo};

// Offers to a party: of the kind that the entry type names.
class FRMQUOT : public VoucherScreen {
 public:
  FRMQUOT(Host& host, const Opening& opening);
  void opened(const Opening& opening) override;

 protected:
  void startNew() override;
  bool load(double number) override;
  void clearHead() override;
  Fields lineFields() override;
  void sumLines() override;
  void sumAgain() override;
  std::vector<FieldName> lineInputs() const override;
  bool figureLine() override;
  bool write(const SaveStamp& stamp, const Saving& how) override;
  FieldName paperNumber() const override { return fields::kReference; }
  bool paperNumberTaken() const override;
  Go checkPaperNumber() override;
  void renumber() override;
  std::string paperNumberAfter(const std::string& number) const override;
  bool needsUnit() const override { return false; }
  FieldName afterLines() const override { return fields::kValidity; }
  std::string tutorial() const override;
  SavedMessage closingMessage() const override;
  std::string hintFor(const Control& control) const override;

 private:
  static const ScreenSpec& table();
  static std::vector<KeyLookup> lookups(const VoucherKind& kind, bool narrations);

  // Enter, by field.
  Go voucherNumber();
  Go voucherDate() { return dateStands(); }
  Go party();
  Go item();
  Go itemName();
  Go unit();
  Go quantity();
  void figure();
  Go discount();
  Go lastTax();
  Go lastTerm() { return toSave(); }

  std::optional<AccountFacts> acceptParty();
  void fillRates(const std::optional<double>& rateOfTax);
  void fillRate(double rate);
  void fillFromUnit();
  void valueLine();
  void earlierSalesKey();

  std::string party_;  // the one accepted last
};

#pragma once

#include <string>
#include <vector>

#include "frame/period_test.h"
#include "frame/session.h"
#include "vouchers/calculation.h"
#include "vouchers/charges.h"
#include "vouchers/saving.h"
#include "vouchers/supply.h"
#include "vouchers/voucher_screen.h"

// The bill of one book: a sale, or a purchase when that is the entry type. GSTNOTE makes of it what is
// written against a bill.
class GSTSAPU : public VoucherScreen {
 public:
  GSTSAPU(Host& host, const Opening& opening) : GSTSAPU(host, billKind(opening.entryType)) {}

 protected:
  void startNew() override;
  bool load(double number) override;
  void clearHead() override;
  void clearLine() override;
  void showLine(const Row& line) override;
  Fields lineFields() override;
  void sumLines() override;
  void sumAgain() override;
  std::vector<FieldName> lineInputs() const override;
  bool figureLine() override;
  bool needsParty() const override { return true; }
  bool write(const SaveStamp& stamp, const Saving& how) override;
  FieldName paperNumber() const override { return fields::kBillNumber; }
  bool paperNumberTaken() const override;
  Go checkPaperNumber() override;
  void renumber() override;
  std::string paperNumberAfter(const std::string& number) const override;
  FieldName afterLines() const override;
  std::string tutorial() const override { return links().*kind_.video; }
  SavedMessage closingMessage() const override;
  bool mayBeSaved() override;
  bool mayBeDeleted(double number) override;
  bool partyTaken() override { return acceptParty(); }
  bool putSourceLine(const SourceLine& line) override;
  bool bringCharges(const SourceHead& from, bool out) override;
  void sourcesShown() override;
  bool unsaved() const override;
  void takeVoucherAsShown() override;
  // Shows how the bill is marked and what of it can be typed; a line has its taxes by it from then on.
  void mark(const Supply& supply);
  void markAsUsual();
  Supply told() const;  // the marks, with what stands in their fields
  void readCurrency();  // of the lines
  void showPanel(bool on);
  // The field in which the rate of a line is typed.
  FieldName rateField() const { return inCurrency() ? fields::kCurrencyItemRate : fields::kRate; }

  // With another table, columns of the lines and, beside the bill's own, lookups.
  GSTSAPU(Host& host, const VoucherKind& kind, const ScreenSpec& spec, std::vector<WorkLines::Shown> shown,
          std::vector<KeyLookup> more);
  static ScreenSpec tableOf(const VoucherKind& kind);
  virtual Go quantity();
  virtual Go rate();
  virtual bool acceptParty();
  bool acceptShipTo();

  // Discount and charges of the whole: whether some stand, and the share of each line of the work table.
  virtual bool hasCharges() const { return typedCharges().any(); }
  virtual std::vector<double> sharesOf(const std::vector<Row>& lines);
  Charges typedCharges() const;
  void putCharges(const Charges& charges);
  void showCharges(bool on);

 private:
  GSTSAPU(Host& host, const VoucherKind& kind);
  static const ScreenSpec& table(const VoucherKind& kind);
  static std::vector<KeyLookup> lookups(const VoucherKind& kind);

  // Enter, by field.
  Go voucherNumber();
  Go voucherDate();
  Go party();
  Go shipTo();
  void shipToTyped();
  Go billType();
  void warnOfNumber();
  void fillPartyDate();
  Go item();
  Go itemName();
  Go unit();
  Go discount();
  Go taxRate();
  Go taxAmount();
  Go transport();
  Go transportId();
  Go destination();
  Go parcels() { return toSave(); }

  bool fillRates(const std::optional<double>& rateOfTax);  // false where the item has none
  bool fillFromUnit();
  void valueLine();
  void showAssess();
  void showNet();
  Taxes typedTaxes() const;
  Taxes billedTaxes() const;
  double taxable() const;
  void readComposition();
  void reverseKey();
  void ineligibleKey();
  // The panel of the kind of supply, the place of supply and the currency.
  void supplyKey();
  void wireSupply();
  static std::vector<ControlSpec> supplyPanel(const VoucherKind& kind);
  void supplyTyped();
  Go supplyKindStands();
  Go placeOfSupply();
  Go currency();
  Go currencyRate();
  Go customs();
  void proposeSupply(const AccountFacts& party);
  void layOutPanel();
  void showMarks();
  void showPlace();
  void showCustoms();
  void takeKind(Supply& supply);
  bool supplyStands();
  std::string currencyTyped() const;
  bool inCurrency() const { return !currencyTyped().empty() && value(fields::kCurrencyRate) > 0; }
  Go currencyItemRate();
  void takeCurrencyRate();     // the line's rate in rupees
  void proposeCurrencyRate();  // the other way round, where none is typed
  double currencyTotal() const;
  void refigureLines();
  void refigureLine();
  struct Terms {
    double state = 0, currencyRate = 0;
    bool zeroRated = false;
    bool operator==(const Terms&) const = default;
  };
  Terms terms() const;
  Fields head() const;

  static std::vector<ControlSpec> chargesPanel();
  void wireCharges();
  void chargesKey();
  bool chargesShown() const;
  std::string refusalOfCharge(FieldName field) const;
  Go charge();
  void takeCharges();
  bool chargesStand();  // says so of what cannot be saved
  void shareCharges();

  void unlock() { here().locked = false; }
  void lock() { here().locked = true; }

  // The rate grid.
  void rateHints();
  void earlierSalesKey();
  void partyRatesKey();
  void purchaseRatesKey();
  RateQuery rateQuery() const;

  LineValue line_;
  std::string warned_;  // the number that was told of last
  PeriodTest period_;
  Supply supply_, shownSupply_;
  bool panel_ = false;
  std::string proposedTo_;    // the party whose kind of supply was proposed last
  Terms figured_;             // that the lines are worked out by
  bool composition_ = false;  // the shop collects no tax
  Charges charges_;           // as they were taken last
  bool shared_ = false;       // the lines have shares of them
};

#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "vouchers/gstsapu.h"
#include "vouchers/originals.h"

// A note against bills: credit or debit note to a customer, purchase return. A bill's number brings party and
// lines as they were billed, each with a quantity of 0, and what goes back of a line is typed there; where an
// allowance is made on the rate, the rate is what is allowed for one. Lines of the note's own follow as in a
// bill, and a note without a bill has no others.
class GSTNOTE : public GSTSAPU {
 public:
  GSTNOTE(Host& host, const Opening& opening) : GSTNOTE(host, noteKind(opening.entryType)) {}

 protected:
  void startNew() override;
  bool load(double number) override;
  void clearHead() override;
  void clearLine() override;
  void showLine(const Row& line) override;
  FieldName lineStart() const override;
  bool needsQuantity() const override { return !linked_; }
  bool quantityStands() override;
  Go quantity() override;
  Go rate() override;
  bool acceptParty() override;
  bool hasCharges() const override;
  std::vector<double> sharesOf(const std::vector<Row>& lines) override;
  bool mayBeSaved() override;
  bool write(const SaveStamp& stamp, const Saving& how) override;
  SavedMessage closingMessage() const override;

 private:
  GSTNOTE(Host& host, const VoucherKind& kind);
  static const ScreenSpec& table(const VoucherKind& kind);

  // The bills (gstnote_bills.cpp).
  static Lookup billsFor(const VoucherKind& note, const std::string& number, const std::string& party);
  Go originalBill();
  Go noBill();
  Go chooseBill(const std::string& number);
  Go take(const FoundBill& bill);
  Go takeUnknown(const std::string& number, const std::string& question);
  void takeOut();
  Supply supplyOf(const Original& bill) const;
  bool sameCurrency(const Original& bill) const;
  bool mayAdd(const std::string& number);
  bool isTaken(const std::string& number) const;
  void showBills();
  void showAgainst();
  std::string openOf(const Original& bill) const;
  void keepDate();
  bool ofTheseBooks() const;
  std::string differs(
      const FoundBill& bill) const;  // from the note so far, in words; empty where it does not
  bool datesStand();
  std::string doubtOfDay(const Original& bill) const;  // that it goes with the note's; empty without any
  bool mayHaveItsDay();

  Go reason();
  void reasonTyped();
  Go goods();
  void goodsTyped();

  // The lines.
  void lockLine();
  const OriginalLine* original() const;
  bool takesBack() const;  // and so not more than was billed
  bool tooMuch(double serial, const OriginalLine& line, double quantity) const;
  bool askTooMuch(double serial, const OriginalLine& line, double quantity);
  double ownNumber() const;
  void toLine(double serial);
  Go wholeLine();
  void allLines();
  Go rateInstead();

  NoteFacts facts_;
  OriginalLines originals_;
  std::map<double, std::string> billed_;  // the bills as they were taken, by voucher
  std::map<double, double> meant_;        // quantities that were confirmed, by serial
  std::string chosen_;                    // voucher of the bill chosen in a list
  double serial_ = 0;                     // of the line in the entry row
  bool linked_ = false;                   // it is a line of a bill
  bool byRate_ = false;                   // its rate is walked, too
  bool unnamed_ = false;                  // stored without a bill: that is not asked again
};

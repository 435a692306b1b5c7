#pragma once

#include <array>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/date.h"
#include "frame/supply_kinds.h"
#include "frame/voucher_kinds.h"
#include "gst/amounts.h"
#include "gst/shop.h"
#include "store/database.h"

// The vouchers of a period as the tax sees them, one statement for a book and period. The taxable value of a
// line is its amount with its share of charges and discount of the whole bill; taxes are those that it keeps,
// never worked out anew. Challans, offers and money are none.

// Of what bears no tax.
enum class Untaxed { Nil, Exempt, NonGst };

struct AtRate {
  double rate = 0;  // per cent, of all taxes together
  TaxAmounts sums;
};

struct AtItem {
  const TaxItem* item = nullptr;
  std::string unit;  // its code
  double rate = 0, quantity = 0;
  TaxAmounts sums;
};

// A bill that a note stands against.
struct OriginalBill {
  std::string number;
  std::optional<Date> date;
  Paise value = 0;  // 0: not in these books
};

struct TaxDocument {
  const VoucherKind* kind = nullptr;
  double voucher = 0;
  std::string number;  // on paper
  Date date{};
  Paise value = 0;  // of the whole paper
  const TaxParty* party = nullptr;
  int place = 0;  // of supply, a state; 0: not known
  SupplyKind supply = SupplyKind::Ordinary;
  bool inter = false;  // the law wants IGST
  bool reverse = false, ineligible = false;
  bool goodsMove = true;  // of a note
  std::string port, shippingBill;
  std::optional<Date> shippingDate;
  std::vector<OriginalBill> originals;
  std::vector<AtRate> rates;       // those above 0, of what is zero-rated all
  std::array<Paise, 3> untaxed{};  // by Untaxed

  bool exported() const { return isExport(supply); }
  bool sez() const { return isSez(supply); }
  bool zeroRated() const { return exported() || sez(); }
  // Exports and SEZ that bear no tax for a bond or letter of undertaking.
  bool underBond() const { return isZeroRated(supply); }
  bool registered() const { return party->registered() && !exported(); }
  bool isNote() const { return kind->isNote(); }
  // -1 takes off what we sold or bought, 1 adds to it.
  int sign() const;
  TaxAmounts taxed() const;
  Paise untaxedValue() const { return untaxed[0] + untaxed[1] + untaxed[2]; }
};

// Whether what the kind bills is ours.
bool isOutward(const VoucherKind& kind);
// The kinds of which returns consist: bills and notes, ours or those of suppliers.
std::vector<const VoucherKind*> taxedKinds(bool outward);

// The documents of a book in the order of their dates and numbers. Raises DatabaseError.
class TaxDocuments {
 public:
  TaxDocuments(Database& db, std::shared_ptr<const TaxShop> shop, const VoucherKind& kind, Date from,
               Date to);
  bool next();
  TaxDocument& document() { return document_; }
  // Its lines put together by item, unit and rate.
  const std::vector<AtItem>& items() const { return items_; }

 private:
  struct Marks {
    bool reverse = false, ineligible = false;
    SupplyKind supply = SupplyKind::Ordinary;
    int place = 0;
    std::string port, shippingBill;
    std::optional<Date> shippingDate;
  };
  struct Against {
    std::vector<OriginalBill> bills;
    std::optional<Marks> marks;  // of the first
    bool goods = false;
  };

  std::map<double, Marks> readMarks(const std::string& book);
  void readOriginals(Date from, Date to);
  void begin();
  void take();
  void put(AtItem line);

  Database& db_;
  std::shared_ptr<const TaxShop> shop_;
  const VoucherKind& kind_;
  std::map<double, Marks> marks_;
  std::map<double, Against> against_;
  Rows lines_;
  bool more_;
  TaxDocument document_;
  std::vector<AtItem> items_;
};

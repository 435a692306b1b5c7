#pragma once

#include <compare>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "base/date.h"
#include "frame/voucher_kinds.h"
#include "store/database.h"

// The statements of outward supplies for the GSTR-1 return, from saved vouchers of the kinds that count
// in it, each with its kind's sign, that are marked as posted to GST. A dealer is registered when its GSTIN
// is longer than one character; one whose GSTIN was never filled (null) is in neither statement.
//
// A row stands for a bill at one combination of rates: a bill with lines at 5% and 12% has two rows.
// Bills that agree in number, date, party and amounts are one. Rows come by date and bill number,
// then by GSTIN and rates.

inline constexpr std::string_view kGstr1Rd = "GSTR1-RD", kGstr1Urd = "GSTR1-URD";

enum class Dealers { Registered, Unregistered };

struct GstQuery {
  Dealers dealers = Dealers::Registered;
  Date from{}, to{};
  std::string party = {};  // empty: all
};

struct GstParty {
  std::string code, name, gstin, city;
  std::string state;  // "07-DELHI": two digits of the state code and the city; empty when one is null
  std::optional<double> stateCode;
};

// A bill without lines has no rates and no sums.
struct GstRates {
  std::optional<double> igst, cgst, sgst;
  auto operator<=>(const GstRates&) const = default;
};
struct GstSums {
  std::optional<double> taxable, igst, cgst, sgst, net;
};

struct GstRow {
  std::string bill, date;  // yyyy-MM-dd
  const GstParty* party = nullptr;
  GstRates rates;
  GstSums sums;
  const VoucherKind* kind = nullptr;
  double voucher = 0;  // VOUCH_NO of the bill, of several the first
  std::optional<double> roundOff, amount;
  std::string place = {};  // as the party's state, where the place of supply is another
};

// The rows one after the other, as the bills are read in their order: the first one costs no more
// than the bills of its date. Raises DatabaseError.
class GstStatement {
 public:
  GstStatement(Database& db, const GstQuery& query);
  bool next();
  const GstRow& row() const { return rows_[at_]; }

 private:
  void readBills();
  void group();
  const GstParty* party(std::int64_t rowid);

  Database& db_;
  Rows lines_;
  bool more_;                 // lines_ stands on a line not yet taken
  std::vector<GstRow> rows_;  // of one date and bill number
  size_t at_ = 0;
  std::unordered_map<std::int64_t, GstParty> parties_;
  std::map<std::pair<std::string, double>, std::string> places_;  // by book and voucher
};

// The month rule of the date boxes: the To date that goes with a From date, "01/07/2026" ->
// "31/07/2026". February ends on the 28th in leap years too.
std::string monthEnd(std::string_view from);
// That rule for the reports of returns that are filed by month, null for all others.
using ToDateRule = std::string (*)(std::string_view from);
ToDateRule toDateRule(std::string_view reportKey);

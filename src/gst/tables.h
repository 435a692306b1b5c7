#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/date.h"

// Limits, rates, codes and versions of the tax, each with the day from which it holds. Those that the program
// was built with are corrected row by row by gst_tables.csv in the program folder, so that a shop needs no
// new program when the law moves:
//
//   name,key,from,value
//   b2cl_limit,,2027-04-01,200000
//   uqc,KATTA,2017-07-01,BAG
//
// A name and key may have several rows; the latest that does not lie after the day asked for holds.

inline constexpr const char* kGstTablesFile = "gst_tables.csv";

// A sale to another state's unregistered buyer is listed by itself above it.
inline constexpr std::string_view kB2clLimit = "b2cl_limit";
inline constexpr std::string_view kTaxRate = "rate";  // by rate: 1 is taken by the portal, 0 not
inline constexpr std::string_view kGstr1Version = "gstr1_version";  // what the file says made it
inline constexpr std::string_view kSplitBytes = "split_bytes";      // of a file at most
inline constexpr std::string_view kHsnDigits = "hsn_digits";        // at least, by turnover
inline constexpr std::string_view kHsnHalves = "hsn_halves";        // 1: registered buyers apart
inline constexpr std::string_view kInterStateTable = "table_3_2";   // 1: the file of GSTR-3B has it
inline constexpr std::string_view kTurnover = "turnover";           // of the shop in the year before
inline constexpr std::string_view kZeroRate = "zero_rate";          // by start of HSN: nil, exempt, nongst
inline constexpr std::string_view kUnitCode = "uqc";                // by the shop's own unit
inline constexpr std::string_view kNoPlace = "no_place";            // by state: 1 is no place of supply
inline constexpr std::string_view kEinvoiceLimit = "einvoice_limit", kEinvoiceDays = "einvoice_days",
                                  kEwayLimit = "eway_limit";

class GstTables {
 public:
  // Those of the program alone.
  GstTables();
  // Corrected by the file of the folder, where there is one.
  explicit GstTables(const std::filesystem::path& folder);

  // Empty where nothing holds on the day.
  std::string text(std::string_view name, std::string_view key, Date on) const;
  double number(std::string_view name, std::string_view key, Date on) const;
  // Of the highest key, a number, that is not above `at`.
  double step(std::string_view name, double at, Date on) const;
  // Of the longest key with which the text begins; empty where none does.
  std::string byStart(std::string_view name, std::string_view text, Date on) const;
  bool isTaken(double rate, Date on) const;

  // What of the file cannot be taken, each with file, line and why; the program's own rows count there.
  const std::vector<std::string>& faults() const { return faults_; }

 private:
  using Rows = std::map<std::string, std::map<Date, std::string>>;  // by key and day
  void read(const std::string& text);
  std::string take(const std::string& line);
  const Rows* rowsOf(std::string_view name) const;

  std::map<std::string, Rows, std::less<>> tables_;
  std::vector<std::string> faults_;
};

#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "gst/gstr1.h"

// Returns that a person has marked as filed, and what of each document was filed (FILED, FILEDDOC, FILEDSUM).
// A document that is changed later is found by comparing; what was filed of it stays, so that the portal is
// told which row the amendment is of. The books of one tax year know their own returns alone.

struct FiledReturn {
  ReturnPeriod period;
  Date day{};  // on which it was filed
};

// Of bills that are listed by themselves; empty for others, which count in sums alone.
bool isListed(Gstr1Section section);
// Tells whether two states of a document are filed alike.
std::string sealOf(const PlacedDocument& placed);

// In the order of their months.
std::vector<FiledReturn> filedReturns(Database& db);
// The return in which the voucher was filed last; none when it stands in none.
std::optional<FiledReturn> filedIn(Database& db, const VoucherKind& kind, double voucher);

// In place of what was marked for the same period; at once or not at all. Raises DatabaseError.
void markFiled(Database& db, const Gstr1& gstr1, Date day);
// Refuses, with the reason in words, where a later one is marked.
std::string unmarkFiled(Database& db, const ReturnPeriod& period);

// What of a return that is marked as filed is otherwise in the books now, changed or gone, as it was filed;
// what came since has no seal.
std::vector<FiledDocument> changedSince(Database& db, const Gstr1& gstr1);

// All that was filed before a month, by book and voucher: the latest state of each.
class FiledBefore {
 public:
  FiledBefore(Database& db, const ReturnPeriod& period);
  const std::vector<FiledReturn>& returns() const { return returns_; }
  const FiledDocument* find(const std::string& book, double voucher) const;
  const std::map<std::pair<std::string, double>, FiledDocument>& documents() const { return documents_; }
  // What b2cs was filed for the months of a return, with what later ones have amended.
  std::map<std::pair<int, double>, TaxAmounts> sumsOf(const ReturnPeriod& period) const;

 private:
  std::vector<FiledReturn> returns_;
  std::map<std::pair<std::string, double>, FiledDocument> documents_;
  std::map<double, std::map<std::pair<int, double>, TaxAmounts>> sums_;
};

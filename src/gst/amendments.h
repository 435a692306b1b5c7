#pragma once

#include <map>
#include <optional>
#include <set>
#include <utility>
#include <vector>

#include "gst/filed.h"

// Finds what has changed since earlier returns were filed, as the documents of the year pass by.
class Amending {
 public:
  Amending(Database& db, const ReturnPeriod& period);

  // From which day on documents must pass; none where nothing was filed before.
  std::optional<Date> since() const;
  // A document of the period itself or, where `earlier`, of the time before it. What is given back stands in
  // the return as its own.
  std::optional<PlacedDocument> pass(PlacedDocument placed, bool earlier);
  // The rest, once all have passed.
  void end(Gstr1& gstr1);

 private:
  using Sums = std::map<std::pair<int, double>, B2csRow>;
  const FiledReturn* returnOf(Date day, bool whole) const;
  bool isWithin(const ReturnPeriod& filed) const;

  ReturnPeriod period_;
  FiledBefore before_;
  std::vector<Amendment> amended_;
  std::vector<FiledDocument> gone_;
  std::set<std::pair<std::string, double>> met_;
  std::map<const FiledReturn*, Sums> sums_;
};

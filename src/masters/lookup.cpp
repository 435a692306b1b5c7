#include "masters/lookup.h"

#include <algorithm>

#include "frame/session.h"
#include "masters/lookup_statement.h"

std::string lookUpValue(Host& host, const LookupSpec& spec) {
  Session& s = session();
  s.mhlpmode = spec.mode;
  s.mhlptable = spec.table;
  s.mhlpfld1 = spec.first;
  s.mhlpfld2 = spec.second;
  s.mhlpflds = spec.more;
  s.mhlpvalues = spec.values;
  if (!ownVoucherFilter(spec.mode).empty()) {
    s.mhlpvalues.emplace_back(spec.voucher);
    s.mhlpvalues.emplace_back(spec.book);
  }
  s.mhlpwidth.fill(0);
  std::copy_n(spec.widths.begin(), std::min(spec.widths.size(), s.mhlpwidth.size()), s.mhlpwidth.begin());
  s.mhlpclosed = false;

  const std::string hint = host.hint();
  const auto chosen = host.openModal("FRMHLP", {.caller = "", .value = spec.secondOnly ? "second" : ""});
  host.hint(hint);
  return chosen.value_or("");
}

Go lookUp(Host& host, Screen& caller, Control& field, const LookupSpec& spec) {
  const std::string value = lookUpValue(host, spec);
  if (value.empty()) return Go::Stay;
  Screen::set(field, value);
  caller.enterAgain(field);
  return Go::Stay;
}

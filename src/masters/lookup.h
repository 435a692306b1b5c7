#pragma once

#include <string>
#include <vector>

#include "platform/host.h"
#include "store/database.h"

// One lookup: mode key, columns and source as FRMHLP takes them through the session.
struct LookupSpec {
  std::string mode = {};           // mhlpmode
  std::string table = {};          // mhlptable: what follows "from", with "?" for values
  std::string first = {};          // mhlpfld1: the column that is chosen
  std::string second = {};         // mhlpfld2
  std::string more = {};           // mhlpflds
  std::vector<int> widths = {};    // twips; a column without one takes what its content asks for
  std::vector<Value> values = {};  // bound to the table text in order
  bool secondOnly = false;         // the first column's search field is hidden
  // The voucher in hand, which the bill-wise modes do not offer to itself.
  double voucher = 0;
  std::string book = {};
};

// Opens FRMHLP as the values tell it. The chosen first column replaces the field's text as
// it is, and the field's Enter logic runs once after the handler; after Escape or an empty
// choice nothing happens. Always returns Go::Stay, so that a handler ends with it.
Go lookUp(Host& host, Screen& caller, Control& field, const LookupSpec& spec);

// The chosen value alone, empty after Escape.
std::string lookUpValue(Host& host, const LookupSpec& spec);

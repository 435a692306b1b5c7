#pragma once

#include <string>
#include <vector>

#include "platform/host.h"
#include "store/database.h"

// One lookup: mode key, columns and source as FRMHLP takes them through the session.
struct LookupSpec {
  std::string mode;                 // mhlpmode
  std::string table;                // mhlptable: what follows "from", with "?" where a value stands
  std::string first, second, more;  // mhlpfld1, mhlpfld2, mhlpflds
  std::vector<int> widths = {};     // twips
  std::vector<Value> values = {};   // bound to the table text in order
};

// Opens FRMHLP on the specification. The chosen first column replaces the field's text as
// it is, and the field's Enter logic runs once after the handler; after Escape or an empty
// choice nothing happens. Always returns Go::Stay, so that a handler ends with it.
Go lookUp(Host& host, Screen& caller, Control& field, const LookupSpec& spec);

// The chosen value alone, empty after Escape.
std::string lookUpValue(Host& host, const LookupSpec& spec);

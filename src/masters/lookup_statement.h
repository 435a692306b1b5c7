#pragma once

#include <string>
#include <string_view>

// The statement behind a lookup: the mode key says which of its columns are taken and from
// which database.

enum class LookupShape {
  OneColumn,  // distinct values of one column
  TwoColumns,
  ManyColumns,
  CatalogueOne,  // the same three from the catalogue
  CatalogueTwo,
  CatalogueMany,
  Users,  // the users of the catalogue, whatever the mode
  None,   // a key that no shape knows
};

// Keys are told apart by their exact letters.
LookupShape lookupShape(std::string_view mode, std::string_view entryType);
bool isOnCatalogue(LookupShape shape);

struct LookupText {
  std::string mode;                 // mhlpmode
  std::string table;                // mhlptable
  std::string first, second, more;  // mhlpfld1, mhlpfld2, mhlpflds
};

// Empty for LookupShape::None and for an empty table text.
std::string lookupStatement(LookupShape shape, const LookupText& lookup);

// Bill-wise modes do not offer the voucher in hand to itself: the filter that holds before
// anything is typed, with the voucher's number and book to bind. Empty in other modes.
std::string ownVoucherFilter(std::string_view mode);
// Whether what is typed searches inside that filter or takes its place.
bool searchesInsideFilter(std::string_view mode);

// These stand at the lower edge, so that the lines of a voucher stay in view.
bool standsBelow(std::string_view mode);

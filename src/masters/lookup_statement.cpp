#include "masters/lookup_statement.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <vector>

#include "base/text.h"

namespace {

struct Keys {
  LookupShape shape;
  std::vector<std::string_view> modes;
};

// clang-format off
const std::vector<Keys>& table() {
  static const std::vector<Keys> rows{
      {LookupShape::OneColumn,     {"acmstrarea", "acmstrcity", "ONEFLD", "onefld", "rcpynrtn", "compnm_hlp",
                                    "SL_TRNS", "bltype", "SL_ITMCD1"}},
      {LookupShape::TwoColumns,    {"twofld", "TWOFLD", "BWRCPY", "BWRCPYNEW"}},
      {LookupShape::ManyColumns,   {"ITMHSN", "SL_ITMCD", "pur_ITMCD", "THREEFLD", "threefld", "brc", "frmlist",
                                    "pendordhlp", "pendordhlpgst", "pendordhlpgstpono", "pendordhlpsl",
                                    "pendordhlppu", "pendordhlpex", "SLCPR1", "SLCPR2", "SLCPR3", "pend_job",
                                    "pend_stk", "rtl_sz_hlp", "prodgrmnt", "POPURCHPEND", "OBILLS", "pulinkitm",
                                    "pulinkitmmulti", "pulinkitmsj", "PENDCHLNSL", "PENDCHLNPU", "PENDPOURSL",
                                    "LRPENDSL", "LRPENDSLGST", "LRPENDPROD", "PENDORDRHLP", "STKTRFRITMHLP",
                                    "BRCDHLP", "BRCDHLPRPT", "PRVORDHLP", "pendstkin", "pendcutjob",
                                    "PENDINSPCTN", "SHOWVIDEO", "JOBDYECHLNHLP", "ORDERIMPORTHLP",
                                    "BW_VOUCH_VW"}},
      {LookupShape::CatalogueOne,  {"MODUHLP", "userhlp"}},
      {LookupShape::CatalogueMany, {"MULTIFILEADD", "MULTIFILE"}},
      {LookupShape::CatalogueTwo,  {"COMPNMHLP"}},
  };
  return rows;
}
// clang-format on

bool holds(std::string_view text, std::initializer_list<std::string_view> words) {
  return std::ranges::any_of(words,
                             [&](std::string_view w) { return text.find(w) != std::string_view::npos; });
}

}  // namespace

LookupShape lookupShape(std::string_view mode, std::string_view entryType) {
  if (entryType == "USERFORM") return LookupShape::Users;
  for (const Keys& row : table())
    if (std::ranges::find(row.modes, mode) != row.modes.end()) return row.shape;
  return LookupShape::None;
}

bool isOnCatalogue(LookupShape shape) {
  return shape == LookupShape::CatalogueOne || shape == LookupShape::CatalogueTwo ||
         shape == LookupShape::CatalogueMany || shape == LookupShape::Users;
}

std::string lookupStatement(LookupShape shape, const LookupText& lookup) {
  if (shape == LookupShape::Users) return "select USER1.* FROM USER1 ORDER BY USER_NAME";
  if (shape == LookupShape::None || trim(lookup.table).empty()) return {};
  switch (shape) {
    case LookupShape::OneColumn: {
      const std::string text = "select DISTINCT[" + lookup.first + "] from " + lookup.table;
      const bool whole = holds(lookup.table, {"order by", "ORDER BY", "where", "WHERE"});
      return whole ? text : text + " WHERE LEN(" + lookup.first + ")>0";
    }
    case LookupShape::TwoColumns:
    case LookupShape::CatalogueTwo:
      return "select " + lookup.first + ", " + lookup.second + " from " + lookup.table;
    case LookupShape::ManyColumns:
    case LookupShape::CatalogueMany:
      return "select " + lookup.first + "," + lookup.second + "," + lookup.more + " from " + lookup.table +
             " ";
    case LookupShape::CatalogueOne:
      return "select DISTINCT[" + lookup.first + "] from " + lookup.table + " ";
    case LookupShape::Users:
    case LookupShape::None:
      break;
  }
  return {};
}

std::string ownVoucherFilter(std::string_view mode) {
  return mode == "BW_VOUCH_VW" || mode == "BWRCPY" ? "VOUCH_NO <> ? OR BOOK_CD <> ?" : "";
}

bool searchesInsideFilter(std::string_view mode) { return mode == "BW_VOUCH_VW"; }

bool standsBelow(std::string_view mode) {
  return mode == "pendordhlpgst" || mode == "PENDCHLNSL" || mode == "SL_ITMCD";
}

#include "store/keys.h"

#include <string>

#include "store/engine.h"

namespace {

// clang-format off
constexpr TableKey keys[] = {
    {"ACCOUNT",   "ACC_CD"                         },
    {"CHLN",      "VOUCH_NO, BOOK_CD"              },
    {"CHLNITM",   "VOUCH_NO, BOOK_CD, SR_NO"       },
    {"DEPTMENT",  "DEPT_CD"                        },
    {"DISCHTAX",  "CODE"                           },
    {"GRP",       "GROUP_CD"                       },
    {"ITEM",      "ITEM_CD"                        },
    {"ITEMDTL",   "ITEM_CD"                        },
    {"JOURNAL",   "VOUCH_NO, BOOK_CD"              },
    {"JOURNITM",  "VOUCH_NO, BOOK_CD, SR_NO"       },
    {"PRTYRATE",  "RT_DT, ACC_CD, ITEM_CD, SIZE_CD"},
    {"QUOT",      "VOUCH_NO"                       },
    {"QUOTITM",   "VOUCH_NO, SRNO"                 },
    {"SALE",      "VOUCH_NO, BOOK_CD"              },
    {"SALEITM",   "VOUCH_NO, BOOK_CD, SR_NO"       },
    {"SPSFILE",   "VOUCH_NO"                       },
    {"TRANSMAST", "TRANS_ID"                       },
};

struct Index { std::string_view name; std::string_view table; std::string_view columns; std::string_view rows = {}; };
constexpr Index indexes[] = {
    // Account statements read one party's period; the balances read all parties from the index alone.
    {"ALEDGER_PARTY",   "ALEDGER",   "PARTY_CD, VOUCH_DT, VOUCH_TYPE, VOUCH_AMT"},
    // The number first: comparing it costs less than comparing the book.
    {"ALEDGER_VOUCHER", "ALEDGER",   "VOUCH_NO, BOOK_CD, VOUCH_TYPE, VOUCH_AMT" },
    // Voucher lookups show the latest first and look for what is typed in this index alone.
    {"SALE_LOOKUP",     "SALE",      "BOOK_CD, VOUCH_DT, BILL_NO, VOUCH_NO, PARTY_CD, SALE_CD, GSTPOST, NET_AMT, GR_NO, TRANSPORT, CNAME, CMOBNO"},
    {"SALE_DATE",       "SALE",      "VOUCH_DT, VOUCH_NO"                       },
    {"SALE_BOOK",       "SALE",      "BOOK_CD, VOUCH_NO"                        },
    {"SALE_BILL",       "SALE",      "BILL_NO, BL_TYPE"                         },
    {"SALE_PARTY",      "SALE",      "PARTY_CD, VOUCH_DT"                       },
    // Lists of the values in use.
    {"SALE_DESTI",      "SALE",      "DESTI"                                    },
    {"SALE_NARRATION",  "SALE",      "NARRATION"                                },
    {"SALE_GR_NO",      "SALE",      "GR_NO"                                    },
    {"SALEITM_DESC",    "SALEITM",   "ITEM_DESC"                                },
    // Bill numbers go on from the last bill of a type, also where the type is new.
    {"SALE_TYPE",       "SALE",      "BL_TYPE, BOOK_CD, VOUCH_NO"               },
    // What a deletion asks for, transporters first; the others are looked through in it.
    {"SALE_NAMED",      "SALE",      "TRANS_CD, TAX_CD1, TAX_CD2, ATAX_CD, CASH_CD"},
    {"SALEITM_ITEM",    "SALEITM",   "ITEM_CD, SIZE_CD, VOUCH_DT, BOOK_CD, QUANTITY"},
    {"CHLN_DATE",       "CHLN",      "VOUCH_DT, VOUCH_NO"                       },
    {"CHLN_PARTY",      "CHLN",      "PARTY_CD, VOUCH_DT"                       },
    {"CHLN_NUMBER",     "CHLN",      "CHLN_NO, CHLN_TYP"                        },
    {"CHLN_TYPE",       "CHLN",      "CHLN_TYP, BOOK_CD, VOUCH_NO"              },
    {"CHLNITM_ITEM",    "CHLNITM",   "ITEM_CD, VOUCH_DT"                        },
    {"QUOT_DATE",       "QUOT",      "VOUCH_DT, VOUCH_NO"                       },
    {"QUOT_REFERENCE",  "QUOT",      "REF_NO"                                   },
    {"RPTPAY_VOUCHER",  "RPTPAY",    "BOOK_CD, VOUCH_NO"                        },
    {"QUOT_PARTY",      "QUOT",      "PARTY_CD, BL_PARTY_CD"                    },
    {"QUOTITM_ITEM",    "QUOTITM",   "ITEM_CD"                                  },
    {"RPTPAY_DATE",     "RPTPAY",    "VOUCH_DT, VOUCH_NO"                       },
    {"RPTPAY_PARTY",    "RPTPAY",    "PARTY_CD, CSHBNK_CD"                      },
    {"RPTPAY_NARRATION", "RPTPAY",   "NARRATION"                                },
    {"JOURNAL_DATE",    "JOURNAL",   "VOUCH_DT, VOUCH_NO"                       },
    {"JOURNITM_ACC",    "JOURNITM",  "ACC_CD"                                   },
    {"CLEARED_ACC",     "CLEARED",   "ACC_CD, BOOK_CD, VOUCH_NO"                },
    {"CLEARED_VOUCHER", "CLEARED",   "VOUCH_NO, BOOK_CD"                        },
    {"SETTLES_VOUCHER", "SETTLES",   "BOOK_CD, VOUCH_NO"                        },
    {"SETTLES_BILL",    "SETTLES",   "BILL_BOOK, BILL_VNO"                      },
    {"SETTLES_PARTY",   "SETTLES",   "PARTY_CD"                                 },
    {"ACCOUNT_NAME",    "ACCOUNT",   "ACC_NAME"                                 },
    // Each receipt repairs them.
    {"ACCOUNT_GSTINNO", "ACCOUNT",   "GSTINNO", "GSTINNO IS NULL"               },
    {"ITEM_NAME_ORDER", "ITEM",      "ITEM_NAME"                                },
    {"ITEMDTL_SIZE",    "ITEMDTL",   "ITEM_CD, SIZE_CD"                         },
    {"PRTYRATE_ITEM",   "PRTYRATE",  "ITEM_CD, SIZE_CD, ACC_CD"                 },
    {"PRTYRATE_PARTY",  "PRTYRATE",  "ACC_CD, SIZE_CD"                          },
    {"FILEDDOC_VOUCHER", "FILEDDOC", "VOUCH_NO, BOOK_CD"                        },
    // Notes, each with its bills, and the notes of a bill.
    {"ORIGINAL_NOTE",   "ORIGINAL",  "VOUCH_NO, BOOK_CD"                        },
    {"ORIGINAL_BILL",   "ORIGINAL",  "BILL_VOUCH, BILL_BOOK"                    },
    {"ORIGITM_NOTE",    "ORIGITM",   "VOUCH_NO, BOOK_CD, SR_NO"                 },
    {"ORIGITM_BILL",    "ORIGITM",   "BILL_VOUCH, BILL_BOOK, BILL_SR"           },
    // Vouchers, each with what it was made from, and what was made of a challan or offer.
    {"BILLEDFROM_MADE", "BILLEDFROM", "VOUCH_NO, BOOK_CD"                       },
    {"BILLEDFROM_FROM", "BILLEDFROM", "FROM_VOUCH, FROM_BOOK"                   },
    {"SUPPLY_BILL",     "SUPPLY",    "VOUCH_NO, BOOK_CD"                        },
    {"TRANSMAST_NAME",  "TRANSMAST", "TRANSNAME"                                },
};
// clang-format on

}  // namespace

std::span<const TableKey> tableKeys() { return keys; }

std::string keyName(std::string_view table) { return std::string(table) + "_KEY"; }

void dropKeys(Database& db) {
  constexpr Because why{"a key that cannot go is told when it is made anew"};
  for (const auto& key : keys) db.passOver(why, [&] { db.engine().dropIndex(keyName(key.table)); });
}

Outcome addKey(Database& db, const TableKey& key) {
  return db.attempt({"the table is named as without key"}, [&] {
    db.engine().createIndex({.name = keyName(key.table),
                             .table = std::string(key.table),
                             .columns = std::string(key.columns),
                             .unique = true});
    return 0;
  });
}

// One that stands with other columns, as an older program made it, is made anew.
void EnsureIndexes(Database& db) {
  for (const auto& each : indexes) {
    const IndexShape index{.name = std::string(each.name),
                           .table = std::string(each.table),
                           .columns = std::string(each.columns),
                           .rows = std::string(each.rows)};
    if (db.engine().hasIndex(index) || !db.engine().hasTable(index.table)) continue;
    db.passOver(kOlderBooks, [&] {
      Transaction both(db);
      db.engine().dropIndex(index.name);
      db.engine().createIndex(index);
      both.commit();
    });
  }
}

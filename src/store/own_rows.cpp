#include "store/dictionary.h"

// Tables and columns of our own, beside the documented ones: each with the version that brings it.

namespace {

// clang-format off
constexpr DictionaryRow own[] = {
    {1, "SETTLED", "STATE",    "Text",   250, "",          101},
    {1, "DELETED", "BOOK_CD",  "Text",   2,   "",          101},
    {2, "DELETED", "VOUCH_NO", "Double", 0,   "DEFAULT 0", 101},
    // The bills that a note stands against; one that is not in these books has a BILL_VOUCH of 0. The reason
    // and whether goods move with it (1) are the note's, alike in all its rows.
    {1, "ORIGINAL", "BOOK_CD",    "Text",   2,  "",          102},
    {2, "ORIGINAL", "VOUCH_NO",   "Double", 0,  "DEFAULT 0", 102},
    {3, "ORIGINAL", "SR_NO",      "Double", 0,  "DEFAULT 0", 102},
    {4, "ORIGINAL", "BILL_BOOK",  "Text",   2,  "",          102},
    {5, "ORIGINAL", "BILL_VOUCH", "Double", 0,  "DEFAULT 0", 102},
    {6, "ORIGINAL", "BILL_NO",    "Text",   20, "",          102},
    {7, "ORIGINAL", "BILL_DT",    "DATE",   0,  "",          102},
    {8, "ORIGINAL", "REASON",     "Double", 0,  "DEFAULT 0", 102},
    {9, "ORIGINAL", "GOODS",      "Double", 0,  "DEFAULT 0", 102},
    // The line of a bill that a line of a note takes from or adds to.
    {1, "ORIGITM", "BOOK_CD",     "Text",   2,  "",          102},
    {2, "ORIGITM", "VOUCH_NO",    "Double", 0,  "DEFAULT 0", 102},
    {3, "ORIGITM", "SR_NO",       "Double", 0,  "DEFAULT 0", 102},
    {4, "ORIGITM", "BILL_BOOK",   "Text",   2,  "",          102},
    {5, "ORIGITM", "BILL_VOUCH",  "Double", 0,  "DEFAULT 0", 102},
    {6, "ORIGITM", "BILL_SR",     "Double", 0,  "DEFAULT 0", 102},

    {1,  "JOURNAL", "VOUCH_NO",  "Double", 0,   "DEFAULT 0", 102},
    {2,  "JOURNAL", "VOUCH_DT",  "DATE",   0,   "",          102},
    {3,  "JOURNAL", "BOOK_CD",   "Text",   2,   "",          102},
    {4,  "JOURNAL", "REF_NO",    "Text",   50,  "",          102},
    {5,  "JOURNAL", "NARRATION", "Text",   200, "",          102},
    {6,  "JOURNAL", "AMOUNT",    "Double", 0,   "DEFAULT 0", 102},
    {7,  "JOURNAL", "USER_CD",   "Text",   20,  "",          102},
    {8,  "JOURNAL", "ENT_DT",    "DATE",   0,   "",          102},
    {9,  "JOURNAL", "ENT_TIME",  "DATE",   0,   "",          102},
    {10, "JOURNAL", "MOBNOCO",   "Text",   20,  "",          102},
    {11, "JOURNAL", "DATANM",    "Text",   20,  "",          102},
    {12, "JOURNAL", "DATASENT",  "Text",   2,   "",          102},

    {1, "JOURNITM", "VOUCH_NO",   "Double", 0,   "DEFAULT 0", 102},
    {2, "JOURNITM", "BOOK_CD",    "Text",   2,   "",          102},
    {3, "JOURNITM", "SR_NO",      "Double", 0,   "DEFAULT 0", 102},
    {4, "JOURNITM", "ACC_CD",     "Text",   6,   "",          102},
    {5, "JOURNITM", "DEBIT",      "Double", 0,   "DEFAULT 0", 102},
    {6, "JOURNITM", "CREDIT",     "Double", 0,   "DEFAULT 0", 102},
    {7, "JOURNITM", "NARRATION",  "Text",   200, "",          102},
    {8, "JOURNITM", "CHQ_NO",     "Text",   50,  "",          102},
    {9, "JOURNITM", "CHQ_CLG_DT", "DATE",   0,   "",          102},

    {1, "T_JOURNITM", "VOUCH_NO",  "Double", 0,   "DEFAULT 0", 102},
    {2, "T_JOURNITM", "BOOK_CD",   "Text",   2,   "",          102},
    {3, "T_JOURNITM", "SR_NO",     "Double", 0,   "DEFAULT 0", 102},
    {4, "T_JOURNITM", "ACC_CD",    "Text",   6,   "",          102},
    {5, "T_JOURNITM", "ACC_NAME",  "Text",   100, "",          102},
    {6, "T_JOURNITM", "DEBIT",     "Double", 0,   "DEFAULT 0", 102},
    {7, "T_JOURNITM", "CREDIT",    "Double", 0,   "DEFAULT 0", 102},
    {8, "T_JOURNITM", "NARRATION", "Text",   200, "",          102},
    {9, "T_JOURNITM", "BAL_AFT",   "Text",   40,  "",          102},
    {10, "T_JOURNITM", "CHQ_NO",   "Text",   50,  "",          103},

    {1, "CLEARED", "ACC_CD",   "Text",   6, "",          102},
    {2, "CLEARED", "BOOK_CD",  "Text",   2, "",          102},
    {3, "CLEARED", "VOUCH_NO", "Double", 0, "DEFAULT 0", 102},
    {4, "CLEARED", "SRNO",     "Double", 0, "DEFAULT 0", 102},
    {5, "CLEARED", "AMOUNT",   "Double", 0, "DEFAULT 0", 102},
    {6, "CLEARED", "CLG_DT",   "DATE",   0, "",          102},

    // The challans and offers that a bill or challan was made from.
    {1, "BILLEDFROM", "BOOK_CD",    "Text",   2, "",          102},
    {2, "BILLEDFROM", "VOUCH_NO",   "Double", 0, "DEFAULT 0", 102},
    {3, "BILLEDFROM", "SR_NO",      "Double", 0, "DEFAULT 0", 102},
    {4, "BILLEDFROM", "FROM_BOOK",  "Text",   2, "",          102},
    {5, "BILLEDFROM", "FROM_VOUCH", "Double", 0, "DEFAULT 0", 102},

    // What a voucher settles: a bill of PARTY_CD (WHAT is B), or by discount, write-off or TDS (D, W, T).
    {1, "SETTLES", "BOOK_CD",   "Text",   2, "",          102},
    {2, "SETTLES", "VOUCH_NO",  "Double", 0, "DEFAULT 0", 102},
    {3, "SETTLES", "SRNO",      "Double", 0, "DEFAULT 0", 102},
    {4, "SETTLES", "WHAT",      "Text",   1, "",          102},
    {5, "SETTLES", "PARTY_CD",  "Text",   6, "",          102},
    {6, "SETTLES", "BILL_BOOK", "Text",   2, "",          102},
    {7, "SETTLES", "BILL_VNO",  "Double", 0, "DEFAULT 0", 102},
    {8, "SETTLES", "ACC_CD",    "Text",   6, "",          102},
    {9, "SETTLES", "AMOUNT",    "Double", 0, "DEFAULT 0", 102},

    // Bills under reverse charge (1), those whose taxes are no input credit (1), and what kind of supply they
    // are (frame/supply_kinds), with its papers. POS is the state of the place of supply where that is not
    // the party's, CUSTOMS the account that the tax on imported goods is owed to.
    {1,  "SUPPLY", "BOOK_CD",    "Text",   2,  "",          102},
    {2,  "SUPPLY", "VOUCH_NO",   "Double", 0,  "DEFAULT 0", 102},
    {3,  "SUPPLY", "REVERSE",    "Double", 0,  "DEFAULT 0", 102},
    {4,  "SUPPLY", "INELIGIBLE", "Double", 0,  "DEFAULT 0", 102},
    {5,  "SUPPLY", "KIND",       "Double", 0,  "DEFAULT 0", 103},
    {6,  "SUPPLY", "POS",        "Double", 0,  "DEFAULT 0", 103},
    {7,  "SUPPLY", "SHIP_NO",    "Text",   20, "",          103},
    {8,  "SUPPLY", "SHIP_DT",    "DATE",   0,  "",          103},
    {9,  "SUPPLY", "PORT",       "Text",   10, "",          103},
    {10, "SUPPLY", "COUNTRY",    "Text",   50, "",          103},
    {11, "SUPPLY", "CUSTOMS",    "Text",   6,  "",          103},

    // Returns that were filed, each by its last month as 202610, monthly, quarterly or as an IFF (M, Q, I).
    {1, "FILED", "FP",       "Double", 0, "DEFAULT 0", 103},
    {2, "FILED", "FILING",   "Text",   1, "",          103},
    {3, "FILED", "FILED_DT", "DATE",   0, "",          103},
    // What of a bill or note was filed; the seal tells whether it is the same now.
    {1,  "FILEDDOC", "FP",       "Double", 0,  "DEFAULT 0", 103},
    {2,  "FILEDDOC", "BOOK_CD",  "Text",   2,  "",          103},
    {3,  "FILEDDOC", "VOUCH_NO", "Double", 0,  "DEFAULT 0", 103},
    {4,  "FILEDDOC", "BILL_NO",  "Text",   30, "",          103},
    {5,  "FILEDDOC", "BILL_DT",  "DATE",   0,  "",          103},
    {6,  "FILEDDOC", "SECTION",  "Text",   6,  "",          103},
    {7,  "FILEDDOC", "SEAL",     "Text",   16, "",          103},
    {8,  "FILEDDOC", "AMOUNT",   "Double", 0,  "DEFAULT 0", 103},
    {9,  "FILEDDOC", "TAXABLE",  "Double", 0,  "DEFAULT 0", 103},
    {10, "FILEDDOC", "IGST",     "Double", 0,  "DEFAULT 0", 103},
    {11, "FILEDDOC", "CGST",     "Double", 0,  "DEFAULT 0", 103},
    {12, "FILEDDOC", "SGST",     "Double", 0,  "DEFAULT 0", 103},
    {13, "FILEDDOC", "CESS",     "Double", 0,  "DEFAULT 0", 103},
    // Sums of sales to unregistered buyers that the return FP filed for the return OF_FP, mostly itself.
    {1, "FILEDSUM", "FP",      "Double", 0, "DEFAULT 0", 103},
    {2, "FILEDSUM", "OF_FP",   "Double", 0, "DEFAULT 0", 103},
    {3, "FILEDSUM", "PLACE",   "Double", 0, "DEFAULT 0", 103},
    {4, "FILEDSUM", "RATE",    "Double", 0, "DEFAULT 0", 103},
    {5, "FILEDSUM", "TAXABLE", "Double", 0, "DEFAULT 0", 103},
    {6, "FILEDSUM", "IGST",    "Double", 0, "DEFAULT 0", 103},
    {7, "FILEDSUM", "CGST",    "Double", 0, "DEFAULT 0", 103},
    {8, "FILEDSUM", "SGST",    "Double", 0, "DEFAULT 0", 103},
    {9, "FILEDSUM", "CESS",    "Double", 0, "DEFAULT 0", 103},

    // A kind is told as in the key column of its vouchers; an empty type stands for all of them.
    {1, "SERIES", "BOOK_CD",  "Text",   20, "",          102},
    {2, "SERIES", "BL_TYPE",  "Text",   20, "",          102},
    {3, "SERIES", "PREFIX",   "Text",   20, "",          102},
    {4, "SERIES", "WIDTH",    "Double", 0,  "DEFAULT 0", 102},
    {5, "SERIES", "SUFFIX",   "Text",   20, "",          102},
    {6, "SERIES", "FIRST_NO", "Double", 0,  "DEFAULT 0", 102},
};
// clang-format on

}  // namespace

std::span<const DictionaryRow> ownRows() { return own; }

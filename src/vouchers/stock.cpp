#include "vouchers/stock.h"

#include <string>
#include <vector>

#include "frame/voucher_kinds.h"
#include "store/dictionary.h"
#include "store/engine.h"
#include "vouchers/items.h"

// Summed in the index of the lines, which stands in the order of the groups.
void RebuildStock(Database& db) {
  std::string books, brings;
  for (const VoucherKind* kind : kindsPostedFrom("SALE")) {
    const std::string book = "'" + kind->book() + "'";
    books += (books.empty() ? "" : ", ") + book;
    if (kind->ledger.partySide == "C") brings += (brings.empty() ? "" : ", ") + book;
  }
  const std::string moves =
      "SUM(CASE WHEN L.BOOK_CD IN (" + brings + ") THEN L.QUANTITY ELSE -L.QUANTITY END) AS QTY FROM ";
  // Books that the walk has not brought up to date hold no notes with which no goods move.
  const std::string still =
      CheckTable(db, "ORIGINAL")
          ? "ORIGINAL AS N JOIN SALEITM AS L ON L.VOUCH_NO = N.VOUCH_NO AND L.BOOK_CD = N.BOOK_CD"
            " WHERE N.SR_NO = 1 AND N.GOODS = 0"
          : "SALEITM AS L WHERE FALSE";
  const std::string stale =
      "WITH MOVED AS (SELECT L.ITEM_CD, L.SIZE_CD, " + moves + "SALEITM AS L WHERE L.BOOK_CD IN (" + books +
      ") GROUP BY L.ITEM_CD, L.SIZE_CD), STILL AS (SELECT L.ITEM_CD, L.SIZE_CD, " + moves + still +
      " GROUP BY L.ITEM_CD, L.SIZE_CD),"
      " STOCK AS (SELECT D.rowid AS ITS_ROW, D.CL_STK,"
      " ROUNDED(COALESCE(D.OP_STK, 0) + COALESCE(MOVED.QTY, 0) - COALESCE(STILL.QTY, 0), 6) AS STANDS"
      " FROM ITEMDTL AS D LEFT JOIN MOVED ON MOVED.ITEM_CD = D.ITEM_CD AND MOVED.SIZE_CD = D.SIZE_CD"
      " LEFT JOIN STILL ON STILL.ITEM_CD = D.ITEM_CD AND STILL.SIZE_CD = D.SIZE_CD"
      " LEFT JOIN ITEM ON ITEM.ITEM_CD = D.ITEM_CD LEFT JOIN DEPTMENT ON DEPTMENT.DEPT_CD = ITEM.DEPT_CD"
      " WHERE (DEPTMENT.NOCOUNT_STK IS NULL OR DEPTMENT.NOCOUNT_STK <> 'Y') AND D.ITEM_CD <> ?)"
      " SELECT ITS_ROW, STANDS FROM STOCK WHERE CL_STK IS NULL OR CL_STK <> STANDS";
  db.passOver(kOlderBooks, [&] {
    std::vector<Row> rows;
    const auto read = readStill(db, [&] { rows = db.all(stale, kMiscItem); });
    if (rows.empty()) return;  // waits for nobody
    whole(db, [&] {
      if (db.changeCount() != read) rows = db.all(stale, kMiscItem);
      for (const Row& row : rows)
        db.exec("UPDATE ITEMDTL SET CL_STK = ? WHERE rowid = ?", row.value(1), row.value(0));
    });
  });
}

#include "vouchers/stock.h"

#include <string>
#include <vector>

#include "frame/voucher_kinds.h"
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
  const std::string stale =
      "WITH MOVED AS (SELECT ITEM_CD, SIZE_CD, SUM(CASE WHEN BOOK_CD IN (" + brings +
      ") THEN QUANTITY ELSE -QUANTITY END) AS QTY FROM SALEITM WHERE BOOK_CD IN (" + books +
      ") GROUP BY ITEM_CD, SIZE_CD),"
      " STOCK AS (SELECT D.rowid AS ITS_ROW, D.CL_STK,"
      " ROUNDED(COALESCE(D.OP_STK, 0) + COALESCE(MOVED.QTY, 0), 6) AS STANDS"
      " FROM ITEMDTL AS D LEFT JOIN MOVED ON MOVED.ITEM_CD = D.ITEM_CD AND MOVED.SIZE_CD = D.SIZE_CD"
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

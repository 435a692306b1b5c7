#include "masters/items.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "base/words.h"
#include "store/dictionary.h"
#include "store/engine.h"
#include "store/keys.h"

namespace {

// The columns that work table and ITEMDTL share.
constexpr const char* kShared =
    "ITEM_CD, SIZE_CD, PUR_RATE, SALE_RATE1, SALE_RATE2, SALE_DISC, OP_STK, CL_STK, DESC1, "
    "MOBNOCO, DATANM, DATASENT";

// A description is shorter in the work table than in ITEMDTL; the save puts back what was cut.
constexpr const char* kSharedCut =
    "ITEM_CD, SIZE_CD, PUR_RATE, SALE_RATE1, SALE_RATE2, SALE_DISC, OP_STK, CL_STK, SUBSTR(DESC1, 1, 20), "
    "MOBNOCO, DATANM, DATASENT";

struct Naming {
  std::string_view table, code, size;
  const char* what = nullptr;  // for the user; the table where it is of another trade
};

constexpr std::array kNamings{
    Naming{"CHLNITM",              "ITEM_CD", "SIZE_CD",     english("Challans")},
    Naming{"ITEMLINK",                      "ITEM_CD",                      "SIZE_CD"    },
    Naming{"ITEMLINK",                      "RAW_CD",                      "RAW_SIZE" },
    Naming{"JOBCARDITM",                      "ITEM_CD",                    "SIZE_CD" },
    Naming{"ORDERITM",                      "ITEM_CD",                      "SIZE_CD"   },
    Naming{"PRODINOT",                      "ITEM_CD",                      "SIZE_CD" },
    Naming{"PRODITM",                      "ITEM_CD",                       "SIZE_CD"    },
    Naming{"PRODSTKIOITM",                      "ITEM_CD",                  "SIZE_CD"},
    Naming{"PRTYRATE",                      "ITEM_CD",                      "SIZE_CD"        },
    Naming{"QUOTITM",                      "ITEM_CD",                       "SIZE_CD",english("Quotations")},
    Naming{"PURCHITM", "ITEM_CD",          "SIZE_CD"                },
    Naming{"SALEITM",             "ITEM_CD",             "SIZE_CD",  english("Bills")},
    Naming{"SLEDGER",             "ITEM_CD","SIZE_CD"     },
    Naming{"STKIOITM", "ITEM_CD",        "SIZE_CD"               },
    Naming{"WASTEITM",             "ITEM_CD",      "SIZE_CD"   },
};

Fields detailFields(const ItemDetail& d, const Fields& marks) {
  Fields fields{
      {"ITEM_CD",    d.key.code    },
      {"SIZE_CD",    d.key.size    },
      {"PUR_RATE",   d.purchaseRate},
      {"SALE_RATE1", d.saleRate    },
      {"SALE_RATE2", d.mrp         },
      {"SALE_DISC",  d.discount    },
      {"OP_STK",     d.openingStock},
      {"DESC1",      d.description },
  };
  fields.insert(fields.end(), marks.begin(), marks.end());
  return fields;
}

// What names the item in the unit, or in any when none is given; rates of parties go with it.
std::string namedIn(Database& db, std::string_view code, std::string_view size) {
  std::string where;
  for (const Naming& n : kNamings) {
    if (!where.empty() || n.table == "PRTYRATE" || !CheckTable(db, n.table)) continue;
    const std::string table(n.table);
    db.passOver(kOtherTrades, [&] {
      if (db.first("SELECT 1 FROM " + table + " WHERE " + std::string(n.code) + " = ? AND (? = '' OR UPPER(" +
                       std::string(n.size) + ") = UPPER(?))",
                   code, size, size))
        where = n.what ? words(n.what) : table;
    });
  }
  return where;
}

// The update keys the rows by their item alone where each item has one unit.
void refuseSecondUnit(Database& db) {
  if (!hasIndex(db, keyName("ITEMDTL"))) return;
  const auto several = db.first(
      "SELECT ITEM_NAME FROM ITEM WHERE ITEM_CD IN (SELECT ITEM_CD FROM (SELECT ITEM_CD FROM TEMP_ITMDTL"
      " UNION ALL SELECT ITEM_CD FROM ITEMDTL WHERE ITEM_CD IN (SELECT ITEM_CD FROM TEMP_ITMDTL)) AS "
      "BOTH_ROWS"
      " GROUP BY ITEM_CD HAVING COUNT(*) > 1)");
  if (!several) return;
  throw DatabaseError(DatabaseError::Kind::constraint, {},
                      words("{item} Can Have Only One Unit In This Company\r\n"
                            "Press F10 On The Row Of The Other Unit And Save Again",
                            "item", several->text(0)));
}

// A row renamed to a pair that another item has already joins that row, with its stock.
void joinStandingRows(Database& db) {
  const std::string same =
      " FROM TEMP_ITMDTL AS W WHERE W.ITEM_CD = ITEMDTL.ITEM_CD AND W.SIZE_CD = ITEMDTL.SIZE_CD";
  db.exec("UPDATE ITEMDTL SET OP_STK = OP_STK + (SELECT W.OP_STK" + same +
          "), CL_STK = CL_STK + (SELECT W.CL_STK" + same +
          ") WHERE ITEM_CD IN (SELECT ITEM_CD FROM TEMP_ITMDTL) AND EXISTS (SELECT 1" + same + ")");
  db.exec(
      "DELETE FROM TEMP_ITMDTL WHERE EXISTS (SELECT 1 FROM ITEMDTL"
      " WHERE ITEMDTL.ITEM_CD = TEMP_ITMDTL.ITEM_CD AND ITEMDTL.SIZE_CD = TEMP_ITMDTL.SIZE_CD)");
}

// The item's own stored rows are gone already.
void storeDetails(Database& db) {
  joinStandingRows(db);
  refuseSecondUnit(db);
  db.exec(std::string("INSERT INTO ITEMDTL (") + kShared + ") SELECT " + kShared + " FROM TEMP_ITMDTL");
  clearItemDetails(db);
}

}  // namespace

std::optional<Row> findItem(Database& db, std::string_view code) {
  return db.first("SELECT ITEM.* FROM ITEM WHERE ITEM_CD = ?", code);
}

bool itemNameInUse(Database& db, std::string_view name) {
  return db.first("SELECT ITEM_CD FROM ITEM WHERE ITEM_NAME = ? ORDER BY ITEM_NAME", name).has_value();
}

std::optional<std::string> categoryName(Database& db, std::string_view code) {
  const auto row = db.first("SELECT DEPT_NAME FROM DEPTMENT WHERE DEPT_CD = ?", code);
  if (!row) return {};
  return row->text(0);
}

void clearItemDetails(Database& db) { db.exec("DELETE FROM TEMP_ITMDTL"); }

bool loadItemDetails(Database& db, std::string_view code) {
  clearItemDetails(db);
  return db.exec(std::string("INSERT INTO TEMP_ITMDTL (") + kShared + ") SELECT " + kSharedCut +
                     " FROM ITEMDTL WHERE ITEMDTL.ITEM_CD = ? ORDER BY ITEMDTL.rowid",
                 code) > 0;
}

std::string itemDetailsAsStored(Database& db, std::string_view code) {
  std::string all;
  for (const Row& row : db.all("SELECT * FROM ITEMDTL WHERE ITEM_CD = ? ORDER BY rowid", code)) {
    for (int i = 0; i < row.count(); ++i) all += row.text(i) + "\t";
    all += "\n";
  }
  return all;
}

size_t countItemDetails(Database& db) {
  return static_cast<size_t>(db.number("SELECT COUNT(*) FROM TEMP_ITMDTL"));
}

std::optional<ItemDetail> findItemDetail(Database& db, const ItemKey& key) {
  const auto row =
      db.first("SELECT TEMP_ITMDTL.* FROM TEMP_ITMDTL WHERE ITEM_CD = ? AND SIZE_CD = ?", key.code, key.size);
  if (!row) return {};
  return ItemDetail{
      .key = {row->text("ITEM_CD"), row->text("SIZE_CD")},
      .purchaseRate = row->number("PUR_RATE"),
      .saleRate = row->number("SALE_RATE1"),
      .mrp = row->number("SALE_RATE2"),
      .discount = row->number("SALE_DISC"),
      .openingStock = row->number("OP_STK"),
      .description = row->text("DESC1")
  };
}

bool itemSizeInWork(Database& db, std::string_view size) {
  return db.first("SELECT TEMP_ITMDTL.SIZE_CD FROM TEMP_ITMDTL WHERE SIZE_CD = ?", size).has_value();
}

void addItemDetail(Database& db, const ItemDetail& detail, const Fields& marks) {
  Fields fields = detailFields(detail, marks);
  fields.push_back({"CL_STK", detail.openingStock});
  insertRow(db, kItemWorkTable, fields);
}

void changeItemDetail(Database& db, const ItemKey& key, const ItemDetail& detail, const Fields& marks) {
  db.exec("UPDATE TEMP_ITMDTL SET CL_STK = CL_STK + ? - OP_STK WHERE ITEM_CD = ? AND SIZE_CD = ?",
          detail.openingStock, key.code, key.size);
  updateRows(db, kItemWorkTable, detailFields(detail, marks), "ITEM_CD = ? AND SIZE_CD = ?",
             {key.code, key.size});
}

void removeItemDetail(Database& db, const ItemKey& key) {
  db.exec("DELETE FROM TEMP_ITMDTL WHERE ITEM_CD = ? AND SIZE_CD = ?", key.code, key.size);
}

void addItem(Database& db, std::string_view code, Fields head) {
  head.push_back({"TAX_CD", 0});
  head.push_back({"RATEOFCESS", 0});
  insertRow(db, "ITEM", head);
  db.exec("DELETE FROM ITEMDTL WHERE ITEM_CD = ?", code);
  db.exec("UPDATE TEMP_ITMDTL SET ITEM_CD = ?", code);
  storeDetails(db);
}

bool changeItem(Database& db, std::string_view code, const Fields& head,
                const std::vector<Renaming>& renamings) {
  if (updateRows(db, "ITEM", head, "ITEM_CD = ?", {code}) == 0) return false;
  const auto whole = db.all("SELECT SIZE_CD, DESC1 FROM ITEMDTL WHERE ITEM_CD = ? AND LEN(DESC1) > 20", code);
  db.exec("DELETE FROM ITEMDTL WHERE ITEM_CD = ?", code);
  storeDetails(db);
  for (const Row& row : whole)
    db.exec("UPDATE ITEMDTL SET DESC1 = ? WHERE ITEM_CD = ? AND SIZE_CD = ? AND DESC1 = SUBSTR(?, 1, 20)",
            row.text("DESC1"), code, row.text("SIZE_CD"), row.text("DESC1"));
  for (const Renaming& renaming : renamings) RenameItem(db, renaming);
  return true;
}

namespace {

// A party has one rate a day for an item in a unit.
constexpr const char* kRateIsFree =
    " AND NOT EXISTS (SELECT 1 FROM PRTYRATE AS OTHER WHERE OTHER.RT_DT = PRTYRATE.RT_DT"
    " AND OTHER.ACC_CD = PRTYRATE.ACC_CD AND OTHER.ITEM_CD = ? AND OTHER.SIZE_CD = ?"
    " AND OTHER.rowid <> PRTYRATE.rowid)";

}  // namespace

void RenameItem(Database& db, const Renaming& renaming) {
  for (const Naming& n : kNamings) {
    const std::string code(n.code), size(n.size);
    if (!CheckTable(db, n.table)) continue;
    const bool keyed = n.table == "PRTYRATE";
    std::vector<Value> values{renaming.to.code, renaming.to.size, renaming.from.code, renaming.from.size};
    if (keyed) values.insert(values.end(), {renaming.to.code, renaming.to.size});
    db.passOver(kOtherTrades, [&] {
      db.exec("UPDATE " + std::string(n.table) + " SET " + code + " = ?, " + size + " = ? WHERE " + code +
                  " = ? AND " + size + " = ?" + (keyed ? kRateIsFree : ""),
              values);
    });
  }
  db.passOver(kOlderBooks, "DELETE FROM PRTYRATE WHERE ITEM_CD = ? AND SIZE_CD = ?", renaming.from.code,
              renaming.from.size);
}

std::optional<Refusal> itemRefusal(Database& db, std::string_view code) {
  if (db.first("SELECT VOUCH_NO FROM SALEITM WHERE ITEM_CD = ?", code))
    return Refusal{words("Can not DELETE Check Sale For This Item")};
  if (const std::string where = namedIn(db, code, {}); !where.empty())
    return Refusal{words("Can not DELETE :: This Item Stands In {where}", "where", where)};
  return {};
}

std::optional<Refusal> unitRefusal(Database& db, const ItemKey& key) {
  if (const std::string where = namedIn(db, key.code, key.size); !where.empty())
    return Refusal{words("Can not DELETE :: This Unit Stands In {where}", "where", where)};
  return {};
}

std::optional<Refusal> goneUnitsRefusal(Database& db, std::string_view code,
                                        const std::vector<Renaming>& renamings) {
  for (const Row& row : db.all("SELECT SIZE_CD FROM ITEMDTL WHERE ITEM_CD = ?", code)) {
    const ItemKey key{std::string(code), row.text(0)};
    const bool renamed = std::ranges::any_of(renamings, [&](const Renaming& r) { return r.from == key; });
    if (renamed || findItemDetail(db, key)) continue;
    if (auto refused = unitRefusal(db, key)) return refused;
  }
  return {};
}

void deleteItem(Database& db, std::string_view code) {
  clearItemDetails(db);
  // Another item may come to bear the code.
  db.passOver(kOlderBooks, "DELETE FROM PRTYRATE WHERE ITEM_CD = ?", code);
  db.exec("DELETE FROM ITEMDTL WHERE ITEM_CD = ?", code);
  db.exec("DELETE FROM ITEM WHERE ITEM_CD = ?", code);
}

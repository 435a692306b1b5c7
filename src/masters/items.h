#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "masters/guards.h"
#include "store/database.h"
#include "store/row_writer.h"

// Items and their detail rows. An item has one detail row for each batch or unit (SIZE_CD). While
// an item is on the screen its detail rows stand in the work table TEMP_ITMDTL, which is this
// connection's own; they reach ITEMDTL with the save.

inline constexpr const char* kItemWorkTable = "TEMP_ITMDTL";

// Codes and units are told apart without regard to case, as the database does.
struct ItemKey {
  std::string code, size;
  bool operator==(const ItemKey& other) const {
    return sameText(code, other.code) && sameText(size, other.size);
  }
};

struct ItemDetail {
  ItemKey key;
  double purchaseRate = 0, saleRate = 0, mrp = 0, discount = 0;
  double openingStock = 0;
  std::string description;
};

// One detail row that is now called by another pair.
struct Renaming {
  ItemKey from, to;
};

std::optional<Row> findItem(Database& db, std::string_view code);
bool itemNameInUse(Database& db, std::string_view name);
// None when there is no category of that code.
std::optional<std::string> categoryName(Database& db, std::string_view code);

// The work table
void clearItemDetails(Database& db);
// The stored rows of an item into the work table; false when there are none.
bool loadItemDetails(Database& db, std::string_view code);
// All that is stored of them, as one text.
std::string itemDetailsAsStored(Database& db, std::string_view code);
size_t countItemDetails(Database& db);
std::optional<ItemDetail> findItemDetail(Database& db, const ItemKey& key);
bool itemSizeInWork(Database& db, std::string_view size);
// `marks` are the columns that every stored row carries. The stock follows the opening stock.
void addItemDetail(Database& db, const ItemDetail& detail, const Fields& marks);
void changeItemDetail(Database& db, const ItemKey& key, const ItemDetail& detail, const Fields& marks);
void removeItemDetail(Database& db, const ItemKey& key);

// These two store the head and the rows of the work table, which is empty afterwards, inside a
// transaction. A database that has been updated has a key of one row an item: a second unit is a
// DatabaseError there, in words for the user.
void addItem(Database& db, std::string_view code, Fields head);
// False when there is no such item.
bool changeItem(Database& db, std::string_view code, const Fields& head,
                const std::vector<Renaming>& renamings);

// Carries a renaming through every table that names items; tables that the database does not
// have are passed over. Where the new pair stands already the rows join it; a party's rate of the
// same date stays as it is there.
void RenameItem(Database& db, const Renaming& renaming);

// Why the item may not go, or one of its units: what names it. None where it may.
std::optional<Refusal> itemRefusal(Database& db, std::string_view code);
std::optional<Refusal> unitRefusal(Database& db, const ItemKey& key);
// Of the units that are stored and neither in work nor renamed.
std::optional<Refusal> goneUnitsRefusal(Database& db, std::string_view code,
                                        const std::vector<Renaming>& renamings);
// With the rates of parties for it. Inside a transaction.
void deleteItem(Database& db, std::string_view code);

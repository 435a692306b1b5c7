#include "vouchers/items.h"

#include "base/text.h"
#include "masters/small_masters.h"
#include "store/row_writer.h"

namespace {

constexpr int kTransporterLength = 50;

}  // namespace

std::optional<SaleItem> readSaleItem(Database& db, const std::string& item) {
  const auto row = db.first(
      "SELECT ITEM.ITEM_NAME, ITEM.RATEOFTAX, ITEMDTL.SIZE_CD"
      " FROM (ITEM INNER JOIN ITEMDTL ON ITEM.ITEM_CD = ITEMDTL.ITEM_CD)"
      " INNER JOIN DEPTMENT ON ITEM.DEPT_CD = DEPTMENT.DEPT_CD"
      " WHERE ITEM.ITEM_CD = ? ORDER BY ITEM.ITEM_CD, ITEM.DEPT_CD, ITEMDTL.SIZE_CD LIMIT 1",
      item);
  if (!row) return std::nullopt;
  SaleItem found{.name = row->text("ITEM_NAME"), .unit = row->text("SIZE_CD"), .rateOfTax = {}};
  if (!row->isNull("RATEOFTAX")) found.rateOfTax = row->number("RATEOFTAX");
  return found;
}

std::optional<UnitRates> readUnit(Database& db, const VoucherKind& kind, const std::string& item,
                                  const std::string& unit) {
  const auto row = db.first("SELECT " + kind.party.rate + ", " + kind.party.discount +
                                " FROM ITEMDTL WHERE SIZE_CD = ? AND ITEM_CD = ? ORDER BY rowid DESC LIMIT 1",
                            unit, item);
  if (!row) return std::nullopt;
  return UnitRates{row->number(0), row->number(1)};
}

std::optional<double> findTransporter(Database& db, const std::string& name) {
  const auto row = db.first("SELECT TRANS_ID FROM TRANSMAST WHERE TRANSNAME = ? ORDER BY TRANS_ID LIMIT 1",
                            cut(name, kTransporterLength));
  if (!row) return std::nullopt;
  return row->number(0);
}

std::string transporterGovId(Database& db, const std::string& name) {
  return db.text("SELECT TRANS_GOV_ID FROM TRANSMAST WHERE TRANSNAME = ? ORDER BY TRANS_ID LIMIT 1",
                 cut(name, kTransporterLength));
}

std::optional<std::string> transporterName(Database& db, double id) {
  const auto row = db.first("SELECT TRANSNAME FROM TRANSMAST WHERE TRANS_ID = ? LIMIT 1", id);
  if (!row) return std::nullopt;
  return row->text(0);
}

double addTransporter(Database& db, const std::string& name) {
  return whole(db, [&] {
    ensureLocalTransport(db);
    const double id = db.number("SELECT MAX(TRANS_ID) FROM TRANSMAST") + 1;
    Fields row = {
        {"TRANS_ID", id                 },
        { "TRANSNAME",  cut(name, kTransporterLength)},
    };
    for (const char* column : {"TADD1", "TADD2", "TAREA", "TCITY", "TPHONE1", "TPHONE2", "TRANS_GOV_ID"})
      row.push_back({column, "."});
    insertRow(db, "TRANSMAST", row);
    return id;
  });
}

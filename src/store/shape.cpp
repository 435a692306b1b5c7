#include "store/shape.h"

#include "base/text.h"
#include "store/dictionary.h"
#include "store/engine.h"
#include "store/templates.h"
#include "store/views.h"

namespace {

// Not declared, so that no update makes them: tables of other trades, which are read where a file has them.
struct Foreign {
  const char *table, *columns;
};
constexpr Foreign kForeign[] = {
    {"NARRATN",      "NARR_NAME"                                },
    {"GWDN",         "GWDN_CD, GWDN_NAME"                       },
    {"SMAN",         "SMAN_CD, SMAN_NAME, SAREA, SCITY"         },
    {"RCTYP",        "RTYP, RTYPACC, CHRGYN"                    },
    {"URIGHTS",      "USERNAME"                                 },
    {"PURCH",        "CHRG_PERC1, EXCISE_PER, ATAX_PERC"        },
    {"SLEDGER",      "GWDN_CD, ITEM_CD, SIZE_CD"                },
    {"STKIOITM",     "ITEM_CD, SIZE_CD"                         },
    {"WASTEITM",     "ITEM_CD, SIZE_CD"                         },
    {"GSTTOTQRYPU",  "VOUCH_NO, BOOK_CD, CGSTRT, SGSTRT, IGSTRT"},
    {"ITEMLINK",     "ITEM_CD, SIZE_CD, RAW_CD, RAW_SIZE"       },
    {"JOBCARDITM",   "ITEM_CD, SIZE_CD"                         },
    {"ORDERITM",     "ITEM_CD, SIZE_CD"                         },
    {"PRODINOT",     "ITEM_CD, SIZE_CD"                         },
    {"PRODITM",      "ITEM_CD, SIZE_CD"                         },
    {"PRODSTKIOITM", "ITEM_CD, SIZE_CD"                         },
    {"PURCHITM",     "ITEM_CD, SIZE_CD"                         },
};

void build(Database& db) {
  db.openFile(":memory:", Access::create);
  for (const std::string& table : declaredTables()) db.engine().createTable(table, dictionaryColumns(table));
  for (const Foreign& other : kForeign) {
    std::vector<Column> columns;
    for (const std::string& name : split(other.columns, ", ")) columns.push_back({.name = name});
    db.engine().createTable(other.table, columns);
  }
  makeUserTable(db);
  RemakeViews(db);
  RemakeWorkTables(db);
}

}  // namespace

bool fitsDeclaredShape(std::string_view sql) {
  static Database model;
  static const bool built = (build(model), true);
  return built && model.understands(sql);
}

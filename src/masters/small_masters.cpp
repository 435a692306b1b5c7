#include "masters/small_masters.h"

#include "base/number.h"
#include "base/text.h"
#include "frame/routines.h"

using namespace fields;

namespace {

// clang-format off
const std::vector<SmallMaster>& masters() {
  using enum SmallKind;
  static const std::vector<SmallMaster> table{
      {.key = "catg", .stem = "Category Master", .table = "DEPTMENT", .code = SmallCode::NextCategory,
       .fields = {
           {.field = kCode,         .column = "DEPT_CD",     .label = "Code",        .limit = 4},
           {.field = kName,         .column = "DEPT_NAME",   .label = "Description", .limit = 50,  .required = true, .hint = "Type Name Of Category"},
           {.field = kGrouping,     .column = "GROUPING",    .label = "Grouping",    .limit = 1,   .kind = YesNo,  .hint = "Type Y Or N"},
           {.field = kHsn,          .column = "HSNCODE",     .label = "Hsncode",     .limit = 250, .hint = "Type Hsn Code Of Category"},
           {.field = kDescription,  .column = "ITEMDESC",    .label = "Item Description", .limit = 250, .hint = "Type Description Of Items"},
           {.field = kTaxRate,      .column = "RATEOFTAX",   .label = "Tax Rate",    .limit = 15,  .kind = Number, .hint = "Type Gst Rate Of Category"},
           {.field = kCessRate,     .column = "RATEOFCESS",  .label = "Cess",        .limit = 15,  .kind = Number, .hint = "Type Cess Rate Of Category"},
           {.field = kNoStock,      .column = "NOCOUNT_STK", .label = "No Stock",    .limit = 1,   .kind = YesNo,  .hint = "Type Y For No Stock Count"},
       },
       .list = {.columns = {{"DEPT_CD"}, {"DEPT_NAME"}}, .from = "DEPTMENT", .order = {"dept_name"}},
       .lookup = {.rows = {.columns = {{"dept_cd"}, {"dept_name"}, {"ITEMDESC"}, {"HSNCODE"}, {"RATEOFTAX"}, {"RATEOFCESS"}}, .from = "deptment", .order = {"dept_name"}}},
       .guards = {{.statement = "SELECT ITEM_CD FROM ITEM WHERE DEPT_CD = ?", .words = "THERE ARE ITEMS LINKED TO THIS CATEGORY"}}},

      {.key = "tax", .stem = "Tax Master", .table = "DISCHTAX", .code = SmallCode::NextNumber, .numericCode = true,
       .fields = {
           {.field = kCode,         .column = "CODE",       .label = "Code",     .limit = 6,  .kind = Number},
           {.field = kName,         .column = "NAME",       .label = "Name",     .limit = 60, .required = true, .hint = "Type Name Of Tax"},
           {.field = kTaxRate,      .column = "RATE",       .label = "Rate",     .limit = 15, .kind = Number, .hint = "Type Rate Of Tax"},
           {.field = kOnPaper,      .column = "FORM_PRINT", .label = "Print",    .limit = 1,  .kind = YesNo, .hint = "Type Y Or N"},
           {.field = kAccount,      .column = "tax_acc",    .label = "A/c Code", .limit = 6,  .kind = Account},
           {.field = kAccountName,  .column = "tax_acnm",   .label = "A/c Name", .limit = 60, .kind = AccountName},
       },
       .list = {.columns = {{"CODE"}, {"NAME"}}, .from = "DISCHTAX", .order = {"code"}},
       .lookup = {.rows = {.columns = {{"CODE"}, {"NAME"}, {"RATE"}, {"TAX_ACC"}, {"FORM_PRINT"}}, .from = "DISCHTAX", .order = {"code"}}},
       .guards = {{.statement = "SELECT 1 FROM SALE WHERE TAX_CD1 = ? OR TAX_CD2 = ? OR ATAX_CD = ?", .words = "There is Sale Entry For This Tax Code\r\nCan Not Delete"},
                  {.statement = "SELECT 1 FROM PURCH WHERE CHRG_PERC1 = ? OR EXCISE_PER = ? OR ATAX_PERC = ?", .words = "There is Purchase Entry For This Tax Code\r\nCan Not Delete"},
                  {.statement = "SELECT NUMTEXT(VOUCH_NO) FROM CHLN WHERE TAX_CD1 = ? OR TAX_CD2 = ?", .words = "This Tax Code Stands In Challan {where}\r\nCan Not Delete"},
                  {.statement = "SELECT NUMTEXT(VOUCH_NO) FROM QUOT WHERE TAX_PERC = ? OR ATAX_PERC = ?", .words = "This Tax Code Stands In Quotation {where}\r\nCan Not Delete"}}},

      {.key = "TRANS", .stem = "Transport Master", .table = "TRANSMAST", .code = SmallCode::NextNumber, .numericCode = true,
       .fields = {
           {.field = kCode,         .column = "TRANS_ID",     .label = "Id",        .limit = 6,  .kind = Number},
           {.field = kName,         .column = "TRANSNAME",    .label = "Name",      .limit = 50, .required = true, .hint = "Type Name Of Transport"},
           {.field = kAddress1,     .column = "TADD1",        .label = "Address 1", .limit = 50, .hint = "Type Address Of Transport"},
           {.field = kAddress2,     .column = "TADD2",        .label = "Address 2", .limit = 50, .hint = "Type Address Of Transport"},
           {.field = kArea,         .column = "TAREA",        .label = "Area",      .limit = 50, .hint = "Type Area Of Transport"},
           {.field = kCity,         .column = "TCITY",        .label = "City",      .limit = 50, .hint = "Type City Of Transport"},
           {.field = kPhone,        .column = "TPHONE1",      .label = "Phone 1",   .limit = 50, .hint = "Type Phone No Of Transport"},
           {.field = kPhone2,       .column = "TPHONE2",      .label = "Phone 2",   .limit = 50, .hint = "Type Phone No Of Transport"},
           {.field = kGovernmentId, .column = "TRANS_GOV_ID", .label = "Gov. Id",   .limit = 50, .hint = "Type Government Id Of Transport"},
       },
       .list = {.columns = {{"TRANS_ID"}, {"TRANSNAME"}}, .from = "TRANSMAST", .order = {"TRANSNAME"}},
       .lookup = {.rows = {.columns = {{"TRANS_ID"}, {"TRANSNAME"}, {"trans_gov_id"}}, .from = "TRANSMAST", .order = {"TRANSNAME"}}}},

      {.key = "GWDN", .stem = "Godown Master", .table = "GWDN",
       .fields = {
           {.field = kCode,         .column = "GWDN_CD",   .label = "Code", .limit = 6,  .required = true, .hint = "Type Code Of Godown"},
           {.field = kName,         .column = "GWDN_NAME", .label = "Name", .limit = 50, .required = true, .hint = "Type Name Of Godown"},
       },
       .duplicate = "Duplicate Godown Can Not Be Added",
       .list = {.columns = {{"GWDN_CD"}, {"GWDN_NAME"}}, .from = "GWDN", .order = {"GWDN_NAME"}},
       .lookup = {.rows = {.columns = {{"GWDN_CD"}, {"GWDN_NAME"}}, .from = "GWDN", .order = {"GWDN_NAME"}}},
       .guards = {{.statement = "SELECT 1 FROM SLEDGER WHERE GWDN_CD = ?", .words = "There Is a Stock Entry For This Godown in Stock Ledger\r\nCan Not Delete"}}},

      {.key = "sman", .stem = "Salesman Master", .table = "sman",
       .fields = {
           {.field = kCode,         .column = "sman_cd",   .label = "Code", .limit = 6,   .required = true, .hint = "Type Code Of Salesman"},
           {.field = kName,         .column = "sman_name", .label = "Name", .limit = 50,  .required = true, .hint = "Type Name Of Salesman"},
           {.field = kArea,         .column = "Sarea",     .label = "Area", .limit = 50,  .hint = "Type Area Of Salesman"},
           {.field = kCity,         .column = "Scity",     .label = "City", .limit = 50,  .hint = "Type City Of Salesman"},
       },
       .list = {.columns = {{"sman_cd"}, {"sman_name"}}, .from = "sman", .order = {"sman_name"}},
       .lookup = {.rows = {.columns = {{"sman_cd"}, {"sman_name"}}, .from = "sman", .order = {"sman_name"}}},
       .guards = {{.statement = "SELECT ACC_CD FROM ACCOUNT WHERE ANOTHER_CD = ?", .words = "This Salesman is used in some Account Master Entries \r\nCan not Delete", .title = "Mirav Information"}}},

      {.key = "narr", .stem = "Narration Master", .table = "NARRATN", .code = SmallCode::ItsText,
       .fields = {{.field = kNarration,    .column = "narr_name", .label = "Narration", .limit = 200, .required = true, .hint = "Type Narration"}},
       .name = 0,
       .list = {.columns = {{"narr_name"}}, .from = "NARRATN", .order = {"narr_name"}},
       .lookup = valuesOf("NARRATN", "narr_name")},

      {.key = "RCTYPENT", .stem = "Receipt Type Master", .table = "RCTYP", .code = SmallCode::ItsText,
       .fields = {
           {.field = kReceiptType,  .column = "RTYP",    .label = "Receipt Type", .limit = 50, .required = true, .hint = "Type Receipt Type"},
           {.field = kAccount,      .column = "RTYPACC", .label = "A/c Code",     .limit = 6,  .kind = Account},
           {.field = kCharge,       .column = "CHRGYN",  .label = "Charge",       .limit = 1,  .kind = YesNo, .hint = "Type Y Or N"},
       },
       .name = 0,
       .list = {.columns = {{"RTYP"}}, .from = "RCTYP", .order = {"RTYP"}},
       .lookup = {.rows = {.columns = {{"RTYP"}, {"acc_name"}, {"RTYPACC"}, {"CHRGYN"}}, .from = "RCTYP left join account on RCTYP.RTYPACC = account.acc_cd", .order = {"RTYP"}}}},

      {.key = "grpmst", .stem = "Group Master", .table = "GRP", .numericCode = true,
       .fields = {
           {.field = kCode,         .column = "GROUP_CD",   .label = "Group Code", .limit = 6,  .kind = Number, .required = true, .hint = "Type Code Of Group"},
           {.field = kName,         .column = "GROUP_NAME", .label = "Group Name", .limit = 50, .required = true, .hint = "Type Name Of Group"},
           {.field = kGroup,        .column = "SUB_GROUP",  .label = "Under Group", .limit = 6, .kind = Group, .required = true},
       },
       .list = {.columns = {{"GROUP_CD"}, {"GROUP_NAME"}}, .from = "GRP", .order = {"group_name"}},
       .lookup = {.rows = {.columns = {{"GROUP_CD"}, {"GROUP_NAME"}}, .from = "grp", .where = "grp.group_cd > 6", .order = {"group_name"}}},
       .guards = {{.statement = "SELECT ACC_CD FROM ACCOUNT WHERE GROUP_CD = ?", .words = "THERE ARE ACCOUNTS LINKED TO THIS GROUP"},
                  {.statement = "SELECT GROUP_CD FROM GRP WHERE SUB_GROUP = ?", .words = "THERE ARE GROUPS LINKED TO THIS GROUP"}}},

      {.key = "USERFORM", .stem = "User Master", .table = "USER1", .code = SmallCode::ItsText, .inCatalogue = true,
       .fields = {{.field = kUser,         .column = "user_name", .label = "User Name", .limit = 20, .required = true, .hint = "Type Name Of User"}},
       .name = 0,
       .list = {.columns = {{"USER_NAME"}}, .from = "USER1", .order = {"USER_NAME"}},
       .lookup = {.rows = {.columns = {{"USER_NAME"}, {"LOGGEDON"}}, .from = "USER1", .order = {"USER_NAME"}}, .inCatalogue = true}},
  };
  return table;
}
// clang-format on

std::string keyColumn(const SmallMaster& m) { return std::string(m.fields[0].column); }

// Texts that are their own key are found whatever blanks surround them.
std::string keyCondition(const SmallMaster& m) {
  return m.code == SmallCode::ItsText ? "UPPER(TRIM(" + keyColumn(m) + ")) = UPPER(?)"
                                      : keyColumn(m) + " = ?";
}

}  // namespace

const SmallMaster& smallMaster(const Opening& opening) {
  const std::string& wanted = opening.entryType == "USERFORM" ? opening.entryType : opening.masterKey;
  for (const SmallMaster& m : masters())
    if (m.key == wanted) return m;
  return masters().front();
}

Value smallCode(const SmallMaster& master, std::string_view code) {
  return master.numericCode ? Value(Val(code)) : Value(trim(code));
}

std::string nextSmallCode(const SmallMaster& master, Database& db) {
  switch (master.code) {
    case SmallCode::NextCategory:
      return categoryCode(NextCategoryCode());
    case SmallCode::NextNumber:
      return numText(db.number("SELECT MAX(" + keyColumn(master) + ") FROM " + std::string(master.table)) +
                     1);
    case SmallCode::Typed:
    case SmallCode::ItsText:
      break;
  }
  return {};
}

std::optional<Row> findSmallRow(const SmallMaster& master, Database& db, std::string_view code) {
  std::optional<Row> row;
  db.passOver(kOtherTrades, [&] {
    row = db.first("SELECT * FROM " + std::string(master.table) + " WHERE " + keyCondition(master),
                   smallCode(master, code));
  });
  return row;
}

bool smallNameInUse(const SmallMaster& master, Database& db, std::string_view name) {
  const std::string column(master.fields[static_cast<size_t>(master.name)].column);
  const std::string statement =
      "SELECT 1 FROM " + std::string(master.table) + " WHERE UPPER(TRIM(" + column + ")) = UPPER(?)";
  bool found = false;
  db.passOver(kOtherTrades, [&] { found = db.first(statement, name).has_value(); });
  return found;
}

std::optional<Refusal> smallRefusal(const SmallMaster& master, Database& db, std::string_view code) {
  return refusal(db, master.guards, smallCode(master, code));
}

int salesOfTransport(Database& db, std::string_view code) {
  return static_cast<int>(db.number("SELECT COUNT(*) FROM SALE WHERE TRANS_CD = ?", Val(code)));
}

bool changeSmallRow(const SmallMaster& master, Database& db, std::string_view code, const Fields& fields) {
  return updateRows(db, master.table, fields, keyCondition(master), {smallCode(master, code)}) > 0;
}

void deleteSmallRow(const SmallMaster& master, Database& db, std::string_view code) {
  if (master.key == "USERFORM")
    db.passOver(kOtherTrades, "DELETE FROM urights WHERE UPPER(username) = UPPER(?)", trim(code));
  db.exec("DELETE FROM " + std::string(master.table) + " WHERE " + keyCondition(master),
          smallCode(master, code));
}

void ensureLocalTransport(Database& db) {
  if (db.number("SELECT COUNT(*) FROM TRANSMAST") > 0) return;
  Fields fields{
      {"TRANS_ID",  1      },
      {"TRANSNAME", "LOCAL"},
  };
  for (const char* column : {"TADD1", "TADD2", "TAREA", "TCITY", "TPHONE1", "TPHONE2", "TRANS_GOV_ID"})
    fields.push_back({column, "."});
  insertRow(db, "TRANSMAST", fields);
}

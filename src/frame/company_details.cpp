#include "frame/company_details.h"

#include <exception>

#include "base/text.h"
#include "base/words.h"
#include "frame/companies.h"
#include "frame/together.h"
#include "store/dictionary.h"
#include "store/engine.h"

namespace {

struct Member {
  const char* column;
  std::string Session::*member;
};

constexpr Member kMembers[] = {
    {"ADDRS",   &Session::mcad1   },
    {"GSTINNO", &Session::mgstinno},
    {"STATECD", &Session::mstatecd},
    {"MOBNOCO", &Session::mmobile },
};

std::string textOf(const Fields& fields, std::string_view column) {
  for (const Field& f : fields)
    if (sameText(f.column, column)) return trim(f.value.text());
  return {};
}

void put(Fields& fields, std::string_view column, Value value) {
  for (Field& f : fields)
    if (sameText(f.column, column)) {
      f.value = std::move(value);
      return;
    }
  fields.push_back({column, std::move(value)});
}

}  // namespace

void loadCompanyDetails(Session& s) {
  std::optional<Row> row;
  if (CheckTable(*s.cndata, "COMP_DET")) row = s.cndata->first("SELECT COMP_DET.* FROM COMP_DET");
  for (const Member& m : kMembers) {
    std::string& member = s.*m.member;
    member.clear();
    if (row && row->has(m.column)) member = row->text(m.column);
  }
  if (length(s.mmobile) < 10) s.mmobile = "9090909090";
}

bool readWhatOthersWrote() {
  Session& s = session();
  if (!othersWrote(*s.cndata)) return false;
  if (CheckTable(*s.cndata, "SPSFILE")) EnsureSettings(*s.cndata, s);
  loadCompanyDetails(s);
  if (const auto year = companyYear(catalogue(), s.mcompid, s.mfromyr)) s.mcompname = year->name;
  return true;
}

void saveCompanyDetails(Session& s, Fields fields) {
  if (length(textOf(fields, "CITY")) < 2) put(fields, "CITY", "Ahmedabad");
  for (const char* column : {"AD1", "AD2", "AREA", "C_PASS", "C_SMTP"}) put(fields, column, ".");
  for (const char* column : {"TERMS", "C_PORT"}) put(fields, column, 0);
  put(fields, "MOBNOCO", s.mmobile);
  put(fields, "DATANM", s.mdataname);
  put(fields, "DATASENT", "N");

  const std::string name = textOf(fields, "COMPNM");
  Database& db = *s.cndata;
  const WithCatalogue both(db, s.cncomp->file());
  whole(db, [&] {
    if (db.first("SELECT 1 FROM COMP_DET"))
      updateRows(db, "COMP_DET", fields, "1 = 1");
    else
      insertRow(db, "COMP_DET", fields);
    db.exec("UPDATE COMP_DET SET MOBNOCO = ?, DATANM = ?, DATASENT = 'N'", s.mmobile, s.mdataname);
    // On a server the list of companies takes a further right, which only a new name needs.
    if (db.first("SELECT 1 FROM " + both.compny() +
                     " WHERE COMP_ID = ? AND (COMP_NAME IS NULL OR HEX(COMP_NAME) <> HEX(?))",
                 s.mcompid, name))
      db.exec("UPDATE " + both.compny() + " SET COMP_NAME = ? WHERE COMP_ID = ?", name, s.mcompid);
  });
  s.mcompname = name;
  loadCompanyDetails(s);
}

std::string shellCaption(const Session& s) {
  return words("{company} : {years}  :  M - {version} Accounting Period : {first} TO {last}", "company",
               s.mcompname, "years", s.myrpair, "version", s.mversion, "first",
               formatDate(s.mstartdt, "dd/MMM/yyyy"), "last", formatDate(s.menddt, "dd/MMM/yyyy"));
}

std::string periodPanel(const Session& s) {
  return words("{company} : FROM {first} TO {last}", "company", s.mcompname, "first",
               formatDate(s.mstartdt, "dd/MM/yy"), "last", formatDate(s.menddt, "dd/MM/yy"));
}

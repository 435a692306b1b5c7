#include <array>
#include <fstream>

#include "frame/session.h"
#include "frame/start.h"
#include "fuzz/program.h"
#include "reports/balances.h"
#include "reports/outstanding.h"
#include "reports/report_rows.h"
#include "reports/reports.h"
#include "reports/statement.h"
#include "store/balances.h"
#include "store/dictionary.h"
#include "store/update.h"
#include "vouchers/posting.h"

// A company-year that is not as the program left it: bytes of its file are changed, or its fields
// hold what no screen lets through. The first byte says how, the second what is done with it then.
// The answer may be a DatabaseError, a message or odd figures.
namespace {

class Input {
 public:
  Input(const uint8_t* data, size_t size) : next_(data), end_(data + size) {}
  bool more() const { return next_ != end_; }
  uint8_t byte() { return more() ? *next_++ : 0; }
  uint32_t number(int bytes) {
    uint32_t value = 0;
    while (bytes-- > 0) value = value << 8 | byte();
    return value;
  }

 private:
  const uint8_t *next_, *end_;
};

// Three bytes of place, one of count, then the bytes.
void spoilBytes(const std::filesystem::path& path, Input& input) {
  std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
  const auto size = static_cast<uint32_t>(std::filesystem::file_size(path));
  while (input.more()) {
    file.seekp(input.number(3) % size);
    for (int n = input.byte() % 8; n >= 0; --n) file.put(static_cast<char>(input.byte()));
  }
}

Value oddValue(Input& input) {
  static const std::array<Value, 24> values = {Value(),
                                               Value(0),
                                               Value(-1),
                                               Value(1e15),
                                               Value(1e300),
                                               Value(-1e300),
                                               Value(0.1),
                                               Value(1 / 3e-310),
                                               Value(""),
                                               Value(" "),
                                               Value("A00001"),
                                               Value("SA"),
                                               Value("31/13/2026"),
                                               Value("2026-02-30"),
                                               Value("2026-06-15"),
                                               Value("99:99"),
                                               Value("0000-00"),
                                               Value("12.5"),
                                               Value("1e999"),
                                               Value("%_'\"[]"),
                                               Value("\xFF\xFE"),
                                               Value("D"),
                                               Value(std::string(3000, 'W')),
                                               Value(std::string("A\0B", 3))};
  const uint8_t which = input.byte();
  if (which < 128) return values[which % values.size()];
  if (which < 192) return Value(static_cast<std::int64_t>(input.number(4)) * 65537 - (1LL << 40));
  std::string text;
  for (int n = which % 16; n > 0; --n) text += static_cast<char>(input.byte());
  return Value(text);
}

// Table, column, row, value.
void spoilFields(const std::filesystem::path& path, Input& input) {
  Database db;
  db.open(path);
  db.exec("PRAGMA ignore_check_constraints = ON");
  const auto tables = db.all(
      "SELECT name FROM main.sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite_%' ORDER BY name");
  while (input.more()) {
    const std::string name = tables[input.byte() % tables.size()].text(0), table = "main.[" + name + "]";
    if (!CheckTable(db, name)) return;
    const auto columns = db.query("SELECT * FROM " + table).names();
    const std::string column = "[" + columns.at(input.byte() % columns.count()) + "]";
    const int row = input.byte();
    if (row == 255)
      db.attempt("ALTER TABLE " + table + " DROP COLUMN " + column);
    else if (row == 254)
      db.attempt("DROP TABLE " + table);
    else
      db.attempt("UPDATE " + table + " SET " + column + " = ? WHERE rowid = (SELECT rowid FROM " + table +
                     " LIMIT 1 OFFSET ?)",
                 oddValue(input), row % 32);
  }
}

constexpr Date day(int year, unsigned month, unsigned n) {
  return Date{std::chrono::year{year}, std::chrono::month{month}, std::chrono::day{n}};
}
constexpr Date kFrom = day(2026, 4, 1), kTo = day(2027, 3, 31);

void update(Database& db) {
  updateDatabase(db, {
                         .companyCode = "M001",
                         .companyName = "SHOP",
                         .fromYear = "2026",
                         .toYear = "2027",
                         .mobile = "",
                         .dataname = "M00126",
                         .repair = {.periodStart = kFrom, .timeOfDay = "10:30"}
  });
}

void ledgers(Database& db) {
  const auto accounts = db.all("SELECT ACC_CD FROM ACCOUNT LIMIT 12");
  for (const Row& account : accounts) {
    const StatementQuery query{
        .account = account.text(0), .from = day(2026, 5, 1), .to = kTo, .periodStart = kFrom};
    runningStatement(db, query);
    tLedger(db, query);
  }
  BuildFinalTable(db, kFrom, kTo, "");
  closingBalances(db);
}

void report(Database& db, const Report& report) {
  const ReportQuery query{.fields = {},
                          .from = kFrom,
                          .to = kTo,
                          .periodStart = kFrom,
                          .periodEnd = kTo,
                          .gstin = "24",
                          .yes = true};
  const ReportPlan plan = report.plan(db, query);
  if (!plan.refusal.empty()) return;
  ReportRows rows(db, plan, {});
  while (rows.read(1000)) {
  }
  for (size_t row = 0; row < rows.count(); ++row) {
    for (size_t column = 0; column < rows.columns().size(); ++column) rows.cell(row, column);
    rows.voucher(row);
  }
  if (report.chart) report.chart(db, rows);
}

void reports(Database& db) {
  for (const auto each : {&partyList, &categoryList, &priceList, &closingBalanceList, &gstr1Registered,
                          &gstr1Unregistered, &saleBillRegister, &saleBillDetailRegister, &quotationRegister,
                          &challanRegister, &receiptRegister, &outstandingList})
    report(db, each());
}

// Every screen of one menu is opened, looked at and left.
void screens(Person& person, size_t which) {
  if (!person.shell()) return;
  const auto menus = person.shell()->menus;
  if (menus.empty()) return;
  const MenuEntry menu = menus[which % menus.size()];
  for (const MenuEntry& entry : menu.entries) {
    if (!entry.entries.empty() || person.quitting() || !person.shell()) continue;
    person.menu(entry);
    for (const Key& key : {Key(KeyCode::Enter), Key(KeyCode::PgDn), Key::Alt('E'), Key(KeyCode::Enter),
                           Key::Alt('S'), Key::Alt('P'), Key(KeyCode::Enter)})
      person.key(key);
    for (int i = 0; i < 6 && person.top() && person.top() != person.shell(); ++i) person.key(KeyCode::Esc);
    while (person.top() && person.top() != person.shell()) person.close(*person.top());
  }
}

void use(Person& person, uint8_t how) {
  Database& db = data();
  const auto passed = [](const auto& work) {
    try {
      work();
    } catch (const DatabaseError&) {
    }
  };
  switch (how % 4) {
    case 0:
      passed([&] { update(db); });
      break;
    case 1:
      passed([&] { RebuildAllBalances(db); });
      passed([&] { how & 4 ? postAll(db) : postMissing(db); });
      break;
    case 2:
      break;
    case 3:
      screens(person, how / 4);
      break;
  }
  passed([&] { ledgers(db); });
  passed([&] { reports(db); });
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  confine(*argc, *argv);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  const auto& folder = freshFolder();
  Input input(bytes, size);
  const uint8_t what = input.byte(), how = input.byte();
  const auto file = folder / (what & 2 ? "comp.mdb" : kYearFile);
  if (what & 1)
    spoilFields(file, input);
  else
    spoilBytes(file, input);

  Person person;
  if (!startUp(person, folder)) return 0;
  person.key(KeyCode::Enter);
  for (int i = 0; i < 4; ++i) person.tick();
  if (session().cndata && session().cndata->isOpen()) use(person, how);
  refuseFaults(person);
  return 0;
}

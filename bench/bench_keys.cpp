// What the person waits for at the desk: from a key to its answer.

#include <functional>
#include <string>

#include "bench_desk.h"
#include "frame/session.h"

namespace {

using State = benchmark::State;

constexpr int kSaves = 100;

void startToShell(State& state) {
  desk();
  BenchDesk* d = nullptr;
  each(
      state, [&] { d = &freshDesk(); }, [&] { d->openYear(); });
}

void billScreen(State& state) {
  BenchDesk& d = desk();
  each(
      state, [&] { d.toShell(); }, [&] { d.choose("SALE"); });
  require(d.onTop() == "GSTSAPU", "the bill screen does not open");
}

void add(State& state) {
  BenchDesk& d = desk();
  d.choose("SALE");
  const auto rest = [&] {
    d.answers.assign(1, true);
    if (d.focus() != "cmdadd") d.escape();
    d.answers.clear();
  };
  each(state, rest, [&] { d.press("cmdadd"); });
  require(d.focus() == "date", "Add does not come to the date");
}

// A field is filled again and again, and Enter accepts it.
void accepted(State& state, const std::string& field, const std::string& code, const std::string& then) {
  BenchDesk& d = desk();
  d.startBill(sampleBill().party);
  each(
      state, [&] { d.fill(field, code); }, [&] { d.enter(); });
  require(d.focus() == then, field + " is not accepted");
}

void rateHints(State& state) {
  BenchDesk& d = desk();
  d.startBill(sampleBill().party);
  d.typeItem(sampleBill().item);
  each(
      state, [&] { d.fill("quantity", "3"); }, [&] { d.enter(); });
  require(d.focus() == "rate" && d.at("DataGrid2").visible, "the rates do not come up");
}

void letter(State& state) {
  BenchDesk& d = desk();
  d.startBill(sampleBill().party);
  d.go("narration");
  each(
      state, [&] { d.fill("narration", "TO BE DELIVERED A"); }, [&] { d.type("T"); });
  require(d.text("narration") == "TO BE DELIVERED AT", "a letter does not arrive");
}

// The second of eight lines is stored over itself.
void storedLine(State& state) {
  BenchDesk& d = desk();
  d.startBill(sampleBill().party);
  for (int i = 0; i < 8; ++i) d.typeLine(sampleBill().item, "3");
  for (int i = 0; i < 6; ++i) d.key(KeyCode::Up);
  const auto amount = [&] {
    d.key(KeyCode::Up);
    d.go("amount");
  };
  each(state, amount, [&] { d.enter(); });
  require(d.at("DataGrid1").grid.count() == 8 && d.focus() == "item", "the line is not stored over itself");
}

void loadedBill(State& state) {
  BenchDesk& d = desk();
  d.choose("SALE");
  d.press("cmdEDIT");
  each(
      state, [&] { d.fill("number", "50000"); }, [&] { d.enter(); });
  require(d.at("DataGrid1").grid.count() == 3 && d.focus() == "date", "the bill is not loaded");
}

// One of the parties and items, other ones each time, as in a day's work.
std::string codeOf(const char* sql) {
  static int next = 0;
  return data().text(std::string(sql) + " LIMIT 1 OFFSET ?", ++next * 7 % 400);
}

void typeNewBill(BenchDesk& d) {
  d.startBill(codeOf("SELECT ACC_CD FROM ACCOUNT WHERE ACC_CD LIKE 'A%'"));
  for (int i = 0; i < 3; ++i) d.typeLine(codeOf("SELECT ITEM_CD FROM ITEM WHERE ITEM_CD LIKE 'I%'"), "3");
}

void changeBill(BenchDesk& d) {
  d.toShell();
  d.choose("SALE");
  d.press("cmdEDIT");
  d.fillEnter("number", "70000");
  d.go("item");
}

// From Save through the closing message to a screen that is ready for the next bill.
void savedBill(State& state, bool again) {
  BenchDesk& d = desk();
  const double before = data().number("SELECT COUNT(*) FROM SALE");
  const auto type = [&] {
    again ? changeBill(d) : typeNewBill(d);
    d.toSave();
  };
  each(state, type, [&] { d.saveBill(); });
  const double made = again ? 0 : static_cast<double>(state.iterations());
  require(data().number("SELECT COUNT(*) FROM SALE") == before + made, "the bills are not saved");
}

// A key that opens a lookup, and the way from the shell to its field.
struct Lookup {
  std::string name;
  std::function<void(BenchDesk&)> go;
  Key key = KeyCode::Enter;
};

void openedLookup(State& state, const Lookup& lookup) {
  BenchDesk& d = desk();
  lookup.go(d);
  size_t rows = 0;
  const auto look = [&] { d.insideModal.assign(1, [&] { rows = d.at("grdDataGrid").grid.count(); }); };
  each(state, look, [&] { d.key(lookup.key); });
  require(rows > 0, "the lookup is empty");
  state.counters["rows"] = static_cast<double>(rows);
}

// Runs inside the open lookup.
void insideLookup(const Lookup& lookup, const std::function<void(BenchDesk&)>& work) {
  BenchDesk& d = desk();
  lookup.go(d);
  d.insideModal.assign(1, [&] { work(d); });
  d.key(lookup.key);
}

// The last letter of a search; what is before it stands already.
void searched(State& state, const Lookup& lookup, const std::string& column, const std::string& text) {
  insideLookup(lookup, [&](BenchDesk& d) {
    d.fill(column, text);
    each(
        state, [&] { d.key(KeyCode::Backspace); }, [&] { d.type(text.substr(text.size() - 1)); });
    require(d.text(column) == text, "the search is not typed");
    state.counters["rows"] = static_cast<double>(d.at("grdDataGrid").grid.count());
  });
}

void paged(State& state, const Lookup& lookup) {
  insideLookup(lookup, [&](BenchDesk& d) {
    for (auto _ : state) d.key(KeyCode::PgDn);
    state.counters["row"] = static_cast<double>(d.at("grdDataGrid").grid.current);
  });
}

void toNumber(BenchDesk& d) {
  d.choose("SALE");
  d.press("cmdEDIT");
}

void toParty(BenchDesk& d) {
  d.choose("SALE");
  d.press("cmdadd");
  d.enter();
}

void toItem(BenchDesk& d) { d.startBill(sampleBill().party); }

void addLookups() {
  const Lookup bills{"bills", toNumber}, byBillNumber{"bills by bill number", toNumber, KeyCode::F1},
      byAmount{"bills by amount", toNumber, KeyCode::F4}, parties{"parties", toParty}, items{"items", toItem};
  for (const Lookup& lookup : {bills, byBillNumber, byAmount, parties, items})
    measure("Lookup opened/" + lookup.name, [=](State& s) { openedLookup(s, lookup); });

  struct Search {
    Lookup lookup;
    std::string column, text;
  };
  const Search searches[] = {
      {bills,        "Text1", "54321" },
      {bills,        "Text2", "RAMESH"},
      {bills,        "Text2", "ZZ"    },
      {byBillNumber, "Text2", "54321" },
      {byAmount,     "Text2", "1234"  },
      {parties,      "Text2", "RAMESH"},
      {items,        "Text2", "CABLE" },
  };
  for (const Search& find : searches)
    for (size_t i = 1; i <= find.text.size(); ++i) {
      const std::string text = find.text.substr(0, i);
      const std::string where = find.column == "Text1" ? " by number/" : "/";
      measure("Search/" + find.lookup.name + where + text,
              [=](State& s) { searched(s, find.lookup, find.column, text); });
    }
  const Lookup used{"destinations used before", [](BenchDesk& d) {
                      toItem(d);
                      d.fill("destination", "");
                    }};
  measure("Lookup opened/" + used.name, [=](State& s) { openedLookup(s, used); });
  measure("Page down/bills", [=](State& s) { paged(s, bills); });
}

}  // namespace

void addMeasurements() {
  measure("Start to shell", startToShell, true);
  measure("Bill screen opened", billScreen);
  measure("Add to first field", add);
  measure("Letter typed", letter);
  measure("Party accepted", [](State& s) { accepted(s, "party", sampleBill().party, "ship_to"); });
  measure("Item accepted", [](State& s) { accepted(s, "item", sampleBill().item, "detail"); });
  measure("Rate hints shown", rateHints);
  measure("Line stored", storedLine);
  measure("Bill loaded", loadedBill);
  addLookups();
  measure(
      "Bill saved/new", [](State& s) { savedBill(s, false); }, true, kSaves);
  measure(
      "Bill saved/changed", [](State& s) { savedBill(s, true); }, true, kSaves);
}

// What the person waits for at the challan screen, over 50,000 challans of three lines.

#include "bench_desk.h"
#include "frame/session.h"
#include "store/keys.h"

namespace {

using State = benchmark::State;

constexpr int kSaves = 100;

// Every second bill of the year has gone out under a challan too.
void fillChallans() {
  Transaction all(data());
  data().exec(
      R"(INSERT INTO CHLN (VOUCH_NO, VOUCH_DT, BOOK_CD, CHLN_NO, CHLN_TYP, PARTY_CD, ITEM_AMT, NET_AMT,
      NO_OF_ITEM, NARRATION, ORDER_NO, GR_NO, DESTI, TRANSPORT)
      SELECT VOUCH_NO / 2, VOUCH_DT, 'CH', NUMTEXT(VOUCH_NO / 2), 'DC', PARTY_CD, ITEM_AMT, ITEM_AMT,
      NO_OF_ITEM, 'ON APPROVAL', 'PO/' || NUMTEXT(VOUCH_NO), 'LR', DESTI, TRANSPORT FROM SALE
      WHERE VOUCH_NO % 2 = 0 AND BOOK_CD = 'SA')");
  data().exec(R"(INSERT INTO CHLNITM (VOUCH_NO, VOUCH_DT, BOOK_CD, SR_NO, ITEM_CD, SIZE_CD, QUANTITY, RATE,
      NET_AMOUNT, DESC1, ITEM_DESC) SELECT VOUCH_NO / 2, VOUCH_DT, 'CH', SR_NO, ITEM_CD, SIZE_CD, QUANTITY,
      RATE, QUANTITY * RATE, '.', '' FROM SALEITM WHERE VOUCH_NO % 2 = 0 AND BOOK_CD = 'SA')");
  EnsureIndexes(data());
  all.commit();
}

BenchDesk& challanDesk() {
  sampleBill();  // which goes to the shell for it
  BenchDesk& d = desk();
  static const bool filled = [] { return fillChallans(), true; }();
  require(filled, "there are no challans");
  return d;
}

BenchDesk& atRest() {
  BenchDesk& d = challanDesk();
  d.choose("CH");
  require(d.onTop() == "FRMCHLN", "the challan screen does not open");
  return d;
}

// From Add to the first item field.
BenchDesk& started() {
  BenchDesk& d = atRest();
  d.press("cmdadd");
  d.enter();
  d.fillEnter("party", sampleBill().party);
  d.fillEnter("challan_type", "DC");
  d.enter();
  require(d.focus() == "item", "a new challan does not come to its first item");
  return d;
}

void typeLine(BenchDesk& d) {
  d.fillEnter("item", sampleBill().item);
  d.keys({KeyCode::Enter, KeyCode::Enter});
  d.type("3");
  d.keys({KeyCode::Enter, KeyCode::Enter, KeyCode::Enter});
}

void add(State& state) {
  BenchDesk& d = atRest();
  const auto rest = [&] {
    d.answers.assign(1, true);
    if (d.focus() != "cmdadd") d.escape();
    d.answers.clear();
  };
  each(state, rest, [&] { d.press("cmdadd"); });
  require(d.text("number") == "50001", "Add does not number the challan");
}

void letter(State& state) {
  BenchDesk& d = started();
  each(
      state, [&] { d.fill("narration", "TO BE RETURNE"); }, [&] { d.type("D"); });
}

void accepted(State& state, const std::string& field, const std::string& text, const std::string& then) {
  BenchDesk& d = started();
  each(
      state, [&] { d.fill(field, text); }, [&] { d.enter(); });
  require(d.focus() == then, field + " is not accepted");
}

void rateHints(State& state) {
  BenchDesk& d = started();
  d.fillEnter("item", sampleBill().item);
  each(
      state, [&] { d.fill("quantity", "3"); }, [&] { d.enter(); });
  require(d.focus() == "rate", "the quantity is not accepted");
  state.counters["rows"] = static_cast<double>(d.at("DataGrid2").grid.count());
}

// The second of eight lines is stored over itself.
void storedLine(State& state) {
  BenchDesk& d = started();
  for (int i = 0; i < 8; ++i) typeLine(d);
  for (int i = 0; i < 6; ++i) d.key(KeyCode::Up);
  const auto amount = [&] {
    d.key(KeyCode::Up);
    d.go("amount");
  };
  each(state, amount, [&] { d.enter(); });
  require(d.at("DataGrid1").grid.count() == 8, "the line is not stored over itself");
}

void loaded(State& state) {
  BenchDesk& d = atRest();
  d.press("cmdEDIT");
  each(
      state, [&] { d.fill("number", "25000"); }, [&] { d.enter(); });
  require(d.at("DataGrid1").grid.count() == 3, "the challan is not loaded");
}

void saved(State& state) {
  BenchDesk& d = challanDesk();
  const double before = data().number("SELECT COUNT(*) FROM CHLN");
  const auto type = [] {
    BenchDesk& at = started();
    for (int i = 0; i < 3; ++i) typeLine(at);
    at.go("destination");
    at.enter();
  };
  each(state, type, [&] {
    d.insideModal.push_back([&] { d.press("CancelButton"); });
    d.enter();
  });
  const double made = data().number("SELECT COUNT(*) FROM CHLN") - before;
  require(made == static_cast<double>(state.iterations()), "the challans are not saved");
}

void lookup(State& state, Key key) {
  BenchDesk& d = atRest();
  d.press("cmdEDIT");
  size_t rows = 0;
  const auto look = [&] { d.insideModal.assign(1, [&] { rows = d.at("grdDataGrid").grid.count(); }); };
  each(state, look, [&] { d.key(key); });
  state.counters["rows"] = static_cast<double>(rows);
}

// The last letter of a search; what is before it stands already.
void search(State& state, Key key, const std::string& text) {
  BenchDesk& d = atRest();
  d.press("cmdEDIT");
  d.insideModal.assign(1, [&] {
    d.fill("Text2", text);
    each(
        state, [&] { d.key(KeyCode::Backspace); }, [&] { d.type(text.substr(text.size() - 1)); });
  });
  d.key(key);
}

}  // namespace

void addMeasurements() {
  measure("Challan/Add to first field", add);
  measure("Challan/Letter typed", letter);
  measure("Challan/Party accepted", [](State& s) { accepted(s, "party", sampleBill().party, "order_no"); });
  measure("Challan/Type accepted", [](State& s) { accepted(s, "challan_type", "DC", "challan_no"); });
  measure("Challan/New type accepted", [](State& s) { accepted(s, "challan_type", "JOB", "challan_no"); });
  measure("Challan/Number accepted", [](State& s) { accepted(s, "challan_no", "90000", "item"); });
  measure("Challan/Item accepted", [](State& s) { accepted(s, "item", sampleBill().item, "detail"); });
  measure("Challan/Rate hints shown", rateHints);
  measure("Challan/Line stored", storedLine);
  measure("Challan/Loaded", loaded);
  measure("Challan/Lookup opened", [](State& s) { lookup(s, KeyCode::Enter); });
  measure("Challan/Lookup opened by number", [](State& s) { lookup(s, KeyCode::F1); });
  for (const char* text : {"R", "RAMESH"})
    measure(std::string("Challan/Search/") + text, [=](State& s) { search(s, KeyCode::Enter, text); });
  for (const char* text : {"1", "12345"})
    measure(std::string("Challan/Search by number/") + text, [=](State& s) { search(s, KeyCode::F1, text); });
  measure("Challan/Saved", saved, true, kSaves);
}

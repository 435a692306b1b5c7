// What the books take: full posting, the posting of what is missing at an opening, and money taken.

#include "bench_program.h"
#include "store/balances.h"
#include "vouchers/posting.h"
#include "vouchers/receipts.h"

namespace {

using State = benchmark::State;

constexpr int kPostings = 3, kSaves = 100;

Database& books() {
  static Database db;
  if (!db.isOpen())
    for (const auto& file : std::filesystem::directory_iterator(folder()))
      if (file.path().extension() == ".mdb" && file.path().stem() != "comp") db.open(file.path());
  return db;
}

void fullPosting(State& state) {
  each(
      state, [] {}, [] { postAll(books()); });
  state.counters["rows"] = books().number("SELECT COUNT(*) FROM ALEDGER");
}

void opening(State& state, const char* lost) {
  each(
      state, [&] { books().exec(lost); }, [] { postMissing(books()); });
}

void balances(State& state) {
  each(
      state, [] {}, [] { RebuildAllBalances(books()); });
}

void receiptSaved(State& state) {
  const VoucherKind& kind = receiptKind();
  MoneyVoucher receipt{.number = 0,
                       .date = *parseDate("2026-06-15"),
                       .account = kCashAccount,
                       .party = "A00007",
                       .amount = 10,
                       .narration = ""};
  each(
      state, [&] { receipt.number = nextMoneyNumber(books(), kind); },
      [&] { require(saveMoneyVoucher(books(), kind, receipt, Saving::Fresh), "the number is taken"); });
}

}  // namespace

void addMeasurements() {
  measure("Full posting", fullPosting, true, kPostings);
  measure(
      "Opening/nothing missing", [](State& s) { opening(s, "DELETE FROM ALEDGER WHERE 0"); }, true);
  measure(
      "Opening/a bill missing",
      [](State& s) { opening(s, "DELETE FROM ALEDGER WHERE BOOK_CD = 'SA' AND VOUCH_NO = 777"); }, true,
      kSaves);
  measure("Balances refreshed", balances, true);
  measure("Receipt saved", receiptSaved, true, kSaves);
}

void endProgram() { books().close(); }

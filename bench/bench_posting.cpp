// What the books take: full posting, the posting of what is missing at an opening, and money taken.

#include "bench_program.h"
#include "frame/companies.h"
#include "store/balances.h"
#include "vouchers/numbering.h"
#include "vouchers/posting.h"
#include "vouchers/receipts.h"

namespace {

using State = benchmark::State;

constexpr int kPostings = 3, kSaves = 100;

Database& books() {
  static Database db;
  if (db.isOpen()) return db;
  Database catalogue;
  openCatalogue(catalogue, folder());
  db.open(dataFile(folder(), companyYears(catalogue).front()));
  return db;
}

void fullPosting(State& state, const char* changed) {
  each(
      state, [&] { books().exec(changed); }, [] { postAll(books()); });
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
  Fields receipt{
      {"VOUCH_NO",  0                       },
      {"VOUCH_DT",  *parseDate("2026-06-15")},
      {"CSHBNK_CD", kCashAccount            },
      {"PARTY_CD",  "A00007"                },
      {"AMOUNT",    10                      },
      {"NARRATION", ""                      }
  };
  each(
      state, [&] { setValue(receipt, "VOUCH_NO", lastVoucher(books(), kind).number + 1); },
      [&] { require(saveMoneyVoucher(books(), kind, receipt, Saving::Fresh), "the number is taken"); });
}

}  // namespace

void addMeasurements() {
  measure(
      "Full posting/nothing changed", [](State& s) { fullPosting(s, "DELETE FROM ALEDGER WHERE 0"); }, true,
      kPostings);
  measure(
      "Full posting/all rows changed", [](State& s) { fullPosting(s, "UPDATE ALEDGER SET NARRATION = 'X'"); },
      true, kPostings);
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

#include "vouchers/originals.h"

#include <algorithm>
#include <set>
#include <stdexcept>
#include <utility>

#include "base/number.h"
#include "base/text.h"
#include "base/words.h"
#include "store/dictionary.h"
#include "store/engine.h"
#include "store/row_writer.h"
#include "vouchers/settlements.h"

namespace {

// Of a bill that another gave us its own, not that of our entry.
std::optional<Date> dateOnPaper(const VoucherKind& bill, const Row& row) {
  const auto given = bill.words.billDate.empty() ? std::nullopt : row.date("PRV_BDT");
  return given ? given : row.date("VOUCH_DT");
}

FoundBill found(const Row& row, const VoucherKind& note) {
  return {
      .bill = {.book = note.adjusts.code,
               .voucher = row.number("VOUCH_NO"),
               .number = trim(row.text("BILL_NO")),
               .date = dateOnPaper(*kindByBook(note.adjusts.code), row)},
      .party = trim(row.text("PARTY_CD")),
      .shipTo = trim(row.text("CASH_CD")),
      .amount = row.number("NET_AMT")
  };
}

constexpr const char* kTables[] = {"ORIGINAL", "ORIGITM"};

// Books that the walk has not brought up to date hold no notes.
bool hasNotes(Database& db) { return CheckTable(db, kTables[0]); }

// An expression over a voucher and the party of H: how much of it is not settled, or does not settle, yet.
std::string room(const std::string& book, const std::string& voucher) {
  return standingOfVoucher(book, voucher, "H.PARTY_CD") + " - " + usedOfVoucher(book, voucher, "H.PARTY_CD");
}

// What lines say nothing of (an amount without lines, the round off) the bills take in their order, unless
// one of them is not in these books: it may be of that.
void settleBills(Database& db, const VoucherKind& note, double number, const std::vector<Original>& bills) {
  struct Open {
    Settlement::Bill bill;
    double room, given;
  };
  std::vector<Open> open;
  double left = 0;
  std::string party;
  for (const Row& row :
       db.all("SELECT O.BILL_BOOK, O.BILL_VOUCH, H.PARTY_CD, " + room("H.BOOK_CD", "H.VOUCH_NO") + ", " +
                  room("O.BILL_BOOK", "O.BILL_VOUCH") +
                  ", (SELECT SUM(L.NET_AMOUNT) FROM ORIGITM AS I JOIN SALEITM AS L"
                  " ON L.VOUCH_NO = I.VOUCH_NO AND L.BOOK_CD = I.BOOK_CD AND L.SR_NO = I.SR_NO"
                  " WHERE I.VOUCH_NO = O.VOUCH_NO AND I.BOOK_CD = O.BOOK_CD AND I.BILL_VOUCH = O.BILL_VOUCH"
                  " AND I.BILL_BOOK = O.BILL_BOOK) FROM ORIGINAL AS O JOIN SALE AS H"
                  " ON H.VOUCH_NO = O.VOUCH_NO AND H.BOOK_CD = O.BOOK_CD"
                  " WHERE O.VOUCH_NO = ? AND O.BOOK_CD = ? AND O.BILL_VOUCH <> 0 ORDER BY O.SR_NO",
              number, note.code)) {
    party = row.text(2);
    left = row.number(3);
    open.push_back({{{row.text(0), row.number(1)}}, row.number(4), row.number(5)});
  }
  const auto take = [&](Open& one, double most) {
    const double more = Round(std::max(std::min({most, one.room - one.bill.amount, left}), 0.0), 2);
    one.bill.amount = Round(one.bill.amount + more, 2);
    left -= more;
  };
  for (Open& one : open) take(one, one.given);
  if (open.size() == bills.size())
    for (Open& one : open) take(one, left);
  Settlement settlement;
  for (const Open& one : open)
    if (one.bill.amount > 0) settlement.bills.push_back(one.bill);
  storeSettlement(db, note, number, party, settlement);
}

std::string billsWhere(const char* holds) {
  return std::string(
             "SELECT VOUCH_NO, VOUCH_DT, PRV_BDT, BILL_NO, PARTY_CD, CASH_CD, NET_AMT FROM SALE WHERE ")
      .append(holds);
}

std::optional<Row> storedBill(Database& db, const std::string& book, double voucher) {
  return db.first(billsWhere("VOUCH_NO = ? AND BOOK_CD = ?"), voucher, book);
}

}  // namespace

std::vector<FoundBill> billsOfNumber(Database& db, const VoucherKind& note, const std::string& number,
                                     const std::string& party) {
  std::vector<FoundBill> bills;
  for (const Row& row :
       db.all(billsWhere("BILL_NO = ? AND +BOOK_CD = ? AND GSTPOST = 1 AND (? OR PARTY_CD = ?)"
                         " ORDER BY VOUCH_DT DESC, VOUCH_NO DESC"),
              number, note.adjusts.code, party.empty(), party))
    bills.push_back(found(row, note));
  return bills;
}

std::optional<FoundBill> billOfVoucher(Database& db, const VoucherKind& note, double voucher) {
  const auto row = storedBill(db, note.adjusts.code, voucher);
  return row ? std::optional(found(*row, note)) : std::nullopt;
}

NoteFacts readNote(Database& db, const VoucherKind& note, double number) {
  NoteFacts facts;
  if (!hasNotes(db)) return facts;
  for (const Row& row : db.all("SELECT BILL_BOOK, BILL_VOUCH, BILL_NO, BILL_DT, REASON, GOODS FROM ORIGINAL"
                               " WHERE VOUCH_NO = ? AND BOOK_CD = ? ORDER BY SR_NO",
                               number, note.code)) {
    facts.reason = static_cast<int>(row.number("REASON"));
    facts.goods = row.number("GOODS") == 1;
    const std::string bill = trim(row.text("BILL_NO"));
    if (!bill.empty() || row.number("BILL_VOUCH") != 0)
      facts.bills.push_back({.book = row.text("BILL_BOOK"),
                             .voucher = row.number("BILL_VOUCH"),
                             .number = bill,
                             .date = row.date("BILL_DT")});
  }
  return facts;
}

OriginalLines readOriginalLines(Database& db, const VoucherKind& note, double number) {
  OriginalLines lines;
  if (!hasNotes(db)) return lines;
  for (const Row& row :
       db.all("SELECT I.SR_NO, I.BILL_BOOK, I.BILL_VOUCH, I.BILL_SR, B.QUANTITY, B.RATE, B.AMOUNT, B.DISC4"
              " FROM ORIGITM AS I"
              " JOIN SALEITM AS B ON B.VOUCH_NO = I.BILL_VOUCH AND B.BOOK_CD = I.BILL_BOOK"
              " AND B.SR_NO = I.BILL_SR WHERE I.VOUCH_NO = ? AND I.BOOK_CD = ?",
              number, note.code))
    lines[row.number("SR_NO")] = {.book = row.text("BILL_BOOK"),
                                  .voucher = row.number("BILL_VOUCH"),
                                  .serial = row.number("BILL_SR"),
                                  .billed = row.number("QUANTITY"),
                                  .rate = row.number("RATE"),
                                  .amount = row.number("AMOUNT"),
                                  .share = row.number("DISC4")};
  return lines;
}

void addBillLines(Database& db, const VoucherKind& note, double number, const Original& bill,
                  OriginalLines& known) {
  const auto stands = [&](double serial) {
    for (const auto& [own, line] : known)
      if (line.voucher == bill.voucher && line.serial == serial && sameText(line.book, bill.book))
        return true;
    return false;
  };
  std::set<double> used;
  for (const Row& row : db.all("SELECT SR_NO FROM T_SLITM")) used.insert(row.number(0));
  // They keep the serials of the bill where these are free.
  double behind = 0;
  std::string others;
  std::vector<Value> left;
  std::vector<OriginalLine> lines;
  for (const Row& row : db.all("SELECT SR_NO, QUANTITY, RATE, AMOUNT, DISC4 FROM SALEITM"
                               " WHERE VOUCH_NO = ? AND BOOK_CD = ?",
                               bill.voucher, bill.book)) {
    const double serial = row.number("SR_NO");
    if (stands(serial)) {
      others += others.empty() ? "?" : ", ?";
      left.emplace_back(serial);
    } else {
      lines.push_back({.book = bill.book,
                       .voucher = bill.voucher,
                       .serial = serial,
                       .billed = row.number("QUANTITY"),
                       .rate = row.number("RATE"),
                       .amount = row.number("AMOUNT"),
                       .share = row.number("DISC4")});
      if (used.contains(serial)) behind = *used.rbegin();
    }
  }
  OriginalLines added;
  for (const OriginalLine& line : lines) added[behind + line.serial] = line;
  if (added.empty()) return;
  std::vector<Value> values = {number, note.code, behind, bill.voucher, bill.book};
  values.insert(values.end(), left.begin(), left.end());
  // What follows from the quantity is nothing yet; what was agreed on stays as it was billed.
  const std::string kept =
      "ITEM_CD, SIZE_CD, DESC1, ITEM_DESC, MFG_DT, EXP_DT, VOUCH_TIME, VOUCH_DT, CHLN_DT, RATE, SALE_DISC,"
      " SALE_DISC1, DISC3, CGSTRT, SGSTRT, IGSTRT, CESS_PERC1, TAX_CD, TAX_RT, BRKRG, CUR_NM, CUR_RT,"
      " CUR_ITM_RT, MOBNOCO, DATANM, DATASENT";
  db.exec(
      "INSERT INTO T_SLITM (VOUCH_NO, BOOK_CD, SR_NO, QUANTITY, AMOUNT, NET_AMOUNT, CGSTAMT,"
      " SGSTAMT, IGSTAMT, CESS_AMT1, ORDER_NO, TAX_AMT, VAT_AMT, CUR_AMT, DISC4, GSTPOST, YOUR_REF, " +
          kept + ", ITEM_NAME) SELECT ?, ?, SR_NO + ?, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, '.', " + kept +
          ", (SELECT ITEM_NAME FROM ITEM WHERE ITEM.ITEM_CD = SALEITM.ITEM_CD) FROM SALEITM"
          " WHERE VOUCH_NO = ? AND BOOK_CD = ?" +
          (others.empty() ? "" : " AND SR_NO NOT IN (" + others + ")") + " ORDER BY SR_NO, rowid",
      values);
  known.insert(added.begin(), added.end());
}

BilledCharges readBilledCharges(Database& db, const std::string& book, double voucher) {
  const auto row = db.first(
      "SELECT ITEM_AMT, DISC_AMT1, CHRG_AMT1, CHRG_AMT2, CHRG_AMT3 FROM SALE"
      " WHERE VOUCH_NO = ? AND BOOK_CD = ?",
      voucher, book);
  if (!row) return {};
  return {
      .charges = {.discount = row->number("DISC_AMT1"),
                  .packing = row->number("CHRG_AMT1"),
                  .freight = row->number("CHRG_AMT2"),
                  .other = row->number("CHRG_AMT3")},
      .goods = row->number("ITEM_AMT")
  };
}

void readBefore(Database& db, const VoucherKind& note, double number, OriginalLines& lines) {
  if (!hasNotes(db)) return;
  std::map<double, std::map<double, double>> bills;  // by voucher and serial
  for (auto& [own, line] : lines) bills[line.voucher];
  for (auto& [voucher, returned] : bills)
    for (const Row& row : db.all(
             "SELECT I.BILL_SR, SUM(L.QUANTITY) AS QTY FROM ORIGITM AS I"
             " JOIN SALEITM AS L ON L.VOUCH_NO = I.VOUCH_NO AND L.BOOK_CD = I.BOOK_CD AND L.SR_NO = I.SR_NO"
             " WHERE I.BILL_VOUCH = ? AND I.BILL_BOOK = ? AND I.BOOK_CD = ? AND I.VOUCH_NO <> ?"
             " AND EXISTS (SELECT 1 FROM ORIGINAL AS O WHERE O.VOUCH_NO = I.VOUCH_NO"
             " AND O.BOOK_CD = I.BOOK_CD AND O.GOODS = 1) GROUP BY I.BILL_SR",
             voucher, note.adjusts.code, note.code, number))
      returned[row.number("BILL_SR")] = row.number("QTY");
  for (auto& [own, line] : lines) line.before = bills[line.voucher][line.serial];
}

bool takesBack(const VoucherKind& note) {
  const VoucherKind* const bill = kindByBook(note.adjusts.code);
  return bill && bill->ledger.partySide != note.ledger.partySide;
}

std::optional<double> openWithout(Database& db, const VoucherKind& note, double number, double voucher) {
  if (!CheckTable(db, kSettlements)) return std::nullopt;
  return db.number(
      "SELECT " + room("H.BOOK_CD", "H.VOUCH_NO") +
          " + COALESCE((SELECT SUM(M.AMOUNT) FROM SETTLES AS M WHERE M.BOOK_CD = ? AND M.VOUCH_NO = ?"
          " AND M.BILL_BOOK = H.BOOK_CD AND M.BILL_VNO = H.VOUCH_NO AND M.WHAT = 'B'), 0)"
          " FROM SALE AS H WHERE H.VOUCH_NO = ? AND H.BOOK_CD = ?",
      note.code, number, voucher, note.adjusts.code);
}

std::string asBilled(Database& db, const Original& bill) {
  const auto head = storedBill(db, bill.book, bill.voucher);
  if (!head) return {};
  std::string all = upper(head->text("PARTY_CD"));
  const auto add = [&](const std::string& rows) {
    for (const Row& row : db.all(rows, bill.voucher, bill.book)) {
      all += '\n';
      for (int i = 0; i < row.count(); ++i) all += row.text(i) + '\t';
    }
  };
  if (CheckTable(db, "SUPPLY")) add("SELECT * FROM SUPPLY WHERE VOUCH_NO = ? AND BOOK_CD = ?");
  add("SELECT SR_NO, ITEM_CD, SIZE_CD, QUANTITY, RATE, SALE_DISC, CGSTRT, SGSTRT, IGSTRT FROM SALEITM"
      " WHERE VOUCH_NO = ? AND BOOK_CD = ? ORDER BY SR_NO, rowid");
  return all;
}

void ensureNotes(Database& db) {
  ensureSettlements(db);
  for (const char* table : kTables) ensureTable(db, table);
}

void storeNote(Database& db, const VoucherKind& note, double number, const NoteFacts& facts,
               const OriginalLines& lines) {
  dropNote(db, note, number);
  std::vector<Original> bills = facts.bills;
  for (Original& bill : bills) {
    if (bill.voucher == 0) continue;
    const auto found = billOfVoucher(db, note, bill.voucher);
    if (!found)
      throw std::runtime_error(
          words("Bill {bill} Has Been Deleted Meanwhile\nNothing Was Stored", "bill", bill.number));
    bill = found->bill;
  }
  if (bills.empty()) bills.emplace_back();  // the reason alone
  std::vector<Value> heads, links;
  double serial = 0;
  for (const Original& bill : bills)
    heads.insert(heads.end(), {note.code, number, ++serial, bill.book, bill.voucher, bill.number, bill.date,
                               facts.reason, facts.goods ? 1 : 0});
  insertMany(
      db,
      "INSERT INTO ORIGINAL (BOOK_CD, VOUCH_NO, SR_NO, BILL_BOOK, BILL_VOUCH, BILL_NO, BILL_DT, REASON,"
      " GOODS)",
      "(?, ?, ?, ?, ?, ?, ?, ?, ?)", heads);
  for (const Row& row :
       db.all("SELECT SR_NO FROM SALEITM WHERE VOUCH_NO = ? AND BOOK_CD = ?", number, note.code))
    if (const auto line = lines.find(row.number("SR_NO")); line != lines.end())
      links.insert(links.end(), {note.code, number, line->first, line->second.book, line->second.voucher,
                                 line->second.serial});
  if (!links.empty())
    insertMany(db, "INSERT INTO ORIGITM (BOOK_CD, VOUCH_NO, SR_NO, BILL_BOOK, BILL_VOUCH, BILL_SR)",
               "(?, ?, ?, ?, ?, ?)", links);
  if (takesBack(note)) settleBills(db, note, number, bills);
}

void dropNote(Database& db, const VoucherKind& note, double number) {
  if (!hasNotes(db)) return;
  storeSettlement(db, note, number, "", {});
  for (const char* table : kTables)
    db.later(std::string("DELETE FROM ") + table + " WHERE VOUCH_NO = ? AND BOOK_CD = ?", number, note.code);
}

bool isOriginal(Database& db, const VoucherKind& bill, double voucher) {
  return hasNotes(db) && db.first("SELECT 1 FROM ORIGINAL WHERE BILL_VOUCH = ? AND BILL_BOOK = ? LIMIT 1",
                                  voucher, bill.code);
}

void followBill(Database& db, const VoucherKind& kind, double voucher, const std::string& before) {
  if (!hasNotes(db)) return;
  const std::string notes = notesAgainst(db, kind, voucher);
  if (notes.empty()) return;
  const auto bill = storedBill(db, kind.code, voucher);
  if (bill && !sameText(bill->text("PARTY_CD"), before))
    throw std::runtime_error(
        words("Against This Bill Stands {notes}\nIts Party Stays The Same", "notes", notes));
  if (bill)
    db.exec("UPDATE ORIGINAL SET BILL_NO = ?, BILL_DT = ? WHERE BILL_VOUCH = ? AND BILL_BOOK = ?",
            cut(trim(bill->text("BILL_NO")), 20), dateOnPaper(kind, *bill), voucher, kind.code);
  // A line that was typed in the place of one that is gone is another's.
  db.exec(
      "DELETE FROM ORIGITM WHERE BILL_VOUCH = ? AND BILL_BOOK = ? AND NOT EXISTS (SELECT 1 FROM SALEITM AS B"
      " JOIN SALEITM AS N ON N.ITEM_CD = B.ITEM_CD WHERE B.VOUCH_NO = ORIGITM.BILL_VOUCH"
      " AND B.BOOK_CD = ORIGITM.BILL_BOOK AND B.SR_NO = ORIGITM.BILL_SR AND N.VOUCH_NO = ORIGITM.VOUCH_NO"
      " AND N.BOOK_CD = ORIGITM.BOOK_CD AND N.SR_NO = ORIGITM.SR_NO)",
      voucher, kind.code);
}

std::string notesAgainst(Database& db, const VoucherKind& bill, double voucher) {
  std::vector<std::string> notes;
  if (!hasNotes(db)) return {};
  for (const Row& row : db.all("SELECT DISTINCT BOOK_CD, VOUCH_NO FROM ORIGINAL WHERE BILL_VOUCH = ?"
                               " AND BILL_BOOK = ? ORDER BY BOOK_CD, VOUCH_NO",
                               voucher, bill.code))
    if (const VoucherKind* const note = kindByBook(row.text(0)))
      notes.push_back(words(note->words.name) + " " + numText(row.number(1)));
  return join(notes, ", ");
}

std::string notesRefuse(Database& db, const VoucherKind& bill, double voucher) {
  const std::string notes = notesAgainst(db, bill, voucher);
  return notes.empty() ? "" : words("Against This Bill Stands {notes}\nDelete That First", "notes", notes);
}

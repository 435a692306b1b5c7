#include "vouchers/sources.h"

#include <algorithm>
#include <stdexcept>

#include "base/number.h"
#include "base/text.h"
#include "base/words.h"
#include "store/balances.h"
#include "vouchers/challans.h"
#include "vouchers/items.h"

namespace {

bool isChallan(const MadeFrom& from) { return sameText(from.book, challanKind().book()); }

const VoucherKind& kindOf(const MadeFrom& from) { return isChallan(from) ? challanKind() : quotationKind(); }

// Where an update has put one for nothing.
std::string filled(const Row& row, const char* column) {
  const std::string text = trim(row.text(column));
  return text == "." || text == "0" ? "" : text;
}

std::string nameOf(const MadeFrom& from, const std::string& number) {
  return words(kindOf(from).words.name) + " " + (number.empty() ? numText(from.voucher) : number);
}

std::string paperNumber(const Row& head, bool challan) {
  if (!challan) return filled(head, "REF_NO");
  const std::string type = filled(head, "CHLN_TYP"), number = filled(head, "CHLN_NO");
  return type.empty() || number.empty() ? number : type + " / " + number;
}

// The rows of one kind for the list, with the values of its "?".
std::string rowsOf(Database& db, const VoucherKind& source, const VoucherKind& kind, const std::string& party,
                   const std::vector<MadeFrom>& taken, double number, std::vector<Value>& values) {
  const bool challan = &source == &challanKind();
  values.emplace_back(words(source.words.name));
  std::string here;
  for (const MadeFrom& from : taken)
    if (sameText(from.book, source.book())) {
      here += here.empty() ? "?" : ", ?";
      values.emplace_back(from.voucher);
    }
  if (!here.empty()) values.emplace_back(words("Taken"));
  std::string text = "SELECT '" + source.book() + "' AS BOOK, ? AS KIND, V.VOUCH_NO, V.VOUCH_DT, " +
                     (challan ? "COALESCE(V.CHLN_TYP, '') || ' / ' || COALESCE(V.CHLN_NO, '')" : "V.REF_NO") +
                     " AS PAPER, " + (challan ? "V.ORDER_NO" : "V.YOUR_REF_NO") +
                     " AS ORDER_NO, V.NET_AMT, V.PARTY_CD, " +
                     (here.empty() ? "''" : "CASE WHEN V.VOUCH_NO IN (" + here + ") THEN ? ELSE '' END") +
                     " AS HERE FROM " + source.tables.heads + " AS V WHERE V." + source.tables.key + " = ?";
  values.emplace_back(source.code);
  // One that is taken can be taken out again, whose it may be.
  if (!party.empty()) {
    text += " AND (V.PARTY_CD = ?" + (here.empty() ? "" : " OR V.VOUCH_NO IN (" + here + ")") + ")";
    values.emplace_back(party);
    for (const MadeFrom& from : taken)
      if (sameText(from.book, source.book())) values.emplace_back(from.voucher);
  }
  const std::string open = isOpen(db, source, "V");
  if (number == 0) return text + " AND " + open;
  std::string own;
  for (const MadeFrom& from : madeFrom(db, kind, number))
    if (sameText(from.book, source.book())) {
      own += own.empty() ? "?" : ", ?";
      values.emplace_back(from.voucher);
    }
  return text + " AND " + (own.empty() ? open : "(V.VOUCH_NO IN (" + own + ") OR " + open + ")");
}

}  // namespace

Lookup openSources(Database& db, const VoucherKind& kind, const std::string& party,
                   const std::vector<MadeFrom>& taken, double number) {
  std::string rows;
  std::vector<Value> values;
  for (const VoucherKind* source : madeFromKinds(kind))
    rows += (rows.empty() ? "" : " UNION ALL ") + rowsOf(db, *source, kind, party, taken, number, values);
  return {
      .rows = {.columns = {{"O.VOUCH_NO", 700},
                           {"O.PAPER", 1300, "NUMBER"},
                           {"O.KIND", 1300, "VOUCHER"},
                           {"SHOWN(O.VOUCH_DT,'dd/mm/yyyy')", 1100, "VDT"},
                           {"ACCOUNT.ACC_NAME", 2800},
                           {"O.ORDER_NO", 1700},
                           {"O.NET_AMT", 1100},
                           {"O.HERE", 800}},
               .from = "(" + rows + ") AS O LEFT JOIN ACCOUNT ON O.PARTY_CD = ACCOUNT.ACC_CD",
               .order = {down("O.VOUCH_DT"), "O.BOOK", down("O.VOUCH_NO")},
               .values = std::move(values)},
      .along = "O.BOOK"
  };
}

std::optional<SourceHead> readSource(Database& db, const MadeFrom& from) {
  const VoucherKind& kind = kindOf(from);
  const auto row =
      db.first("SELECT * FROM " + kind.tables.heads + " WHERE VOUCH_NO = ? AND " + kind.tables.key + " = ?",
               from.voucher, kind.code);
  if (!row) return std::nullopt;
  const bool challan = isChallan(from);
  const std::string number = paperNumber(*row, challan);
  SourceHead head{.name = nameOf(from, number), .party = trim(row->text("PARTY_CD")), .number = number};
  head.orderNumber = filled(*row, challan ? "ORDER_NO" : "YOUR_REF_NO");
  if (!challan) return head;
  head.number = filled(*row, "CHLN_NO");
  head.transport = filled(*row, "TRANSPORT");
  head.lrNumber = filled(*row, "GR_NO");
  if (row->number("DISC_PERC") == 0) head.discount = row->number("DISC_AMT");
  head.charges = row->number("CHRGS");
  return head;
}

std::vector<SourceLine> readSourceLines(Database& db, const MadeFrom& from) {
  constexpr const char* kChallan =
      "SELECT L.ITEM_CD, I.ITEM_NAME, L.ITEM_DESC, L.SIZE_CD, L.QUANTITY, L.RATE, H.DISC_PERC AS DISC,"
      " I.RATEOFTAX, 0 AS OFFERED FROM CHLNITM AS L JOIN CHLN AS H ON H.VOUCH_NO = L.VOUCH_NO"
      " AND H.BOOK_CD = L.BOOK_CD LEFT JOIN ITEM AS I ON I.ITEM_CD = L.ITEM_CD"
      " WHERE L.VOUCH_NO = ? AND L.BOOK_CD = ? ORDER BY L.SR_NO, L.rowid";
  constexpr const char* kOffer =
      "SELECT L.ITEM_CD, L.ITEM_NAME, L.ITEM_DESC, L.SIZE_CD, VAL(L.QUANTITY) AS QUANTITY,"
      " VAL(L.RATE) AS RATE, L.DISC, I.RATEOFTAX, L.CGSTRT + L.SGSTRT + L.IGSTRT AS OFFERED"
      " FROM QUOTITM AS L LEFT JOIN ITEM AS I ON I.ITEM_CD = L.ITEM_CD"
      " WHERE L.VOUCH_NO = ? AND L.ENTRY_TYP = ? ORDER BY L.SRNO, L.rowid";
  std::vector<SourceLine> lines;
  for (const Row& row : db.all(isChallan(from) ? kChallan : kOffer, from.voucher, kindOf(from).code)) {
    SourceLine& line = lines.emplace_back();
    line = {.item = trim(row.text("ITEM_CD")),
            .name = trim(row.text("ITEM_NAME")),
            .detail = filled(row, "ITEM_DESC"),
            .unit = trim(row.text("SIZE_CD")),
            .quantity = row.number("QUANTITY"),
            .rate = row.number("RATE"),
            .discount = row.number("DISC")};
    // A challan keeps the free name as the detail.
    const bool misc = sameText(line.item, kMiscItem);
    if (misc && isChallan(from) && !line.detail.empty()) line.name = line.detail;
    if (!row.isNull("RATEOFTAX") && !misc) line.taxRate = row.number("RATEOFTAX");
    if (!line.taxRate && (misc || row.number("OFFERED") != 0)) line.taxRate = row.number("OFFERED");
    if (misc && *line.taxRate == 0 && !row.isNull("RATEOFTAX")) line.taxRate = row.number("RATEOFTAX");
  }
  return lines;
}

std::string fromWords(Database& db, const std::vector<MadeFrom>& from) {
  std::vector<std::string> names;
  for (const MadeFrom& one : from) {
    const auto head = readSource(db, one);
    names.push_back(head ? head->name : nameOf(one, ""));
  }
  return names.empty() ? "" : words("From {vouchers}", "vouchers", join(names, ", "));
}

bool touchesSources(Database& db, const VoucherKind& kind, double number, const std::vector<MadeFrom>& from) {
  return !madeFromKinds(kind).empty() && (!from.empty() || anyMadeFrom(db, kind, number));
}

void keepSources(Database& db, const VoucherKind& kind, double number, const std::string& party,
                 const std::vector<MadeFrom>& from) {
  std::vector<MadeFrom> touched = madeFrom(db, kind, number);
  const std::vector<MadeFrom> freed = takeFreed(db, kind, number);
  touched.insert(touched.end(), freed.begin(), freed.end());
  storeMadeFrom(db, kind, number, {});
  for (const MadeFrom& one : from) {
    const auto head = readSource(db, one);
    if (!head)
      throw std::runtime_error(
          words("{voucher} Has Been Deleted Meanwhile\nNothing Was Stored", "voucher", nameOf(one, "")));
    if (!sameText(head->party, trim(party)))
      throw std::runtime_error(
          words("{voucher} Is Of Another Party\nCtrl+O Takes It Out Of Here Again", "voucher", head->name));
    const std::string billed = billedWords(db, one);
    if (!billed.empty())
      throw std::runtime_error(words("{voucher} Was Taken Meanwhile :: {billed}\nNothing Was Stored",
                                     "voucher", head->name, "billed", billed));
  }
  storeMadeFrom(db, kind, number, from);
  for (const MadeFrom& one : from)
    if (std::ranges::find(touched, one) == touched.end()) touched.push_back(one);
  bool posted = false;
  for (const MadeFrom& one : touched)
    if (isChallan(one)) posted = postChallan(db, challanKind(), one.voucher) || posted;
  if (posted) RebuildOneBalance(db, trim(party));
}

std::string sourceRefuses(Database& db, const VoucherKind& kind, double number) {
  const std::string billed = billedWords(db, {kind.book(), number});
  return billed.empty() ? "" : words("{billed}\nDelete That First", "billed", billed);
}

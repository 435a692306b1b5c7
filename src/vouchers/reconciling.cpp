#include "vouchers/reconciling.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <initializer_list>
#include <map>

#include "base/number.h"
#include "base/text.h"
#include "frame/voucher_kinds.h"
#include "store/engine.h"
#include "store/groups.h"

namespace {

constexpr int kEarlier = 3, kLater = 10, kChequeLives = 92, kNear = 4;
constexpr size_t kLeastDigits = 4;

using Numbers = std::vector<std::string>;

// Numbers of some length in a text, without leading zeros: "CHQ 004512" has 4512.
Numbers numbersIn(const std::string& text) {
  Numbers numbers;
  std::string run;
  for (const char c : text + " ") {
    if (std::isdigit(static_cast<unsigned char>(c)) != 0) {
      run += c;
      continue;
    }
    if (run.size() >= kLeastDigits)
      numbers.push_back(run.substr(std::min(run.find_first_not_of('0'), run.size())));
    run.clear();
  }
  std::erase(numbers, "");
  return numbers;
}

// What the bank says in the column of references, and anywhere.
struct Said {
  Numbers reference, all;
};

// A number of the books stands anywhere in what the bank says; another one in its own column differs.
Match::Reference compare(const Numbers& ours, const Said& said) {
  if (ours.empty()) return Match::Reference::Unknown;
  for (const std::string& number : ours)
    if (std::ranges::find(said.all, number) != said.all.end()) return Match::Reference::Agrees;
  return said.reference.empty() ? Match::Reference::Unknown : Match::Reference::Differs;
}

// Of one amount; none where they cannot be the same.
std::optional<Match> answer(const BookEntry& book, const StatementLine& line, const Numbers& ours,
                            const Said& said) {
  Match match{.days = daysBetween(book.date, line.date), .known = book.cleared == line.date};
  match.moves = book.cleared && !match.known;
  if (!match.known && (match.days < -kEarlier || match.days > kChequeLives)) return std::nullopt;
  match.reference = compare(ours, said);
  const bool agrees = match.reference == Match::Reference::Agrees;
  return match.known || agrees || match.days <= kLater ? std::optional(match) : std::nullopt;
}

// Better ones first; among equals as they stand.
bool better(const Match& a, const Match& b) {
  if (a.known != b.known) return a.known;
  if (a.moves != b.moves) return b.moves;
  if (a.reference != b.reference) return a.reference < b.reference;
  return std::abs(a.days) < std::abs(b.days);
}

// Letters and figures alone: "M/S. Shivangi  Const." and "MS SHIVANGI CONST" are the same.
std::string plain(const std::string& text) {
  std::string letters = upper(text);
  std::erase_if(letters, [](unsigned char c) { return c < 0x80 && std::isalnum(c) == 0; });
  return letters;
}

bool saysWord(const std::string& text, std::initializer_list<const char*> wanted) {
  std::string spaced = " " + upper(text) + " ";
  for (char& c : spaced)
    if (static_cast<unsigned char>(c) < 0x80 && std::isalnum(static_cast<unsigned char>(c)) == 0) c = ' ';
  return std::ranges::any_of(wanted, [&](const char* word) {
    return spaced.find(" " + std::string(word) + " ") != std::string::npos;
  });
}

// How many letters of the name stand in the text; 0 where they are too few to mean it.
size_t lettersOf(const std::string& name, const std::string& text) {
  constexpr size_t kLeast = 5, kEnough = 10;
  for (size_t length = name.size(); length >= std::max(std::min(name.size(), kEnough), kLeast); --length)
    if (text.find(name.substr(0, length)) != std::string::npos) return length;
  return 0;
}

}  // namespace

OtherSide otherSideOf(Database& db, const std::string& bank, const StatementLine& line) {
  if (saysWord(line.text, {"CASH", "SELF", "ATM", "CDM"}) &&
      !saysWord(line.text, {"CHARGE", "CHARGES", "CHRG", "CHG", "FEE", "FEES", "GST"}))
    return {.account = kCashAccount, .money = true};
  const std::string text = plain(line.text);
  OtherSide found;
  size_t best = 0;
  for (auto rows = db.query("SELECT ACC_CD, ACC_NAME, CASE WHEN " + underGroups("GROUP_CD", {87, 127}) +
                                " THEN 1 ELSE 0 END AS IS_BANK FROM ACCOUNT WHERE ACC_CD <> ? AND " +
                                underGroups("GROUP_CD", {85, 86, 87, 127, 135}) + " ORDER BY ACC_CD",
                            bank);
       rows.next();) {
    const size_t letters = lettersOf(plain(rows.text(1)), text);
    if (letters == 0 || letters < best) continue;
    found = letters == best ? OtherSide{} : OtherSide{rows.text(0), rows.number(2) == 1};
    best = letters;
  }
  return found;
}

std::string moneyModeOf(const StatementLine& line) {
  if (saysWord(line.text, {"UPI"})) return "UP";
  if (saysWord(line.text, {"CARD", "POS"})) return "CD";
  return saysWord(line.text, {"CHQ", "CHEQUE", "CLG", "CTS", "INW"}) ? "CQ" : "NE";
}

double BankSums::bank() const { return Round(books + paid - received, 2); }

std::vector<BookEntry> bankEntries(Database& db, const std::string& account, Date from, Date to) {
  ensureTable(db, "CLEARED");
  std::vector<BookEntry> entries;
  auto rows = db.query(
      "SELECT L.BOOK_CD, L.VOUCH_NO, COALESCE(L.SRNO, 0), L.VOUCH_TYPE, L.VOUCH_AMT, L.VOUCH_DT,"
      " (SELECT ACC_NAME FROM ACCOUNT WHERE ACCOUNT.ACC_CD = L.PARTY_TCD), L.CHQ_NO, L.PARTY_BL, C.CLG_DT"
      " FROM ALEDGER AS L LEFT JOIN CLEARED AS C ON " +
          clearedBy("L", "C") +
          " WHERE L.PARTY_CD = ? AND L.VOUCH_DT <= ?"
          " AND (L.VOUCH_DT >= ? OR C.CLG_DT IS NULL OR C.CLG_DT >= ?)"
          " ORDER BY L.VOUCH_DT, L.VOUCH_NO, L.BOOK_CD, L.rowid",
      account, to, from, from);
  while (rows.next()) {
    const std::string cheque = trim(rows.text(7)), bill = trim(rows.text(8));
    const double amount = rows.number(4) * (rows.text(3) == "D" ? 1 : -1);
    entries.push_back({
        .row = {.account = account,
                .book = rows.text(0),
                .number = rows.number(1),
                .serial = rows.number(2),
                .amount = amount},
        .date = rows.date(5).value_or(to),
        .particulars = rows.text(6),
        .reference = cheque.empty() || cheque == "." ? bill : cheque,
        .cleared = rows.date(9)
    });
  }
  return entries;
}

BankSums bankSums(Database& db, const std::string& account, Date to) {
  ensureTable(db, "CLEARED");
  const auto sums = db.first(
      "SELECT SUM(CASE WHEN L.VOUCH_TYPE = 'D' THEN L.VOUCH_AMT ELSE -L.VOUCH_AMT END),"
      " SUM(CASE WHEN L.VOUCH_TYPE <> 'D' AND (C.CLG_DT IS NULL OR C.CLG_DT > ?) THEN L.VOUCH_AMT END),"
      " SUM(CASE WHEN L.VOUCH_TYPE = 'D' AND (C.CLG_DT IS NULL OR C.CLG_DT > ?) THEN L.VOUCH_AMT END)"
      " FROM ALEDGER AS L LEFT JOIN CLEARED AS C ON " +
          clearedBy("L", "C") + " WHERE L.PARTY_CD = ? AND L.VOUCH_DT <= ?",
      to, to, account, to);
  const double opening = db.number("SELECT OP_BAL FROM ACCOUNT WHERE ACC_CD = ?", account);
  return {.books = Round(opening + sums->number(0), 2),
          .paid = Round(sums->number(1), 2),
          .received = Round(sums->number(2), 2)};
}

std::vector<Match> matchStatement(const std::vector<BookEntry>& books,
                                  const std::vector<StatementLine>& lines) {
  std::multimap<double, size_t> byAmount;
  std::vector<Numbers> ours;
  for (size_t book = 0; book < books.size(); ++book) {
    byAmount.emplace(Round(books[book].row.amount, 2), book);
    ours.push_back(numbersIn(books[book].reference));
  }
  std::vector<Match> answers;
  std::vector<std::vector<size_t>> ofBook(books.size()), ofLine(lines.size());
  for (size_t line = 0; line < lines.size(); ++line) {
    const auto [first, last] = byAmount.equal_range(Round(lines[line].amount, 2));
    const Said said{numbersIn(lines[line].reference),
                    numbersIn(lines[line].text + " " + lines[line].reference)};
    for (auto of = first; of != last; ++of)
      if (auto match = answer(books[of->second], lines[line], ours[of->second], said)) {
        match->book = of->second;
        match->line = line;
        ofBook[match->book].push_back(answers.size());
        ofLine[line].push_back(answers.size());
        answers.push_back(*match);
      }
  }
  // Certain: no rival that answers as well, for the row or for the line.
  for (Match& match : answers) {
    const auto rival = [&](size_t place) {
      const Match& other = answers[place];
      return &other != &match && other.reference <= match.reference && other.known >= match.known;
    };
    const bool rivals =
        std::ranges::any_of(ofBook[match.book], rival) || std::ranges::any_of(ofLine[match.line], rival);
    const bool near = match.days >= -1 && match.days <= kNear;
    match.certain = match.known || (!rivals && !match.moves &&
                                    (match.reference == Match::Reference::Agrees ||
                                     (match.reference == Match::Reference::Unknown && near)));
  }
  std::ranges::stable_sort(answers, better);
  std::vector<Match> chosen;
  std::vector<bool> bookTaken(books.size()), lineTaken(lines.size());
  for (const Match& match : answers) {
    if (bookTaken[match.book] || lineTaken[match.line]) continue;
    bookTaken[match.book] = lineTaken[match.line] = true;
    chosen.push_back(match);
  }
  std::ranges::sort(chosen, {}, &Match::line);
  return chosen;
}

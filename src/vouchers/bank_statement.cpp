#include "vouchers/bank_statement.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>
#include <initializer_list>
#include <iterator>

#include "base/number.h"
#include "base/text.h"
#include "base/words.h"
#include "platform/utf8.h"
#include "platform/workbook/model.h"
#include "platform/workbook/workbook.h"
#include "vouchers/html_rows.h"

namespace {

using Cells = std::vector<std::string>;

constexpr std::uintmax_t kMostBytes = 20'000'000;
constexpr size_t kMostRows = 100'000, kMostColumns = 100, kHeadWithin = 60;

[[noreturn]] void refuse(const char* sentence, const std::string& name) {
  throw StatementRefused(words(sentence, "file", name));
}

// The words of a heading: "Withdrawal Amt.(INR)" is "withdrawal", "amt", "inr". Some banks write them as one:
// "TxnDate", "CHQNO".
std::vector<std::string> wordsOf(const std::string& heading) {
  std::string plain = lower(heading);
  for (char& c : plain)
    if (static_cast<unsigned char>(c) < 0x80 && std::isalnum(static_cast<unsigned char>(c)) == 0) c = ' ';
  std::vector<std::string> all = split(plain, " ");
  std::erase(all, "");
  return all;
}

bool saysDebit(const std::string& word) {
  return word == "dr" || word.starts_with("debit") || word.starts_with("withdr");
}
bool saysCredit(const std::string& word) {
  return word == "cr" || word.starts_with("credit") || word.starts_with("deposit");
}

enum class Means { Nothing, Date, OtherDate, Text, Reference, Debit, Credit, Amount, Side, Balance };

// A heading that names both sides tells which of them an amount is on.
Means meaningOf(const std::string& heading) {
  const std::vector<std::string> all = wordsOf(heading);
  const auto any = [&](std::initializer_list<const char*> wanted) {
    return std::ranges::any_of(wanted, [&](const char* w) { return std::ranges::find(all, w) != all.end(); });
  };
  const auto begins = [&](std::initializer_list<const char*> wanted) {
    return std::ranges::any_of(wanted, [&](const char* w) {
      return std::ranges::any_of(all, [&](const std::string& word) { return word.starts_with(w); });
    });
  };
  const auto ends = [&](const char* end) {
    return std::ranges::any_of(all, [&](const std::string& word) { return word.ends_with(end); });
  };
  const bool both = any({"drcr", "crdr", "dc"});
  const bool debit = both || std::ranges::any_of(all, saysDebit) || any({"paid"});
  const bool credit = both || std::ranges::any_of(all, saysCredit) || any({"received"});
  const bool cheque = begins({"chq", "cheque", "instrument"});
  if (begins({"balance"}) || any({"bal"}) || ends("balance")) return Means::Balance;
  if (ends("date") || any({"dt", "dated"}))
    return cheque || begins({"value"}) ? Means::OtherDate : Means::Date;
  const bool amount = ends("amount") || ends("amt");
  if (!amount && ((debit && credit) || any({"type", "sign", "indicator"}))) return Means::Side;
  if (debit && credit) return Means::Amount;
  if (debit) return Means::Debit;
  if (credit) return Means::Credit;
  if (amount) return Means::Amount;
  if (cheque || begins({"ref", "utr"}) || any({"check"})) return Means::Reference;
  if (begins({"descr", "narration", "particular", "remark", "detail"}) || ends("remarks")) return Means::Text;
  return Means::Nothing;
}

struct Columns {
  std::array<int, 10> at;
  Columns() { at.fill(-1); }
  int operator[](Means what) const { return at[static_cast<size_t>(what)]; }
  bool has(Means what) const { return (*this)[what] >= 0; }
  bool serve() const {
    return has(Means::Date) && (has(Means::Amount) || has(Means::Debit) || has(Means::Credit));
  }
};

// Of several columns of one meaning the first counts.
Columns columnsOf(const Cells& head) {
  Columns columns;
  for (size_t i = 0; i < head.size(); ++i) {
    int& at = columns.at[static_cast<size_t>(meaningOf(head[i]))];
    if (at < 0) at = static_cast<int>(i);
  }
  if (!columns.has(Means::Date)) columns.at[static_cast<size_t>(Means::Date)] = columns[Means::OtherDate];
  return columns;
}

std::string cellOf(const Cells& row, int column) {
  return column >= 0 && static_cast<size_t>(column) < row.size() ? trim(row[static_cast<size_t>(column)])
                                                                 : "";
}

// "03-11-2026", "3 Nov 26", "03.11.2026 14:22", "2026-11-03T00:00:00"
std::optional<Date> dateIn(std::string text) {
  if (const size_t time = text.find('T'); time == 10 && text.size() > 11) text = text.substr(0, time);
  if (const size_t colon = text.find(':'); colon != std::string::npos)
    text = trim(text.substr(0, text.rfind(' ', colon)));
  if (auto whole = parseDate(text)) return whole;
  for (char& c : text)
    if (c == '-' || c == '.' || c == ' ' || c == ',') c = '/';
  while (text.find("//") != std::string::npos) text = replaceAll(text, "//", "/");
  return parseDate(text);
}

struct Money {
  double figure = 0;
  char side = 0;  // 'D', 'C', or none told
};

// "1,00,000.00", "Rs. 500 Cr", "(177.00)", "-177"; a dash alone is nothing.
std::optional<Money> moneyIn(std::string text) {
  Money money;
  text = upper(trim(text));
  for (const char* mark : {"₹", "RS.", "RS", "INR", ",", "\xC2\xA0"}) text = replaceAll(text, mark, "");
  text = trim(text);
  for (const auto& [mark, side] : {
           std::pair{"DR", 'D'},
           {"CR", 'C'}
  })
    for (const char* form : {"", ".", ")", ".)"})
      if (text.ends_with(mark + std::string(form))) {
        text.resize(text.rfind(mark));
        if (text.ends_with("(")) text.pop_back();
        text = trim(text);
        money.side = side;
      }
  const bool bracketed = text.size() > 2 && text.front() == '(' && text.back() == ')';
  if (bracketed) text = text.substr(1, text.size() - 2);
  if (text.empty() || text == "-") return Money{};
  if (!isNumberText(text)) return std::nullopt;
  money.figure = Round(Val(text), 2) * (bracketed ? -1 : 1);
  return money;
}

std::optional<double> amountIn(const Cells& row, const Columns& columns) {
  if (!columns.has(Means::Amount)) {
    const auto debit = moneyIn(cellOf(row, columns[Means::Debit]));
    const auto credit = moneyIn(cellOf(row, columns[Means::Credit]));
    if (!debit || !credit) return std::nullopt;
    return Round(credit->figure - std::fabs(debit->figure), 2);
  }
  const auto money = moneyIn(cellOf(row, columns[Means::Amount]));
  if (!money) return std::nullopt;
  char side = money->side;
  // A column of types may say cheque or cash instead.
  for (const std::string& told : wordsOf(cellOf(row, columns[Means::Side]))) {
    if (saysDebit(told) || told == "d") side = 'D';
    if (saysCredit(told) || told == "c") side = 'C';
  }
  return side == 0 ? money->figure : std::fabs(money->figure) * (side == 'D' ? -1 : 1);
}

std::optional<double> balanceIn(const std::string& text) {
  const auto money = text.empty() ? std::nullopt : moneyIn(text);
  if (!money) return std::nullopt;
  return money->side == 'D' ? -std::fabs(money->figure) : money->figure;
}

std::vector<Cells> rowsOfText(std::u32string_view text, char32_t separator) {
  std::vector<Cells> rows(1, Cells(1));
  std::u32string cell;
  bool quoted = false;
  const auto endCell = [&] {
    rows.back().back() = utf8::encode(cell);
    cell.clear();
  };
  for (size_t i = 0; i < text.size(); ++i) {
    const char32_t c = text[i];
    if (quoted && c == U'"' && i + 1 < text.size() && text[i + 1] == U'"') {
      cell += c;
      ++i;
    } else if (c == U'"' && (quoted || trim(utf8::encode(cell)).empty())) {
      quoted = !quoted;
    } else if (!quoted && c == separator) {
      endCell();
      if (rows.back().size() < kMostColumns) rows.back().emplace_back();
    } else if (!quoted && (c == U'\n' || c == U'\r')) {
      endCell();
      if (rows.size() == kMostRows) break;
      rows.emplace_back(1);
    } else {
      cell += quoted && (c == U'\n' || c == U'\r') ? U' ' : c;
    }
  }
  endCell();
  return rows;
}

// Past the names over it: the heading is the first row that tells of a date and an amount.
std::optional<size_t> headOf(const std::vector<Cells>& rows) {
  for (size_t i = 0; i < std::min(rows.size(), kHeadWithin); ++i)
    if (columnsOf(rows[i]).serve()) return i;
  return std::nullopt;
}

std::vector<Cells> rowsOfSheet(workbook::Sheet& sheet, const workbook::SheetModel& filled) {
  std::vector<Cells> rows;
  for (const auto& [number, row] : filled.rows) {
    if (rows.size() == kMostRows) break;
    Cells& cells = rows.emplace_back();
    for (const auto& cell : row.cells) {
      const auto column = static_cast<size_t>(cell.column);
      if (column > kMostColumns) break;
      cells.resize(column);
      cells.back() = sheet.shown(number, cell.column);
    }
  }
  return rows;
}

// Of the first sheet with such a heading; others may hold a summary or what the bank offers.
std::vector<Cells> rowsOfWorkbook(const std::string& path, const std::string& name) {
  try {
    auto book = workbook::Workbook::load(path);
    const auto names = book.sheetNames();
    for (size_t i = 0; i < names.size(); ++i)
      if (auto rows = rowsOfSheet(book.sheet(names[i]), book.model().sheets[i]); headOf(rows)) return rows;
    return {};
  } catch (const workbook::WorkbookError&) {
    refuse(english("{file} Is No Workbook That Can Be Read\nLet The Bank Give It As Csv Or Xlsx"), name);
  }
}

std::string bytesOf(const std::filesystem::path& file, const std::string& name) {
  std::error_code failed;
  const auto size = std::filesystem::file_size(file, failed);
  if (failed || !std::filesystem::is_regular_file(file)) refuse(english("There Is No File {file}"), name);
  if (size > kMostBytes) refuse(english("{file} Is Too Large For A Statement"), name);
  std::ifstream in(file, std::ios::binary);
  std::string bytes{std::istreambuf_iterator<char>(in), {}};
  if (!in) refuse(english("{file} Cannot Be Read"), name);
  return bytes;
}

}  // namespace

BankStatement statementOfRows(const std::vector<Cells>& rows, const std::string& name) {
  const auto head = headOf(rows);
  if (!head)
    refuse(english("{file} Has No Line With Date And Amount In Its Heading\n"
                   "A Statement Has Columns Such As Date, Description, Debit And Credit"),
           name);
  const Columns columns = columnsOf(rows[*head]);
  BankStatement statement;
  for (size_t i = *head + 1; i < rows.size(); ++i) {
    const auto date = dateIn(cellOf(rows[i], columns[Means::Date]));
    if (!date) continue;  // what stands over, between and under the entries
    const auto amount = amountIn(rows[i], columns);
    if (!amount) ++statement.unread;
    if (!amount || *amount == 0) continue;
    statement.lines.push_back({.date = *date,
                               .text = cellOf(rows[i], columns[Means::Text]),
                               .reference = cellOf(rows[i], columns[Means::Reference]),
                               .amount = *amount,
                               .balance = balanceIn(cellOf(rows[i], columns[Means::Balance]))});
  }
  if (statement.lines.empty()) refuse(english("{file} Has No Entries With Date And Amount"), name);
  return statement;
}

BankStatement statementOfText(const std::string& bytes, const std::string& name) {
  if (bytes.find('\0') != std::string::npos)
    refuse(english("{file} Is Neither Csv Nor Xlsx\nLet The Bank Give It As One Of These"), name);
  std::u32string text = utf8::decode(bytes);
  if (!text.empty() && text.front() == U'\xFEFF') text.erase(0, 1);
  if (const std::string page = trim(utf8::encode(text)); page.starts_with('<'))
    return statementOfRows(rowsOfHtml(page, kMostRows, kMostColumns), name);
  for (const char32_t separator : {U',', U';', U'\t'})
    if (auto rows = rowsOfText(text, separator); headOf(rows)) return statementOfRows(rows, name);
  return statementOfRows({}, name);
}

BankStatement readBankStatement(const std::filesystem::path& file) {
  const std::string name = file.filename().string(), bytes = bytesOf(file, name);
  if (bytes.starts_with("PK")) return statementOfRows(rowsOfWorkbook(file.string(), name), name);
  return statementOfText(bytes, name);
}

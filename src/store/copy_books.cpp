#include "store/copy_books.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

#include "base/end_asked.h"
#include "base/number.h"
#include "base/text.h"
#include "base/words.h"
#include "store/dictionary.h"
#include "store/engine.h"
#include "store/keys.h"
#include "store/safe_file.h"
#include "store/views.h"

using Kind = DatabaseError::Kind;

namespace {

constexpr int kRowsRead = 4000;         // at once, and written in one transaction
constexpr size_t kValuesAtOnce = 4000;  // of one INSERT: both engines take more
constexpr int kLongestOther = 255;      // characters of a column that declares no length
constexpr size_t kWideTable = 40;       // columns: a server's row has room for so many of these
constexpr size_t kLongestText = 65535;  // bytes of a text without a length, on a server

using Columns = std::vector<Column>;
using Cells = std::vector<Value>;  // the row number first

std::string namesOf(const Columns& columns) {
  std::string names = "rowid";
  for (const Column& column : columns) names += ", " + quotedName(column.name);
  return names;
}

// Calls `take` with each portion of a table's rows, in the order of their numbers.
void eachPortion(Database& db, const std::string& table, const Columns& columns,
                 const std::function<void(std::vector<Cells>&)>& take) {
  const std::string select = "SELECT " + namesOf(columns) + " FROM " + db.engine().standing(table);
  const std::string order = " ORDER BY rowid LIMIT " + std::to_string(kRowsRead);
  std::vector<Cells> portion;
  const auto read = [&](Rows rows) {
    portion.clear();
    while (rows.next()) {
      Cells& cells = portion.emplace_back();
      cells.reserve(columns.size() + 1);
      for (int i = 0; i < rows.count(); ++i) cells.push_back(rows.value(i));
    }
  };
  read(db.query(select + order));
  while (!portion.empty()) {
    const Value last = portion.back().front();
    const bool more = portion.size() == kRowsRead;
    take(portion);
    if (!more) return;
    if (endAsked() && endAsked()()) throw DatabaseError(Kind::stopped, shownName(db.file()), {});
    read(db.query(select + " WHERE rowid > ?" + order, last));
  }
}

// ---- figures

void append(std::string& bytes, char tag, const void* from, size_t size) {
  bytes += tag;
  bytes.append(static_cast<const char*>(from), size);
}

// A number is the same whether an engine hands it as a whole one or not; a date is its text.
void append(std::string& bytes, const Value& value, Column::Kind kind) {
  constexpr double kExact = 9007199254740992;  // 2^53
  if (value.isNull()) {
    bytes += 'N';
  } else if (value.isText() || kind == Column::Kind::text || kind == Column::Kind::date) {
    const std::string text = value.text();
    const std::uint64_t size = text.size();
    append(bytes, 'T', &size, sizeof size);
    bytes += text;
  } else if (value.isWhole() && std::abs(value.number()) > kExact) {
    const std::int64_t whole = value.whole();
    append(bytes, 'W', &whole, sizeof whole);
  } else {
    const double number = value.number() == 0 ? 0 : value.number();  // no engine tells -0 from 0 everywhere
    append(bytes, 'D', &number, sizeof number);
  }
}

// Of one table: the digest goes over every value and row number in the order of these, the same on every
// engine.
struct TableFigures {
  double rows = 0;
  std::vector<double> sums{};
  std::uint64_t digest = 0;
  bool operator==(const TableFigures&) const = default;
};

class Figures {
 public:
  explicit Figures(const Columns& columns) : columns_(columns) {
    for (const Column& column : columns)
      if (isFigure(column)) figures_.sums.push_back(0);
  }
  void add(const Cells& cells) {
    bytes_.clear();
    append(bytes_, 'R', &figures_.digest, sizeof figures_.digest);
    append(bytes_, cells.front(), Column::Kind::whole);
    auto sum = figures_.sums.begin();
    for (size_t i = 0; i < columns_.size(); ++i) {
      append(bytes_, cells[i + 1], columns_[i].kind);
      if (isFigure(columns_[i])) *sum++ += cells[i + 1].number();
    }
    figures_.digest = std::hash<std::string_view>{}(bytes_);
    figures_.rows += 1;
  }
  const TableFigures& get() const { return figures_; }

 private:
  static bool isFigure(const Column& column) {
    return column.kind == Column::Kind::number || column.kind == Column::Kind::whole;
  }
  const Columns& columns_;
  TableFigures figures_;
  std::string bytes_;
};

TableFigures figuresOf(Database& db, const std::string& table, const Columns& columns) {
  Figures figures(columns);
  eachPortion(db, table, columns, [&](const std::vector<Cells>& rows) {
    for (const Cells& cells : rows) figures.add(cells);
  });
  return figures.get();
}

// ---- values

bool isUtf8(std::string_view text) {
  for (size_t at = 0; at < text.size();) {
    const auto byte = [&](size_t i) { return static_cast<unsigned char>(i < text.size() ? text[i] : 0); };
    const unsigned char first = byte(at);
    const size_t more = first < 0x80   ? 0
                        : first < 0xC2 ? 9
                        : first < 0xE0 ? 1
                        : first < 0xF0 ? 2
                        : first < 0xF5 ? 3
                                       : 9;
    if (more == 9) return false;
    for (size_t i = 1; i <= more; ++i)
      if ((byte(at + i) & 0xC0) != 0x80) return false;
    const bool overlong = (first == 0xE0 && byte(at + 1) < 0xA0) || (first == 0xF0 && byte(at + 1) < 0x90);
    const bool beyond = (first == 0xED && byte(at + 1) > 0x9F) || (first == 0xF4 && byte(at + 1) > 0x8F);
    if (overlong || beyond) return false;
    at += more + 1;
  }
  return true;
}

// What keeps the value from its column, in words; empty when nothing does.
std::string refusal(const Value& value, const Column& column) {
  constexpr double kGreatestWhole = 2147483647;
  if (value.isNull()) return {};
  switch (column.kind) {
    case Column::Kind::number:
      if (value.isText()) return words("A Text Among Numbers");
      if (!std::isfinite(value.number())) return words("No Number");
      return {};
    case Column::Kind::whole:
      if (value.isText()) return words("A Text Among Numbers");
      if (!value.isWhole() || std::abs(value.number()) > kGreatestWhole) return words("No Whole Number");
      return {};
    default:
      break;
  }
  const std::string text = value.text();
  if (!isUtf8(text)) return words("No Text");
  if (column.size == 0 && text.size() > kLongestText) return words("Too Long");
  const int most = column.kind == Column::Kind::date ? kLongestDate : column.size;
  return most > 0 && length(text) > most
             ? words("Longer Than {letters} Letters", "letters", std::to_string(most))
             : "";
}

void check(const Cells& cells, const std::string& table, const Columns& columns) {
  for (size_t i = 0; i < columns.size(); ++i)
    if (const std::string why = refusal(cells[i + 1], columns[i]); !why.empty())
      throw DatabaseError(
          Kind::other,
          DatabaseError::Told(words("{table} {column} Row {row} Cannot Be Copied :: {why}", "table", table,
                                    "column", columns[i].name, "row", cells[0].text(), "why", why)));
}

// Dates come as texts whatever an older file made of them.
void asKept(Cells& cells, const Columns& columns) {
  for (size_t i = 0; i < columns.size(); ++i)
    if (columns[i].kind == Column::Kind::date && cells[i + 1].isNumber()) cells[i + 1] = cells[i + 1].text();
}

// ---- shapes

// A column of a kind that is none of ours becomes what its values are.
void settleOthers(Database& from, const std::string& table, Columns& columns) {
  for (Column& column : columns) {
    if (column.kind != Column::Kind::other) continue;
    int longest = 0;
    bool numbers = true, any = false;
    eachPortion(from, table, {column}, [&](const std::vector<Cells>& rows) {
      for (const Cells& cells : rows) {
        any |= !cells[1].isNull();
        numbers &= !cells[1].isText();
        longest = std::max(longest, length(cells[1].text()));
      }
    });
    const bool large = longest > kLongestOther || columns.size() > kWideTable;
    const int size = large ? 0 : kLongestOther;
    column.kind = any && numbers ? Column::Kind::number : Column::Kind::text;
    column.size = column.kind == Column::Kind::text ? size : 0;
    const std::string text = size == 0 ? "TEXT" : "TEXT(" + std::to_string(size) + ")";
    column.definition = column.kind == Column::Kind::number ? "DOUBLE" : text;
  }
}

// ---- tables

void write(Database& to, const std::string& table, const Columns& columns, const std::vector<Cells>& rows) {
  const size_t width = columns.size() + 1, most = std::max<size_t>(1, kValuesAtOnce / width);
  const std::string insert =
      "INSERT INTO " + to.engine().standing(table) + " (" + namesOf(columns) + ") VALUES ";
  std::string marks = "(?";
  for (size_t i = 1; i < width; ++i) marks += ", ?";
  marks += ")";
  for (size_t at = 0; at < rows.size();) {
    const size_t count = std::min(most, rows.size() - at);
    std::string statement = insert;
    std::vector<Value> values;
    values.reserve(count * width);
    for (size_t i = 0; i < count; ++i) {
      statement += (i == 0 ? "" : ", ") + marks;
      values.insert(values.end(), rows[at + i].begin(), rows[at + i].end());
    }
    to.exec(statement, values);
    at += count;
  }
}

TableFigures copyTable(Database& from, Database& to, const std::string& table, const Columns& columns,
                       const CopyProgress& progress) {
  Figures figures(columns);
  if (progress) progress(table, 0);
  eachPortion(from, table, columns, [&](std::vector<Cells>& rows) {
    for (Cells& cells : rows) {
      check(cells, table, columns);
      asKept(cells, columns);
      figures.add(cells);
    }
    const double done = figures.get().rows;
    whole(to, [&] { write(to, table, columns, rows); });
    if (progress) progress(table, done);
  });
  return figures.get();
}

void compare(Database& to, const std::string& table, const Columns& columns, const TableFigures& wanted) {
  if (figuresOf(to, table, columns) == wanted) return;
  throw DatabaseError(Kind::other,
                      DatabaseError::Told(words("{table} Came Over With Other Rows", "table", table)));
}

}  // namespace

std::vector<std::string> copyBooks(Database& from, Database& to, const CopyProgress& progress) {
  from.engine().dropWorkTables();
  const Transaction still(from, Transaction::Writes::WorkTables);
  const BulkWriting quick(to);
  for (const std::string& table : from.engine().tables()) {
    Columns columns = from.engine().tableColumns(table);
    settleOthers(from, table, columns);
    to.engine().createTable(table, columns);
    compare(to, table, columns, copyTable(from, to, table, columns, progress));
  }
  std::vector<std::string> withoutKey;
  for (const TableKey& key : tableKeys())
    if (from.engine().hasIndex(keyName(key.table)) && !addKey(to, key)) withoutKey.emplace_back(key.table);
  if (CheckTable(to, "SALE")) {
    EnsureIndexes(to);
    RemakeViews(to);
  }
  to.engine().stampShape(from.engine().shapeVersion());
  return withoutKey;
}

#include "platform/workbook/formula.h"

#include <charconv>

#include "base/text.h"
#include "base/words.h"
#include "platform/workbook/functions.h"

namespace workbook {
namespace {

constexpr int kMaxDepth = 200, kMaxOperators = 1000, kMaxLength = 8192;

bool letter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
bool digit(char c) { return c >= '0' && c <= '9'; }
bool word(char c) { return letter(c) || digit(c) || c == '_' || c == '.' || c == '\\' || (c & 0x80); }

// One side of a reference as it is written: "$B$7", "B", "7".
struct Corner {
  int row = 0, column = 0;  // 0: not given
  bool rowFixed = false, columnFixed = false;
  size_t size = 0;  // characters read
};

Corner readCorner(std::string_view text) {
  Corner corner;
  size_t at = 0;
  const auto dollar = [&] { return at < text.size() && text[at] == '$' ? (++at, true) : false; };
  bool fixed = dollar();
  const size_t letters = at;
  while (at < text.size() && letter(text[at]) && at - letters < 4)
    corner.column = corner.column * 26 + (text[at++] & 0x1F);
  if (at - letters > 3 || corner.column > kMaxColumn) return {};
  if (corner.column) {
    corner.columnFixed = fixed;
    fixed = dollar();
  }
  const size_t digits = at;
  while (at < text.size() && digit(text[at]) && at - digits < 8)
    corner.row = corner.row * 10 + (text[at++] - '0');
  if (corner.row > kMaxRow || (at > digits && (corner.row == 0 || text[digits] == '0'))) return {};
  if (corner.row)
    corner.rowFixed = fixed;
  else if (corner.column && fixed)
    return {};
  if (at < text.size() && word(text[at])) return {};
  corner.size = corner.row || corner.column ? at : 0;
  return corner;
}

// A cell, a block, whole columns or whole rows at the start of the text; size 0 for none.
struct Written {
  Corner first, last;
  bool block = false;
  size_t size = 0;
};

Written readReference(std::string_view text) {
  Written found;
  found.first = readCorner(text);
  if (!found.first.size) return {};
  const bool cell = found.first.row && found.first.column;
  size_t at = found.first.size;
  if (at < text.size() && text[at] == ':') {
    found.last = readCorner(text.substr(at + 1));
    const bool alike =
        !found.first.row == !found.last.row && !found.first.column == !found.last.column && found.last.size;
    if (alike) {
      found.block = true;
      at += 1 + found.last.size;
    }
  }
  if (!found.block && !cell) return {};
  if (at < text.size() && (text[at] == '(' || text[at] == '!')) return {};
  found.size = at;
  return found;
}

Coordinate relative(int at, bool fixed, int home) { return {.at = fixed ? at : at - home, .fixed = fixed}; }

class Parser {
 public:
  Parser(std::string_view text, int row, int column, const Names& names)
      : text_(text), row_(row), column_(column), names_(names) {}

  Expression whole() {
    if (text_.size() > kMaxLength) throw FormulaError("is too long");
    Expression result = comparison();
    blanks();
    if (at_ != text_.size()) throw FormulaError("cannot be understood");
    return result;
  }

 private:
  struct Level {
    explicit Level(int& depth) : depth(depth) {
      if (++depth > kMaxDepth) throw FormulaError("is nested too deeply");
    }
    ~Level() { --depth; }
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;
    int& depth;
  };

  void blanks() {
    while (at_ < text_.size() &&
           (text_[at_] == ' ' || text_[at_] == '\n' || text_[at_] == '\r' || text_[at_] == '\t'))
      ++at_;
  }
  char peek() {
    blanks();
    return at_ < text_.size() ? text_[at_] : '\0';
  }
  bool take(std::string_view sign) {
    blanks();
    if (text_.substr(at_, sign.size()) != sign) return false;
    at_ += sign.size();
    return true;
  }
  void expect(std::string_view sign) {
    if (!take(sign)) throw FormulaError("cannot be understood");
  }

  // A chain "1+1+1+..." makes a deep tree without deep parsing, so operators are counted.
  Expression binary(Operation operation, Expression left, Expression right) {
    if (++operators_ > kMaxOperators) throw FormulaError("has too many operators");
    Expression result;
    result.kind = Expression::Kind::Operation;
    result.operation = operation;
    result.arguments.reserve(2);
    result.arguments.push_back(std::move(left));
    result.arguments.push_back(std::move(right));
    return result;
  }
  Expression unary(Operation operation, Expression operand) {
    if (++operators_ > kMaxOperators) throw FormulaError("has too many operators");
    Expression result;
    result.kind = Expression::Kind::Operation;
    result.operation = operation;
    result.arguments.push_back(std::move(operand));
    return result;
  }

  Expression comparison() {
    const Level level(depth_);
    Expression left = joined();
    while (true) {
      if (take("<="))
        left = binary(Operation::LessEqual, std::move(left), joined());
      else if (take(">="))
        left = binary(Operation::GreaterEqual, std::move(left), joined());
      else if (take("<>"))
        left = binary(Operation::NotEqual, std::move(left), joined());
      else if (take("<"))
        left = binary(Operation::Less, std::move(left), joined());
      else if (take(">"))
        left = binary(Operation::Greater, std::move(left), joined());
      else if (take("="))
        left = binary(Operation::Equal, std::move(left), joined());
      else
        return left;
    }
  }
  Expression joined() {
    Expression left = sum();
    while (take("&")) left = binary(Operation::Join, std::move(left), sum());
    return left;
  }
  Expression sum() {
    Expression left = product();
    while (true) {
      if (take("+"))
        left = binary(Operation::Add, std::move(left), product());
      else if (take("-"))
        left = binary(Operation::Subtract, std::move(left), product());
      else
        return left;
    }
  }
  Expression product() {
    Expression left = power();
    while (true) {
      if (take("*"))
        left = binary(Operation::Multiply, std::move(left), power());
      else if (take("/"))
        left = binary(Operation::Divide, std::move(left), power());
      else
        return left;
    }
  }
  Expression power() {
    Expression left = signedOperand();
    while (take("^")) left = binary(Operation::Power, std::move(left), signedOperand());
    return left;
  }
  Expression signedOperand() {
    const Level level(depth_);
    if (take("-")) return unary(Operation::Negate, signedOperand());
    if (take("+")) return unary(Operation::Plus, signedOperand());
    Expression operand = range();
    while (take("%")) operand = unary(Operation::Percent, std::move(operand));
    return operand;
  }
  Expression range() {
    Expression left = operand();
    while (take(":")) left = binary(Operation::Range, std::move(left), operand());
    return left;
  }

  Expression operand() {
    const char c = peek();
    if (take("(")) {
      Expression inside = comparison();
      expect(")");
      return inside;
    }
    if (c == '"') return constant(quoted('"'));
    if (c == '\'') {
      const std::string sheet = quoted('\'');
      expect("!");
      return sheetReference(sheet);
    }
    if (c == '#') return errorConstant();
    if (c == '{') return array();
    if (c == '[') throw FormulaError("refers to another workbook or to a table");
    if (const Written written = readReference(text_.substr(at_)); written.size) {
      at_ += written.size;
      return reference(written, -1);
    }
    if (digit(c) || c == '.') return number();
    if (word(c)) return named();
    throw FormulaError("cannot be understood");
  }

  static Expression constant(Value value) {
    Expression result;
    result.constant = std::move(value);
    return result;
  }

  std::string quoted(char quote) {
    std::string out;
    for (++at_; at_ < text_.size(); ++at_) {
      if (text_[at_] != quote) {
        out += text_[at_];
      } else if (at_ + 1 < text_.size() && text_[at_ + 1] == quote) {
        out += quote;
        ++at_;
      } else {
        ++at_;
        return out;
      }
    }
    throw FormulaError("cannot be understood");
  }

  Expression number() {
    double value = 0;
    const auto [end, error] = std::from_chars(text_.data() + at_, text_.data() + text_.size(), value);
    if (error != std::errc()) throw FormulaError("holds a number out of range");
    at_ = static_cast<size_t>(end - text_.data());
    return constant(value);
  }

  Expression errorConstant() {
    for (const Error error : {Error::Null, Error::DivisionByZero, Error::Value, Error::Reference, Error::Name,
                              Error::Number, Error::NotAvailable})
      if (startsWithNoCase(text_.substr(at_), errorText(error))) {
        at_ += std::string_view(errorText(error)).size();
        return constant(error);
      }
    throw FormulaError("cannot be understood");
  }

  Expression array() {
    Expression result;
    result.kind = Expression::Kind::Array;
    expect("{");
    size_t width = 0;
    for (size_t across = 1;; ++across) {
      const bool minus = take("-");
      Expression item = operand();
      if (item.kind != Expression::Kind::Constant) throw FormulaError("cannot be understood");
      if (minus && item.constant.number()) item.constant = -*item.constant.number();
      result.arguments.push_back(std::move(item));
      if (take(",")) continue;
      if (width && across != width) throw FormulaError("cannot be understood");
      width = across;
      if (take("}")) return result;
      expect(";");
      ++result.rows;
      across = 0;
    }
  }

  Expression named() {
    const size_t start = at_;
    while (at_ < text_.size() && word(text_[at_])) ++at_;
    const std::string_view name = text_.substr(start, at_ - start);
    if (at_ < text_.size() && text_[at_] == '!') {
      ++at_;
      return sheetReference(name);
    }
    if (at_ < text_.size() && text_[at_] == '[') throw FormulaError("refers to a table");
    if (at_ < text_.size() && text_[at_] == '(') return call(name);
    if (sameText(name, "TRUE")) return constant(true);
    if (sameText(name, "FALSE")) return constant(false);
    Expression result;
    result.kind = Expression::Kind::Name;
    result.constant = name;
    return result;
  }

  Expression call(std::string_view name) {
    const Level level(depth_);
    Expression result;
    result.function = findFunction(name);
    result.kind = result.function ? Expression::Kind::Call : Expression::Kind::Unknown;
    if (!result.function) result.constant = name;
    expect("(");
    while (true) {
      const char c = peek();
      if (c == ',' || (c == ')' && !result.arguments.empty())) {
        result.arguments.emplace_back().kind = Expression::Kind::Missing;
      } else if (c != ')') {
        result.arguments.push_back(comparison());
      }
      if (take(")")) break;
      expect(",");
    }
    const int count = static_cast<int>(result.arguments.size());
    if (result.function && (count < result.function->least || count > result.function->most))
      throw FormulaError(words("gives {function} a wrong number of arguments", "function", name));
    return result;
  }

  Expression sheetReference(std::string_view name) {
    if (name.find('[') != std::string_view::npos) throw FormulaError("refers to another workbook");
    const int sheet = names_.sheet(name);
    if (peek() == '#') {
      errorConstant();
      return constant(Error::Reference);
    }
    if (const Written written = readReference(text_.substr(at_)); written.size) {
      at_ += written.size;
      return sheet < 0 ? constant(Error::Reference) : reference(written, sheet);
    }
    // A name of that sheet.
    if (!word(peek())) throw FormulaError("cannot be understood");
    Expression result = named();
    if (result.kind != Expression::Kind::Name) throw FormulaError("cannot be understood");
    result.reference.sheet = sheet;
    return result;
  }

  Expression reference(const Written& written, int sheet) const {
    Corner first = written.first, last = written.block ? written.last : written.first;
    if (!first.row) {
      first.row = 1;
      last.row = kMaxRow;
      first.rowFixed = last.rowFixed = true;
    }
    if (!first.column) {
      first.column = 1;
      last.column = kMaxColumn;
      first.columnFixed = last.columnFixed = true;
    }
    Expression result;
    result.kind = Expression::Kind::Reference;
    result.reference = {
        .sheet = sheet,
        .first = {relative(first.row, first.rowFixed, row_),
                  relative(first.column,                                           first.columnFixed, column_)},
        .last = {relative(last.row,  last.rowFixed,  row_), relative(last.column, last.columnFixed,  column_)},
        .cell = !written.block
    };
    return result;
  }

  std::string_view text_;
  int row_, column_;
  const Names& names_;
  size_t at_ = 0;
  int depth_ = 0, operators_ = 0;
};

std::string movedCorner(const Corner& corner, int rows, int columns) {
  const int row = corner.row ? corner.row + (corner.rowFixed ? 0 : rows) : 0;
  const int column = corner.column ? corner.column + (corner.columnFixed ? 0 : columns) : 0;
  if ((corner.row && (row < 1 || row > kMaxRow)) || (corner.column && (column < 1 || column > kMaxColumn)))
    return {};
  std::string out;
  if (corner.column) out += (corner.columnFixed ? "$" : "") + columnName(column);
  if (corner.row) out += (corner.rowFixed ? "$" : "") + std::to_string(row);
  return out;
}

}  // namespace

Expression parseFormula(std::string_view text, int row, int column, const Names& names) {
  return Parser(text, row, column, names).whole();
}

std::string movedFormula(std::string_view text, int rows, int columns) {
  std::string out;
  size_t at = 0;
  while (at < text.size()) {
    const char c = text[at];
    if (c == '"' || c == '\'') {
      const size_t end = std::min(text.find(c, at + 1), text.size() - 1);
      out += text.substr(at, end + 1 - at);
      at = end + 1;
    } else if (const Written written = readReference(text.substr(at)); written.size) {
      const std::string first = movedCorner(written.first, rows, columns);
      const std::string last = written.block ? movedCorner(written.last, rows, columns) : first;
      out += first.empty() || last.empty() ? "#REF!" : written.block ? first + ":" + last : first;
      at += written.size;
    } else if (word(c)) {
      while (at < text.size() && word(text[at])) out += text[at++];
    } else {
      out += c;
      ++at;
    }
  }
  return out;
}

bool parseCell(std::string_view text, int& row, int& column) {
  const Corner corner = readCorner(text);
  if (!corner.row || !corner.column || corner.size != text.size()) return false;
  row = corner.row;
  column = corner.column;
  return true;
}

std::string columnName(int column) {
  std::string name;
  for (; column > 0; column = (column - 1) / 26)
    name.insert(name.begin(), static_cast<char>('A' + (column - 1) % 26));
  return name;
}

std::string cellName(int row, int column) { return columnName(column) + std::to_string(row); }

}  // namespace workbook

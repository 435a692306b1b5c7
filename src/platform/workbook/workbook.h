#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

// An .xlsx workbook without a spreadsheet program: load a design, fill its data sheet,
// hide rows, recalculate, draw (draw.h) and save.
//
//   auto book = workbook::Workbook::load("FORMATS/INVGST.xlsx");
//   auto& data = book.sheet("SHEET3");
//   data.clearContents();
//   data.set(2, 1, "INVOICE");
//   data.set(8, 4, workbook::Value::date(bill.date));
//   book.sheet("BILL").hideRows(93, 144);
//   book.recalculate();
//   workbook::draw(book, "BILL", *canvas, painter->metrics());
//   book.save("FORMATS/INVGST.xlsx");
//
// Rows and columns count from 1, lengths are points. Array formulas, external links,
// charts and conditional formats are kept in the file and passed over.
namespace workbook {

// Raised when a file is missing, not a workbook, cut short, too large, cannot be written,
// or has no such sheet. The text is a sentence for the user.
struct WorkbookError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// What a formula gives when it cannot give a value: #NULL! #DIV/0! #VALUE! #REF! #NAME? #NUM! #N/A
enum class Error { Null, DivisionByZero, Value, Reference, Name, Number, NotAvailable };

// The content of a cell: nothing, a number, a text, a truth or an error. A date is the
// number of its day; how it looks is the cell's number format.
class Value {
 public:
  Value() = default;
  template <class N, std::enable_if_t<std::is_arithmetic_v<N>, int> = 0>
  Value(N number) {
    if constexpr (std::is_same_v<N, bool>)
      content_ = number;
    else
      content_ = static_cast<double>(number);
  }
  Value(std::string text) : content_(std::move(text)) {}
  Value(std::string_view text) : content_(std::string(text)) {}
  Value(const char* text) : content_(std::string(text)) {}
  Value(Error error) : content_(error) {}
  static Value date(std::chrono::year_month_day day);

  bool empty() const { return std::holds_alternative<std::monostate>(content_); }
  // The content when it is of that kind, else nullptr.
  const double* number() const { return std::get_if<double>(&content_); }
  const std::string* text() const { return std::get_if<std::string>(&content_); }
  const bool* truth() const { return std::get_if<bool>(&content_); }
  const Error* error() const { return std::get_if<Error>(&content_); }

  bool operator==(const Value&) const = default;

 private:
  std::variant<std::monostate, double, std::string, bool, Error> content_;
};

struct Model;

// One sheet of a Workbook, good as long as the workbook lives (moving it is allowed).
class Sheet {
 public:
  Sheet(Model& model, std::size_t index) : model_(&model), index_(index) {}

  const std::string& name() const;
  // Empties every cell, formulas too; styles, widths and heights stay.
  void clearContents();
  // Puts a value into a cell in place of what stood there; the cell's style stays. Texts of
  // more than 32,767 characters are cut there, a number that is none is #NUM!. Raises
  // WorkbookError outside the sheet's limits.
  void set(int row, int column, const Value& value);
  // A formula is calculated when something was set since; before the first set or
  // recalculate() its stored value counts.
  Value value(int row, int column) const;
  // The value in its number format, without regard to the column's width.
  std::string shown(int row, int column) const;
  // Nothing happens when last is below first.
  void hideRows(int first, int last);
  // Removes the manual page breaks, so that the sheet flows by the length of the paper.
  void resetPageBreaks();

 private:
  Model* model_;
  std::size_t index_;
};

class Workbook {
 public:
  static Workbook load(const std::string& path);
  static Workbook fromBytes(std::string bytes);
  Workbook(Workbook&&) noexcept;
  Workbook& operator=(Workbook&&) noexcept;
  ~Workbook();

  std::vector<std::string> sheetNames() const;
  bool hasSheet(std::string_view name) const;
  // By name, without regard to case; raises WorkbookError when there is none.
  Sheet& sheet(std::string_view name);

  // What TODAY, NOW and the date of a header or footer say, as the number of the day with the
  // time as its fraction; without it the machine's clock.
  void setNow(double serial);
  // Calculates every formula of the workbook.
  void recalculate();
  // Writes the workbook under the path, in place of what stood there, with the calculated
  // values in their cells; parts that were not touched stay as they are, byte for byte.
  void save(const std::string& path);
  // What was passed over or could not be calculated, one sentence each with its cell:
  // "BILL!C14: the function FOO is not known". The first some hundred, after recalculate().
  const std::vector<std::string>& warnings() const;

  Model& model() { return *model_; }

 private:
  explicit Workbook(std::unique_ptr<Model> model);
  std::unique_ptr<Model> model_;
  std::vector<Sheet> sheets_;
};

}  // namespace workbook

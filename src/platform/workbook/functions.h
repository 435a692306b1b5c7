#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/workbook/decimal.h"
#include "platform/workbook/evaluate.h"

// The functions that formulas may call. Each takes a Call, which evaluates its arguments when
// they are asked for, and raises Failure for an error value.
namespace workbook {

class Call {
 public:
  Call(Evaluator& evaluator, const Expression& expression, const Home& home, bool arrays)
      : evaluator_(evaluator), expression_(expression), home_(home), arrays_(arrays) {}

  int count() const { return static_cast<int>(expression_.arguments.size()); }
  // Present and not left empty between its commas.
  bool given(int i) const;

  Operand operand(int i);
  // One value; an error in it is raised, or given back by `any`.
  Value value(int i);
  Value any(int i);
  double number(int i);
  double number(int i, double otherwise) { return given(i) ? number(i) : otherwise; }
  int whole(int i);
  int whole(int i, int otherwise) { return given(i) ? whole(i) : otherwise; }
  std::string text(int i);
  bool truth(int i);
  bool truth(int i, bool otherwise) { return given(i) ? truth(i) : otherwise; }
  Block block(int i);  // raises #VALUE! when the argument is no reference
  Table table(int i);  // a block's or an array's values
  // Every value that stands in the argument; empty cells of a block are passed over. `direct`
  // is true for a value written into the call itself.
  void each(int i, const std::function<void(const Value& value, bool direct)>& visit);
  // The numbers as SUM sees them: texts and truths in cells do not count, errors are raised.
  void numbers(int from, const std::function<void(double)>& visit);

  Evaluator& evaluator() { return evaluator_; }
  const Home& home() const { return home_; }

 private:
  Evaluator& evaluator_;
  const Expression& expression_;
  const Home& home_;
  bool arrays_;
};

// Singles: every argument is one value; where whole blocks are calculated the function is run
// for each of their cells. Choice: likewise, but only a block as its first argument does that,
// since the others may not be wanted. Arrays: operators in its arguments work on whole blocks.
enum class Takes { Singles, Choice, Blocks, Arrays };

struct Function {
  const char* name;
  int least, most;  // arguments
  Takes takes;
  Operand (*run)(Call&);
};

// Without regard to case; a leading "_xlfn." does not count. None gives nullptr.
const Function* findFunction(std::string_view name);

// One table for each kind of function.
std::vector<Function> mathFunctions();
std::vector<Function> totalFunctions();
std::vector<Function> textFunctions();
std::vector<Function> logicFunctions();
std::vector<Function> lookupFunctions();
std::vector<Function> dateFunctions();

// A criterion of SUMIF and its kind: 5, "x", ">=5", "<>", "ab*".
class Criterion {
 public:
  explicit Criterion(const Value& value);
  bool matches(const Value& value) const;

 private:
  Operation operation_ = Operation::Equal;
  Value wanted_;
  bool pattern_ = false;
};

// "*" any characters, "?" one, "~" before either for itself; without regard to case.
bool matchesPattern(std::string_view text, std::string_view pattern);
// Where the first piece that fits begins, npos for none.
size_t findPattern(std::string_view text, std::string_view pattern, size_t from);
bool hasPattern(std::string_view text);

}  // namespace workbook

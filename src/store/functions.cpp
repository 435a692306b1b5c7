#include "store/functions.h"

#include <sqlite3.h>

#include <string>
#include <string_view>

#include "base/date.h"
#include "base/number.h"
#include "base/pattern.h"
#include "base/text.h"

namespace {

bool isNull(sqlite3_value* value) { return sqlite3_value_type(value) == SQLITE_NULL; }

bool isNumeric(sqlite3_value* value) {
  const int type = sqlite3_value_type(value);
  return type == SQLITE_INTEGER || type == SQLITE_FLOAT;
}

std::string textOf(sqlite3_value* value) {
  if (sqlite3_value_type(value) == SQLITE_FLOAT) return numText(sqlite3_value_double(value));
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  return text == nullptr ? std::string() : std::string(text, static_cast<size_t>(sqlite3_value_bytes(value)));
}

double numberOf(sqlite3_value* value) {
  return isNumeric(value) ? sqlite3_value_double(value) : Val(textOf(value));
}

void giveText(sqlite3_context* context, const std::string& text) {
  sqlite3_result_text(context, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

std::string dateOrTimeText(const std::string& text, std::string_view pattern) {
  if (const auto clock = parseClock(text))
    return formatTime({.hour = clock->hour, .minute = clock->minute}, pattern);
  const auto date = parseDate(text);
  return date ? formatDate(*date, pattern) : text;
}

// Rows mostly come in the order of their dates, so the last answer is often the next one too.
const std::string& dateOrTime(const std::string& text, const std::string& pattern) {
  thread_local std::string lastText, lastPattern, answer;
  if (text == lastText && pattern == lastPattern) return answer;
  answer = dateOrTimeText(text, pattern);
  lastText = text;
  lastPattern = pattern;
  return answer;
}

// A text that is no number and no date comes back as it is; a null gives an empty text.
void format(sqlite3_context* context, int, sqlite3_value** args) {
  const std::string text = textOf(args[0]);
  const std::string pattern = textOf(args[1]);
  const bool forNumbers = pattern.find_first_of("0#") != std::string::npos;
  if (!forNumbers) return giveText(context, dateOrTime(text, pattern));
  giveText(context, isNumeric(args[0]) || isNumberText(text) ? Format(numberOf(args[0]), pattern) : text);
}

// Halves go to the even neighbour, as in the program; the engine's own ROUND takes them away from 0.
void round(sqlite3_context* context, int, sqlite3_value** args) {
  if (isNull(args[0])) return sqlite3_result_null(context);
  sqlite3_result_double(context, Round(numberOf(args[0]), sqlite3_value_int(args[1])));
}

void val(sqlite3_context* context, int, sqlite3_value** args) {
  sqlite3_result_double(context, numberOf(args[0]));
}

void str(sqlite3_context* context, int, sqlite3_value** args) {
  if (isNull(args[0])) return sqlite3_result_null(context);
  if (!isNumeric(args[0]))
    if (const auto date = parseDate(textOf(args[0])))
      return giveText(context, formatDate(*date, "dd/mmm/yyyy"));
  const double number = numberOf(args[0]);
  giveText(context, (number < 0 ? "" : " ") + numText(number));
}

void len(sqlite3_context* context, int, sqlite3_value** args) {
  if (isNull(args[0])) return sqlite3_result_null(context);
  sqlite3_result_int(context, length(textOf(args[0])));
}

void numtext(sqlite3_context* context, int, sqlite3_value** args) {
  if (!isNumeric(args[0])) return sqlite3_result_value(context, args[0]);
  giveText(context, textOf(args[0]));
}

void isdate(sqlite3_context* context, int, sqlite3_value** args) {
  sqlite3_result_int(context, !isNumeric(args[0]) && parseDate(textOf(args[0])).has_value());
}

void datediff(sqlite3_context* context, int, sqlite3_value** args) {
  const std::string step = lower(textOf(args[0]));
  const auto from = parseDate(textOf(args[1]));
  const auto to = parseDate(textOf(args[2]));
  if (!from || !to) return sqlite3_result_null(context);
  if (step == "d") return sqlite3_result_int(context, daysBetween(*from, *to));
  const auto years = static_cast<int>(to->year()) - static_cast<int>(from->year());
  if (step == "yyyy") return sqlite3_result_int(context, years);
  const auto months = static_cast<int>(static_cast<unsigned>(to->month())) -
                      static_cast<int>(static_cast<unsigned>(from->month()));
  if (step == "m") return sqlite3_result_int(context, years * 12 + months);
  sqlite3_result_null(context);
}

struct Function {
  const char* name;
  int arguments;
  void (*run)(sqlite3_context*, int, sqlite3_value**);
};

// The last three are older names, for scripts and for views of older files: a server has others of these
// names, so that no statement of the program calls them.
constexpr Function functions[] = {
    {"SHOWN",    2, format  },
    {"ROUNDED",  2, round   },
    {"VAL",      1, val     },
    {"STR",      1, str     },
    {"LEN",      1, len     },
    {"ISDATE",   1, isdate  },
    {"NUMTEXT",  1, numtext },
    {"FORMAT",   2, format  },
    {"ROUND",    2, round   },
    {"DATEDIFF", 3, datediff},
};

}  // namespace

void registerFunctions(sqlite3* connection) {
  // Innocuous: they tell nothing and change nothing, so that views and conditions of a file may call them.
  constexpr int kKind = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
  for (const auto& function : functions)
    sqlite3_create_function(connection, function.name, function.arguments, kKind, nullptr, function.run,
                            nullptr, nullptr);
}

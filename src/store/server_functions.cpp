#include "store/server_functions.h"

#include <algorithm>
#include <array>
#include <vector>

#include "base/text.h"

// A call costs a microsecond, each instruction, condition, variable and regular expression that stands in the
// body another part of one, whether it is reached or not. So the common values go first, in as few
// instructions as can be, and what is rare stands in functions of its own (.._REST).
//
// JSON knows the same numbers as the server writes, so that JSON_VALID(v || 'e0') is the cheap way to ask for
// a plain number; v > '-' shuts out blanks and line ends before it. Texts are compared by their bytes, and
// digits are [0-9] in regular expressions, for \d means those of every script. 1292 is the error of a text
// that is no number, no date, or too great.

namespace {

// The server rounds a DOUBLE as the program does, halves to the even neighbour of the scaled value.
constexpr const char* rounded = R"(CREATE OR REPLACE FUNCTION ROUNDED(x DOUBLE, d INT) RETURNS DOUBLE
DETERMINISTIC NO SQL SQL SECURITY INVOKER
RETURN ROUND(x, d))";

constexpr const char* val =
    R"(CREATE OR REPLACE FUNCTION VAL(v VARCHAR(255) CHARACTER SET utf8mb4 COLLATE utf8mb4_bin) RETURNS DOUBLE
DETERMINISTIC NO SQL SQL SECURITY INVOKER
BEGIN
  DECLARE EXIT HANDLER FOR 1292 RETURN 0;
  IF v > '.' AND JSON_VALID(CONCAT('1', v, 'e0')) THEN RETURN v; END IF;
  RETURN COALESCE(CAST(NULLIF(REGEXP_SUBSTR(v,
    '^[ \t]*\K[-+]?(?:[0-9]+[.]?[0-9]*|[.][0-9]+)(?:[eE][-+]?[0-9]+)?'), '') AS DOUBLE), 0);
END)";

constexpr const char* str =
    R"(CREATE OR REPLACE FUNCTION STR(v VARCHAR(255) CHARACTER SET utf8mb4 COLLATE utf8mb4_bin) RETURNS VARCHAR(255)
DETERMINISTIC NO SQL SQL SECURITY INVOKER
BEGIN
  IF v > '/' AND LENGTH(v) < 16 AND JSON_VALID(CONCAT(v, 'e0'))
      AND v NOT LIKE '%.%0' AND v NOT LIKE '%.' AND v NOT LIKE '0.0000%' THEN
    RETURN CONCAT(' ', v);
  END IF;
  IF v > ':' OR v = '' THEN RETURN ' 0'; END IF;
  IF v IS NULL THEN RETURN NULL; END IF;
  IF ISDATE(v) THEN RETURN SHOWN(v, 'dd/mmm/yyyy'); END IF;
  RETURN CONCAT(LEFT(' ', VAL(v) >= 0), NUMTEXT(VAL(v)));
END)";

constexpr const char* len =
    R"(CREATE OR REPLACE FUNCTION LEN(v TEXT) RETURNS INT DETERMINISTIC NO SQL SQL SECURITY INVOKER
RETURN CHAR_LENGTH(v))";

constexpr const char* numtext =
    R"(CREATE OR REPLACE FUNCTION NUMTEXT(v VARCHAR(255) CHARACTER SET utf8mb4 COLLATE utf8mb4_bin) RETURNS VARCHAR(255)
DETERMINISTIC NO SQL SQL SECURITY INVOKER
BEGIN
  IF LENGTH(v) < 16 AND v NOT LIKE '%e%' AND v NOT LIKE '0.0000%' AND v NOT LIKE '-0.0000%' THEN RETURN v; END IF;
  RETURN NUMTEXT_REST(v);
END)";

// m: the significant digits, e: the power of ten of the first, n: the first 15 of them. The shortest text of
// a number lies on the same side of a half as the number itself, save where it is the half (16 digits and the
// last a 5): then the number, scaled to a whole one by a power of 2, is compared with the half.
constexpr const char* numtextRest =
    R"(CREATE OR REPLACE FUNCTION NUMTEXT_REST(v VARCHAR(255) CHARACTER SET utf8mb4 COLLATE utf8mb4_bin)
RETURNS VARCHAR(255) DETERMINISTIC NO SQL SQL SECURITY INVOKER
BEGIN
  DECLARE m VARCHAR(255) CHARACTER SET utf8mb4 COLLATE utf8mb4_bin;
  DECLARE e, k INT DEFAULT 0;
  DECLARE n BIGINT;
  DECLARE x DOUBLE;
  DECLARE has, half DECIMAL(65);
  DECLARE EXIT HANDLER FOR 1292 RETURN v;
  IF COALESCE(v NOT REGEXP '^-?(?:[0-9]+[.][0-9]+|[0-9](?:[.][0-9]+)?e-?[0-9]+)\z', TRUE) THEN RETURN v; END IF;
  SET x = CAST(v AS DOUBLE);
  IF x = 0 OR CONCAT(x) <> v THEN RETURN v; END IF;
  SET m = SUBSTRING_INDEX(v, 'e', 1), x = ABS(x);
  IF v LIKE '%e%' THEN SET e = SUBSTRING_INDEX(v, 'e', -1); END IF;
  IF m LIKE '%.%' THEN SET e = e - CHAR_LENGTH(SUBSTRING_INDEX(m, '.', -1)); END IF;
  SET m = TRIM(LEADING '0' FROM REPLACE(REPLACE(m, '-', ''), '.', ''));
  SET e = e + CHAR_LENGTH(m) - 1;
  IF CHAR_LENGTH(m) > 15 THEN
    SET n = LEFT(m, 15);
    IF SUBSTR(m, 16) <> '5' OR e NOT BETWEEN -21 AND 48 THEN
      SET n = n + (SUBSTR(m, 16) >= '5');
    ELSE
      SET k = 53 - FLOOR(LOG2(x)), half = m;
      SET has = CAST(x * POW(2, k) AS SIGNED);
      SET has = has * CAST(RPAD('1', 1 + GREATEST(15 - e, 0), '0') AS DECIMAL(65))
                * (1 << LEAST(GREATEST(-k, 0), 62)) * (1 << GREATEST(-k - 62, 0));
      SET half = half * CAST(RPAD('1', 1 + GREATEST(e - 15, 0), '0') AS DECIMAL(65))
                 * (1 << LEAST(GREATEST(k, 0), 62)) * (1 << GREATEST(k - 62, 0));
      SET n = n + (has > half OR has = half AND MOD(n, 2) = 1);
    END IF;
    IF n = 1000000000000000 THEN SET e = e + 1; END IF;
    SET m = n;
  END IF;
  SET m = TRIM(TRAILING '0' FROM m);
  IF e < -4 OR e > 14 THEN
    SET m = CONCAT(LEFT(m, 1), LEFT('.', CHAR_LENGTH(m) > 1), SUBSTR(m, 2),
                   CASE WHEN e < 0 THEN 'e-' ELSE 'e+' END, LEFT('0', ABS(e) < 10), ABS(e));
  ELSEIF e < 0 THEN
    SET m = CONCAT('0.', REPEAT('0', -e - 1), m);
  ELSE
    SET m = CONCAT(RPAD(LEFT(m, e + 1), e + 1, '0'), LEFT('.', CHAR_LENGTH(m) > e + 1), SUBSTR(m, e + 2));
  END IF;
  RETURN CONCAT(LEFT('-', v LIKE '-%'), m);
END)";

// The calendar as a regular expression: days that each month has, with a year of two or four digits behind
// them or one of four before.
constexpr const char* isdate =
    R"(CREATE OR REPLACE FUNCTION ISDATE(v VARCHAR(255) CHARACTER SET utf8mb4 COLLATE utf8mb4_bin) RETURNS INT
DETERMINISTIC NO SQL SQL SECURITY INVOKER
BEGIN
  DECLARE CONTINUE HANDLER FOR 1292 BEGIN END;
  IF LENGTH(v) = 10 AND v > '01' AND v + INTERVAL 0 DAY = v THEN RETURN 1; END IF;
  RETURN COALESCE(v REGEXP '^(?=[ -~]*\z)(?xi)\ *(?:
      (?&d28)(?&s)(?:(?&feb)|(?&m30)|(?&m31))(?&s)(?&y) | (?:29|30)(?&s)(?:(?&m30)|(?&m31))(?&s)(?&y)
    | 31(?&s)(?&m31)(?&s)(?&y) | 29(?&s)(?&feb)(?&s)(?&leap)
    | (?&y4)(?&s)(?:(?:(?&feb)|(?&m30)|(?&m31))(?&s)(?&d28) | (?:(?&m30)|(?&m31))(?&s)(?:29|30) | (?&m31)(?&s)31)
    | (?&leap4)(?&s)(?&feb)(?&s)29)\ *\z
    (?(DEFINE)
      (?<s>[-/.\ ])
      (?<d28>2[0-8]|1[0-9]|0?[1-9])
      (?<feb>0?2|feb(?:r(?:u(?:a(?:ry?)?)?)?)?)
      (?<m30>11|0?[469]|apr(?:il?)?|june?|sep(?:t(?:e(?:m(?:b(?:er?)?)?)?)?)?|nov(?:e(?:m(?:b(?:er?)?)?)?)?)
      (?<m31>1[02]|0?[13578]|jan(?:u(?:a(?:ry?)?)?)?|mar(?:ch?)?|may|july?|aug(?:u(?:st?)?)?
        |oct(?:o(?:b(?:er?)?)?)?|dec(?:e(?:m(?:b(?:er?)?)?)?)?)
      (?<y4>(?!00)[0-9]{4})
      (?<y>(?&y4)|[0-9]{1,2})
      (?<leap4>(?!00)[0-9]{2}(?:0[48]|[2468][048]|[13579][26])|(?!00)(?:[02468][048]|[13579][26])00)
      (?<leap>(?&leap4)|[13579][26]|[02468]?[048]))', 0);
END)";

// Rounds twice as the program does: to 15 significant digits, then, half away from 0, to the decimals shown.
constexpr const char* shown =
    R"(CREATE OR REPLACE FUNCTION SHOWN(v VARCHAR(255) CHARACTER SET utf8mb4 COLLATE utf8mb4_bin,
  p VARCHAR(40) CHARACTER SET ascii COLLATE ascii_general_nopad_ci) RETURNS VARCHAR(255)
DETERMINISTIC NO SQL SQL SECURITY INVOKER
BEGIN
  DECLARE CONTINUE HANDLER FOR 1292 BEGIN END;
  IF p = '0.00' AND LENGTH(v) < 16 AND v > '-' AND JSON_VALID(CONCAT(v, 'e0')) THEN
    RETURN CAST(v AS DECIMAL(20, 2));
  END IF;
  IF p IN ('dd/mmm/yyyy', 'dd/mm/yyyy', 'dd/mm/yy', 'yyyy-mm-dd') AND LENGTH(v) = 10 AND v > '01'
      AND v + INTERVAL 0 DAY = v THEN
    RETURN DATE_FORMAT(v, CASE p WHEN 'dd/mmm/yyyy' THEN '%d/%b/%Y' WHEN 'dd/mm/yyyy' THEN '%d/%m/%Y'
                                 WHEN 'dd/mm/yy' THEN '%d/%m/%y' ELSE '%Y-%m-%d' END, 'en_US');
  END IF;
  RETURN SHOWN_REST(v, p);
END)";

constexpr const char* shownRest =
    R"(CREATE OR REPLACE FUNCTION SHOWN_REST(v VARCHAR(255) CHARACTER SET utf8mb4 COLLATE utf8mb4_bin,
  p VARCHAR(40) CHARACTER SET ascii COLLATE ascii_general_nopad_ci) RETURNS VARCHAR(255)
DETERMINISTIC NO SQL SQL SECURITY INVOKER
BEGIN
  DECLARE x DOUBLE;
  DECLARE d, m, y VARCHAR(20);
  IF p IN ('0.00', '0') THEN
    IF COALESCE(v NOT REGEXP '^[ \t]*[-+]?(?:[0-9]+[.]?[0-9]*|[.][0-9]+)(?:[eE][-+]?[0-9]+)? *\z', TRUE) THEN
      RETURN COALESCE(v, '');
    END IF;
    SET x = VAL(v);
    IF x = 0 AND v REGEXP '^[^eE]*[1-9]' THEN RETURN v; END IF; -- too great or too small for a number
    SET v = NUMTEXT(x);
    IF v LIKE '%e+%' THEN
      RETURN CONCAT(RPAD(REPLACE(SUBSTRING_INDEX(v, 'e', 1), '.', ''), SUBSTRING_INDEX(v, '+', -1) + 1 + (x < 0), '0'),
                    SUBSTR(p, 2));
    END IF;
    IF p = '0' THEN RETURN CAST(v AS DECIMAL(20)); END IF;
    RETURN CAST(v AS DECIMAL(20, 2));
  END IF;
  IF p NOT IN ('dd/mmm/yyyy', 'dd/mm/yyyy', 'dd/mm/yy', 'yyyy-mm-dd') THEN
    SET v = CONCAT('SHOWN has no pattern ', p);
    SIGNAL SQLSTATE '45000' SET MESSAGE_TEXT = v;
  END IF;
  IF v REGEXP '^ *(?:[01]?[0-9]|2[0-3]):[0-5]?[0-9](?::[0-5]?[0-9])? *\z' THEN
    SET m = LPAD(SUBSTRING_INDEX(SUBSTRING_INDEX(TRIM(v), ':', 2), ':', -1), 2, '0');
    RETURN REGEXP_REPLACE(p, '(?i)m+', m); -- the minutes, in a time of day
  END IF;
  IF NOT ISDATE(v) THEN RETURN COALESCE(NUMTEXT(v), ''); END IF;
  SET v = REPLACE(REPLACE(REPLACE(TRIM(v), ' ', '/'), '-', '/'), '.', '/');
  SET d = SUBSTRING_INDEX(v, '/', 1), y = SUBSTRING_INDEX(v, '/', -1),
      m = SUBSTRING_INDEX(SUBSTRING_INDEX(v, '/', 2), '/', -1);
  IF CHAR_LENGTH(d) = 4 THEN SET v = d, d = y, y = v; END IF;
  IF CHAR_LENGTH(y) < 3 THEN SET y = y + CASE WHEN y < 30 THEN 2000 ELSE 1900 END; END IF;
  IF CHAR_LENGTH(m) > 2 THEN
    SET m = (LOCATE(LEFT(LOWER(m), 3), 'janfebmaraprmayjunjulaugsepoctnovdec') + 2) DIV 3;
  END IF;
  RETURN DATE_FORMAT(CONCAT(y, '-', m, '-', d),
                     CASE p WHEN 'dd/mmm/yyyy' THEN '%d/%b/%Y' WHEN 'dd/mm/yyyy' THEN '%d/%m/%Y'
                            WHEN 'dd/mm/yy' THEN '%d/%m/%y' ELSE '%Y-%m-%d' END, 'en_US');
END)";

constexpr std::array functions = {
    ServerFunction{"ROUNDED",      rounded    },
    ServerFunction{"VAL",          val        },
    ServerFunction{"STR",          str        },
    ServerFunction{"LEN",          len        },
    ServerFunction{"NUMTEXT",      numtext    },
    ServerFunction{"NUMTEXT_REST", numtextRest},
    ServerFunction{"ISDATE",       isdate     },
    ServerFunction{"SHOWN",        shown      },
    ServerFunction{"SHOWN_REST",   shownRest  },
};

// The same in the server's own words, for the values that nearly all are; @ stands for the value, # for the
// pattern, ~ for the server's. A figure has the coercibility 5, a text one below. Away from a half FORMAT
// finds the decimals that the program finds.
constexpr std::string_view kLength = "CHAR_LENGTH(@)";
constexpr std::string_view kNumberText =
    "CASE WHEN COERCIBILITY(@) < 5 THEN @ WHEN ABS(@) BETWEEN 0.01 AND 1e11 AND @ = ROUND(@, 2)"
    " THEN CONCAT(@) ELSE NUMTEXT(@) END";
constexpr std::string_view kFigure =
    "CASE WHEN COERCIBILITY(@) = 5 AND ABS(@) < 1e11 AND ABS(@ - ROUND(@, ~)) < 0.004"
    " THEN REPLACE(FORMAT(@, ~), ',', '') ELSE SHOWN(@, #) END";
constexpr std::string_view kDay =
    "CASE WHEN COERCIBILITY(@) < 5 AND LENGTH(@) = 10 AND @ > '01' AND @ + INTERVAL 0 DAY = @"
    " THEN DATE_FORMAT(@, '~', 'en_US') ELSE SHOWN(@, #) END";

struct InOwnWords {
  std::string_view name, pattern, words, format;
};

constexpr InOwnWords ownWords[] = {
    {"LEN",     "",              kLength,     ""        },
    {"NUMTEXT", "",              kNumberText, ""        },
    {"SHOWN",   "'0.00'",        kFigure,     "2"       },
    {"SHOWN",   "'0'",           kFigure,     "0"       },
    {"SHOWN",   "'dd/MMM/yyyy'", kDay,        "%d/%b/%Y"},
    {"SHOWN",   "'dd/MM/yyyy'",  kDay,        "%d/%m/%Y"},
    {"SHOWN",   "'dd/MM/yy'",    kDay,        "%d/%m/%y"},
};

bool isOfWord(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_' || c == '.';
}

// The end of the quoted piece that begins here, or of the one sign.
size_t pieceEnd(std::string_view text, size_t at) {
  if (text[at] != '\'' && text[at] != '"' && text[at] != '[') return at + 1;
  return std::min(text.find(text[at] == '[' ? ']' : text[at], at + 1), text.size() - 1) + 1;
}

// The values between the bracket that was opened before `at` and its end, where `at` goes.
std::vector<std::string_view> valuesFrom(std::string_view text, size_t& at) {
  std::vector<std::string_view> values;
  size_t from = at;
  for (int depth = 0; at < text.size(); at = pieceEnd(text, at)) {
    const char c = text[at];
    if (depth == 0 && (c == ',' || c == ')')) values.push_back(text.substr(from, at - from));
    if (depth == 0 && c == ',') from = at + 1;
    if (c == '(') ++depth;
    if (c == ')' && depth-- == 0) break;
  }
  ++at;
  return values;
}

// A value that stands several times in the server's words is neither bound nor gathered from many rows each
// time.
bool isPlain(std::string_view value) {
  return std::ranges::none_of(std::array{"?", "SELECT", "SUM(", "COUNT(", "MAX(", "MIN("},
                              [&](const char* sign) { return value.find(sign) != std::string_view::npos; });
}

bool mayStand(const InOwnWords& own, std::string_view name, const std::vector<std::string_view>& values,
              bool writes) {
  if (own.name != name || values.size() != (own.pattern.empty() ? 1U : 2U)) return false;
  if (values.size() == 2 && !sameText(trim(values[1]), own.pattern)) return false;
  return (own.words == kLength || isPlain(values[0])) && (own.words != kDay || !writes);
}

std::string written(std::string_view text, bool writes) {
  std::string result;
  for (size_t at = 0; at < text.size();) {
    size_t end = at;
    while (end < text.size() && isOfWord(text[end])) ++end;
    const auto name = text.substr(at, end - at);
    if (name.empty()) end = pieceEnd(text, at);
    size_t behind = end + 1;
    const bool calls = !name.empty() && end < text.size() && text[end] == '(' &&
                       std::ranges::any_of(ownWords, [&](const InOwnWords& own) { return own.name == name; });
    const auto values = calls ? valuesFrom(text, behind) : std::vector<std::string_view>();
    const InOwnWords* const own = std::ranges::find_if(
        ownWords, [&](const InOwnWords& words) { return calls && mayStand(words, name, values, writes); });
    if (own == std::end(ownWords)) {
      result += text.substr(at, end - at);
      at = end;
    } else {
      const std::string words = replaceAll(replaceAll(own->words, "~", own->format), "#", own->pattern);
      result += replaceAll(words, "@", "(" + written(values[0], writes) + ")");
      at = behind;
    }
  }
  return result;
}

}  // namespace

std::span<const ServerFunction> serverFunctions() { return functions; }

std::string inServersWords(std::string_view statement) {
  return written(statement, !statement.starts_with("SELECT") && !statement.starts_with("WITH"));
}

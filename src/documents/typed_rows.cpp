#include "documents/typed_rows.h"

#include "base/number.h"

TypedValue TypedRows::value(size_t row, size_t column) const {
  std::string text = cell(row, column).text;
  const ColumnType is = type(row, column);
  if (is == ColumnType::Date) {
    if (const auto date = parseDate(text)) return *date;
  } else if (is != ColumnType::Text && isNumberText(text)) {
    return Val(text);
  }
  return text;
}

#include <utility>

#include "base/number.h"
#include "base/text.h"
#include "reports/report.h"

Condition& Condition::add(std::string_view part, Date value) {
  add(part, Value(value), "#" + formatDate(value, "dd/MMM/yyyy") + "#");
  return *this;
}

Condition& Condition::add(std::string_view part, const std::string& value) {
  add(part, Value(value), "'" + replaceAll(value, "'", "''") + "'");
  return *this;
}

Condition& Condition::add(std::string_view part, double value) {
  add(part, Value(value), numText(value));
  return *this;
}

void Condition::add(std::string_view part, Value value, std::string_view literal) {
  if (!text_.empty()) {
    text_ += " AND ";
    shown_ += " and ";
  }
  text_ += part;
  shown_ += replaceAll(part, "?", literal);
  values_.push_back(std::move(value));
}

std::vector<Value> Condition::valuesAfter(const std::string& first) const {
  std::vector<Value> values = {first};
  values.insert(values.end(), values_.begin(), values_.end());
  return values;
}

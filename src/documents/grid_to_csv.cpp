#include <filesystem>

#include "base/number.h"
#include "base/pattern.h"
#include "documents/grid_output.h"
#include "documents/paper.h"
#include "platform/whole_file.h"

namespace {

std::string quoted(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  std::string out = "\"";
  for (const char c : text) out += c == '"' ? "\"\"" : std::string(1, c);
  return out + '"';
}

std::string written(const TypedValue& value, ColumnType type) {
  if (const Date* date = std::get_if<Date>(&value)) return isoDate(*date);
  if (const double* number = std::get_if<double>(&value))
    return type == ColumnType::Money ? Format(*number, "0.00") : numText(*number);
  return quoted(std::get<std::string>(value));
}

void writeCsv(const std::string& path, const GridOutput& out) {
  WholeFile file(path);
  // The fields of a record; columns without a width are not there.
  const auto record = [&](const auto& field) {
    std::string line;
    for (size_t i = 0; i < out.columns.size(); ++i)
      if (out.columns[i].twips > 0) line += field(i) + ',';
    if (!line.empty()) line.pop_back();
    file.write(line + "\r\n");
  };
  record([&](size_t i) { return quoted(out.columns[i].heading); });
  for (size_t row = 0; row < out.count(); ++row)
    record([&](size_t i) { return written(out.rows->value(row, i), out.rows->type(row, i)); });
  file.finish();
}

}  // namespace

void GridToCsv(Host& host, const std::string& name, const GridOutput& out) {
  tellFailures(host, [&] {
    const std::filesystem::path file = billsFolder() / (name + ".csv");
    std::filesystem::create_directories(file.parent_path());
    writeCsv(file.string(), out);
    host.view(file.string());
  });
}

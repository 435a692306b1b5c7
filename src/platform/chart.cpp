#include "platform/chart.h"

#include <algorithm>

#include "base/pattern.h"
#include "base/text.h"

double Chart::Bar::total() const {
  double sum = 0;
  for (const double segment : segments) sum += segment;
  return sum;
}

std::string chartText(const Chart& chart) {
  const auto money = [](double amount) { return Format(amount, "0.00"); };
  std::vector<std::string> lines = {chart.title};
  for (const Chart::Bar& bar : chart.bars) {
    std::vector<std::string> parts;
    for (size_t i = 0; i < std::min(bar.segments.size(), chart.legend.size()); ++i)
      if (bar.segments[i] != 0) parts.push_back(chart.legend[i] + " " + money(bar.segments[i]));
    lines.push_back(bar.label + ": " + money(bar.total()) + (parts.empty() ? "" : " = " + join(parts, ", ")));
  }
  return join(lines, "\n");
}

#include "reports/reports.h"

#include <vector>

const Report* reportByKey(std::string_view key) {
  static const std::vector<const Report*> all = {};
  for (const Report* const report : all)
    if (report->key == key) return report;
  return nullptr;
}

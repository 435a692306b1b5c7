#include <CLI/CLI.hpp>
#include <ctime>
#include <exception>
#include <iostream>
#include <string>

#include "sample_data.h"

namespace {

Moment localNow() {
  const std::time_t seconds = std::time(nullptr);
  std::tm now{};
  localtime_r(&seconds, &now);
  using namespace std::chrono;
  return {year{now.tm_year + 1900} / (now.tm_mon + 1) / now.tm_mday, now.tm_hour, now.tm_min, now.tm_sec};
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app{"Makes the databases of a program folder: catalogue, sample company-year, templates"};
  std::string folder, day;
  app.add_option("folder", folder, "Program folder; made when it is missing")->required();
  app.add_option("--day", day, "The day to which the sample books lead, else today");
  CLI11_PARSE(app, argc, argv);

  try {
    Moment now = localNow();
    if (!day.empty()) now.date = parseDate(day).value();
    makeSampleFolder(folder, now);
  } catch (const std::exception& error) {
    std::cerr << "mirav-folder: " << error.what() << "\n";
    return 1;
  }
  return 0;
}

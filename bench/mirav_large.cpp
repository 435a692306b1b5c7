#include <CLI/CLI.hpp>
#include <chrono>
#include <exception>
#include <filesystem>
#include <iomanip>
#include <iostream>
#include <string>

#include "frame/companies.h"
#include "large_year.h"

namespace fs = std::filesystem;

namespace {

fs::path firstCompanyYear(const fs::path& folder) {
  Database catalogue;
  catalogue.open(folder / "comp.mdb", Access::readOnly);
  const auto years = companyYears(catalogue);
  if (years.empty()) throw std::runtime_error("The catalogue holds no company-year");
  return folder / (dataStem(years.front().code, years.front().from) + ".mdb");
}

void tellCounts(Database& db) {
  for (const char* table : {"ACCOUNT", "ITEM", "SALE", "SALEITM", "RPTPAY", "ALEDGER"})
    std::cout << std::setw(8) << db.text(std::string("SELECT COUNT(*) FROM ") + table) << "  " << table
              << "\n";
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app{"Makes the first company-year of a program folder large, in place of what stands in it"};
  fs::path folder;
  LargeYear size;
  app.add_option("folder", folder, "A copy of the sample folder")->required()->check(CLI::ExistingDirectory);
  app.add_option("--parties", size.parties, "")->check(CLI::PositiveNumber);
  app.add_option("--items", size.items, "")->check(CLI::PositiveNumber);
  app.add_option("--bills", size.bills, "of three lines")->check(CLI::PositiveNumber);
  app.add_option("--receipts", size.receipts, "")->check(CLI::NonNegativeNumber);
  CLI11_PARSE(app, argc, argv);

  try {
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    Database db;
    db.open(firstCompanyYear(folder));
    makeLargeYear(db, size);
    const std::chrono::duration<double> taken = Clock::now() - start;
    tellCounts(db);
    std::cout << std::fixed << std::setprecision(1) << taken.count() << " seconds, "
              << static_cast<double>(fs::file_size(db.file())) / 1e6 << " MB\n";
    const int unbalanced = unbalancedVouchers(db);
    std::cout << (unbalanced == 0 ? "Debits equal credits in every voucher"
                                  : std::to_string(unbalanced) + " vouchers do not balance")
              << "\n";
    return unbalanced == 0 ? 0 : 1;
  } catch (const std::exception& error) {
    std::cerr << "mirav-large: " << error.what() << "\n";
    return 1;
  }
}

#include "vouchers/oracle.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <stdexcept>

#include "base/text.h"

namespace oracle {
namespace {

double hexed(const std::string& text) { return std::strtod(text.c_str(), nullptr); }

Line lineOf(const std::vector<std::string>& f) {
  return {.itemRate = hexed(f.at(1)),
          .quantity = f.at(2),
          .rate = f.at(3),
          .discount = f.at(4),
          .hand = f.at(5).at(0),
          .typedCgst = f.at(6),
          .typedSgst = f.at(7),
          .typedIgst = f.at(8),
          .quantityText = f.at(9),
          .rateText = f.at(10),
          .discountText = f.at(11),
          .cgstRate = f.at(12),
          .sgstRate = f.at(13),
          .igstRate = f.at(14),
          .cgstText = f.at(15),
          .sgstText = f.at(16),
          .igstText = f.at(17),
          .netText = f.at(18),
          .assess = hexed(f.at(19)),
          .amount = hexed(f.at(20)),
          .net = hexed(f.at(21))};
}

}  // namespace

std::vector<Bill> bills(int seed, int count) {
  const auto script = std::filesystem::path(MIRAV_TEST_DATA).parent_path() / "oracle.py";
  const std::string command =
      "python3 '" + script.string() + "' " + std::to_string(seed) + " " + std::to_string(count);
  const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), &pclose);
  if (!pipe) throw std::runtime_error("python3 does not start");
  std::string all;
  for (char buffer[4096]; const size_t n = fread(buffer, 1, sizeof buffer, pipe.get());)
    all.append(buffer, n);

  std::vector<Bill> bills;
  for (const std::string& record : split(all, "\n")) {
    const std::vector<std::string> f = split(record, "\t");
    if (f.at(0) == "B") {
      bills.emplace_back();
      bills.back().company = hexed(f.at(1));
      bills.back().party = hexed(f.at(2));
    }
    if (f.at(0) == "L") bills.back().lines.push_back(lineOf(f));
    if (f.at(0) != "T") continue;
    Bill& bill = bills.back();
    bill.items = f.at(1), bill.quantity = f.at(2), bill.cgst = f.at(3), bill.sgst = f.at(4),
    bill.igst = f.at(5);
    bill.amount = f.at(6), bill.roundOff = f.at(7);
  }
  return bills;
}

}  // namespace oracle

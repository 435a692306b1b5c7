#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>

#include "bench_program.h"
#include "platform/paint.h"
#include "support/test_host.h"

// The whole program on a large company-year, without a display: keys go through the desk as
// real ones do, and after each event everything that stands in view is read as a window would
// read it to draw.
class BenchDesk : public TestHost {
 public:
  BenchDesk();
  ~BenchDesk() override;

  // From the company selection, where a fresh desk stands, to the shell.
  void openYear();
  void toShell();

  // From the shell to a new bill for the party, with the focus on the first item field.
  void startBill(const std::string& party);
  void typeItem(const std::string& item);  // to the quantity
  void typeLine(const std::string& item, const std::string& quantity);
  void toSave();  // past the lines, to the Save button
  void saveBill();

  paint::Painter& painter() override;
  // Part of an event's work is shown before its end: draws it, and notes when.
  void refresh() override;
  std::optional<std::chrono::steady_clock::time_point> shownEarly;

 protected:
  void changed() override;

 private:
  void draw(const Screen& screen);

  std::unique_ptr<paint::Painter> painter_;
  size_t drawn_ = 0;
};

// The program in the folder given on the command line, at the shell.
BenchDesk& desk();
// The same started anew: the company selection is on top.
BenchDesk& freshDesk();

// The last bill of the year as it was made, and what stands in it.
struct SampleBill {
  std::string party, item;
};
const SampleBill& sampleBill();

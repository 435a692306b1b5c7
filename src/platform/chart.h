#pragma once

#include <string>
#include <vector>

// A picture beside the figures that it is drawn from: upright bars over their names, or bars that
// lie, their name before and their amount behind them. A bar is the sum of its segments, of which
// those below 0 are not drawn.
struct Chart {
  struct Bar {
    std::string label;
    std::vector<double> segments;
    bool operator==(const Bar&) const = default;
    double total() const;
  };

  std::string title;
  std::vector<std::string> legend;  // names of the segments; none where there is but one
  std::vector<Bar> bars;
  bool lying = false;
  bool operator==(const Chart&) const = default;
};

// The same for those who read: the title, then a line a bar, "PATEL: 1500.00 = 0-30 1000.00, 31-60 500.00".
std::string chartText(const Chart& chart);

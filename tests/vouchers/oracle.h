#pragma once

#include <string>
#include <vector>

// Random bills with the figures that must come of them, from oracle.py beside this file.
namespace oracle {

struct Line {
  double itemRate = 0;
  std::string quantity, rate, discount;  // as typed
  char hand = '-';                       // the tax typed over: c, s or i
  std::string typedCgst, typedSgst, typedIgst;
  std::string quantityText, rateText, discountText, cgstRate, sgstRate, igstRate, cgstText, sgstText,
      igstText, netText;
  double assess = 0, amount = 0, net = 0;
};

struct Bill {
  double company = 0, party = 0;
  std::vector<Line> lines;
  std::string items, quantity, cgst, sgst, igst, amount, roundOff;
};

std::vector<Bill> bills(int seed, int count);

}  // namespace oracle

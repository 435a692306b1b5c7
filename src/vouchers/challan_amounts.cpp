#include "vouchers/challan_amounts.h"

#include "base/number.h"

double challanAmount(double quantity, double rate) { return quantity * rate; }

double challanDiscount(double items, double percent) { return Round(items * percent / 100, 0); }

double challanNet(double items, double charges, double discount) { return items + charges - discount; }

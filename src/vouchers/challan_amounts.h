#pragma once

// The arithmetic of a challan. It carries no tax: a line is quantity by rate, and the whole is one
// amount. Nothing is rounded but a discount that comes from a percentage, which is whole rupees.

double challanAmount(double quantity, double rate);
// Halves go to the even rupee: 10% of 1005 is 100.
double challanDiscount(double items, double percent);
double challanNet(double items, double charges, double discount);

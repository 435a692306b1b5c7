#pragma once

#include <vector>

#include "platform/screen.h"

// The pieces that the tables of all voucher screens have alike: between head and foot the headings,
// the entry row, its keys and the grid of the lines, and under all of it the buttons.

// The bands of a screen between those of its head and of its foot, and those that fold away above the foot.
Layout voucherLayout(Band head, Band foot, const std::vector<Band>& folding = {});

// The serial of the line, before the fields of the entry row.
ControlSpec lineNumber();
// The strip of keys under the entry row, over so many columns of the lines.
ControlSpec lineKeys(int span);
// The lines and, over them, the earlier rates: their column `own` stands under that of the quantity.
std::vector<ControlSpec> lineGrids(const std::vector<GridColumn>& lines,
                                   const std::vector<GridColumn>& earlierRates, int own, double width);
// Save and Cancel while a voucher is open, the others at rest. The walk goes on with them.
std::vector<ControlSpec> voucherButtons(int firstTab);

std::vector<ControlSpec> joined(std::initializer_list<std::vector<ControlSpec>> parts);

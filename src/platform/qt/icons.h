#pragma once

#include <QColor>
#include <QIcon>
#include <QRectF>
#include <string>

class QPainter;

// The program's own drawings: a 20 x 20 view, one line of 1.5 with round ends, no fill.
namespace icons {

// person, box, bill, speech sheet, van, table, table with lines, card, play; an unknown name
// draws nothing.
void draw(QPainter& painter, const std::string& name, const QRectF& box, const QColor& colour);
// The program's mark for the window's title.
QIcon program();

}  // namespace icons

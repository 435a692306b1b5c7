#include "platform/qt/icons.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <array>
#include <string_view>
#include <vector>

#include "platform/qt/palette.h"

namespace icons {
namespace {

constexpr double kView = 20;

QPainterPath lines(std::initializer_list<std::vector<QPointF>> strokes) {
  QPainterPath path;
  for (const auto& points : strokes) {
    path.moveTo(points.front());
    for (size_t i = 1; i < points.size(); ++i) path.lineTo(points[i]);
  }
  return path;
}

QPainterPath person() {
  QPainterPath path;
  path.addEllipse(QPointF(10, 6.2), 3.4, 3.4);
  path.moveTo(3.8, 17.2);
  path.cubicTo(3.8, 9.8, 16.2, 9.8, 16.2, 17.2);
  return path;
}

QPainterPath box() {
  return lines({
      {{10, 2.2},   {17, 6}, {17, 14}, {10, 17.8}, {3, 14}, {3, 6}, {10, 2.2}},
      {{3, 6}, {10, 9.8}, {17, 6}},
      {{10, 9.8},  {10, 17.8}        }
  });
}

QPainterPath bill() {
  return lines({
      {{4, 17.6},
       {4, 2.4},
       {16, 2.4},
       {16, 17.6},
       {13.6, 15.8},
       {12, 17.6},
       {10, 15.8},
       {8, 17.6},
       {6.4, 15.8},
       {4, 17.6}},
      {{7, 6.4}, {13, 6.4}},
      {{7, 9.4}, {13, 9.4}   },
      {{7, 12.4},  {11, 12.4} }
  });
}

QPainterPath sheet() {
  return lines({
      {{3, 3},       {17.4, 3}, {17.4, 13.6}, {9.6, 13.6}, {6, 17}, {6, 13.6}, {3, 13.6}, {3, 3}},
      {{6.4, 6.8}, {14, 6.8}  },
      {{6.4, 9.8},   {11.6, 9.8}     }
  });
}

QPainterPath van() {
  QPainterPath path = lines({
      {{4, 15},    {1.6, 15},  {1.6, 4}, {11.6, 4}, {11.6, 15}, {7.6, 15}},
      {{11.6, 7.6}, {15.4, 7.6}, {18.4, 11}, {18.4, 15}, {16.8, 15}},
      {{11.6, 15},          {13.2, 15}         }
  });
  path.addEllipse(QPointF(5.8, 15.4), 1.8, 1.8);
  path.addEllipse(QPointF(15, 15.4), 1.8, 1.8);
  return path;
}

QPainterPath table() {
  QPainterPath path = lines({
      {{3, 7.6}, {17, 7.6}},
      {{8, 7.6}, {8, 17}  }
  });
  path.addRect(QRectF(3, 3, 14, 14));
  return path;
}

QPainterPath tableWithLines() {
  QPainterPath path = lines({
      {{2.6, 6.6},  {17.4, 6.6} },
      {{2.6, 10.1}, {17.4, 10.1}},
      {{2.6, 13.6}, {17.4, 13.6}},
      {{7.4, 6.6},  {7.4, 17}   }
  });
  path.addRect(QRectF(2.6, 3, 14.8, 14));
  return path;
}

QPainterPath card() {
  QPainterPath path = lines({
      {{12, 8.4},  {15.4, 8.4} },
      {{12, 11.6}, {15.4, 11.6}}
  });
  path.addRect(QRectF(1.8, 4, 16.4, 12));
  path.addEllipse(QPointF(7, 8.4), 1.7, 1.7);
  path.moveTo(4.4, 13.2);
  path.cubicTo(4.4, 10.2, 9.6, 10.2, 9.6, 13.2);
  return path;
}

QPainterPath play() {
  QPainterPath path = lines({
      {{8.2, 7}, {12.8, 10}, {8.2, 13}, {8.2, 7}}
  });
  path.addRect(QRectF(2, 4, 16, 12));
  return path;
}

struct Row {
  std::string_view name;
  QPainterPath (*path)();
};

// clang-format off
constexpr std::array<Row, 11> kIcons{{
    {"person", person},
    {"box", box},
    {"bill", bill},
    {"sheet", sheet},
    {"speech sheet", sheet},
    {"van", van},
    {"table", table},
    {"lines", tableWithLines},
    {"table with lines", tableWithLines},
    {"card", card},
    {"play", play},
}};
// clang-format on

}  // namespace

void draw(QPainter& painter, const std::string& name, const QRectF& area, const QColor& colour) {
  for (const Row& row : kIcons) {
    if (row.name != name) continue;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(area.topLeft());
    painter.scale(area.width() / kView, area.height() / kView);
    painter.setPen(QPen(colour, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(row.path());
    painter.restore();
    return;
  }
}

QIcon program() {
  QIcon icon;
  for (const int size : {16, 32, 48}) {
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(size / 16.0, size / 16.0);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(palette::kAccent));
    painter.drawRoundedRect(QRectF(1.5, 0.5, 13, 15), 1.5, 1.5);
    painter.setPen(QPen(Qt::white, 1.4, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(4.5, 4.5), QPointF(11.5, 4.5));
    painter.drawLine(QPointF(4.5, 8), QPointF(11.5, 8));
    painter.drawLine(QPointF(4.5, 11.5), QPointF(8.5, 11.5));
    painter.end();
    icon.addPixmap(picture);
  }
  return icon;
}

}  // namespace icons

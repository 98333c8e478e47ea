#include "platform/qt/glyph.h"

#include <QPainterPath>
#include <QPen>

namespace tessarine {

namespace {

// All drawings stand on a square of this side.
constexpr double grid = 24.0;
constexpr double lineWidth = 1.6;

void addLine(QPainterPath& path, QPointF from, QPointF to) {
  path.moveTo(from);
  path.lineTo(to);
}

QPainterPath phone() {
  QPainterPath path;
  path.addRoundedRect(6.5, 2.5, 11, 19, 2.8, 2.8);
  addLine(path, {10.5, 18.6}, {13.5, 18.6});
  return path;
}

QPainterPath laptop() {
  QPainterPath path;
  path.addRoundedRect(4.5, 4.5, 15, 11, 1.8, 1.8);
  path.moveTo(2, 18.5);
  path.lineTo(22, 18.5);
  path.moveTo(10, 18.5);
  path.lineTo(14, 18.5);
  return path;
}

QPainterPath watch() {
  QPainterPath path;
  path.addRoundedRect(6, 6.5, 11.5, 11.5, 3.2, 3.2);
  path.moveTo(8.6, 6.5);
  path.lineTo(9.3, 2.5);
  path.lineTo(14.2, 2.5);
  path.lineTo(14.9, 6.5);
  path.moveTo(8.6, 18);
  path.lineTo(9.3, 22);
  path.lineTo(14.2, 22);
  path.lineTo(14.9, 18);
  addLine(path, {20, 10.8}, {20, 13.6});
  return path;
}

QPainterPath tiles() {
  QPainterPath path;
  path.addRoundedRect(3, 3.5, 18, 7.5, 1.4, 1.4);
  path.addRoundedRect(3, 14, 6.5, 6.5, 1.2, 1.2);
  path.addRoundedRect(12.5, 14, 8.5, 6.5, 1.2, 1.2);
  return path;
}

QPainterPath sizes() {
  QPainterPath path;
  path.addRoundedRect(3, 9.5, 11.5, 11.5, 1.8, 1.8);
  path.moveTo(13, 3);
  path.lineTo(21, 3);
  path.lineTo(21, 11);
  addLine(path, {21, 3}, {14.5, 9.5});
  return path;
}

QPainterPath picture() {
  QPainterPath path;
  path.addRoundedRect(2.5, 4, 19, 16, 2.6, 2.6);
  path.addEllipse(QPointF(8, 9.2), 1.7, 1.7);
  path.moveTo(3, 17.4);
  path.lineTo(8.2, 13.2);
  path.lineTo(11.4, 15.8);
  path.lineTo(16, 11.2);
  path.lineTo(21.2, 16);
  return path;
}

QPainterPath pathOf(Glyph glyph) {
  switch (glyph) {
    case Glyph::phone:
      return phone();
    case Glyph::laptop:
      return laptop();
    case Glyph::watch:
      return watch();
    case Glyph::tiles:
      return tiles();
    case Glyph::sizes:
      return sizes();
    case Glyph::picture:
      return picture();
    case Glyph::none:
      break;
  }
  return {};
}

}  // namespace

void paintGlyph(QPainter& painter, Glyph glyph, const QRectF& square, const QColor& color) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(square.topLeft());
  painter.scale(square.width() / grid, square.height() / grid);
  painter.setPen(QPen(color, lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawPath(pathOf(glyph));
  painter.restore();
}

}  // namespace tessarine

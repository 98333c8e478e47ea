#include "platform/qt/frame_layer.h"

#include <algorithm>

#include "platform/qt/colors.h"

namespace tessarine {

void FrameLayer::setBorderColor(FrameColor color) {
  color_ = color;
  widget_.update();
}

void FrameLayer::setBorderWidth(double width) {
  width_ = width;
  widget_.update();
}

void FrameLayer::paint(QPainter& painter, double radius) const {
  if (width_ <= 0.0 || color_ == FrameColor::clear) return;
  const double inset = width_ / 2;
  const double middleRadius = std::max(0.0, radius - inset);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(frameColor(color_, widget_.palette()), width_, Qt::SolidLine, Qt::FlatCap,
                      Qt::MiterJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(QRectF(widget_.rect()).adjusted(inset, inset, -inset, -inset),
                          middleRadius, middleRadius);
  painter.restore();
}

}  // namespace tessarine

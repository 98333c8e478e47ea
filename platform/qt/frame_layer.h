#pragma once

#include <QPainter>
#include <QWidget>

#include "platform/controls.h"

namespace tessarine {

// The frame that a widget paints just inside its edge.
class FrameLayer final : public Layer {
 public:
  // The widget, which must outlive the layer, is painted anew on each change.
  explicit FrameLayer(QWidget& widget) : widget_(widget) {}

  void setBorderColor(FrameColor color) override;
  void setBorderWidth(double width) override;

  FrameColor borderColor() const { return color_; }
  double borderWidth() const { return width_; }

  // `radius` of the outer corners, in points.
  void paint(QPainter& painter, double radius) const;

 private:
  QWidget& widget_;
  FrameColor color_ = FrameColor::clear;
  double width_ = 0.0;
};

}  // namespace tessarine

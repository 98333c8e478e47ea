#pragma once

#include <QImage>
#include <QWidget>
#include <functional>
#include <optional>

#include "platform/controls.h"
#include "platform/qt/frame_layer.h"

namespace tessarine {

// Scales a picture to a width and a height in pixels; nothing when it cannot be done.
using PictureScaler =
    std::function<std::optional<Picture>(const Picture&, std::int64_t, std::int64_t)>;

// Shows the held picture whole and never enlarged, or an invitation to drop one.
class PictureWell final : public QWidget, public ImageView {
  Q_OBJECT

 public:
  explicit PictureWell(QWidget* parent = nullptr);

  // Must be set before the first picture.
  void setScaler(PictureScaler scaler) { scaler_ = std::move(scaler); }

  void setWantsLayer(bool wanted) override;
  Layer* layer() override { return layer_ ? &*layer_ : nullptr; }
  void setImage(const std::optional<Picture>& picture) override;

  QSize sizeHint() const override { return {320, 320}; }

 signals:
  // In words, each time that it changes.
  void contentsDescribed(const QString& description);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void describe(const QString& description);
  void paintPicture(QPainter& painter, const QRect& place);
  void paintInvitation(QPainter& painter, const QRect& place) const;
  // The picture at the size that fills `place` on this screen's pixels.
  const QImage& imageFor(const QRect& place);

  PictureScaler scaler_;
  std::optional<FrameLayer> layer_;
  // The size of the held picture, in points.
  std::optional<PixelSize> held_;
  std::optional<Picture> preview_;
  // What was made of it for the screen, and for which size, whether or not it could be made.
  QImage shown_;
  PixelSize shownSize_;
};

}  // namespace tessarine

#include "platform/qt/picture_well.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "platform/qt/colors.h"
#include "platform/qt/glyph.h"

namespace tessarine {

namespace {

// Lengths in points.
constexpr double cornerRadius = 16.0;
constexpr int pictureMargin = 18;
constexpr int checkSide = 8;
constexpr int glyphSide = 56;
constexpr int leastSide = 220;

// No well is larger than this on screens of up to 8K, so that scaling from the preview loses
// nothing.
constexpr std::int64_t previewSide = 4096;

PixelSize fitted(PixelSize size, double width, double height, double mostScale) {
  const double scale = std::min({width / static_cast<double>(size.width),
                                 height / static_cast<double>(size.height), mostScale});
  const auto side = [scale](std::int64_t length) {
    return std::max<std::int64_t>(1, std::llround(static_cast<double>(length) * scale));
  };
  return {side(size.width), side(size.height)};
}

QImage imageOf(const Picture& picture) {
  if (!picture.bitmap) return {};
  const PixelSize size = picture.bitmap->size();
  const QImage view(picture.bitmap->pixels().data(), static_cast<int>(size.width),
                    static_cast<int>(size.height),
                    static_cast<qsizetype>(size.width) * qsizetype{Bitmap::bytesPerPixel},
                    QImage::Format_RGBA8888);
  return view.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

void paintChecks(QPainter& painter, const QRectF& place, const QPalette& palette) {
  const QColor light = palette.color(QPalette::Base);
  painter.save();
  painter.setClipRect(place);
  painter.fillRect(place, light);
  const QColor dark = blend(light, palette.color(QPalette::WindowText), 0.12);
  for (int row = 0; row * checkSide < place.height(); ++row) {
    for (int column = row % 2; column * checkSide < place.width(); column += 2) {
      painter.fillRect(QRectF(place.left() + column * checkSide, place.top() + row * checkSide,
                              checkSide, checkSide),
                       dark);
    }
  }
  painter.restore();
}

// Without it, screen readers would take the well for a mere container.
QAccessibleInterface* accessibleWell(const QString&, QObject* object) {
  auto* well = qobject_cast<PictureWell*>(object);
  return well == nullptr ? nullptr : new QAccessibleWidget(well, QAccessible::Graphic);
}

}  // namespace

PictureWell::PictureWell(QWidget* parent) : QWidget(parent) {
  static const bool isPictureForReaders = (QAccessible::installFactory(accessibleWell), true);
  static_cast<void>(isPictureForReaders);
  setMinimumSize(leastSide, leastSide);
  describe(tr("No picture yet"));
}

void PictureWell::setWantsLayer(bool wanted) {
  if (!wanted) {
    layer_.reset();
  } else if (!layer_) {
    layer_.emplace(*this);
  }
}

void PictureWell::setImage(const std::optional<Picture>& picture) {
  held_.reset();
  preview_.reset();
  shown_ = {};
  shownSize_ = {};
  if (picture && picture->bitmap) {
    held_ = picture->points;
    preview_ = picture;
    if (std::max(held_->width, held_->height) > previewSide) {
      const PixelSize size = fitted(*held_, previewSide, previewSide, 1.0);
      preview_ = scaler_(*picture, size.width, size.height);
    }
  }
  describe(held_ ? tr("%1 × %2 pixels").arg(held_->width).arg(held_->height)
                 : tr("No picture yet"));
  update();
}

void PictureWell::describe(const QString& description) {
  setAccessibleDescription(description);
  emit contentsDescribed(description);
}

const QImage& PictureWell::imageFor(const QRect& place) {
  const double ratio = devicePixelRatioF();
  const PixelSize size = fitted(*held_, place.width() * ratio, place.height() * ratio, ratio);
  if (size != shownSize_) {
    const auto scaled = preview_ ? scaler_(*preview_, size.width, size.height) : std::nullopt;
    shown_ = scaled ? imageOf(*scaled) : QImage();
    shownSize_ = size;
  }
  shown_.setDevicePixelRatio(ratio);
  return shown_;
}

void PictureWell::paintPicture(QPainter& painter, const QRect& place) {
  const QImage& image = imageFor(place);
  if (image.isNull()) return;  // held, but there was no memory to scale it
  const double ratio = image.devicePixelRatio();
  // On whole pixels of the screen, or the picture would be blurred.
  const auto start = [ratio](int length, int pixels) {
    return std::floor((length * ratio - pixels) / 2) / ratio;
  };
  const QRectF target(QPointF(start(width(), image.width()), start(height(), image.height())),
                      image.deviceIndependentSize());
  paintChecks(painter, target, palette());
  painter.drawImage(target.topLeft(), image);
}

void PictureWell::paintInvitation(QPainter& painter, const QRect& place) const {
  const QString title = tr("Drop a picture here");
  const QString note = tr("Anywhere in this window will do");
  QFont strong = font();
  strong.setPointSizeF(QFontInfo(strong).pointSizeF() * 1.15);
  strong.setWeight(QFont::DemiBold);
  const int flags = Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap;
  const QRect titleBox = QFontMetrics(strong).boundingRect(place, flags, title);
  const QRect noteBox = fontMetrics().boundingRect(place, flags, note);
  const int total = glyphSide + 14 + titleBox.height() + 4 + noteBox.height();
  int top = place.center().y() - total / 2;

  paintGlyph(painter, Glyph::picture,
             QRectF(place.center().x() - glyphSide / 2.0, top, glyphSide, glyphSide),
             blend(secondaryText(palette()), palette().color(QPalette::Base), 0.25));
  top += glyphSide + 14;
  painter.setFont(strong);
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(QRect(place.left(), top, place.width(), titleBox.height()), flags, title);
  top += titleBox.height() + 4;
  painter.setFont(font());
  painter.setPen(secondaryText(palette()));
  painter.drawText(QRect(place.left(), top, place.width(), noteBox.height()), flags, note);
}

void PictureWell::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(palette().color(QPalette::Base));
  painter.drawRoundedRect(rect(), cornerRadius, cornerRadius);
  const QRect place = rect().adjusted(pictureMargin, pictureMargin, -pictureMargin, -pictureMargin);
  if (held_) {
    paintPicture(painter, place);
  } else {
    paintInvitation(painter, place);
  }
  if (layer_) layer_->paint(painter, cornerRadius);
}

}  // namespace tessarine

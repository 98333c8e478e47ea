#pragma once

#include <QProxyStyle>

namespace tessarine {

// Qt's own style with rounder fields and buttons, and more air.
class TunedStyle final : public QProxyStyle {
  Q_OBJECT

 public:
  TunedStyle() : QProxyStyle(QStringLiteral("fusion")) {}

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                         const QWidget* widget) const override;
  QRect subElementRect(SubElement element, const QStyleOption* option,
                       const QWidget* widget) const override;
};

}  // namespace tessarine

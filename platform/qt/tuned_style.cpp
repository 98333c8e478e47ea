#include "platform/qt/tuned_style.h"

#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QStyleOptionButton>
#include <QStyleOptionMenuItem>
#include <algorithm>

#include "platform/qt/colors.h"

namespace tessarine {

namespace {

// Lengths in points.
constexpr double radius = 7.0;
constexpr int fieldHeight = 32;
constexpr int fieldPadding = 7;
constexpr int buttonHeight = 36;

QRectF middleOfEdge(const QRect& rect, double width) {
  return QRectF(rect).adjusted(width / 2, width / 2, -width / 2, -width / 2);
}

void drawBox(QPainter& painter, const QRect& rect, const QColor& ground, const QColor& edge,
             double edgeWidth) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(ground);
  painter.setPen(edgeWidth > 0 ? QPen(edge, edgeWidth) : QPen(Qt::NoPen));
  painter.drawRoundedRect(middleOfEdge(rect, edgeWidth), radius, radius);
  painter.restore();
}

QColor edgeColor(const QPalette& palette, double strength) {
  return blend(palette.color(QPalette::Active, QPalette::Window),
               palette.color(QPalette::Active, QPalette::WindowText), strength);
}

void drawField(QPainter& painter, const QStyleOption& option) {
  const bool focused = option.state.testFlag(QStyle::State_HasFocus);
  drawBox(painter, option.rect, option.palette.color(QPalette::Base),
          focused ? accentColor(option.palette) : edgeColor(option.palette, 0.3),
          focused ? 2.0 : 1.0);
}

void drawButton(QPainter& painter, const QStyleOptionButton& option) {
  const QPalette& palette = option.palette;
  const bool enabled = option.state.testFlag(QStyle::State_Enabled);
  const bool pressed = option.state.testFlag(QStyle::State_Sunken);
  const bool hovered = enabled && option.state.testFlag(QStyle::State_MouseOver);
  const bool main = enabled && option.features.testFlag(QStyleOptionButton::DefaultButton);
  const QColor tint = palette.color(main ? QPalette::Shadow : QPalette::WindowText);
  QColor ground = main ? accentColor(palette) : palette.color(QPalette::Button);
  if (pressed || hovered) ground = blend(ground, tint, pressed ? 0.2 : 0.08);
  drawBox(painter, option.rect, ground, edgeColor(palette, enabled ? 0.22 : 0.12),
          main ? 0.0 : 1.0);
}

void drawMenuTitle(QPainter& painter, const QStyleOptionMenuItem& option) {
  painter.fillRect(option.rect, option.palette.window());
  if (option.state.testFlag(QStyle::State_Selected)) {
    drawBox(painter, option.rect.adjusted(0, 2, 0, -2), edgeColor(option.palette, 0.1), {}, 0.0);
  }
  painter.setPen(option.palette.color(QPalette::WindowText));
  painter.drawText(option.rect, Qt::AlignCenter | Qt::TextShowMnemonic | Qt::TextSingleLine,
                   option.text);
}

}  // namespace

void TunedStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
  switch (element) {
    case PE_PanelLineEdit:
      if (qobject_cast<const QLineEdit*>(widget) == nullptr) break;
      return drawField(*painter, *option);
    case PE_FrameLineEdit:
      return;
    case PE_PanelButtonCommand:
      if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option)) {
        return drawButton(*painter, *button);
      }
      break;
    case PE_FrameFocusRect:
      if (qobject_cast<const QPushButton*>(widget) == nullptr) break;
      return drawBox(*painter, widget->rect().adjusted(2, 2, -2, -2), Qt::transparent,
                     widget->palette().color(QPalette::Highlight), 2.0);
    default:
      break;
  }
  QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void TunedStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
  if (element == CE_PushButtonLabel) {
    if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option)) {
      QStyleOptionButton label = *button;
      if (label.features.testFlag(QStyleOptionButton::DefaultButton) &&
          label.state.testFlag(State_Enabled)) {
        label.palette.setColor(QPalette::ButtonText,
                               label.palette.color(QPalette::HighlightedText));
      }
      return QProxyStyle::drawControl(element, &label, painter, widget);
    }
  }
  if (element == CE_MenuBarItem) {
    if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option)) {
      return drawMenuTitle(*painter, *item);
    }
  }
  // The line below the menus would cut the window in two.
  if (element == CE_MenuBarEmptyArea)
    return painter->fillRect(option->rect, option->palette.window());
  QProxyStyle::drawControl(element, option, painter, widget);
}

QSize TunedStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                   const QSize& contents, const QWidget* widget) const {
  QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
  if (type == CT_LineEdit) size.setHeight(std::max(size.height(), fieldHeight));
  if (type == CT_MenuBarItem) size += QSize(6, 8);
  if (type == CT_PushButton) {
    size.setHeight(std::max(size.height(), buttonHeight));
    size.rwidth() += 16;
  }
  return size;
}

QRect TunedStyle::subElementRect(SubElement element, const QStyleOption* option,
                                 const QWidget* widget) const {
  const QRect place = QProxyStyle::subElementRect(element, option, widget);
  if (element != SE_LineEditContents) return place;
  return place.adjusted(fieldPadding, 0, -fieldPadding, 0);
}

}  // namespace tessarine

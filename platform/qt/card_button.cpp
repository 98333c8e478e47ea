#include "platform/qt/card_button.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyleOptionButton>
#include <algorithm>

#include "platform/qt/colors.h"

namespace tessarine {

namespace {

// Lengths in points.
constexpr int ringSpace = 3;
constexpr int padding = 13;
constexpr int gap = 12;
constexpr int badgeSide = 38;
constexpr int glyphSide = 24;
constexpr int lineGap = 2;
constexpr int arrowSpace = 18;
constexpr double radius = 10.0;

constexpr double disabledShare = 0.5;

QRectF cardOf(const QRect& bounds) {
  return QRectF(bounds).adjusted(ringSpace + 0.5, ringSpace + 0.5, -ringSpace - 0.5,
                                 -ringSpace - 0.5);
}

bool usable(const QStyleOption& option) {
  return option.state.testFlag(QStyle::State_Enabled);
}

QColor accentOf(const QStyleOption& option) {
  const QColor accent = accentColor(option.palette);
  // Lines on a dark ground need a lighter tone than a filled button.
  const QColor line = isDark(option.palette) ? blend(accent, Qt::white, 0.45) : accent;
  return usable(option) ? line : secondaryText(option.palette);
}

void paintArrow(QPainter& painter, const QRect& place, const QColor& color) {
  const QPointF tip(place.center().x() + 3, place.center().y() + 0.5);
  painter.setPen(QPen(color, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPolyline(QPolygonF{tip + QPointF(-4.5, -4.5), tip, tip + QPointF(-4.5, 4.5)});
}

}  // namespace

CardButton::CardButton(QWidget* parent) : ActionButton(parent) {
  setAttribute(Qt::WA_Hover);
}

void CardButton::setGlyph(Glyph glyph) {
  glyph_ = glyph;
  update();
}

void CardButton::setSubtitle(const QString& subtitle) {
  subtitle_ = subtitle;
  setAccessibleDescription(subtitle);
  updateGeometry();
  update();
}

void CardButton::setLeadsOn(bool leadsOn) {
  leadsOn_ = leadsOn;
  updateGeometry();
  update();
}

QFont CardButton::titleFont() const {
  QFont font = this->font();
  font.setWeight(QFont::DemiBold);
  return font;
}

QFont CardButton::subtitleFont() const {
  QFont font = this->font();
  font.setPointSizeF(font.pointSizeF() * 0.92);
  return font;
}

QSize CardButton::sizeHint() const {
  const QFontMetrics title(titleFont());
  const QFontMetrics subtitle(subtitleFont());
  const int textWidth = std::max(title.size(Qt::TextShowMnemonic, text()).width(),
                                 subtitle.horizontalAdvance(subtitle_));
  const int textHeight = title.height() + lineGap + subtitle.height();
  return {2 * (ringSpace + padding) + badgeSide + gap + textWidth + (leadsOn_ ? arrowSpace : 2),
          2 * (ringSpace + padding) + std::max(badgeSide, textHeight)};
}

void CardButton::paintCard(QPainter& painter, const QStyleOptionButton& option) const {
  const QColor accent = accentColor(option.palette);
  const bool pressed = option.state.testFlag(QStyle::State_Sunken);
  const bool hovered = usable(option) && option.state.testFlag(QStyle::State_MouseOver);
  QColor ground = blend(option.palette.color(QPalette::Active, QPalette::Base),
                        option.palette.color(QPalette::Active, QPalette::Window),
                        usable(option) ? 0.0 : disabledShare);
  QColor edge = blend(option.palette.color(QPalette::Active, QPalette::Window),
                      option.palette.color(QPalette::Active, QPalette::WindowText), 0.16);
  if (hovered || pressed) {
    ground = blend(ground, accent, pressed ? 0.16 : 0.06);
    edge = blend(edge, accent, 0.7);
  }
  painter.setPen(QPen(edge, 1.0));
  painter.setBrush(ground);
  painter.drawRoundedRect(cardOf(rect()), radius, radius);
  if (option.state.testFlag(QStyle::State_HasFocus) &&
      option.state.testFlag(QStyle::State_KeyboardFocusChange)) {
    painter.setPen(QPen(accentOf(option), 2.0));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), radius + 2, radius + 2);
  }
}

void CardButton::paintTexts(QPainter& painter, const QStyleOptionButton& option,
                            const QRect& place) const {
  const QFontMetrics title(titleFont());
  const QFontMetrics subtitle(subtitleFont());
  const int textHeight = title.height() + lineGap + subtitle.height();
  QRect line(place.left(), place.center().y() - textHeight / 2 + 1, place.width(), title.height());
  const QColor strong = option.palette.color(QPalette::Active, QPalette::WindowText);
  const QColor soft = secondaryText(option.palette);
  const bool underlined = style()->styleHint(QStyle::SH_UnderlineShortcut, &option, this) != 0;
  const int flags = Qt::AlignVCenter | Qt::TextSingleLine |
                    (underlined ? Qt::TextShowMnemonic : Qt::TextHideMnemonic);
  painter.setFont(titleFont());
  painter.setPen(usable(option) ? strong : soft);
  painter.drawText(QStyle::visualRect(layoutDirection(), rect(), line), flags, text());
  line.moveTop(line.bottom() + 1 + lineGap);
  line.setHeight(subtitle.height());
  painter.setFont(subtitleFont());
  painter.setPen(soft);
  painter.drawText(QStyle::visualRect(layoutDirection(), rect(), line),
                   Qt::AlignVCenter | Qt::TextSingleLine, subtitle_);
}

void CardButton::paintEvent(QPaintEvent*) {
  QStyleOptionButton option;
  initStyleOption(&option);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  paintCard(painter, option);

  const QRect inside = rect().adjusted(ringSpace + padding, 0, -ringSpace - padding, 0);
  QRect badge(inside.left(), 0, badgeSide, badgeSide);
  badge.moveCenter({badge.center().x(), rect().center().y()});
  badge = QStyle::visualRect(layoutDirection(), rect(), badge);
  QColor ground = accentOf(option);
  ground.setAlphaF(usable(option) ? 0.13F : 0.08F);
  painter.setPen(Qt::NoPen);
  painter.setBrush(ground);
  painter.drawRoundedRect(badge, radius - 1, radius - 1);
  QRectF square(0, 0, glyphSide, glyphSide);
  square.moveCenter(QRectF(badge).center());
  paintGlyph(painter, glyph_, square, accentOf(option));

  const int arrow = leadsOn_ ? arrowSpace : 0;
  paintTexts(painter, option, inside.adjusted(badgeSide + gap, 0, -arrow, 0));
  if (leadsOn_) {
    paintArrow(painter, QRect(inside.right() - arrow, 0, arrow, rect().height()),
               secondaryText(option.palette));
  }
}

}  // namespace tessarine

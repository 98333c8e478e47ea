#include "platform/qt/card_button.h"

#include <QFontInfo>
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
constexpr int badgeSide = 44;
constexpr int glyphSide = 28;
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

// Towards the end of a line of text.
void paintArrow(QPainter& painter, const QRect& place, Qt::LayoutDirection direction,
                const QColor& color) {
  const double ahead = direction == Qt::LeftToRight ? 1.0 : -1.0;
  const QPointF tip(place.center().x() + 3 * ahead, place.center().y() + 0.5);
  painter.setPen(QPen(color, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPolyline(
      QPolygonF{tip + QPointF(-4.5 * ahead, -4.5), tip, tip + QPointF(-4.5 * ahead, 4.5)});
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

void CardButton::setStacked(bool stacked) {
  stacked_ = stacked;
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
  // The font itself knows no points where it was set in pixels.
  font.setPointSizeF(QFontInfo(font).pointSizeF() * 0.92);
  return font;
}

QSize CardButton::textSize() const {
  const QFontMetrics title(titleFont());
  const QFontMetrics subtitle(subtitleFont());
  return {std::max(title.size(Qt::TextShowMnemonic, text()).width(),
                   subtitle.horizontalAdvance(subtitle_)),
          title.height() + lineGap + subtitle.height()};
}

QSize CardButton::sizeHint() const {
  const QSize texts = textSize() + QSize(leadsOn_ ? arrowSpace : 2, 0);
  const QSize inside =
      stacked_ ? QSize(std::max(badgeSide, texts.width()), badgeSide + gap + texts.height())
               : QSize(badgeSide + gap + texts.width(), std::max(badgeSide, texts.height()));
  return inside + QSize(2 * (ringSpace + padding), 2 * (ringSpace + padding));
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

void CardButton::paintBadge(QPainter& painter, const QStyleOptionButton& option,
                            const QRect& place) const {
  QColor ground = accentOf(option);
  ground.setAlphaF(usable(option) ? 0.13F : 0.08F);
  painter.setPen(Qt::NoPen);
  painter.setBrush(ground);
  painter.drawRoundedRect(place, radius - 1, radius - 1);
  QRectF square(0, 0, glyphSide, glyphSide);
  square.moveCenter(QRectF(place).center());
  paintGlyph(painter, glyph_, square, accentOf(option));
}

void CardButton::paintTexts(QPainter& painter, const QStyleOptionButton& option,
                            const QRect& place) const {
  const QColor strong = option.palette.color(QPalette::Active, QPalette::WindowText);
  const QColor soft = secondaryText(option.palette);
  const bool underlined = style()->styleHint(QStyle::SH_UnderlineShortcut, &option, this) != 0;
  const auto leading = static_cast<int>(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft));
  painter.setFont(titleFont());
  painter.setPen(usable(option) ? strong : soft);
  const int mnemonic = underlined ? Qt::TextShowMnemonic : Qt::TextHideMnemonic;
  painter.drawText(place, Qt::AlignTop | leading | Qt::TextSingleLine | mnemonic, text());
  painter.setFont(subtitleFont());
  painter.setPen(soft);
  painter.drawText(place, Qt::AlignBottom | leading | Qt::TextSingleLine, subtitle_);
}

void CardButton::paintEvent(QPaintEvent*) {
  QStyleOptionButton option;
  initStyleOption(&option);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  paintCard(painter, option);

  const int edge = ringSpace + padding;
  const QRect inside = rect().adjusted(edge, edge, -edge, -edge);
  const int textHeight = textSize().height();
  QRect badge(inside.topLeft(), QSize(badgeSide, badgeSide));
  QRect texts(inside.left(), 0, inside.width(), textHeight);
  if (stacked_) {
    // Both are kept together in the middle of a card that is higher than they need.
    badge.moveTop(inside.center().y() - (badgeSide + gap + textHeight) / 2 + 1);
    texts.moveTop(badge.bottom() + 1 + gap);
  } else {
    badge.moveTop(inside.center().y() - badgeSide / 2 + 1);
    texts.moveTop(inside.center().y() - textHeight / 2 + 1);
    texts.setLeft(badge.right() + 1 + gap);
  }
  const auto mirrored = [this](const QRect& place) {
    return QStyle::visualRect(layoutDirection(), rect(), place);
  };
  paintBadge(painter, option, mirrored(badge));
  paintTexts(painter, option, mirrored(texts));
  if (leadsOn_) {
    paintArrow(painter,
               mirrored(QRect(inside.right() - arrowSpace, 0, arrowSpace, rect().height())),
               layoutDirection(), secondaryText(option.palette));
  }
}

}  // namespace tessarine

#pragma once

#include "platform/qt/action_button.h"
#include "platform/qt/glyph.h"

namespace tessarine {

// A button in the form of a card: a glyph, the text, and a smaller text below it.
class CardButton final : public ActionButton {
  Q_OBJECT
  Q_PROPERTY(tessarine::Glyph glyph READ glyph WRITE setGlyph)
  Q_PROPERTY(QString subtitle READ subtitle WRITE setSubtitle)
  Q_PROPERTY(bool stacked READ stacked WRITE setStacked)
  Q_PROPERTY(bool leadsOn READ leadsOn WRITE setLeadsOn)

 public:
  explicit CardButton(QWidget* parent = nullptr);

  Glyph glyph() const { return glyph_; }
  void setGlyph(Glyph glyph);
  QString subtitle() const { return subtitle_; }
  void setSubtitle(const QString& subtitle);
  // Whether the texts stand below the glyph and not beside it.
  bool stacked() const { return stacked_; }
  void setStacked(bool stacked);
  // Whether the button leads to another screen, which an arrow shows.
  bool leadsOn() const { return leadsOn_; }
  void setLeadsOn(bool leadsOn);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QFont titleFont() const;
  QFont subtitleFont() const;
  QSize textSize() const;
  void paintCard(QPainter& painter, const QStyleOptionButton& option) const;
  void paintBadge(QPainter& painter, const QStyleOptionButton& option, const QRect& place) const;
  void paintTexts(QPainter& painter, const QStyleOptionButton& option, const QRect& place) const;

  Glyph glyph_ = Glyph::none;
  QString subtitle_;
  bool stacked_ = false;
  bool leadsOn_ = false;
};

}  // namespace tessarine

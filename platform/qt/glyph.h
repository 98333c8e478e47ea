#pragma once

#include <QColor>
#include <QObject>
#include <QPainter>
#include <QRectF>

namespace tessarine {

Q_NAMESPACE

// Line drawings of the things that icons are cut for.
enum class Glyph { none, phone, laptop, watch, tiles, sizes, picture };
Q_ENUM_NS(Glyph)

// Drawn into the middle of the square.
void paintGlyph(QPainter& painter, Glyph glyph, const QRectF& square, const QColor& color);

}  // namespace tessarine

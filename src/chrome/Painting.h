// The few shapes and texts that every control is painted from.
#pragma once

#include "chrome/Theme.h"

#include <QPainter>
#include <QRectF>
#include <QString>

class QWidget;

namespace tarnquill::Painting {

// Opacity of a disabled control.
inline constexpr double kDisabledOpacity = 0.55;

// A rounded box. The border (none when the colour is invalid) lies inside the rectangle.
void box(QPainter& painter, const QRectF& rect, double radius, const QColor& fill, const QColor& border = {},
         double borderWidth = 1);

// A line of text, centred vertically and elided at its end when it does not fit.
void text(QPainter& painter, const QRect& rect, const QString& text, FontRole role, const QColor& color,
          Qt::Alignment alignment = Qt::AlignLeading | Qt::AlignVCenter);

// Several lines of text from the top of the rectangle, broken between words, in the line height of the role.
void paragraph(QPainter& painter, const QRect& rect, const QString& text, FontRole role, const QColor& color,
               Qt::Alignment alignment = Qt::AlignLeading);

// The size of such a paragraph when no line may be wider than that.
[[nodiscard]] QSize paragraphSize(const QString& text, FontRole role, int maximumWidth);

// Width of a line of text in whole pixels.
[[nodiscard]] int textWidth(const QString& text, FontRole role);

// A symbol in the middle of the rectangle.
void symbol(QPainter& painter, const QRect& rect, const QString& name, int size, const QColor& color);

// The shadow under a floating box: 8 down, blurred by 24. Paint it before the box; it needs kShadowReach
// around it.
inline constexpr int kShadowReach = 32;
void shadow(QPainter& painter, const QRect& box);

// The frame of menus and popovers: its shadow, a fill and an outline just outside the fill.
void floatingBox(QPainter& painter, const QRect& box, double radius, ColorRole fill);

// What lies between two colours: `from` at 0, `to` at 1.
[[nodiscard]] QColor mix(const QColor& from, const QColor& to, double amount);

// The same colour with its opacity multiplied.
[[nodiscard]] QColor faded(QColor color, double opacity);

} // namespace tarnquill::Painting

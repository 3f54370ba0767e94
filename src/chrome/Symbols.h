// Icons by symbol name, drawn from outlines in a colour of the theme, sharp at every scale.
#pragma once

#include "chrome/Theme.h"

#include <QIcon>
#include <QPixmap>

class QPainter;
class QRectF;

namespace tarnquill::Symbols {

// `name` is a symbol name ("doc.on.doc") or, for symbols that have none, the outline's own name
// ("folder-open"). `stroke` is the line width on the outlines' grid of 24.
inline constexpr double kStroke = 2.0;
inline constexpr double kThinStroke = 1.5;

// Draws the symbol into the square, which is snapped to the device's pixels.
void draw(QPainter& painter, const QRectF& square, const QString& name, const QColor& color,
          double stroke = kStroke);

[[nodiscard]] QPixmap pixmap(const QString& name, int size, const QColor& color, double devicePixelRatio,
                             double stroke = kStroke);

// An icon that follows the theme: its colour is looked up each time it is painted.
[[nodiscard]] QIcon icon(const QString& name, ColorRole role = ColorRole::muted);

} // namespace tarnquill::Symbols

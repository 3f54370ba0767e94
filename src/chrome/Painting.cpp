#include "chrome/Painting.h"

#include "chrome/Symbols.h"

#include <QFontMetricsF>
#include <QPixmapCache>
#include <QTextLayout>

#include <cmath>
#include <vector>

namespace tarnquill::Painting {

using namespace Qt::StringLiterals;

void box(QPainter& painter, const QRectF& rect, double radius, const QColor& fill, const QColor& border,
         double borderWidth) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    if (!border.isValid()) {
        painter.setBrush(fill);
        painter.drawRoundedRect(rect, radius, radius);
    } else {
        const double half = borderWidth / 2;
        painter.setBrush(fill.isValid() ? QBrush(fill) : QBrush(Qt::NoBrush));
        painter.setPen(QPen(border, borderWidth));
        painter.drawRoundedRect(rect.adjusted(half, half, -half, -half), radius - half, radius - half);
    }
    painter.restore();
}

void text(QPainter& painter, const QRect& rect, const QString& text, FontRole role, const QColor& color,
          Qt::Alignment alignment) {
    const QFont font = Theme::instance().font(role);
    painter.setFont(font);
    painter.setPen(color);
    // Half a pixel of grace: a label measured by textWidth() is never elided.
    const QString shown = QFontMetricsF(font).elidedText(text, Qt::ElideRight, rect.width() + 0.5);
    painter.drawText(rect, static_cast<int>(alignment) | Qt::TextSingleLine, shown);
}

namespace {

// Breaks a paragraph into lines and returns its size.
QSize layOut(QTextLayout& layout, FontRole role, int width, Qt::Alignment alignment) {
    QTextOption option(alignment);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    const int lineHeight = Theme::lineHeight(role);
    int height = 0;
    double widest = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition(QPointF(0, height + std::floor((lineHeight - line.height()) / 2)));
        widest = std::max(widest, line.naturalTextWidth());
        height += lineHeight;
    }
    layout.endLayout();
    return {static_cast<int>(std::ceil(widest)), height};
}

QString withLineSeparators(QString text) {
    return text.replace(u'\n', QChar::LineSeparator);
}

} // namespace

void paragraph(QPainter& painter, const QRect& rect, const QString& text, FontRole role, const QColor& color,
               Qt::Alignment alignment) {
    QTextLayout layout(withLineSeparators(text), Theme::instance().font(role));
    layOut(layout, role, rect.width(), alignment);
    painter.setPen(color);
    layout.draw(&painter, rect.topLeft());
}

QSize paragraphSize(const QString& text, FontRole role, int maximumWidth) {
    QTextLayout layout(withLineSeparators(text), Theme::instance().font(role));
    return layOut(layout, role, maximumWidth, Qt::AlignLeading);
}

int textWidth(const QString& text, FontRole role) {
    return static_cast<int>(std::ceil(QFontMetricsF(Theme::instance().font(role)).horizontalAdvance(text)));
}

void symbol(QPainter& painter, const QRect& rect, const QString& name, int size, const QColor& color) {
    if (name.isEmpty()) {
        return;
    }
    const QPointF middle = QRectF(rect).center();
    Symbols::draw(
        painter, QRectF(std::floor(middle.x() - size / 2.0), std::floor(middle.y() - size / 2.0), size, size),
        name, color);
}

namespace {

// How much of a blurred edge pair lies at each pixel: 0 far outside, 1 deep inside.
std::vector<double> blurredSpan(int length, int from, int to) {
    constexpr double kSigma = 12;
    const double scale = 1 / (kSigma * std::sqrt(2.0));
    std::vector<double> coverage(static_cast<size_t>(length));
    for (int at = 0; at < length; ++at) {
        const double centre = at + 0.5;
        coverage[static_cast<size_t>(at)] =
            (std::erf((centre - from) * scale) - std::erf((centre - to) * scale)) / 2;
    }
    return coverage;
}

} // namespace

void shadow(QPainter& painter, const QRect& box) {
    constexpr int kOffset = 8;
    const QColor ink = themeColor(ColorRole::shadow);
    const QString key = u"shadow/%1/%2/%3"_s.arg(box.width()).arg(box.height()).arg(ink.alpha());
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        // A blurred rectangle is the product of a blurred row and a blurred column.
        QImage image(box.size() + QSize(2 * kShadowReach, 2 * kShadowReach),
                     QImage::Format_ARGB32_Premultiplied);
        const auto across = blurredSpan(image.width(), kShadowReach, kShadowReach + box.width());
        const auto down =
            blurredSpan(image.height(), kShadowReach + kOffset, kShadowReach + kOffset + box.height());
        for (int y = 0; y < image.height(); ++y) {
            auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
            for (int x = 0; x < image.width(); ++x) {
                const double cover = across[static_cast<size_t>(x)] * down[static_cast<size_t>(y)];
                line[x] = qRgba(0, 0, 0, static_cast<int>(std::lround(cover * ink.alpha())));
            }
        }
        pixmap = QPixmap::fromImage(image);
        QPixmapCache::insert(key, pixmap);
    }
    painter.drawPixmap(box.topLeft() - QPoint(kShadowReach, kShadowReach), pixmap);
}

void floatingBox(QPainter& painter, const QRect& rect, double radius, ColorRole fill) {
    shadow(painter, rect);
    box(painter, QRectF(rect).adjusted(-1, -1, 1, 1), radius + 1, {}, themeColor(ColorRole::outline));
    box(painter, rect, radius, themeColor(fill));
}

QColor mix(const QColor& from, const QColor& to, double amount) {
    if (!from.isValid() || from.alpha() == 0) {
        return faded(to, amount);
    }
    const auto blend = [&](float a, float b) { return a + (b - a) * static_cast<float>(amount); };
    return QColor::fromRgbF(blend(from.redF(), to.redF()), blend(from.greenF(), to.greenF()),
                            blend(from.blueF(), to.blueF()), blend(from.alphaF(), to.alphaF()));
}

QColor faded(QColor color, double opacity) {
    color.setAlphaF(color.alphaF() * static_cast<float>(opacity));
    return color;
}

} // namespace tarnquill::Painting

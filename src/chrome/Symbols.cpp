#include "chrome/Symbols.h"

#include <QFile>
#include <QHash>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <cmath>

namespace tarnquill::Symbols {
namespace {

using namespace Qt::StringLiterals;

constexpr auto kFilledTriangle = "exclamationmark.triangle.fill"_L1;

QString outlineName(const QString& name) {
    static const QHash<QString, QString> kOutlines{
        {u"doc.text"_s, u"file-text"_s},
        {u"flowchart"_s, u"workflow"_s},
        {u"curlybraces"_s, u"braces"_s},
        {u"tablecells"_s, u"table"_s},
        {u"arrow.left.arrow.right"_s, u"arrow-left-right"_s},
        {u"key.horizontal"_s, u"key-round"_s},
        {u"sidebar.left"_s, u"panel-left"_s},
        {u"doc.on.doc"_s, u"copy"_s},
        {u"checkmark"_s, u"check"_s},
        {u"trash"_s, u"trash-2"_s},
        {u"shippingbox"_s, u"package"_s},
        {u"doc.on.clipboard"_s, u"clipboard-copy"_s},
        {kFilledTriangle, u"triangle-alert"_s},
        {u"doc.text.magnifyingglass"_s, u"file-search"_s},
        {u"arrow.up.arrow.down"_s, u"arrow-up-down"_s},
        {u"arrow.up"_s, u"arrow-up"_s},
        {u"arrow.down"_s, u"arrow-down"_s},
        {u"chevron.left.forwardslash.chevron.right"_s, u"code-xml"_s},
    };
    return kOutlines.value(name, name);
}

QByteArray outline(const QString& name, const QColor& color, double stroke) {
    QFile file(u":/symbols/%1.svg"_s.arg(outlineName(name)));
    if (!file.open(QIODevice::ReadOnly)) {
        qWarning("No symbol is named %s", qUtf8Printable(name));
        return {};
    }
    QByteArray svg = file.readAll();
    const QByteArray ink = color.name().toLatin1();
    svg.replace("stroke-width=\"2\"", "stroke-width=\"" + QByteArray::number(stroke) + '"');
    svg.replace("currentColor", ink);
    if (name == kFilledTriangle) {
        // The first path is the triangle; the mark in it is what follows.
        const QByteArray mark = themeColor(ColorRole::background).name().toLatin1();
        svg.replace("<path ", "<path stroke=\"" + mark + "\" ");
        const qsizetype first = svg.indexOf("<path ");
        svg.replace(first, svg.indexOf("d=", first) - first, "<path fill=\"" + ink + "\" ");
    }
    return svg;
}

class ThemedEngine : public QIconEngine {
public:
    ThemedEngine(QString name, ColorRole role) : m_name(std::move(name)), m_role(role) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const int side = std::min(rect.width(), rect.height());
        QRect square(0, 0, side, side);
        square.moveCenter(rect.center());
        draw(*painter, square, m_name, ink(mode));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return scaledPixmap(size, mode, state, 1.0);
    }

    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State, qreal scale) override {
        // The size is in the device's pixels already.
        const int side = static_cast<int>(std::lround(std::min(size.width(), size.height()) / scale));
        return Symbols::pixmap(m_name, side, ink(mode), scale);
    }

    [[nodiscard]] QIconEngine* clone() const override { return new ThemedEngine(m_name, m_role); }

private:
    [[nodiscard]] QColor ink(QIcon::Mode mode) const {
        QColor color = themeColor(m_role);
        if (mode == QIcon::Disabled) {
            color.setAlphaF(0.55F);
        }
        return color;
    }

    QString m_name;
    ColorRole m_role;
};

} // namespace

QPixmap pixmap(const QString& name, int size, const QColor& color, double devicePixelRatio, double stroke) {
    const QString key = u"symbol/%1/%2/%3/%4/%5/%6"_s.arg(name)
                            .arg(size)
                            .arg(color.name(QColor::HexArgb))
                            .arg(devicePixelRatio)
                            .arg(stroke)
                            .arg(Theme::instance().isDark());
    QPixmap result;
    if (QPixmapCache::find(key, &result)) {
        return result;
    }
    const int side = static_cast<int>(std::lround(size * devicePixelRatio));
    result = QPixmap(side, side);
    result.fill(Qt::transparent);
    QSvgRenderer renderer(outline(name, color, stroke));
    QPainter painter(&result);
    painter.setOpacity(color.alphaF());
    renderer.render(&painter, QRectF(0, 0, side, side));
    painter.end();
    result.setDevicePixelRatio(devicePixelRatio);
    QPixmapCache::insert(key, result);
    return result;
}

void draw(QPainter& painter, const QRectF& square, const QString& name, const QColor& color, double stroke) {
    const double ratio = painter.device()->devicePixelRatioF();
    const QPointF corner(std::round(square.x() * ratio) / ratio, std::round(square.y() * ratio) / ratio);
    const int side = static_cast<int>(std::lround(square.width()));
    painter.drawPixmap(corner, pixmap(name, side, color, ratio, stroke));
}

QIcon icon(const QString& name, ColorRole role) {
    return QIcon(new ThemedEngine(name, role));
}

} // namespace tarnquill::Symbols

#include "chrome/ToolTips.h"

#include "chrome/Fade.h"
#include "chrome/Painting.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPointer>
#include <QWidget>

#include <algorithm>

namespace tarnquill::ToolTips {
namespace {

constexpr int kGap = 8;
constexpr int kRadius = 6;
constexpr int kWidest = 360;
constexpr QMargins kPadding(10, 6, 10, 6);

class Bubble : public QWidget {
public:
    Bubble(QWidget& anchor, const QRect& part, const QString& text)
        : QWidget(anchor.window()), m_text(text), m_fade(new Fade(this, 100)) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFocusPolicy(Qt::NoFocus);
        resize(Painting::paragraphSize(m_text, FontRole::note, kWidest).grownBy(kPadding));
        move(placeFor(QRect(anchor.mapTo(window(), part.topLeft()), part.size())));
        show();
        raise();
        m_fade->glideTo(1);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setOpacity(m_fade->value());
        Painting::box(painter, rect(), kRadius, themeColor(ColorRole::tooltip));
        Painting::paragraph(painter, rect().marginsRemoved(kPadding), m_text, FontRole::note,
                            themeColor(ColorRole::tooltipText));
    }

private:
    // Below the control, or above it where the window ends.
    [[nodiscard]] QPoint placeFor(const QRect& control) const {
        const int farthest = window()->width() - kGap - width();
        const int x = std::max(kGap, std::min(control.center().x() - width() / 2, farthest));
        const int below = control.bottom() + 1 + kGap;
        const bool fits = below + height() <= window()->height() - 2;
        return {x, fits ? below : control.top() - kGap - height()};
    }

    QString m_text;
    Fade* m_fade;
};

class Watcher : public QObject {
public:
    explicit Watcher(QObject* parent) : QObject(parent) { qApp->installEventFilter(this); }

    void showFor(QWidget& widget, const QRect& part, const QString& text) {
        if (m_anchor != &widget || m_part != part || !m_bubble) {
            hide();
            m_anchor = &widget;
            m_part = part;
            m_bubble = new Bubble(widget, part, text);
        }
    }

protected:
    bool eventFilter(QObject* object, QEvent* event) override {
        switch (event->type()) {
        case QEvent::ToolTip:
            return object->isWidgetType() && show(static_cast<QWidget&>(*object));
        case QEvent::Leave:
        case QEvent::Hide:
        case QEvent::ToolTipChange:
            if (object == m_anchor) {
                hide();
            }
            break;
        case QEvent::MouseMove:
            if (object == m_anchor &&
                !m_part.contains(static_cast<QMouseEvent*>(event)->position().toPoint())) {
                hide();
            }
            break;
        case QEvent::MouseButtonPress:
        case QEvent::KeyPress:
        case QEvent::Wheel:
        case QEvent::WindowDeactivate:
            hide();
            break;
        default:
            break;
        }
        return false;
    }

private:
    bool show(QWidget& widget) {
        if (widget.toolTip().isEmpty() || widget.window()->windowType() == Qt::Popup) {
            return false;
        }
        showFor(widget, widget.rect(), widget.toolTip());
        return true;
    }

    void hide() {
        if (m_bubble) {
            m_bubble->hide();
            m_bubble->deleteLater();
        }
        m_bubble = nullptr;
        m_anchor = nullptr;
    }

    QPointer<QWidget> m_anchor;
    QRect m_part; // of the anchor
    QPointer<Bubble> m_bubble;
};

QPointer<Watcher> watcher;

} // namespace

void install() {
    watcher = new Watcher(qApp);
}

void showForPart(QWidget& view, const QRect& part, const QString& text) {
    if (watcher) {
        watcher->showFor(view, part, text);
    }
}

} // namespace tarnquill::ToolTips

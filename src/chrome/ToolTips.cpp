#include "chrome/ToolTips.h"

#include "chrome/Fade.h"
#include "chrome/Painting.h"

#include <QApplication>
#include <QEvent>
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
    explicit Bubble(QWidget& anchor)
        : QWidget(anchor.window()), m_text(anchor.toolTip()), m_fade(new Fade(this, 100)) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFocusPolicy(Qt::NoFocus);
        const QSize text = Painting::paragraphSize(m_text, FontRole::note, kWidest);
        resize(text.grownBy(kPadding));
        move(placeFor(anchor));
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
    [[nodiscard]] QPoint placeFor(const QWidget& anchor) const {
        const QRect control(anchor.mapTo(window(), QPoint(0, 0)), anchor.size());
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
        if (m_anchor != &widget || !m_bubble) {
            hide();
            m_anchor = &widget;
            m_bubble = new Bubble(widget);
        }
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
    QPointer<Bubble> m_bubble;
};

} // namespace

void install() {
    new Watcher(qApp);
}

} // namespace tarnquill::ToolTips

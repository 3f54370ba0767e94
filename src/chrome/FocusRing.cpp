#include "chrome/FocusRing.h"

#include "chrome/Painting.h"

#include <QApplication>
#include <QFocusEvent>
#include <QHash>
#include <QPointer>
#include <QWidget>

namespace tarnquill::FocusRing {
namespace {

constexpr int kGap = 2;
constexpr int kLine = 2;

struct Style {
    double radius = 0;
    Shape shape = Shape::around;
};

// The ring itself: a child of the control's window.
class Frame : public QWidget {
public:
    Frame(QWidget* window, const Style& style) : QWidget(window), m_style(style) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFocusPolicy(Qt::NoFocus);
    }

    void surround(QWidget* control) {
        const int reach = m_style.shape == Shape::around ? kGap + kLine : kLine;
        const QRect box(control->mapTo(window(), QPoint(0, 0)), control->size());
        setGeometry(box.adjusted(-reach, -reach, reach, reach));
        setVisible(control->isVisible() && !control->visibleRegion().isEmpty());
        raise();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const QColor accent = themeColor(ColorRole::accent);
        if (m_style.shape == Shape::field) {
            Painting::box(painter, rect(), m_style.radius + kLine, {}, Painting::faded(accent, 0.35), kLine);
            return;
        }
        const double gapRadius = m_style.radius + kGap;
        Painting::box(painter, rect().adjusted(kLine, kLine, -kLine, -kLine), gapRadius, {},
                      themeColor(ColorRole::background), kGap);
        Painting::box(painter, rect(), gapRadius + kLine, {}, accent, kLine);
    }

private:
    Style m_style;
};

// Follows the focus through the whole application.
class Follower : public QObject {
public:
    explicit Follower(QObject* parent) : QObject(parent) { qApp->installEventFilter(this); }

    void attach(QWidget* control, const Style& style) {
        m_styles.insert(control, style);
        connect(control, &QObject::destroyed, this, [this, control] {
            m_styles.remove(control);
            if (m_control.isNull()) {
                leave();
            }
        });
    }

protected:
    bool eventFilter(QObject* object, QEvent* event) override {
        switch (event->type()) {
        case QEvent::KeyPress:
            m_keyboardIsUsed = true;
            break;
        case QEvent::MouseButtonPress:
            m_keyboardIsUsed = false;
            if (m_control && m_styles.value(m_control).shape == Shape::around) {
                leave();
            }
            break;
        case QEvent::FocusIn:
            if (object->isWidgetType()) {
                enter(static_cast<QWidget*>(object), static_cast<QFocusEvent*>(event)->reason());
            }
            break;
        case QEvent::FocusOut:
            leave();
            break;
        case QEvent::Move:
        case QEvent::Resize:
        case QEvent::Show:
        case QEvent::Hide:
        case QEvent::ZOrderChange:
            if (m_frame && m_control && object->isWidgetType() && object != m_frame &&
                isAboveControl(static_cast<QWidget*>(object))) {
                // The ring takes its place once the whole change of layout is through.
                QMetaObject::invokeMethod(this, [this] { place(); }, Qt::QueuedConnection);
            }
            break;
        default:
            break;
        }
        return false;
    }

private:
    [[nodiscard]] bool isAboveControl(const QWidget* widget) const {
        return widget == m_control || widget->isAncestorOf(m_control);
    }

    void enter(QWidget* focused, Qt::FocusReason reason) {
        leave();
        QWidget* control = focused;
        while (control != nullptr && !m_styles.contains(control) && !control->isWindow()) {
            control = control->parentWidget();
        }
        const auto style = m_styles.constFind(control);
        if (style == m_styles.cend()) {
            return;
        }
        const bool byKeyboard = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
                                reason == Qt::ShortcutFocusReason ||
                                (reason != Qt::MouseFocusReason && m_keyboardIsUsed);
        if (style->shape == Shape::around && !byKeyboard) {
            return;
        }
        m_control = control;
        m_frame = new Frame(control->window(), *style);
        place();
    }

    void leave() {
        if (m_frame) {
            m_frame->hide();
            m_frame->deleteLater();
            m_frame = nullptr;
        }
        m_control = nullptr;
    }

    void place() {
        if (m_frame && m_control) {
            m_frame->surround(m_control);
        }
    }

    QHash<const QWidget*, Style> m_styles;
    QPointer<QWidget> m_control;
    QPointer<Frame> m_frame;
    bool m_keyboardIsUsed = false;
};

} // namespace

void attach(QWidget* control, double radius, Shape shape) {
    static QPointer<Follower> follower;
    if (follower.isNull()) {
        follower = new Follower(qApp);
    }
    follower->attach(control, {radius, shape});
}

} // namespace tarnquill::FocusRing

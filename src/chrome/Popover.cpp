#include "chrome/Popover.h"

#include "chrome/Fade.h"
#include "chrome/FocusOrder.h"
#include "chrome/Painting.h"
#include "chrome/TextLabel.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>

#include <algorithm>

namespace tarnquill {
namespace {

constexpr int kRadius = 8;
constexpr int kGap = 4;
constexpr int kEdge = 12;         // that it keeps from the window's edges
constexpr int kTop = 64;          // below the toolbar
constexpr int kLeastHeight = 200; // with less room below the control it lies over it
constexpr int kTitleHeight = 44;

class TitleRow : public QWidget {
public:
    TitleRow() { setFixedHeight(kTitleHeight); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter(this).fillRect(0, height() - 1, width(), 1, themeColor(ColorRole::hairline));
    }
};

} // namespace

Popover::Popover(const QString& title, QWidget* content, QWidget* parent)
    : QWidget(parent),
      m_titleRow(new TitleRow),
      m_titleLayout(new QHBoxLayout(m_titleRow)),
      m_content(content) {
    hide();
    setFocusPolicy(Qt::ClickFocus);
    setAccessibleName(title);
    m_titleLayout->setContentsMargins(16, 0, 8, 0);
    m_titleLayout->addWidget(new TextLabel(title, FontRole::paneRole, ColorRole::text));
    m_titleLayout->addStretch();
    m_titleRow->setVisible(!title.isEmpty());

    auto* layout = new QVBoxLayout(this);
    constexpr int kReach = Painting::kShadowReach;
    layout->setContentsMargins(kReach, kReach, kReach, kReach);
    layout->setSpacing(0);
    layout->addWidget(m_titleRow);
    layout->addWidget(content, 1);
}

void Popover::addTitleControl(QWidget* control) {
    m_titleLayout->addWidget(control);
}

void Popover::openBelow(QWidget* control) {
    m_anchor = control;
    const QPoint corner = control->mapTo(control->window(), QPoint(0, control->height() + kGap));
    open(control->window(), corner);
}

void Popover::openAtTopOf(QWidget* window) {
    m_anchor = window->focusWidget();
    const int width = sizeHint().width() - 2 * Painting::kShadowReach;
    open(window, {(window->width() - width) / 2, kTop});
}

void Popover::open(QWidget* window, QPoint corner) {
    constexpr int kReach = Painting::kShadowReach;
    setParent(window);
    QSize box = sizeHint() - QSize(2 * kReach, 2 * kReach);
    if (window->height() - kEdge - corner.y() < std::min(box.height(), kLeastHeight)) {
        corner.setY(std::max(kEdge, window->height() - kEdge - box.height()));
    }
    box.setHeight(std::min(box.height(), window->height() - corner.y() - kEdge));
    corner.setX(std::clamp(corner.x(), kEdge, std::max(kEdge, window->width() - kEdge - box.width())));
    setGeometry(QRect(corner, box).adjusted(-kReach, -kReach, kReach, kReach));
    show();
    raise();
    qApp->installEventFilter(this);
    if (!FocusOrder::step(*m_content, FocusOrder::Direction::next)) {
        FocusOrder::step(*this, FocusOrder::Direction::next);
    }
    fadeIn(this, 100);
}

void Popover::close() {
    if (!isOpen()) {
        return;
    }
    qApp->removeEventFilter(this);
    const bool hadFocus = holds(window()->focusWidget());
    hide();
    if (hadFocus && m_anchor) {
        m_anchor->setFocus(Qt::PopupFocusReason);
    }
    Q_EMIT closed();
}

bool Popover::holds(const QObject* object) const {
    for (; object != nullptr; object = object->parent()) {
        if (object == this) {
            return true;
        }
    }
    return false;
}

bool Popover::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress && object->isWidgetType()) {
        constexpr int kReach = Painting::kShadowReach;
        const auto* press = static_cast<QMouseEvent*>(event);
        const QPoint place = mapFromGlobal(press->globalPosition().toPoint());
        const bool inBox = rect().adjusted(kReach, kReach, -kReach, -kReach).contains(place);
        // Menus opened from inside are their own windows but children of something in here.
        if (!inBox && (object == this || !holds(object))) {
            close();
            return true;
        }
    } else if (event->type() == QEvent::Resize && object == parentWidget()) {
        close();
    }
    return QWidget::eventFilter(object, event);
}

void Popover::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        close();
    } else {
        QWidget::keyPressEvent(event);
    }
}

bool Popover::focusNextPrevChild(bool next) {
    FocusOrder::step(*this, FocusOrder::direction(next));
    return true;
}

void Popover::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    constexpr int kReach = Painting::kShadowReach;
    Painting::floatingBox(painter, rect().adjusted(kReach, kReach, -kReach, -kReach), kRadius,
                          ColorRole::menu);
}

} // namespace tarnquill

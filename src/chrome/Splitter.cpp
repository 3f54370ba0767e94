#include "chrome/Splitter.h"

#include "chrome/Theme.h"

#include <QKeyEvent>
#include <QPainter>

namespace tarnquill {
namespace {

constexpr int kGrab = 9;
constexpr int kStep = 16;

// One pixel wide to the eye and to the panes; its margins reach over the panes to be grabbed.
class Handle : public QSplitterHandle {
public:
    Handle(Qt::Orientation orientation, QSplitter* splitter) : QSplitterHandle(orientation, splitter) {
        setFocusPolicy(Qt::TabFocus);
        setAccessibleName(QSplitter::tr("Divider between panes"));
        setAccessibleDescription(QSplitter::tr("Move with the arrow keys"));
        setAttribute(Qt::WA_MouseNoMask);
        constexpr int kMargin = kGrab / 2;
        const bool across = orientation == Qt::Horizontal;
        setContentsMargins(across ? kMargin : 0, across ? 0 : kMargin, across ? kMargin : 0,
                           across ? 0 : kMargin);
    }

protected:
    // Instead of the base class's, which would set margins of its own.
    void resizeEvent(QResizeEvent*) override { setMask(contentsRect().adjusted(-1, -1, 1, 1)); }

    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        if (hasFocus()) {
            const bool across = orientation() == Qt::Horizontal;
            painter.fillRect(contentsRect().adjusted(across ? -1 : 0, across ? 0 : -1, 0, 0),
                             themeColor(ColorRole::accent));
        } else {
            painter.fillRect(contentsRect(), themeColor(ColorRole::border));
        }
    }

    void focusInEvent(QFocusEvent*) override { update(); }
    void focusOutEvent(QFocusEvent*) override { update(); }

    void keyPressEvent(QKeyEvent* event) override {
        const bool across = orientation() == Qt::Horizontal;
        const int back = across ? Qt::Key_Left : Qt::Key_Up;
        const int forth = across ? Qt::Key_Right : Qt::Key_Down;
        if (event->key() != back && event->key() != forth) {
            QSplitterHandle::keyPressEvent(event);
            return;
        }
        const QPoint line = contentsRect().topLeft() + pos();
        moveSplitter((across ? line.x() : line.y()) + (event->key() == back ? -kStep : kStep));
    }
};

} // namespace

Splitter::Splitter(Qt::Orientation orientation, QWidget* parent) : QSplitter(orientation, parent) {
    setHandleWidth(1);
    setChildrenCollapsible(false);
}

void Splitter::addPane(QWidget* pane, int stretch, int minimum) {
    if (orientation() == Qt::Horizontal) {
        pane->setMinimumWidth(minimum);
    } else {
        pane->setMinimumHeight(minimum);
    }
    addWidget(pane);
    setStretchFactor(indexOf(pane), stretch);
}

QSplitterHandle* Splitter::createHandle() {
    return new Handle(orientation(), this);
}

} // namespace tarnquill

#include "shell/FirstPaint.h"

#include <QEvent>
#include <QWidget>

#include <cstdlib>

namespace tarnquill {

namespace {

class Watcher : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            // The children are painted and everything is sent to the screen before the next event is handled.
            QMetaObject::invokeMethod(this, [] { std::_Exit(0); }, Qt::QueuedConnection);
        }
        return QObject::eventFilter(object, event);
    }
};

} // namespace

void endAfterFirstPaint(QWidget& window) {
    window.installEventFilter(new Watcher(&window));
}

} // namespace tarnquill

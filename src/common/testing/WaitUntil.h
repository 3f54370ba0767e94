// Lets tests wait for something that happens in the event loop or on another thread.
#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>

namespace tarnquill {

// Runs the event loop until the condition holds, at most `limit` milliseconds. Returns whether it holds.
template <typename Condition>
bool waitUntil(Condition condition, qint64 limit = 10'000) {
    QElapsedTimer timer;
    timer.start();
    while (!condition() && timer.elapsed() < limit) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        QThread::msleep(1);
    }
    return condition();
}

// Runs the event loop for a while, for what must not happen.
inline void letEventsPass(qint64 milliseconds) {
    waitUntil([] { return false; }, milliseconds);
}

} // namespace tarnquill

// Measures how long the main thread answers nothing: another thread posts it a tick every millisecond, and
// the longest time that a tick waits is the gap.
#pragma once

#include <QCoreApplication>
#include <QObject>

#include <algorithm>
#include <chrono>
#include <stop_token>
#include <thread>

namespace tarnquill::bench {

class MainThreadGap : public QObject {
public:
    using Clock = std::chrono::steady_clock;
    using Milliseconds = std::chrono::duration<double, std::milli>;

    MainThreadGap()
        : m_ticker([this](const std::stop_token& stop) {
              for (auto next = Clock::now(); !stop.stop_requested(); next += std::chrono::milliseconds(1)) {
                  std::this_thread::sleep_until(next);
                  QMetaObject::invokeMethod(
                      this,
                      [this, posted = Clock::now()] {
                          m_longest = std::max(m_longest, Clock::now() - posted);
                      },
                      Qt::QueuedConnection);
              }
          }) {}

    ~MainThreadGap() override {
        m_ticker.request_stop();
        m_ticker.join();
    }

    // Runs the work and whatever follows from it until `done`, and returns the longest gap meanwhile.
    template <typename Work, typename Done>
    Milliseconds during(Work work, Done done) {
        QCoreApplication::processEvents();
        m_longest = {};
        work();
        do {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        } while (!done());
        // Ticks that still wait count too.
        const auto end = Clock::now() + std::chrono::milliseconds(20);
        while (Clock::now() < end) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        return m_longest;
    }

private:
    Clock::duration m_longest{};
    std::jthread m_ticker;
};

} // namespace tarnquill::bench

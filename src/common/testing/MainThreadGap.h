// Measures how long the main thread answers nothing: another thread posts it a tick every millisecond, and
// the longest time that a tick waits is the gap.
#pragma once

#include <QCoreApplication>
#include <QObject>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <stop_token>
#include <thread>

namespace tarnquill {

class MainThreadGap : public QObject {
public:
    using Clock = std::chrono::steady_clock;
    using Milliseconds = std::chrono::duration<double, std::milli>;

    struct Gap {
        Milliseconds length{};
        // How long the main thread itself worked meanwhile. It also waits: for the disk, or for a processor
        // that others use.
        Milliseconds work{};
    };

    MainThreadGap()
        : m_ticker([this](const std::stop_token& stop) {
              for (auto next = Clock::now(); !stop.stop_requested(); next += std::chrono::milliseconds(1)) {
                  std::this_thread::sleep_until(next);
                  QMetaObject::invokeMethod(
                      this, [this, posted = Clock::now()] { arrive(posted); }, Qt::QueuedConnection);
              }
          }) {}

    ~MainThreadGap() override {
        m_ticker.request_stop();
        m_ticker.join();
    }

    // Forgets the gaps until now.
    void start() {
        QCoreApplication::sendPostedEvents(this);
        m_longest = {};
        m_worked = workOfThisThread();
    }

    // The longest since start(); what still waits counts too.
    [[nodiscard]] Gap longest() {
        QCoreApplication::sendPostedEvents(this);
        return m_longest;
    }

    // Runs the work and whatever follows from it until `done`, and returns the longest gap meanwhile.
    template <typename Work, typename Done>
    Milliseconds during(Work work, Done done) {
        QCoreApplication::processEvents();
        start();
        work();
        do {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        } while (!done());
        // What follows from the end counts too.
        const auto end = Clock::now() + std::chrono::milliseconds(20);
        while (Clock::now() < end) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        return longest().length;
    }

private:
    static Milliseconds workOfThisThread() {
        timespec time{};
        ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
    }

    void arrive(Clock::time_point posted) {
        const Milliseconds length = Clock::now() - posted;
        const auto worked = workOfThisThread();
        if (length > m_longest.length) {
            m_longest = {.length = length, .work = std::min(length, worked - m_worked)};
        }
        m_worked = worked;
    }

    Gap m_longest;
    Milliseconds m_worked{};
    std::jthread m_ticker;
};

} // namespace tarnquill

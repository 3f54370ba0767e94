#include "common/LatestTask.h"

#include <QCoreApplication>
#include <QThreadPool>

namespace tarnquill {

namespace {

QThreadPool& threadPool();

// Not Qt's global pool: Qt paints large fills with that one, and the window would wait for what runs here.
class Pool : public QThreadPool {
public:
    // What runs when the program ends uses static objects, so it ends before they do, as in Qt's pool.
    Pool() {
        qAddPostRoutine([] { threadPool().waitForDone(); });
    }
};

QThreadPool& threadPool() {
    static Pool pool;
    return pool;
}

} // namespace

LatestTask::LatestTask(QObject* parent) : QObject(parent) {
    m_mailbox->owner = this;
    m_delay.setSingleShot(true);
    m_delay.setTimerType(Qt::PreciseTimer);
    m_longWork.setSingleShot(true);
    connect(&m_delay, &QTimer::timeout, this, &LatestTask::run);
    connect(&m_longWork, &QTimer::timeout, this, [this] { setLong(true); });
}

LatestTask::~LatestTask() {
    m_running.request_stop();
    const std::scoped_lock lock(m_mailbox->mutex);
    m_mailbox->owner = nullptr;
}

void LatestTask::cancel() {
    m_delay.stop();
    m_job = nullptr;
    m_running.request_stop();
    setPending(false);
}

void LatestTask::schedule(std::chrono::milliseconds delay, Job job) {
    m_running.request_stop();
    m_job = std::move(job);
    m_delay.start(delay);
    setPending(true);
}

void LatestTask::run() {
    m_running = std::stop_source();
    if (!m_long) {
        m_longWork.start(kLongWork);
    }
    threadPool().start(
        [mailbox = m_mailbox, job = std::exchange(m_job, nullptr), token = m_running.get_token()] {
            if (token.stop_requested()) {
                return;
            }
            auto publish = job(token);
            const std::scoped_lock lock(mailbox->mutex);
            if (auto* const owner = mailbox->owner) {
                QMetaObject::invokeMethod(
                    owner, [owner, token, publish = std::move(publish)] { owner->finish(token, publish); },
                    Qt::QueuedConnection);
            }
        });
}

void LatestTask::finish(const std::stop_token& token, const std::function<void()>& publish) {
    if (token.stop_requested()) {
        return;
    }
    setPending(false);
    publish();
}

void LatestTask::setPending(bool pending) {
    if (!pending) {
        m_longWork.stop();
        setLong(false);
    }
    if (std::exchange(m_pending, pending) != pending) {
        Q_EMIT pendingChanged(pending);
    }
}

void LatestTask::setLong(bool isLong) {
    if (std::exchange(m_long, isLong) != isLong) {
        Q_EMIT longChanged(isLong);
    }
}

} // namespace tarnquill

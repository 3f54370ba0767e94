// Runs the latest of a series of requests on the thread pool, and never shows the result of an older one.
//
// A request waits for a quiet time first, so that typing coalesces. A newer request (or cancel()) drops the
// waiting one, asks the running one to stop and makes sure that its result is thrown away. Everything but the
// work itself happens on the thread that owns the task.
#pragma once

#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <stop_token>
#include <utility>

namespace tarnquill {

class LatestTask : public QObject {
    Q_OBJECT

public:
    // Work that takes longer than this is worth telling the user about.
    static constexpr std::chrono::milliseconds kLongWork{300};

    explicit LatestTask(QObject* parent = nullptr);
    ~LatestTask() override;

    // Calls `work(std::stop_token)` on the thread pool after `delay`, then `publish(result)` on this thread,
    // unless a newer request came in between. Work that sees its token stopped may return at once; its result
    // is not used.
    template <typename Work, typename Publish>
    void start(std::chrono::milliseconds delay, Work work, Publish publish) {
        schedule(delay, [work = std::move(work),
                         publish = std::move(publish)](const std::stop_token& token) mutable {
            using Result = std::invoke_result_t<Work&, std::stop_token>;
            auto result = std::make_shared<Result>(work(token));
            return std::function<void()>(
                [result = std::move(result), publish = std::move(publish)]() mutable {
                    publish(std::move(*result));
                });
        });
    }

    // Forgets the latest request, whether it waits or runs. Nothing is published.
    void cancel();

    // True from start() until the result is published or the request is cancelled.
    [[nodiscard]] bool isPending() const { return m_pending; }

    // True while the latest request has been running for longer than kLongWork.
    [[nodiscard]] bool isLong() const { return m_long; }

Q_SIGNALS:
    void pendingChanged(bool pending);
    void longChanged(bool isLong);

private:
    using Job = std::function<std::function<void()>(const std::stop_token&)>;

    // How a finished job finds this object from its own thread, for as long as there is one.
    struct Mailbox {
        std::mutex mutex;
        LatestTask* owner = nullptr;
    };

    void schedule(std::chrono::milliseconds delay, Job job);
    void run();
    void finish(const std::stop_token& token, const std::function<void()>& publish);
    void setPending(bool pending);
    void setLong(bool isLong);

    std::shared_ptr<Mailbox> m_mailbox = std::make_shared<Mailbox>();
    QTimer m_delay;
    QTimer m_longWork;
    Job m_job;
    std::stop_source m_running{std::nostopstate};
    bool m_pending = false;
    bool m_long = false;
};

} // namespace tarnquill

// Asks for support in a window, a moment after it has come up, when it is time to (see
// SupportPromptController).
#pragma once

#include <QDateTime>
#include <QObject>
#include <QTimer>

#include <functional>

class QWidget;

namespace tarnquill {

class SupportPromptController;

class SupportPrompt : public QObject {
    Q_OBJECT

public:
    using Clock = std::function<QDateTime()>;

    // Lives as long as the window; the controller outlives both.
    SupportPrompt(QWidget* window, SupportPromptController& controller, Clock clock);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void check();
    void ask();

    QWidget* m_window;
    SupportPromptController& m_controller;
    Clock m_clock;
    QTimer m_wait;
};

} // namespace tarnquill

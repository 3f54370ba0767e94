#include "shell/SupportPrompt.h"

#include "chrome/Alert.h"
#include "chrome/ExternalAddress.h"
#include "shell/ProductAddresses.h"
#include "shell/SupportPromptController.h"

#include <QEvent>
#include <QWidget>

#include <utility>

namespace tarnquill {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

SupportPrompt::SupportPrompt(QWidget* window, SupportPromptController& controller, Clock clock)
    : QObject(window), m_window(window), m_controller(controller), m_clock(std::move(clock)) {
    m_wait.setSingleShot(true);
    m_wait.setInterval(1s);
    connect(&m_wait, &QTimer::timeout, this, &SupportPrompt::check);
    window->installEventFilter(this);
}

bool SupportPrompt::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::Show && !event->spontaneous()) {
        m_wait.start();
    } else if (event->type() == QEvent::Close || (event->type() == QEvent::Hide && !event->spontaneous())) {
        m_wait.stop();
    }
    return QObject::eventFilter(object, event);
}

void SupportPrompt::check() {
    const auto now = m_clock();
    m_controller.recordLaunch(now);
    if (m_controller.shouldShow(now)) {
        m_controller.recordShown(now);
        ask();
    }
}

void SupportPrompt::ask() {
    auto* const alert = new Alert(
        m_window,
        {.message = tr("Support Tarnquill"),
         .informative = tr("Tarnquill is free and has no ads, no analytics and no account. If it saves you "
                           "time, you can buy me a coffee."),
         .symbol = u"feather"_s,
         .buttons = {{.title = tr("Buy me a coffee"), .role = Alert::Role::main},
                     {.title = tr("Not now"), .role = Alert::Role::cancel},
                     {.title = tr("Don't show again"), .role = Alert::Role::optOut}}});
    connect(alert, &Alert::answered, this, [this](int index) {
        if (index == 0) {
            openExternally(ProductAddresses::donation(), m_window);
        } else if (index == 2) {
            m_controller.optOut();
        }
    });
}

} // namespace tarnquill

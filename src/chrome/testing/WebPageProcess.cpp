#include "chrome/testing/WebPageProcess.h"

#include "chrome/WebPageView.h"

#include <gtest/gtest.h>

#include <QWebEngineView>

#include <csignal>

namespace tarnquill {

void killProcess(WebPageView& view) {
    const auto process = view.findChild<QWebEngineView*>()->page()->renderProcessPid();
    EXPECT_EQ(::kill(static_cast<pid_t>(process), SIGKILL), 0);
}

} // namespace tarnquill

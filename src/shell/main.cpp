#include "chrome/Theme.h"
#include "common/Settings.h"
#include "shell/ApplicationIcon.h"
#include "shell/FirstPaint.h"
#include "shell/LaunchOptions.h"
#include "shell/SingleInstance.h"
#include "shell/TarnquillApp.h"

#include <QApplication>

#include <cstdio>

using namespace tarnquill;
using namespace Qt::StringLiterals;

int main(int argc, char** argv) {
    const auto options = LaunchOptions::parse(argc, argv, QDir::current());
    if (!options) {
        const auto& [status, text] = options.error();
        std::fputs(text.c_str(), status == 0 ? stdout : stderr);
        return status;
    }
    const LaunchRequest request{.files = options->files,
                                .activationToken = qEnvironmentVariable("XDG_ACTIVATION_TOKEN")};

    // The arguments are the program's own, so Qt sees none of them and takes no file for one of its options.
    int nameOnly = 1;
    QApplication application(nameOnly, argv);
    QApplication::setOrganizationName(u"Tarnquill"_s);
    QApplication::setApplicationName(u"Tarnquill"_s);
    QApplication::setDesktopFileName(u"org.tarnquill.Tarnquill"_s);
    QApplication::setWindowIcon(applicationIcon());

    SingleInstance instance(SingleInstance::defaultPath());
    if (!options->quitAfterFirstPaint && instance.claim(request) == SingleInstance::Role::handedOver) {
        return 0;
    }

    Settings settings;
    Theme::instance().install(application);
    TarnquillApp app(settings);
    QObject::connect(&instance, &SingleInstance::received, &app, &TarnquillApp::open);
    if (options->quitAfterFirstPaint) {
        endAfterFirstPaint(app.mainWindow());
    }
    app.open({.files = request.files});
    return QApplication::exec();
}

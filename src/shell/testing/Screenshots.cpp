// tarnquill_screenshots DIRECTORY [FILE…]: opens the files in the program's real window and saves a picture
// of every tool, in light and dark and at two sizes, as DIRECTORY/TOOL-APPEARANCE-WIDTHxHEIGHT.png.
#include "chrome/Theme.h"
#include "common/Settings.h"
#include "common/testing/WaitUntil.h"
#include "shell/LaunchRequest.h"
#include "shell/TarnquillApp.h"
#include "shell/ToolCatalogue.h"

#include "chrome/ToolView.h"

#include <QApplication>
#include <QCursor>
#include <QDir>
#include <QScreen>
#include <QTemporaryDir>

#include <cstdio>

using namespace tarnquill;
using namespace Qt::StringLiterals;

namespace {

constexpr std::array kSizes{QSize(1280, 800), QSize(980, 580)};
constexpr std::array kAppearances{std::pair{"light", Appearance::light}, std::pair{"dark", Appearance::dark}};

// The window once its tool has done its work and nothing moves any more.
QPixmap pictureAtRest(AppShellView& window) {
    waitUntil([&] { return !window.toolView().isWorking(); }, 30'000);
    QImage last;
    waitUntil([&] {
        letEventsPass(50);
        const auto before = std::exchange(last, window.grab().toImage());
        return last == before;
    });
    return QPixmap::fromImage(last);
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fputs("Usage: tarnquill_screenshots DIRECTORY [FILE...]\n", stderr);
        return 2;
    }
    int nameOnly = 1;
    QApplication application(nameOnly, argv);
    QApplication::setCursorFlashTime(0);
    QCursor::setPos(QGuiApplication::primaryScreen()->geometry().bottomRight());
    Theme::instance().install(application);

    const QTemporaryDir settingsFolder;
    Settings settings(settingsFolder.filePath(u"settings.ini"_s));
    TarnquillApp app(settings);
    LaunchRequest request;
    for (int index = 2; index < argc; ++index) {
        request.files.append(QDir::current().absoluteFilePath(QFile::decodeName(argv[index])));
    }
    app.open(request);

    auto& window = app.mainWindow();
    const QDir directory(QFile::decodeName(argv[1]));
    for (const auto& [appearanceName, appearance] : kAppearances) {
        Theme::instance().setAppearance(appearance);
        for (const auto& size : kSizes) {
            window.resize(size);
            for (const auto* const tool : window.catalogue().inSidebarOrder()) {
                window.selectTool(tool->id);
                const auto name = u"%1-%2-%3x%4.png"_s.arg(tool->id, QString::fromLatin1(appearanceName))
                                      .arg(size.width())
                                      .arg(size.height());
                if (!pictureAtRest(window).save(directory.filePath(name))) {
                    std::fprintf(stderr, "tarnquill_screenshots: cannot write %s\n",
                                 qUtf8Printable(directory.filePath(name)));
                    return 1;
                }
            }
        }
    }
    return 0;
}

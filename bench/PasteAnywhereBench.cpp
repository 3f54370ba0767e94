// Prints how long the main thread answers nothing when Paste Anywhere looks at clipboards of all kinds, and
// when a large text goes to the tool that was chosen. Set QT_QPA_PLATFORM=offscreen where there is no
// display.

#include "chrome/CodeEditor.h"
#include "chrome/Theme.h"
#include "chrome/ToolView.h"
#include "codec/Base64.h"
#include "common/Settings.h"
#include "common/testing/MainThreadGap.h"
#include "shell/ChoicePanel.h"
#include "shell/ClipboardKinds.h"
#include "shell/LaunchRequest.h"
#include "shell/TarnquillApp.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QListView>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <string>

namespace tarnquill {

namespace {

using namespace Qt::StringLiterals;

constexpr std::size_t kLarge = 50'000'000;

std::string repeated(std::string_view unit, std::size_t size) {
    std::string text;
    text.reserve(size + unit.size());
    while (text.size() < size) {
        text += unit;
    }
    return text;
}

class Measurement {
public:
    explicit Measurement(AppShellView& window) : m_window(window) {
        for (auto* const action : window.actions()) {
            if (action->shortcut() == QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_V)) {
                m_offer = action;
            }
        }
    }

    void look(const char* name, const std::string& text) {
        put(text);
        const auto gap = m_gap.during([&] { m_offer->trigger(); }, [] { return true; });
        const auto start = MainThreadGap::Clock::now();
        m_offer->trigger();
        const MainThreadGap::Milliseconds took = MainThreadGap::Clock::now() - start;
        std::printf("%-34s %8.1f %8.1f  %s\n", name, took.count(), gap.count(),
                    qUtf8Printable(panel().findChild<QListView*>()->currentIndex().data().toString()));
    }

    void open(const char* name, const std::string& text) {
        put(text);
        m_offer->trigger();
        auto& list = *panel().findChild<QListView*>();
        const auto start = MainThreadGap::Clock::now();
        MainThreadGap::Milliseconds took{};
        const auto gap =
            m_gap.during([&] { Q_EMIT list.clicked(list.currentIndex()); },
                         [&] {
                             const auto editors = m_window.toolView().findChildren<CodeEditor*>();
                             const bool isThere = std::ranges::any_of(
                                 editors, [&](auto* each) { return each->buffer().length() == text.size(); });
                             took = MainThreadGap::Clock::now() - start;
                             return isThere;
                         });
        std::printf("%-34s %8.1f %8.1f\n", name, took.count(), gap.count());
    }

private:
    static void put(const std::string& text) {
        QGuiApplication::clipboard()->setText(QString::fromStdString(text));
    }

    ChoicePanel& panel() {
        const auto panels = m_window.findChildren<ChoicePanel*>();
        const auto found = std::ranges::find_if(panels, &ChoicePanel::isOpen);
        if (found == panels.end()) {
            qFatal("Nothing is offered.");
        }
        return **found;
    }

    AppShellView& m_window;
    QAction* m_offer = nullptr;
    MainThreadGap m_gap;
};

} // namespace

} // namespace tarnquill

int main(int argc, char** argv) {
    using namespace tarnquill;
    QApplication application(argc, argv);
    Theme::instance().install(application);
    const QTemporaryDir folder;
    Settings settings(folder.filePath(u"settings.ini"_s));
    TarnquillApp app(settings);
    app.mainWindow().selectTool(u"json"_s);
    app.open({.files = {}});

    const auto array = "[" + repeated(R"({"name": "Ada", "age": 36}, )", kLarge) + "1]";
    const auto prose = repeated("Some words and some more of them and so on.\n", kLarge);
    std::printf("Milliseconds: until the tools are offered, and the longest gap of the main thread.\n\n%-34s "
                "%8s %8s  %s\n",
                "on the clipboard", "took", "gap", "offered first");
    Measurement measurement(app.mainWindow());
    measurement.look("a word", "word");
    measurement.look("64 KB of JSON", "[" + repeated("[1, 2, 3], ", ClipboardKinds::kHeadSize - 20) + "1]");
    measurement.look("50 MB of JSON", array);
    measurement.look("50 MB of CSV", repeated("Ada,London,36\n", kLarge));
    measurement.look("50 MB of Base64", Base64::encode(repeated("text ", kLarge / 4 * 3)));
    measurement.look("50 MB of hex", repeated("6162", kLarge));
    measurement.look("50 MB of prose", prose);
    for (const auto* const unit : {"[", "{\"a\":", "*a ", "_a", "&amp;", "%41", "a,", "\"\n", "1\n"}) {
        measurement.look(("50 MB of " + std::string(unit == std::string_view("\"\n")  ? "quoted line breaks"
                                                    : unit == std::string_view("1\n") ? "ones in lines"
                                                                                      : unit))
                             .c_str(),
                         repeated(unit, kLarge));
    }
    std::printf("\nMilliseconds: until the text is in the tool, and the longest gap of the main thread.\n\n");
    measurement.open("50 MB of JSON in 1 line", array);
    measurement.open("50 MB of prose in Markdown", prose);
}

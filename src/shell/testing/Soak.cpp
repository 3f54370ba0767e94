// tarnquill_soak [SECONDS [SEED]]: does to the program's real window what a restless user does, at random and
// without a pause: keys, clicks, pastes, drops, other tools, other sizes; texts that are ordinary, broken,
// hostile or large. Prints what it did, the memory at its start and its end, and in what the window answered
// nothing for the longest time. A fault is one that a sanitizer reports or that ends the program.
#include "chrome/Theme.h"
#include "chrome/ToolView.h"
#include "chrome/testing/Browser.h"
#include "common/Settings.h"
#include "common/testing/MainThreadGap.h"
#include "common/testing/WaitUntil.h"
#include "shell/LaunchRequest.h"
#include "shell/TarnquillApp.h"
#include "shell/ToolCatalogue.h"

#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QMenu>
#include <QMimeData>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <random>
#include <string>

using namespace tarnquill;
using namespace Qt::StringLiterals;

namespace {

// Megabytes that the program holds.
double memory() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmRSS:")) {
            return std::strtod(line.c_str() + 6, nullptr) / 1024;
        }
    }
    return 0;
}

struct Turn {
    const char* kind = "";
    QString tool; // that is shown at its end
    MainThreadGap::Gap gap;

    void print(const char* name) const {
        std::printf("%s: %.0f ms, of which it worked %.0f (%s in %s)\n", name, gap.length.count(),
                    gap.work.count(), kind, qPrintable(tool));
    }
};

class Soak {
public:
    Soak(AppShellView& window, unsigned seed) : m_window(window), m_random(seed) {
        // A dialog waits for an answer in an event loop of its own.
        QObject::connect(&m_dismiss, &QTimer::timeout, [] {
            if (auto* const popup = QApplication::activePopupWidget()) {
                popup->close();
            }
            if (auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
                dialog->reject();
            }
        });
        m_dismiss.start(50);
    }

    void run(std::chrono::seconds duration) {
        QElapsedTimer time;
        time.start();
        while (time.elapsed() < duration_cast<std::chrono::milliseconds>(duration).count()) {
            step();
        }
    }

    // Empties every tool, so that what is left is what the program keeps for itself.
    void clear() {
        for (const auto* const tool : m_window.catalogue().inSidebarOrder()) {
            m_window.selectTool(tool->id);
            letEventsPass(300);
            pasteText(u" "_s);
            letEventsPass(1'500);
        }
        QApplication::clipboard()->clear();
        letEventsPass(2'000);
    }

    void report() const {
        for (const auto& [name, count] : m_counts) {
            std::printf("%-10s %7d\n", name, count);
        }
        m_longest.print("longest turn of the event loop");
        m_busiest.print("turn of the event loop with the most work");
    }

private:
    int upTo(int end) { return std::uniform_int_distribution(0, end - 1)(m_random); }

    template <typename Values>
    const auto& oneOf(const Values& values) {
        return values[static_cast<std::size_t>(upTo(static_cast<int>(std::size(values))))];
    }

    void step() {
        const auto kind = upTo(100);
        if (kind < 55) {
            turn("keys", [this] { key(); });
        } else if (kind < 70) {
            turn("clicks", [this] { click(); });
        } else if (kind < 80) {
            turn("pastes", [this, text = text()] { pasteText(text); });
        } else if (kind < 88) {
            const auto& tool = *oneOf(m_window.catalogue().inSidebarOrder());
            turn("switches", [this, &tool] { m_window.selectTool(tool.id); });
        } else if (kind < 92) {
            turn("drops", [this, path = file()] { drop(path); });
        } else if (kind < 96) {
            turn("resizes", [this] { m_window.resize(980 + upTo(900), 580 + upTo(500)); });
        } else {
            static constexpr std::array kAppearances{Appearance::light, Appearance::dark};
            turn("looks", [this] { Theme::instance().setAppearance(oneOf(kAppearances)); });
        }
    }

    // What the event makes the window do, and what follows from it.
    template <typename Event>
    void turn(const char* kind, const Event& event) {
        ++m_counts[kind];
        m_gap.start();
        event();
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        const Turn turn{.kind = kind, .tool = m_window.selectedToolID(), .gap = m_gap.longest()};
        if (turn.gap.length > m_longest.gap.length) {
            m_longest = turn;
        }
        if (turn.gap.work > m_busiest.gap.work) {
            m_busiest = turn;
        }
    }

    QWidget& target() {
        auto* const focused = QApplication::focusWidget();
        return focused != nullptr ? *focused : m_window;
    }

    void key() {
        static constexpr std::array kKeys{
            Qt::Key_A,         Qt::Key_Z,         Qt::Key_0,      Qt::Key_Space,  Qt::Key_Return,
            Qt::Key_Tab,       Qt::Key_Backtab,   Qt::Key_Left,   Qt::Key_Right,  Qt::Key_Up,
            Qt::Key_Down,      Qt::Key_Home,      Qt::Key_End,    Qt::Key_PageUp, Qt::Key_PageDown,
            Qt::Key_Delete,    Qt::Key_Backspace, Qt::Key_Escape, Qt::Key_F3,     Qt::Key_F9,
            Qt::Key_BraceLeft, Qt::Key_QuoteDbl,  Qt::Key_Comma,  Qt::Key_Minus,  Qt::Key_Plus,
            Qt::Key_F,         Qt::Key_G,         Qt::Key_C,      Qt::Key_X,      Qt::Key_V,
            Qt::Key_K,         Qt::Key_1,         Qt::Key_5};
        static constexpr std::array<Qt::KeyboardModifiers, 6> kModifiers{
            Qt::NoModifier,      Qt::NoModifier,  Qt::ShiftModifier,
            Qt::ControlModifier, Qt::AltModifier, Qt::ControlModifier | Qt::ShiftModifier};
        QTest::keyClick(&target(), oneOf(kKeys), oneOf(kModifiers));
    }

    void click() {
        const QPoint place(upTo(m_window.width()), upTo(m_window.height()));
        auto* const widget = m_window.childAt(place);
        if (widget == nullptr) {
            return;
        }
        const auto spot = widget->mapFrom(&m_window, place);
        switch (upTo(4)) {
        case 0:
            QTest::mouseDClick(widget, Qt::LeftButton, {}, spot);
            break;
        case 1:
            QTest::mousePress(widget, Qt::LeftButton, {}, spot);
            QTest::mouseMove(widget, spot + QPoint(upTo(80) - 40, upTo(80) - 40));
            QTest::mouseRelease(widget, Qt::LeftButton, {}, spot + QPoint(upTo(80) - 40, upTo(80) - 40));
            break;
        default:
            QTest::mouseClick(widget, Qt::LeftButton, {}, spot);
        }
    }

    void pasteText(const QString& text) {
        QApplication::clipboard()->setText(text);
        m_window.focusToolView();
        QTest::keyClick(&target(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(&target(), Qt::Key_V, Qt::ControlModifier);
    }

    // Writes one to drop, or names one that is not there.
    QString file() {
        static const std::array kNames{u"a.json"_s, u"a.csv"_s, u"a.md"_s,
                                       u"a.mmd"_s,  u"a.xyz"_s, u"gone.json"_s};
        const auto& name = oneOf(kNames);
        const auto path = m_folder.filePath(name);
        if (name != u"gone.json") {
            QFile file(path);
            static_cast<void>(file.open(QFile::WriteOnly));
            file.write(upTo(4) == 0 ? QByteArray("\xff\xfe\x00\xd8\xff") : text().toUtf8());
        }
        return path;
    }

    void drop(const QString& path) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(path)});
        QDropEvent event(QPointF(400, 300), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&m_window.toolView(), &event);
    }

    // Ordinary, broken, hostile or large, and not always for the tool that gets it.
    QString text() {
        const auto size = 1 << upTo(upTo(8) == 0 ? 18 : 10);
        switch (upTo(14)) {
        case 0:
            return u"{\"a\": [1, 2.50, true, null, \"\\u00e9\"], \"b\": {\"c\": 1e400}}"_s;
        case 1:
            return QString(size, u'[');
        case 2:
            return u"{\"key\":\""_s + QString(size, u'x') + u"\"}"_s;
        case 3:
            return u"name,score\r\n\"a \"\"b\"\"\",1\r\n"_s.repeated(size / 16 + 1);
        case 4:
            return QString(size, u',');
        case 5:
            return QString::fromLatin1(QByteArray(size, 'q').toBase64());
        case 6:
            return u"eyJhbGciOiJIUzI1NiJ9.eyJleHAiOjF9."_s + QString(size % 100, u'A');
        case 7:
            return u"# Title\n\n- [ ] one\n  - **two** `three`\n\n| a | b |\n|---|---|\n| 1 | 2 |\n\n"_s
                .repeated(size / 64 + 1);
        case 8:
            return QString(size, u'*') + QString(size, u'[') + QString(size, u'>');
        case 9:
            return u"flowchart TD\n  A[Start] --> B{Ready?}\n  B -->|yes| C\n  B --> D\n"_s;
        case 10:
            return u"sequenceDiagram\n  Alice->>Bob: "_s + QString(size % 300, u'x') + u"\n  end\n"_s;
        case 11:
            return QString::number(upTo(2'000'000'000)) + u"\n2026-02-29T12:00:00Z\n"_s.repeated(size % 50);
        case 12:
            return QString(size % 1'000, QChar(0xd800)) + QChar(0) + u"\r\r\n\u2028\ufeff"_s;
        default:
            return u"%E2%82%AC &euro; &#x110000; 48656c6c6f "_s.repeated(size / 32 + 1);
        }
    }

    AppShellView& m_window;
    std::mt19937 m_random;
    QTemporaryDir m_folder;
    QTimer m_dismiss;
    std::map<const char*, int> m_counts;
    MainThreadGap m_gap;
    Turn m_longest;
    Turn m_busiest;
};

} // namespace

int main(int argc, char** argv) {
    const std::chrono::seconds duration(argc > 1 ? std::atoi(argv[1]) : 60);
    const auto seed = argc > 2 ? static_cast<unsigned>(std::atoi(argv[2])) : std::random_device()();
    int nameOnly = 1;
    QApplication application(nameOnly, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    Theme::instance().install(application);
    const QTemporaryDir settingsFolder;
    Settings settings(settingsFolder.filePath(u"settings.ini"_s));
    TarnquillApp app(settings);
    const Browser browser;
    app.open({});

    std::printf("seed %u, %lld s\n", seed, static_cast<long long>(duration.count()));
    std::fflush(stdout);
    Soak soak(app.mainWindow(), seed);
    // Once through everything, so that what is made at the first use is made.
    soak.run(duration / 10);
    soak.clear();
    const auto before = memory();
    soak.run(duration);
    soak.clear();
    const auto after = memory();
    soak.report();
    std::printf("memory %.0f MB at the start, %.0f MB at the end: %.2fx\n", before, after, after / before);
    std::fflush(stdout);
}

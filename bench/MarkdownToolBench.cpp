// Prints how long the Markdown tool takes from a keystroke to the page's new layout, how long its main thread
// answers nothing meanwhile, how soon either pane follows the other's scrolling, and what opening a long
// document costs. Set QT_QPA_PLATFORM=offscreen where there is no display.

#include "chrome/CodeEditor.h"
#include "chrome/Theme.h"
#include "common/testing/MainThreadGap.h"
#include "markdown/MarkdownPreviewView.h"
#include "markdown/MarkdownToolView.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTemporaryFile>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

namespace tarnquill {

namespace {

using Clock = MainThreadGap::Clock;

constexpr int kKeystrokes = 60;
constexpr int kScrollSteps = 60;

std::string document(int lines) {
    constexpr std::string_view kChapter =
        "## A chapter with *some* words\n"
        "\n"
        "A paragraph with `code`, **strong** words and a [link](https://example.org/)\n"
        "that goes on over a second line.\n"
        "\n"
        "- one item\n"
        "- and another one\n"
        "\n"
        "> a quoted line\n"
        "\n";
    std::string text;
    for (int line = 0; line < lines; line += 10) {
        text += kChapter;
    }
    return text;
}

double milliseconds(Clock::duration duration) {
    return MainThreadGap::Milliseconds(duration).count();
}

double percentile95(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() * 95 / 100];
}

// Runs the event loop until it holds.
template <typename Condition>
void await(Condition condition) {
    while (!condition()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

void letPass(std::chrono::milliseconds time) {
    const auto end = Clock::now() + time;
    await([&] { return Clock::now() >= end; });
}

class Bench {
public:
    Bench() {
        m_view.resize(1280, 800);
        m_view.show();
        await([this] { return !m_view.isWorking(); });
        letPass(std::chrono::milliseconds(300));
    }

    void measure(int lines) {
        const auto opening = m_gap.during([&] { open(lines); }, [this] { return !m_view.isWorking(); });
        letPass(std::chrono::milliseconds(500));
        std::vector<double> keys;
        const auto typing = m_gap.during([&] { keys = type(); }, [] { return true; });
        const auto preview = followEditor();
        std::printf("%8d %10.1f %12.1f %10.1f %12.1f %12.1f\n", lines, opening.count(), percentile95(keys),
                    typing.count(), percentile95(preview), percentile95(followPreview()));
    }

private:
    void open(int lines) {
        QTemporaryFile file;
        file.open();
        file.write(QByteArray::fromStdString(document(lines)));
        file.close();
        const auto opens = m_model.opens();
        m_model.open(file.fileName());
        await([&] { return m_model.opens() > opens; });
    }

    // Milliseconds from each key to the layout of what it typed.
    std::vector<double> type() {
        m_editor.setFocus();
        m_editor.reveal({.location = m_editor.buffer().length() / 2, .length = 0});
        letPass(std::chrono::milliseconds(300));
        std::vector<double> times;
        for (int key = 0; key < kKeystrokes; ++key) {
            const auto start = Clock::now();
            QKeyEvent event(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, QStringLiteral("x"));
            QApplication::sendEvent(&m_editor, &event);
            await([this] { return !m_view.isWorking(); });
            times.push_back(milliseconds(Clock::now() - start));
            letPass(std::chrono::milliseconds(40));
        }
        return times;
    }

    void scrollToStart() {
        m_editor.verticalScrollBar()->setValue(0);
        letPass(std::chrono::milliseconds(300));
    }

    // Half of the steps go down, the others back up, so that even a short document has room for them.
    static int scrollDistance(int step, int pixels) { return step < kScrollSteps / 2 ? pixels : -pixels; }

    // Milliseconds from each scroll of the editor to the page's report that it has followed.
    std::vector<double> followEditor() {
        auto& bar = *m_editor.verticalScrollBar();
        scrollToStart();
        std::vector<double> times;
        for (int step = 0; step < kScrollSteps; ++step) {
            bool reported = false;
            const auto connection =
                QObject::connect(&m_preview, &WebPageView::messageReceived, [&] { reported = true; });
            const auto start = Clock::now();
            bar.setValue(bar.value() + scrollDistance(step, 60));
            await([&] { return reported || Clock::now() - start > std::chrono::seconds(1); });
            times.push_back(milliseconds(Clock::now() - start));
            QObject::disconnect(connection);
            letPass(std::chrono::milliseconds(50));
        }
        return times;
    }

    // Milliseconds from the page's scroll, as its own clock has it, to the editor's.
    std::vector<double> followPreview() {
        scrollToStart();
        std::vector<double> times;
        for (int step = 0; step < kScrollSteps; ++step) {
            const auto before = m_editor.verticalScrollBar()->value();
            const auto start = Clock::now();
            m_preview.run(QStringLiteral("window.scrollBy(0, %1)").arg(scrollDistance(step, 120)));
            await([&] {
                return m_editor.verticalScrollBar()->value() != before ||
                       Clock::now() - start > std::chrono::seconds(1);
            });
            times.push_back(milliseconds(Clock::now() - start));
            letPass(std::chrono::milliseconds(50));
        }
        return times;
    }

    MarkdownToolViewModel m_model;
    MarkdownToolView m_view{m_model};
    CodeEditor& m_editor = *m_view.findChild<CodeEditor*>();
    MarkdownPreviewView& m_preview = *m_view.findChild<MarkdownPreviewView*>();
    MainThreadGap m_gap;
};

} // namespace

} // namespace tarnquill

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    tarnquill::Theme::instance().install(application);
    std::printf(
        "All times in ms; \"gap\" is the longest time in which the main thread answers nothing, the others\n"
        "are 95th percentiles. \"Key\" ends with the page's layout, \"preview\" with the page's report of "
        "its\n"
        "scroll, \"editor\" with the editor's scroll, each with the way of the messages.\n\n"
        "%8s %10s %12s %10s %12s %12s\n",
        "lines", "open: gap", "key", "key: gap", "preview", "editor");
    tarnquill::Bench bench;
    for (const int lines : {200, 2000, 10'000}) {
        bench.measure(lines);
    }
}

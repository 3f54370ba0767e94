// Prints how long the main thread answers nothing while the JSON tool opens a file, is typed into, switches
// between its outputs, scrolls and searches, and what memory that takes. Set QT_QPA_PLATFORM=offscreen where
// there is no display.
#include "GeneratedJSON.h"

#include "chrome/CodeEditor.h"
#include "chrome/Theme.h"
#include "common/testing/MainThreadGap.h"
#include "json/JSONToolView.h"

#include <QApplication>
#include <QFile>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTemporaryDir>

#include <sys/resource.h>

#include <array>
#include <cstdio>

namespace tarnquill {

namespace {

using Pane = JSONToolViewModel::Pane;

constexpr int kKeystrokes = 50;
constexpr int kScrollSteps = 100;

struct Input {
    const char* name;
    std::size_t size;
    bench::Layout layout;
};

// In order of size, because the memory printed is the most that was needed so far.
constexpr std::array kInputs{
    Input{.name = "1 MB, one line", .size = 1'000'000, .layout = bench::Layout::minified},
    Input{.name = "10 MB, many lines", .size = 10'000'000, .layout = bench::Layout::indented},
    Input{.name = "10 MB, one line", .size = 10'000'000, .layout = bench::Layout::minified},
    Input{.name = "50 MB, many lines", .size = 50'000'000, .layout = bench::Layout::indented}};

double peakMegabytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
#ifdef __APPLE__
    return static_cast<double>(usage.ru_maxrss) / 1e6;
#else
    return static_cast<double>(usage.ru_maxrss) * 1024 / 1e6;
#endif
}

void press(CodeEditor& editor, int key, const QString& text) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(&editor, &event);
}

void measure(MainThreadGap& gap, const Input& input, const QString& path) {
    const auto json = bench::generatedJSON(input.size, input.layout);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(json.data(), static_cast<qint64>(json.size())) < 0) {
        qFatal("The input could not be written.");
    }
    file.close();

    JSONToolViewModel model;
    JSONToolView view(model);
    view.resize(1280, 760);
    view.show();
    const auto editors = view.findChildren<CodeEditor*>();
    const auto* const output = *std::ranges::find_if(editors, [](auto* each) { return each->isReadOnly(); });
    auto* const editor = *std::ranges::find_if(editors, [](auto* each) { return !each->isReadOnly(); });
    const auto isDone = [&] {
        return !view.isWorking() &&
               std::ranges::all_of(editors, [](auto* each) { return each->isLaidOut(); });
    };

    const auto start = MainThreadGap::Clock::now();
    const auto opening = gap.during([&] { model.open(path); }, isDone);
    const MainThreadGap::Milliseconds shown = MainThreadGap::Clock::now() - start;
    if (!model.validation().isValid || output->buffer().length() == 0) {
        qFatal("The file was not formatted.");
    }
    editor->setFocus();
    // A number, so that the text stays valid.
    const auto id = json.find("\"id\":", json.size() / 2) + (input.layout == bench::Layout::indented ? 6 : 5);
    editor->setSelection(TextSelection::at(id));
    const auto typing = gap.during(
        [&] {
            for (int i = 0; i < kKeystrokes; ++i) {
                press(*editor, Qt::Key_7, QStringLiteral("7"));
                editor->viewport()->repaint();
                QCoreApplication::processEvents();
            }
        },
        isDone);
    const auto switching = gap.during(
        [&] {
            for (int i = 0; i < 10; ++i) {
                model.setOutputMode(i % 2 == 0 ? JSONToolViewModel::OutputMode::minified
                                               : JSONToolViewModel::OutputMode::formatted);
                QCoreApplication::processEvents();
            }
        },
        isDone);
    const auto scrolling = gap.during(
        [&] {
            for (int i = 1; i <= kScrollSteps; ++i) {
                for (auto* each : editors) {
                    auto& bar = *each->verticalScrollBar();
                    bar.setValue(static_cast<int>(bar.maximum() * (i / double{kScrollSteps})));
                    each->viewport()->repaint();
                }
                QCoreApplication::processEvents();
            }
        },
        isDone);
    const auto searching = gap.during([&] { model.setSearch(u"example", JSONSearch::Scope::all); }, isDone);
    std::printf("%-18s %8.0f %8.1f %8.1f %8.1f %8.1f %8.1f %9.0f %7.1fx\n", input.name, shown.count(),
                opening.count(), typing.count(), switching.count(), scrolling.count(), searching.count(),
                peakMegabytes(), peakMegabytes() * 1e6 / static_cast<double>(json.size()));
}

} // namespace

} // namespace tarnquill

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    tarnquill::Theme::instance().install(application);
    const QTemporaryDir folder;
    std::printf(
        "\"Shown\" is the time from opening to the last painted and coloured output; then the longest gaps "
        "of "
        "the main\nthread; all in ms. Then the most memory that the program has needed so far, in MB and "
        "times the file.\n\n%-18s %8s %8s %8s %8s %8s %8s %9s %8s\n",
        "file", "shown", "open", "type", "switch", "scroll", "search", "memory", "ratio");
    tarnquill::MainThreadGap gap;
    for (const auto& input : tarnquill::kInputs) {
        tarnquill::measure(gap, input, folder.filePath(QStringLiteral("data.json")));
        std::fflush(stdout);
    }
}

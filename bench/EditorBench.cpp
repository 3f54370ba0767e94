// Prints how long the main thread answers nothing while the editor is given large texts, typed into and
// scrolled, and what a keystroke and a scroll step cost up to the painted picture. Set
// QT_QPA_PLATFORM=offscreen where there is no display.
#include "GeneratedJSON.h"

#include "chrome/CodeEditor.h"
#include "chrome/Theme.h"
#include "common/UnicodeText.h"
#include "common/testing/MainThreadGap.h"
#include "json/JSONSyntaxTokens.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScrollBar>

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>
#include <vector>

namespace tarnquill {

namespace {

constexpr int kKeystrokes = 100;
constexpr int kScrollSteps = 200;

struct Input {
    const char* name;
    std::size_t size;
    bench::Layout layout;
};

constexpr std::array kInputs{
    Input{.name = "10 MB, many lines", .size = 10'000'000, .layout = bench::Layout::indented},
    Input{.name = "50 MB, many lines", .size = 50'000'000, .layout = bench::Layout::indented},
    Input{.name = "1 MB, one line", .size = 1'000'000, .layout = bench::Layout::minified},
    Input{.name = "10 MB, one line", .size = 10'000'000, .layout = bench::Layout::minified},
    Input{.name = "50 MB, one line", .size = 50'000'000, .layout = bench::Layout::minified}};

std::unique_ptr<SyntaxHighlighter> makeHighlighter() {
    constexpr std::array kRoles{ColorRole::text,         ColorRole::syntaxPunctuation,
                                ColorRole::syntaxNumber, ColorRole::syntaxKeyword,
                                ColorRole::syntaxString, ColorRole::syntaxKey};
    return std::make_unique<SyntaxHighlighter>(
        [](std::u16string_view line) {
            return JSONSyntaxTokens::tokens(line, {.location = 0, .length = line.size()});
        },
        [kRoles](SyntaxKind kind) { return SyntaxStyle{.color = kRoles.at(kind)}; });
}

void press(CodeEditor& editor, int key, const QString& text) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(&editor, &event);
}

double longest(const std::vector<double>& values) {
    return *std::ranges::max_element(values);
}

double median(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

// Milliseconds of each repetition, the picture included.
template <typename Step>
std::vector<double> timed(CodeEditor& editor, int count, Step step) {
    std::vector<double> times;
    for (int i = 0; i < count; ++i) {
        const auto start = MainThreadGap::Clock::now();
        step(i);
        editor.viewport()->repaint();
        times.push_back(MainThreadGap::Milliseconds(MainThreadGap::Clock::now() - start).count());
        QCoreApplication::processEvents();
    }
    return times;
}

void measure(MainThreadGap& gap, const Input& input) {
    const auto json = bench::generatedJSON(input.size, input.layout);
    const auto start = MainThreadGap::Clock::now();
    const TextBuffer text(*utf16FromUTF8(json));
    const MainThreadGap::Milliseconds reading = MainThreadGap::Clock::now() - start;

    CodeEditor editor;
    editor.setHighlighter(makeHighlighter());
    editor.setLineNumbersVisible(true);
    editor.resize(640, 700);
    editor.show();
    editor.setFocus();
    const auto done = [&] { return editor.isLaidOut(); };
    const auto opening = gap.during([&] { editor.replaceAll(text); }, done);

    const auto middle = TextSelection::at(text.length() / 2);
    editor.reveal(middle.range());
    std::vector<double> keys;
    const auto typing = gap.during(
        [&] {
            keys = timed(editor, kKeystrokes, [&](int) { press(editor, Qt::Key_X, QStringLiteral("x")); });
        },
        done);
    auto& bar = *editor.verticalScrollBar();
    std::vector<double> steps;
    const auto scrolling = gap.during(
        [&] {
            steps = timed(editor, kScrollSteps, [&](int step) {
                // Half of the steps are the wheel's, half go right through the text.
                bar.setValue(step % 2 == 0 ? bar.value() + 3 * bar.singleStep()
                                           : static_cast<int>(bar.maximum() * (step / double{kScrollSteps})));
            });
        },
        done);
    const auto swapping = gap.during([&] { editor.setBuffer(text); }, done);
    std::printf("%-18s %8.0f %9.1f %8.1f %8.1f %8.1f   %6.1f %6.1f   %6.1f %6.1f\n", input.name,
                reading.count(), opening.count(), typing.count(), scrolling.count(), swapping.count(),
                median(keys), longest(keys), median(steps), longest(steps));
}

} // namespace

} // namespace tarnquill

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    tarnquill::Theme::instance().install(application);
    std::printf("All times in ms. \"Make\" is work of a background thread; then the longest gaps of the main "
                "thread; then "
                "the median\nand the longest time of a keystroke and of a scroll step with its picture.\n\n"
                "%-18s %8s %9s %8s %8s %8s   %6s %6s   %6s %6s\n",
                "text", "make", "open", "type", "scroll", "swap", "key", "max", "step", "max");
    tarnquill::MainThreadGap gap;
    for (const auto& input : tarnquill::kInputs) {
        tarnquill::measure(gap, input);
    }
}

// Prints how long the Mermaid tool takes from being shown to its first diagram, from a keystroke to the drawn
// diagram, and for a large graph, and how long the main thread answers nothing meanwhile. Set
// QT_QPA_PLATFORM=offscreen where there is no display, and QTWEBENGINE_DISABLE_SANDBOX=1 for root.

#include "chrome/CodeEditor.h"
#include "chrome/Theme.h"
#include "common/testing/MainThreadGap.h"
#include "mermaid/MermaidToolView.h"

#include <QApplication>
#include <QKeyEvent>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace tarnquill {

namespace {

using Status = MermaidToolViewModel::Status;

constexpr int kNodes = 50;
constexpr int kKeystrokes = 40;
constexpr int kEdges = 2000;

std::u16string number(int value) {
    const auto text = std::to_string(value);
    return {text.begin(), text.end()};
}

// A tree in which every node leads to three.
std::u16string flowchart(int edges) {
    std::u16string text = u"flowchart TD\n";
    for (int node = 1; node <= edges; ++node) {
        text +=
            u"    N" + number((node - 1) / 3) + u" --> N" + number(node) + u"[Step " + number(node) + u"]\n";
    }
    return text;
}

class Bench {
public:
    void show() {
        m_view = std::make_unique<MermaidToolView>(m_model);
        m_view->resize(1050, 760);
        m_view->show();
    }

    // From now to the diagram of the present text.
    template <typename Work>
    void measure(const char* name, int runs, Work work) {
        std::vector<double> times;
        double gap = 0;
        for (int run = 0; run < runs; ++run) {
            const auto start = MainThreadGap::Clock::now();
            auto end = start;
            const auto longest = m_gap.during([&] { work(); },
                                              [&] {
                                                  end = MainThreadGap::Clock::now();
                                                  return isDrawn();
                                              });
            times.push_back(MainThreadGap::Milliseconds(end - start).count());
            gap = std::max(gap, longest.count());
        }
        std::ranges::sort(times);
        std::printf("%-34s %8.0f %8.0f %8.1f\n", name, times[times.size() / 2],
                    times[times.size() * 95 / 100], gap);
        std::fflush(stdout);
    }

    void replace(const std::u16string& text) {
        auto& editor = *m_view->findChild<CodeEditor*>();
        editor.selectAll();
        editor.replaceAll(TextBuffer(text));
        m_model.setText(editor.buffer());
    }

    // Into the label of the last node.
    void type() {
        auto& editor = *m_view->findChild<CodeEditor*>();
        editor.setSelection(TextSelection::at(editor.buffer().length() - 2));
        QKeyEvent event(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, QStringLiteral("x"));
        QApplication::sendEvent(&editor, &event);
    }

private:
    [[nodiscard]] bool isDrawn() const {
        return m_model.status() == Status::rendered && !m_view->isWorking();
    }

    MainThreadGap m_gap;
    MermaidToolViewModel m_model;
    std::unique_ptr<MermaidToolView> m_view;
};

} // namespace

} // namespace tarnquill

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    tarnquill::Theme::instance().install(application);
    std::printf(
        "Time to the drawn diagram, with the pause that typing is given, and the longest gap of the main "
        "thread; ms.\n\n%-34s %8s %8s %8s\n",
        "", "median", "95 %", "gap");
    tarnquill::Bench bench;
    bench.measure("shown for the first time", 1, [&] { bench.show(); });
    bench.measure("a flowchart of 50 nodes", 1,
                  [&] { bench.replace(tarnquill::flowchart(tarnquill::kNodes - 1)); });
    bench.measure("a keystroke in it", tarnquill::kKeystrokes, [&] { bench.type(); });
    bench.measure("a flowchart of 2,000 edges", 1,
                  [&] { bench.replace(tarnquill::flowchart(tarnquill::kEdges)); });
}

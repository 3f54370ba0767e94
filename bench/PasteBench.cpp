// Prints how long the main thread answers nothing after a large text is pasted into a tool, and how long it
// takes until the result is there. Set QT_QPA_PLATFORM=offscreen where there is no display.

#include "chrome/CodeEditor.h"
#include "chrome/Theme.h"
#include "codec/CodecToolView.h"
#include "common/Settings.h"
#include "common/testing/MainThreadGap.h"
#include "timestamp/TimestampField.h"
#include "timestamp/TimestampToolView.h"

#include <QApplication>
#include <QClipboard>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <random>
#include <string>

namespace tarnquill {

namespace {

constexpr std::size_t kBase64Size = 30'000'000;
constexpr std::size_t kLineLength = 76;
constexpr int kTimes = 100'000;

// Base64 of bytes between two values.
std::string base64(int first, int last) {
    std::mt19937 generator(1); // NOLINT(bugprone-random-generator-seed): the same text in every run
    std::uniform_int_distribution anyByte(first, last);
    std::string bytes(kBase64Size / 4 * 3, '\0');
    std::ranges::generate(bytes, [&] { return static_cast<char>(anyByte(generator)); });
    return Codec::encode(bytes, Codec::Scheme::base64, {});
}

std::string inLines(const std::string& text) {
    std::string lines;
    for (std::size_t start = 0; start < text.size(); start += kLineLength) {
        lines += text.substr(start, kLineLength) + '\n';
    }
    return lines;
}

std::string times() {
    std::string text;
    for (int line = 0; line < kTimes; ++line) {
        const auto day = std::to_string(line % 19 + 10);
        text += line % 3 == 0   ? std::to_string(1'790'380'800 + line)
                : line % 3 == 1 ? "2026-09-" + day + " 12:00:00.25"
                                : "Sat, " + day + " Sep 2026 12:00:00 +0200";
        text += '\n';
    }
    return text;
}

class Measurement {
public:
    void pasteIntoCodec() {
        CodecToolViewModel model;
        CodecToolView view(model);
        show(view);
        const auto editors = view.findChildren<CodeEditor*>();
        auto& input = **std::ranges::find_if(editors, [](auto* each) { return !each->isReadOnly(); });
        const auto paste = [&](const char* name, const std::string& text) {
            QGuiApplication::clipboard()->setText(QString::fromStdString(text));
            input.selectAll();
            report(name, view, [&] { input.paste(); });
            if (model.input().length() != text.size() || !model.output()) {
                qFatal("The text was not decoded.");
            }
        };
        paste("30 MB of Base64 of bytes", base64(0, 255));
        paste("30 MB of Base64 of text", base64('a', 'z'));
        paste("- in lines", inLines(base64('a', 'z')));
        report("- swapped", view, [&] { model.swap(); });
        report("- undone", view, [&] { input.undo(); });
    }

    void pasteIntoTimestamp() {
        const QTemporaryDir folder;
        Settings settings(folder.filePath(QStringLiteral("settings.ini")));
        TimestampToolViewModel model(settings);
        TimestampToolView view(model);
        show(view);
        QGuiApplication::clipboard()->setText(QString::fromStdString(times()));
        report("100,000 times", view, [&] { view.findChild<TimestampField*>()->paste(); });
        if (model.lines().rowCount() != kTimes) {
            qFatal("The times were not read.");
        }
    }

private:
    static void show(ToolView& view) {
        view.resize(1050, 800);
        view.show();
        QCoreApplication::processEvents();
    }

    template <typename Work>
    void report(const char* name, ToolView& view, Work work) {
        const auto start = MainThreadGap::Clock::now();
        MainThreadGap::Milliseconds took{};
        const auto gap = m_gap.during(work, [&] {
            if (view.isWorking()) {
                return false;
            }
            if (took.count() == 0) {
                view.repaint();
                took = MainThreadGap::Clock::now() - start;
            }
            return std::ranges::all_of(view.findChildren<CodeEditor*>(), &CodeEditor::isLaidOut);
        });
        std::printf("%-26s %8.1f %8.0f\n", name, gap.count(), took.count());
    }

    MainThreadGap m_gap;
};

} // namespace

} // namespace tarnquill

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    tarnquill::Theme::instance().install(application);
    std::printf("Milliseconds: the longest gap of the main thread, and until the result is painted.\n\n%-26s "
                "%8s %8s\n",
                "pasted", "gap", "took");
    tarnquill::Measurement measurement;
    measurement.pasteIntoCodec();
    measurement.pasteIntoTimestamp();
}

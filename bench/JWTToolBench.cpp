// Prints how long the JWT tool takes to show a token of 5 MB, to take a keystroke in it and to check its
// signature, and how long the main thread answers nothing meanwhile. Set QT_QPA_PLATFORM=offscreen where
// there is no display.

#include "chrome/CodeEditor.h"
#include "chrome/Theme.h"
#include "chrome/testing/FindWidgets.h"
#include "common/testing/MainThreadGap.h"
#include "jwt/JWTToolView.h"
#include "jwt/testing/SigningKey.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

namespace tarnquill {

namespace {

constexpr std::size_t kTokenSize = 5'000'000;
constexpr int kRuns = 15;

QString longToken() {
    std::string claims = R"({"exp":2106000000,"scopes":[")";
    while (claims.size() < kTokenSize / 4 * 3) {
        claims += "read:messages\",\"";
    }
    const SigningKey key(JWTVerifier::Algorithm::hs256);
    return QString::fromStdString(key.token(claims + "\"]}"));
}

class Bench {
public:
    Bench() {
        m_view.resize(1050, 800);
        m_view.show();
        QGuiApplication::clipboard()->setText(longToken());
    }

    // The work changes the token's length, and so does what prepares it.
    template <typename Prepare, typename Work>
    void measure(const char* name, Prepare prepare, Work work) {
        std::vector<double> times;
        double gap = 0;
        for (int run = 0; run < kRuns; ++run) {
            untilChecked(prepare);
            const auto start = MainThreadGap::Clock::now();
            const auto longest = untilChecked(work);
            times.push_back(MainThreadGap::Milliseconds(m_end - start).count());
            gap = std::max(gap, longest.count());
        }
        std::ranges::sort(times);
        std::printf("%-34s %8.0f %8.1f\n", name, times[times.size() / 2], gap);
        std::fflush(stdout);
    }

    void clear() { m_model.clearToken(); }

    void paste() {
        m_token.selectAll();
        m_token.paste();
    }

    // Into the middle of the payload.
    void type() { press(Qt::Key_A, QStringLiteral("a")); }
    void remove() { press(Qt::Key_Backspace, {}); }

private:
    void press(Qt::Key key, const QString& text) {
        m_token.setSelection(TextSelection::at(m_token.buffer().length() / 2));
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
        QApplication::sendEvent(&m_token, &event);
    }

    // Until the text that the work leaves is decoded and its signature checked.
    template <typename Work>
    MainThreadGap::Milliseconds untilChecked(Work work) {
        const auto length = m_model.token().length();
        return m_gap.during(work, [&] {
            m_end = MainThreadGap::Clock::now();
            return m_model.token().length() != length && m_model.check() && !m_view.isWorking();
        });
    }

    MainThreadGap m_gap;
    JWTToolViewModel m_model;
    JWTToolView m_view{m_model};
    CodeEditor& m_token{widgetNamed<CodeEditor>(m_view, QStringLiteral("Token"))};
    MainThreadGap::Clock::time_point m_end;
};

} // namespace

} // namespace tarnquill

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    tarnquill::Theme::instance().install(application);
    std::printf(
        "Until a token of 5 MB is decoded and checked, and the longest gap of the main thread; ms.\n\n"
        "%-34s %8s %8s\n",
        "", "median", "gap");
    tarnquill::Bench bench;
    bench.measure("paste", [&] { bench.clear(); }, [&] { bench.paste(); });
    bench.measure("a keystroke, the pause included", [&] { bench.remove(); }, [&] { bench.type(); });
}

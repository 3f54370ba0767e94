// Prints how long the main thread answers nothing while the CSV tool opens a table of a million rows,
// filters, searches, sorts and scrolls it, selects and copies all of it, and how long each of these takes
// until the result is there; and then while it shows tables that no program would write. Set
// QT_QPA_PLATFORM=offscreen where there is no display.
#include "GeneratedCSV.h"

#include "chrome/Theme.h"
#include "common/testing/MainThreadGap.h"
#include "csv/CSVGrid.h"
#include "csv/CSVToolView.h"

#include <QApplication>
#include <QScrollBar>
#include <QTemporaryDir>

#include <cstdio>
#include <fstream>
#include <string>
#include <string_view>
#include <utility>

namespace tarnquill {

namespace {

constexpr std::size_t kRows = 1'000'000;
constexpr int kScrollSteps = 300;

enum Column : std::size_t { kID, kService, kStatus, kDuration, kCommits, kStarted, kRegion, kNote, kEmail };

class Measurement {
public:
    Measurement() {
        m_view.resize(1050, 800);
        m_view.show();
        QCoreApplication::processEvents();
    }

    void showMillionRows(const QString& path) {
        report("open", [&] { m_model.open(path); });
        report("filter", [&] { m_model.setColumnFilter(kStatus, QStringLiteral("act")); });
        report("filter to nothing", [&] { m_model.setColumnFilter(kStatus, QStringLiteral("nowhere")); });
        report("clear filters", [&] { m_model.clearColumnFilters(); });
        report("search", [&] { m_model.setSearchQuery(QStringLiteral("gateway")); });
        report("clear search", [&] { m_model.setSearchQuery({}); });
        report("sort numbers", [&] { m_model.setSortOrder({{.columnID = kDuration, .ascending = false}}); });
        report("sort texts", [&] { m_model.setSortOrder({{.columnID = kEmail, .ascending = true}}); });
        report("scroll", [&] { scroll(); });
        report("select all", [&] { grid().selectAll(); });
        report("sort a selection", [&] { m_model.setSortOrder({}); });
        report("copy all cells", [&] { grid().copy(); });
        report("hide a column", [&] { m_model.setHidden(kNote, true); });
        report("show it again", [&] { m_model.setHidden(kNote, false); });
        report("no header", [&] { m_model.setTreatsFirstRowAsHeader(false); });
        report("header again", [&] { m_model.setTreatsFirstRowAsHeader(true); });
        report("open again", [&] { m_model.open(path); });
    }

    // And looks at the whole value of the first cell.
    void show(const char* name, const QString& path) {
        report(name, [&] { m_model.open(path); });
        report("- its first value", [&] {
            grid().setCurrentIndex(grid().model()->index(0, 0));
            Q_EMIT grid().valueRequested();
        });
        report("- all columns hidden", [&] { m_model.hideAllColumns(); });
        report("- and shown", [&] { m_model.showAllColumns(); });
    }

private:
    [[nodiscard]] CSVGrid& grid() { return *m_view.findChild<CSVGrid*>(); }

    // Half of the steps are the wheel's, half go right through the table.
    void scroll() {
        auto& bar = *grid().verticalScrollBar();
        for (int step = 0; step < kScrollSteps; ++step) {
            bar.setValue(step % 2 == 0 ? bar.value() + 3 * DataTable::kRowHeight
                                       : static_cast<int>(bar.maximum() * (step / double{kScrollSteps})));
            grid().viewport()->repaint();
            QCoreApplication::processEvents();
        }
    }

    template <typename Work>
    void report(const char* name, Work work) {
        const auto start = MainThreadGap::Clock::now();
        MainThreadGap::Milliseconds took{};
        const auto gap = m_gap.during(work, [&] {
            took = MainThreadGap::Clock::now() - start;
            return !m_view.isWorking();
        });
        std::printf("%-20s %8.1f %8.0f %10zu\n", name, gap.count(), took.count(),
                    m_model.visibleRows()->size());
    }

    CSVToolViewModel m_model;
    CSVToolView m_view{m_model};
    MainThreadGap m_gap;
};

} // namespace

} // namespace tarnquill

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    tarnquill::Theme::instance().install(application);
    const QTemporaryDir folder;
    const auto path = folder.filePath(QStringLiteral("million.csv"));
    std::ofstream(path.toStdString(), std::ios::binary) << tarnquill::bench::generatedCSV(tarnquill::kRows);
    std::printf("Milliseconds: the longest gap of the main thread, and until the result is there.\n\n"
                "%-20s %8s %8s %10s\n",
                "", "gap", "took", "rows");
    tarnquill::Measurement measurement;
    measurement.showMillionRows(path);
    const auto repeated = [](std::string_view text, std::size_t count) {
        std::string result;
        for (std::size_t i = 0; i < count; ++i) {
            result += text;
        }
        return result;
    };
    const std::pair<const char*, std::string> hostile[] = {
        {"unclosed quote", "\"" + repeated("some,text\n", 5'000'000)},
        {"100,000 columns", repeated("name,", 100'000) + "\n" + repeated("1,", 100'000)},
        {"cell of 20 MB", "a,b\n" + std::string(20'000'000, 'x') + ",y\n"},
        {"name of 20 MB", std::string(20'000'000, 'x') + ",y\n1,2\n"},
        {"10 MB of NUL", std::string(10'000'000, '\0')},
        {"10 MB of delimiters", std::string(10'000'000, ',')},
        {"10 MB of line ends", std::string(10'000'000, '\n')}};
    for (const auto& [name, text] : hostile) {
        std::ofstream(path.toStdString(), std::ios::binary) << text;
        measurement.show(name, path);
    }
}

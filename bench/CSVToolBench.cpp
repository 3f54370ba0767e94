// Prints how long the main thread answers nothing while the CSV tool opens a table of a million rows,
// filters, searches, sorts and scrolls it, selects and copies all of it, and how long each of these takes
// until the picture is there. Set QT_QPA_PLATFORM=offscreen where there is no display.
#include "GeneratedCSV.h"
#include "MainThreadGap.h"

#include "chrome/Theme.h"
#include "csv/CSVGrid.h"
#include "csv/CSVToolView.h"

#include <QApplication>
#include <QScrollBar>
#include <QTemporaryDir>

#include <cstdio>
#include <fstream>
#include <string>

namespace tarnquill {

namespace {

using bench::MainThreadGap;

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

    void run(const QString& path) {
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
        std::printf("%-18s %8.1f %8.0f %10zu\n", name, gap.count(), took.count(),
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
                "%-18s %8s %8s %10s\n",
                "", "gap", "took", "rows");
    tarnquill::Measurement().run(path);
}

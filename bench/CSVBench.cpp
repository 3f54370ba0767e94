// Measures parsing, filtering, searching, sorting and copying of a table of a million rows and ten columns.
#include "GeneratedCSV.h"
#include "csv/CSVCopy.h"
#include "csv/CSVRows.h"

#include <benchmark/benchmark.h>

#include <fstream>
#include <string>

namespace tarnquill {

namespace {

constexpr std::size_t kRows = 1'000'000;

enum Column : std::size_t { kID, kService, kStatus, kDuration, kCommits, kStarted, kRegion, kNote, kEmail };

const std::string& text() {
    static const auto kText = bench::generatedCSV(kRows);
    return kText;
}

const CSVParser::Document& document() {
    static const auto kDocument = CSVParser::parse(text());
    return kDocument;
}

// The most memory that the process has taken since resetPeakMemory(), in bytes.
double peakMemory() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmHWM:")) {
            return std::stod(line.substr(6)) * 1024;
        }
    }
    return 0;
}

void resetPeakMemory() {
    std::ofstream("/proc/self/clear_refs") << 5;
}

void parse(benchmark::State& state) {
    const auto& source = text();
    resetPeakMemory();
    const auto before = peakMemory();
    for (auto _ : state) {
        benchmark::DoNotOptimize(CSVParser::parse(source));
    }
    const auto size = static_cast<double>(source.size());
    state.SetBytesProcessed(static_cast<std::int64_t>(source.size()) * state.iterations());
    state.counters["text"] = size;
    state.counters["memory/text"] = (peakMemory() - before) / size;
}

void rows(benchmark::State& state, const CSVRows::Query& query) {
    const auto& table = document();
    std::size_t count = 0;
    for (auto _ : state) {
        count = CSVRows::visibleRows(table, query).size();
    }
    state.counters["rows"] = static_cast<double>(count);
}

using Write = void (*)(const CSVCopy::Cells&, const CSVCopy::Sink&, const std::stop_token&);

void copy(benchmark::State& state, Write write) {
    const auto& table = document();
    const auto allRows = CSVRows::visibleRows(table, {});
    const auto allColumns = CSVRows::visibleColumns(table, {});
    std::size_t size = 0;
    for (auto _ : state) {
        size = 0;
        write({.document = table, .rows = allRows, .columns = allColumns},
              [&size](std::string_view piece) { size += piece.size(); }, {});
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(size) * state.iterations());
}

BENCHMARK(parse)->Unit(benchmark::kMillisecond);

void rowsBenchmark(const char* name, const CSVRows::Query& query) {
    benchmark::RegisterBenchmark(name, rows, query)->Unit(benchmark::kMillisecond);
}

const bool kIsRegistered = [] {
    rowsBenchmark("filter/status", {.columnFilters = {{kStatus, "act"}}});
    rowsBenchmark("filter/email", {.columnFilters = {{kEmail, "index"}}});
    rowsBenchmark("search/common", {.searchQuery = "gateway"});
    rowsBenchmark("search/nowhere", {.searchQuery = "zebra"});
    rowsBenchmark("search/accented", {.searchQuery = "é"});
    rowsBenchmark("filterThenSearch", {.columnFilters = {{kStatus, "act"}}, .searchQuery = "gateway"});
    rowsBenchmark("sort/integers", {.sortOrder = {{kID, false}}});
    rowsBenchmark("sort/decimals", {.sortOrder = {{kDuration, true}}});
    rowsBenchmark("sort/fewTexts", {.sortOrder = {{kStatus, true}}});
    rowsBenchmark("sort/notes", {.sortOrder = {{kNote, true}}});
    rowsBenchmark("sort/emails", {.sortOrder = {{kEmail, true}}});
    rowsBenchmark("sort/threeKeys", {.sortOrder = {{kStatus, true}, {kCommits, false}, {kStarted, true}}});
    return true;
}();

BENCHMARK_CAPTURE(copy, json, CSVCopy::writeJSON)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(copy, markdown, CSVCopy::writeMarkdown)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(copy, tabSeparated, CSVCopy::writeTabSeparated)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace tarnquill

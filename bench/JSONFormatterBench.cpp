// Measures validation, formatting and minifying of 50 MB of JSON. Bytes are those of the input.
#include "GeneratedJSON.h"
#include "json/JSONFormatter.h"

#include <benchmark/benchmark.h>

namespace tarnquill {

namespace {

using JSONFormatter::Indent;
using JSONFormatter::SortMode;

constexpr std::size_t kSize = 50'000'000;

const std::string& document(bench::Layout layout) {
    static const auto kIndented = bench::generatedJSON(kSize, bench::Layout::indented);
    static const auto kMinified = bench::generatedJSON(kSize, bench::Layout::minified);
    return layout == bench::Layout::indented ? kIndented : kMinified;
}

template <typename Work>
void measure(benchmark::State& state, bench::Layout layout, Work work) {
    const auto& text = document(layout);
    for (auto _ : state) {
        auto result = work(text);
        benchmark::DoNotOptimize(result);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(text.size()) * state.iterations());
}

void validate(benchmark::State& state, bench::Layout layout) {
    measure(state, layout, [](const std::string& text) { return JSONFormatter::validate(text); });
}
void format(benchmark::State& state, bench::Layout layout) {
    measure(state, layout,
            [](const std::string& text) { return JSONFormatter::format(text, Indent(), SortMode::none); });
}
void minify(benchmark::State& state, bench::Layout layout) {
    measure(state, layout,
            [](const std::string& text) { return JSONFormatter::minify(text, SortMode::none); });
}
// What the window does for each text: the verdict and both outputs.
void outputs(benchmark::State& state, bench::Layout layout) {
    measure(state, layout,
            [](const std::string& text) { return JSONFormatter::outputs(text, Indent(), SortMode::none); });
}
void sortedOutputs(benchmark::State& state, bench::Layout layout) {
    measure(state, layout, [](const std::string& text) {
        return JSONFormatter::outputs(text, Indent(), SortMode::ascending);
    });
}

#define TARNQUILL_BOTH_LAYOUTS(work)                                                                         \
    BENCHMARK_CAPTURE(work, indented, bench::Layout::indented)                                               \
        ->UseRealTime()                                                                                      \
        ->Unit(benchmark::kMillisecond);                                                                     \
    BENCHMARK_CAPTURE(work, minified, bench::Layout::minified)->UseRealTime()->Unit(benchmark::kMillisecond)

TARNQUILL_BOTH_LAYOUTS(validate);
TARNQUILL_BOTH_LAYOUTS(format);
TARNQUILL_BOTH_LAYOUTS(minify);
TARNQUILL_BOTH_LAYOUTS(outputs);
TARNQUILL_BOTH_LAYOUTS(sortedOutputs);

} // namespace

} // namespace tarnquill

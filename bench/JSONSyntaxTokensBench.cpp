// Measures the colouring of JSON by the scanner and by the rule table, on the same text. Bytes are those of
// UTF-16.
#include "GeneratedJSON.h"
#include "common/UnicodeText.h"
#include "json/JSONSyntaxTokens.h"

#include <benchmark/benchmark.h>

namespace tarnquill {

namespace {

using bench::Layout;

constexpr std::size_t kSize = 10'000'000;

void measure(benchmark::State& state, SyntaxKinds (*tokens)(std::u16string_view, TextRange),
             const std::u16string& text) {
    for (auto _ : state) {
        auto kinds = tokens(text, {0, text.size()});
        benchmark::DoNotOptimize(kinds);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(text.size() * sizeof(char16_t)) * state.iterations());
}

void scanner(benchmark::State& state, Layout layout) {
    measure(state, JSONSyntaxTokens::tokens, *utf16FromUTF8(bench::generatedJSON(kSize, layout)));
}

void rules(benchmark::State& state, Layout layout) {
    measure(state, JSONSyntaxTokens::tokensByRules, *utf16FromUTF8(bench::generatedJSON(kSize, layout)));
}

// What typing a quotation mark leaves behind: strings and what is between them change places.
void scannerAfterAStrayQuote(benchmark::State& state, Layout layout) {
    auto text = *utf16FromUTF8(bench::generatedJSON(kSize, layout));
    text.insert(text.size() / 2, 1, u'"');
    measure(state, JSONSyntaxTokens::tokens, text);
}

BENCHMARK_CAPTURE(scanner, indented, Layout::indented)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(rules, indented, Layout::indented)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(scanner, minified, Layout::minified)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(rules, minified, Layout::minified)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(scannerAfterAStrayQuote, minified, Layout::minified)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace tarnquill

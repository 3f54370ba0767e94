// Measures the search of 50 MB of JSON in each scope. Bytes are those of UTF-16, in which the text is
// searched; the file that it came from has half as many, and its rate stands in the column "file".
#include "GeneratedJSON.h"
#include "common/UnicodeText.h"
#include "json/JSONSearch.h"

#include <benchmark/benchmark.h>

namespace tarnquill {

namespace {

using JSONSearch::Scope;

constexpr std::size_t kSize = 50'000'000;

const std::u16string& document() {
    static const auto kText = *utf16FromUTF8(bench::generatedJSON(kSize, bench::Layout::indented));
    return kText;
}

// The same with an accented letter and a combining mark in each record.
const std::u16string& accentedDocument() {
    static const auto kText = [] {
        auto text = document();
        for (auto place = text.find(u"said"); place != std::u16string::npos;
             place = text.find(u"said", place)) {
            text.replace(place, 4, u"d\u00EDo\u0301");
        }
        return text;
    }();
    return kText;
}

void search(benchmark::State& state, const std::u16string& text, std::u16string_view query, Scope scope) {
    std::size_t count = 0;
    for (auto _ : state) {
        auto matches = JSONSearch::matches(query, text, scope);
        benchmark::DoNotOptimize(matches);
        count = matches.size();
    }
    const auto bytes = static_cast<std::int64_t>(text.size() * sizeof(char16_t)) * state.iterations();
    state.SetBytesProcessed(bytes);
    state.counters["file"] =
        benchmark::Counter(static_cast<double>(utf8Length(text)),
                           benchmark::Counter::kIsIterationInvariantRate, benchmark::Counter::OneK::kIs1024);
    state.counters["matches"] = static_cast<double>(count);
}

BENCHMARK_CAPTURE(search, allWithoutAMatch, document(), u"needle", Scope::all)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(search, allEmail, document(), u"Email", Scope::all)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(search, allOneLetter, document(), u"e", Scope::all)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(search, keysEmail, document(), u"Email", Scope::keys)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(search, valuesExample, document(), u"Example", Scope::values)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(search, accentedAllEmail, accentedDocument(), u"Email", Scope::all)
    ->Unit(benchmark::kMillisecond);

} // namespace

} // namespace tarnquill

// Measures the Markdown converter on ordinary documents and on texts made to be slow.
#include "markdown/Markdown.h"

#include <benchmark/benchmark.h>

#include <string>

namespace tarnquill {

namespace {

// A chapter as people write them: prose with links and code, lists, a table, a quote, code.
constexpr std::string_view kChapter =
    "## Installing *several* packages\n\n"
    "The `setup` script installs what is missing and **never** removes anything; see the\n"
    "[list of packages](https://example.org/packages?sort=name \"Packages\") and, for what comes next,\n"
    "https://example.org/next. Names such as snake_case_name stay as they are, 2 * 3 * 4 too.\n\n"
    "- a first item with `code` in it\n- a second one, which is longer and says a little more\n"
    "  1. nested\n  2. numbered\n- [x] done\n- [ ] open\n\n"
    "> A quote of two lines, with **strong** words,\n> and a ~~deleted~~ one.\n\n"
    "| Name | Size | Note |\n|:-----|-----:|:----:|\n| alpha | 12 | first |\n| beta | 1,204 | `b` |\n\n"
    "```cpp\nfor (int i = 0; i < 3; ++i) {\n    run(\"a & b\", i);\n}\n```\n\n"
    "![A diagram](images/diagram.png) closes the chapter, and a last sentence without any mark-up follows "
    "it\n"
    "over two lines, as most of a document's sentences do.\n\n";

std::string repeated(std::string_view fragment, std::size_t size) {
    std::string text;
    while (text.size() < size) {
        text += fragment;
    }
    return text;
}

void convert(benchmark::State& state, const std::string& text) {
    for (auto _ : state) {
        auto html = Markdown::html(text);
        benchmark::DoNotOptimize(html);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(text.size()) * state.iterations());
}

void ordinary(benchmark::State& state) {
    convert(state, repeated(kChapter, 20'000'000));
}

void hostile(benchmark::State& state, std::string_view fragment) {
    convert(state, repeated(fragment, 1'000'000));
}

BENCHMARK(ordinary)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(hostile, openLinks, "[a](")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(hostile, openStrong, "**a")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(hostile, openImages, "![")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(hostile, angles, "<")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(hostile, backquotes, "`")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(hostile, pipes, "|")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(hostile, quotes, ">")->Unit(benchmark::kMillisecond);

} // namespace

} // namespace tarnquill

// Measures the colouring of a large flowchart. Bytes are those of the source as a file (UTF-8).
#include "common/UnicodeText.h"
#include "mermaid/MermaidSyntaxTokens.h"

#include <benchmark/benchmark.h>

#include <string>

namespace tarnquill {

namespace {

constexpr std::size_t kSize = 10'000'000;

// Every kind of token in about the proportions of a written diagram.
std::string flowchart() {
    std::string text = "flowchart TD\n";
    for (int node = 0; text.size() < kSize; node += 3) {
        const auto name = std::to_string(node);
        text += "    N" + name + "[Step " + name + " of the plan] --> N" + std::to_string(node + 1) +
                "{Which way?}\n    N" + name + " -->|yes| N" + std::to_string(node + 2) +
                "(\"Quoted label\")\n    %% a remark about the end\n    subgraph S" + name +
                "\n    direction LR\n    A" + name + " -.- B" + name + "\n    end\n";
    }
    return text;
}

void tokens(benchmark::State& state) {
    const auto source = flowchart();
    const auto text = *utf16FromUTF8(source);
    for (auto _ : state) {
        auto kinds = MermaidSyntaxTokens::tokens(text);
        benchmark::DoNotOptimize(kinds);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(source.size()) * state.iterations());
}

BENCHMARK(tokens)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace tarnquill

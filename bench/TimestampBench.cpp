// Measures reading and showing of instants: items per second are texts read, or instants shown.
#include "common/DateText.h"
#include "common/ICUTimeZone.h"
#include "timestamp/TimestampRows.h"

#include <benchmark/benchmark.h>

#include <functional>
#include <random>
#include <vector>

namespace tarnquill {

namespace {

constexpr std::size_t kTexts = 4'096;

std::vector<std::int64_t> randomSeconds() {
    std::mt19937_64 random(1); // NOLINT(bugprone-random-generator-seed): the same instants in every run
    std::uniform_int_distribution<std::int64_t> anySecond(0, 4'000'000'000);
    std::vector<std::int64_t> seconds(kTexts);
    for (auto& second : seconds) {
        second = anySecond(random);
    }
    return seconds;
}

void parse(benchmark::State& state, const std::function<std::string(std::int64_t)>& write) {
    const auto berlin = ICUTimeZone::find("Europe/Berlin");
    std::vector<std::string> texts;
    for (const auto seconds : randomSeconds()) {
        texts.push_back(write(seconds));
    }
    for (auto _ : state) {
        for (const auto& text : texts) {
            auto parsed = Timestamp::parse(text, Timestamp::UnitChoice::automatic, *berlin);
            benchmark::DoNotOptimize(parsed);
        }
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(kTexts) * state.iterations());
}

void parseUnixMilliseconds(benchmark::State& state) {
    parse(state, [](std::int64_t seconds) { return std::to_string(seconds) + "123"; });
}
void parseISO8601(benchmark::State& state) {
    parse(state, [](std::int64_t seconds) { return iso8601Text(seconds, 123'456'000, 7'200); });
}
void parseRFC2822(benchmark::State& state) {
    parse(state,
          [](std::int64_t seconds) { return rfcDateText(seconds) + ' ' + clockText(seconds) + " +0200"; });
}
void parseISO8601InLocalTime(benchmark::State& state) {
    parse(state, [](std::int64_t seconds) {
        std::string text = iso8601Text(seconds, 0, 0);
        text.pop_back();
        return text;
    });
}
void rows(benchmark::State& state) {
    const auto berlin = ICUTimeZone::find("Europe/Berlin");
    const auto instants = randomSeconds();
    for (auto _ : state) {
        for (const auto seconds : instants) {
            auto shown = Timestamp::rows({.seconds = seconds, .nanoseconds = 123'456'789}, *berlin);
            benchmark::DoNotOptimize(shown);
        }
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(kTexts) * state.iterations());
}

BENCHMARK(parseUnixMilliseconds);
BENCHMARK(parseISO8601);
BENCHMARK(parseRFC2822);
BENCHMARK(parseISO8601InLocalTime);
BENCHMARK(rows);

} // namespace

} // namespace tarnquill

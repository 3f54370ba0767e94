// A table of any size that looks like an export of deployments: ten columns, texts with many and with few
// repetitions, integers, decimals and dates, a third of the notes quoted.
#pragma once

#include <array>
#include <cstddef>
#include <random>
#include <string>

namespace tarnquill::bench {

// The same table for the same number of rows; ASCII, about 120 bytes a row.
[[nodiscard]] inline std::string generatedCSV(std::size_t rows) {
    constexpr std::array kWords{"billing", "gateway", "mail",  "queue", "report", "builder", "auth",
                                "image",   "resizer", "asset", "cache", "search", "index",   "web"};
    constexpr std::array kStatuses{"active", "pending", "cancelled", "failed", "inactive"};
    constexpr std::array kRegions{"eu-west", "us-east", "ap-south"};
    std::mt19937_64 random(1); // NOLINT(bugprone-random-generator-seed): the same table in every run
    const auto below = [&](std::size_t bound) { return random() % bound; };
    const auto word = [&] { return std::string(kWords[below(kWords.size())]); };
    const auto number = [&](std::size_t bound) { return std::to_string(below(bound)); };
    const auto twoDigits = [&](std::size_t first, std::size_t count) {
        const auto value = first + below(count);
        return std::string(value < 10 ? "0" : "") + std::to_string(value);
    };
    const auto note = [&] {
        auto text = word() + " " + word() + " " + word() + " " + word();
        switch (below(12)) {
        case 0:
        case 1:
            return "\"" + text + ", again\"";
        case 2:
            return "\"the \"\"" + text + "\"\"\"";
        case 3:
            return "\"" + text + "\n" + word() + "\"";
        default:
            return text;
        }
    };
    std::string text = "id,service,status,duration,commits,started,region,note,email,amount\n";
    text.reserve(rows * 120);
    for (std::size_t id = 0; id < rows; ++id) {
        text +=
            std::to_string(id) + "," + word() + "-" + word() + "," + kStatuses[below(kStatuses.size())] + ",";
        text += number(500) + "." + number(10) + "," + number(40) + ",";
        text += "2026-" + twoDigits(1, 12) + "-" + twoDigits(1, 28) + " " + twoDigits(0, 24) + ":" +
                twoDigits(0, 60);
        text += std::string(",") + kRegions[below(kRegions.size())] + "," + note() + ",";
        text +=
            word() + number(1'000'000) + "@example.com," + number(10'000) + "." + twoDigits(10, 90) + "\n";
    }
    return text;
}

} // namespace tarnquill::bench

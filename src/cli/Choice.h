// An option whose value is one of a few words.
#pragma once

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <utility>

namespace tarnquill::cli {

// The choices of values that have names of their own.
template <typename Value, std::size_t size, typename NameOf>
[[nodiscard]] auto namedChoices(const std::array<Value, size>& values, NameOf nameOf) {
    std::array<std::pair<std::string_view, Value>, size> choices;
    std::ranges::transform(values, choices.begin(),
                           [&](Value value) { return std::pair{nameOf(value), value}; });
    return choices;
}

// The choices are pairs of a word and what it stands for, which is stored in `value`; that holds the default
// until then. Any other word is wrong usage.
template <const auto& kChoices, typename Value>
void addChoice(CLI::App& command, const char* option, Value& value, const char* description) {
    command.add_option_function<std::string>(
        option,
        [option, &value](const std::string& word) {
            std::string words;
            for (const auto& [name, choice] : kChoices) {
                if (name == word) {
                    value = choice;
                    return;
                }
                words.append(words.empty() ? "" : ", ").append(name);
            }
            throw CLI::ValidationError(option, "“" + word + "” is not one of " + words);
        },
        description);
}

} // namespace tarnquill::cli

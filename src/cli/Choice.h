// An option whose value is one of a few words.
#pragma once

#include <CLI/CLI.hpp>

#include <string>
#include <utility>
#include <vector>

namespace tarnquill::cli {

// The word's value is stored in `value`, which holds the default until then; any other word is wrong usage.
template <typename Value>
void addChoice(CLI::App& command, const std::string& option, Value& value, const std::string& description,
               std::vector<std::pair<std::string, Value>> choices) {
    command.add_option_function<std::string>(
        option,
        [option, &value, choices = std::move(choices)](const std::string& word) {
            std::string words;
            for (const auto& [name, choice] : choices) {
                if (name == word) {
                    value = choice;
                    return;
                }
                words += (words.empty() ? "" : ", ") + name;
            }
            throw CLI::ValidationError(option, "“" + word + "” is not one of " + words);
        },
        description);
}

} // namespace tarnquill::cli

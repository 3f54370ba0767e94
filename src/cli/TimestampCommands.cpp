#include "cli/Choice.h"
#include "cli/Commands.h"
#include "cli/Input.h"
#include "common/ICUTimeZone.h"
#include "timestamp/TimestampRows.h"

#include <CLI/CLI.hpp>

#include <array>
#include <memory>
#include <optional>
#include <string>

namespace tarnquill::cli {

namespace {

using Timestamp::UnitChoice;

const auto kUnits =
    namedChoices(std::array{UnitChoice::automatic, UnitChoice::seconds, UnitChoice::milliseconds,
                            UnitChoice::microseconds, UnitChoice::nanoseconds},
                 Timestamp::rawText);

struct Options {
    std::optional<std::string> text;
    UnitChoice unit = UnitChoice::automatic;
    std::string zoneName; // the system's when empty
};

Result read(std::string_view text, const Options& options) {
    const auto knownName = options.zoneName.empty() ? ICUTimeZone::systemZoneName() : options.zoneName;
    const auto zoneName = knownName.value_or(ICUTimeZone::kFallbackName);
    const auto zone = ICUTimeZone::find(zoneName);
    const auto parsed = Timestamp::parse(text, options.unit, *zone);
    if (!parsed) {
        return failed({.exitStatus = kRefused, .message = std::string(message(parsed.error()))});
    }
    std::string output;
    for (const auto& row : Timestamp::rows(parsed->instant, *zone)) {
        output.append(row.label).append("\t").append(row.value).append("\n");
    }
    auto result = lines(output + "Reading\t" + note(parsed->reading, zoneName));
    if (!knownName) {
        result.error = "The system's time zone is unknown: local times are in UTC.";
    }
    return result;
}

// A leading minus sign and digits look like an option, so the command line leaves them among what it cannot
// place, as it does with “--”.
void takeNegativeNumber(const CLI::App& command, std::optional<std::string>& text) {
    auto unplaced = command.remaining();
    std::erase(unplaced, "--");
    if (unplaced.empty()) {
        return;
    }
    const auto& first = unplaced.front();
    const auto isNumber = first.size() > 1 && first[0] == '-' && '0' <= first[1] && first[1] <= '9';
    if (unplaced.size() > 1 || text || !isNumber) {
        throw CLI::ExtrasError(command.get_name(), unplaced);
    }
    text = first;
}

Result readInput(const Options& options) {
    if (options.text && options.text != "-") {
        return read(*options.text, options);
    }
    const auto input = readText("-");
    return input ? read(withoutByteOrderMark(input->view()), options) : failed(input.error());
}

void addUnitOption(CLI::App& command, Options& options) {
    addChoice<kUnits>(
        command, "--unit", options.unit,
        "How to read a number: auto, seconds, milliseconds, microseconds or nanoseconds [auto]");
}

void addZoneOption(CLI::App& command, Options& options) {
    command.add_option_function<std::string>(
        "--zone",
        [&options](const std::string& name) {
            options.zoneName = name;
            if (ICUTimeZone::find(name) == nullptr) {
                throw CLI::ValidationError("--zone", "“" + name + "” is not the name of a time zone");
            }
        },
        "The local zone, such as Europe/Berlin [the system's]");
}

} // namespace

void addTimestampCommands(CLI::App& application, Result& result) {
    auto* tool = application.add_subcommand("timestamp", "Read Unix times and dates");
    tool->require_subcommand(1);
    const auto options = std::make_shared<Options>();

    auto* command = tool->add_subcommand("read", "Print an instant in every form, and how it was read");
    command->add_option("TEXT", options->text,
                        "A Unix time, an ISO 8601 or an RFC 2822 date; standard input when absent or “-”");
    command->allow_extras();
    addUnitOption(*command, *options);
    addZoneOption(*command, *options);
    command->callback([command, options, &result] {
        takeNegativeNumber(*command, options->text);
        result = readInput(*options);
    });
}

} // namespace tarnquill::cli

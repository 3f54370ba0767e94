// How the commands about positions print them: in UTF-16 units, a line each.
#pragma once

#include "cli/Commands.h"
#include "common/SyntaxRules.h"
#include "common/TextRange.h"

#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace tarnquill::cli {

// "LOCATION<tab>LENGTH"
[[nodiscard]] std::string positionColumns(TextRange range);

// "LOCATION<tab>LENGTH<tab>KIND" for every run of one kind other than 0.
[[nodiscard]] Result tokenLines(std::span<const SyntaxKind> kinds,
                                const std::function<std::string_view(SyntaxKind)>& nameOf);

} // namespace tarnquill::cli

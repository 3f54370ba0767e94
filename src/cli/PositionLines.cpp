#include "cli/PositionLines.h"

namespace tarnquill::cli {

std::string positionColumns(TextRange range) {
    return std::to_string(range.location) + "\t" + std::to_string(range.length);
}

Result tokenLines(std::span<const SyntaxKind> kinds,
                  const std::function<std::string_view(SyntaxKind)>& nameOf) {
    Result result;
    for (const auto& run : syntaxRuns(kinds)) {
        result.output.append(positionColumns(run.range)).append("\t").append(nameOf(run.kind)).append("\n");
    }
    return result;
}

} // namespace tarnquill::cli

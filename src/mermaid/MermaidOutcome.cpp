#include "mermaid/MermaidOutcome.h"

#include <QJsonObject>

#include <cmath>
#include <limits>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

std::optional<int> integer(const QJsonValue& value) {
    const auto number = value.toDouble(-1);
    const bool isLine = value.isDouble() && number == std::floor(number) && number >= 0 &&
                        number <= std::numeric_limits<int>::max();
    return isLine ? std::optional(static_cast<int>(number)) : std::nullopt;
}

} // namespace

MermaidOutcome MermaidOutcome::fromResult(const QJsonValue& result) {
    if (!result.isObject()) {
        return {Failed{.message = u"The preview returned no result."_s, .line = std::nullopt}};
    }
    const auto fields = result.toObject();
    if (fields[u"ok"].toBool()) {
        return {Rendered{.bytes = fields[u"svgBytes"].toInteger()}};
    }
    return {Failed{.message = fields[u"message"].toString(u"Unknown error."_s),
                   .line = integer(fields[u"line"])}};
}

} // namespace tarnquill

#include "markdown/MarkdownPreviewMessage.h"

#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace tarnquill::MarkdownPreviewMessage {
namespace {

using namespace Qt::StringLiterals;

std::optional<double> numberAt(const QJsonObject& object, const QString& key, double least) {
    const auto value = object[key];
    return value.isDouble() && value.toDouble() >= least ? std::optional(value.toDouble()) : std::nullopt;
}

std::optional<bool> flagAt(const QJsonObject& object, const QString& key) {
    const auto value = object[key];
    return value.isBool() ? std::optional(value.toBool()) : std::nullopt;
}

constexpr double kAnyNumber = std::numeric_limits<double>::lowest();

// A 64-bit integer of at least 1; larger than any document has lines, it is cut.
std::optional<int> lineCountAt(const QJsonObject& object) {
    const auto count = numberAt(object, u"lineCount"_s, 1);
    if (!count || std::trunc(*count) != *count || *count >= 0x1p63) {
        return std::nullopt;
    }
    return static_cast<int>(std::min(*count, double{std::numeric_limits<int>::max()}));
}

std::optional<MarkdownLineMap::Block> blockOf(const QJsonValue& entry) {
    const auto numbers = entry.toArray();
    std::array<double, 4> measurement{};
    if (numbers.size() != std::ssize(measurement) ||
        !std::ranges::all_of(numbers, [](const auto& number) { return number.isDouble(); })) {
        return std::nullopt;
    }
    std::ranges::transform(numbers, measurement.begin(),
                           [](const auto& number) { return number.toDouble(); });
    return MarkdownLineMap::block(measurement);
}

std::optional<Message> scrollOf(const QJsonObject& body) {
    const auto y = numberAt(body, u"y"_s, kAnyNumber);
    const auto user = flagAt(body, u"user"_s);
    if (!y || !user) {
        return std::nullopt;
    }
    return Scroll{.y = *y, .user = *user};
}

std::optional<Message> layoutOf(const QJsonObject& body) {
    const auto tops = body[u"tops"_s];
    const auto lineCount = lineCountAt(body);
    const auto height = numberAt(body, u"height"_s, 0);
    const auto viewport = numberAt(body, u"viewport"_s, 0);
    const auto scrollY = numberAt(body, u"scrollY"_s, kAnyNumber);
    const auto userScroll = flagAt(body, u"userScroll"_s);
    if (!tops.isArray() || !lineCount || !height || !viewport || !scrollY || !userScroll) {
        return std::nullopt;
    }
    std::vector<MarkdownLineMap::Block> blocks;
    const auto entries = tops.toArray();
    for (const auto& entry : entries) {
        if (const auto block = blockOf(entry)) {
            blocks.push_back(*block);
        }
    }
    return Layout{.map = MarkdownLineMap(blocks, *lineCount, *height),
                  .lineCount = *lineCount,
                  .documentHeight = *height,
                  .viewportHeight = *viewport,
                  .scrollY = *scrollY,
                  .userScroll = *userScroll};
}

} // namespace

std::optional<Message> decoded(const QJsonValue& body) {
    const auto object = body.toObject();
    const auto kind = object[u"kind"_s].toString();
    if (kind == u"scroll") {
        return scrollOf(object);
    }
    return kind == u"layout" ? layoutOf(object) : std::nullopt;
}

} // namespace tarnquill::MarkdownPreviewMessage

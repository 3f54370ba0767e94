#include "json/JSONFormatter.h"

#include "common/JSONReader.h"
#include "common/WhiteSpace.h"
#include "json/JSONWriter.h"
#include "json/WideEncodings.h"

#include <memory>
#include <utility>

namespace tarnquill::JSONFormatter {

namespace {

struct Parsed {
    std::unique_ptr<const std::string> source; // unless it is the text itself
    JSONDocument document;
};

using ParseResult = std::expected<Parsed, JSONReader::Error>;

// A zero byte is no part of any JSON text in UTF-8, but of nearly every one in UTF-32 and UTF-16.
std::optional<Parsed> parseWideEncodings(std::string_view text) {
    for (const auto encoding : kWideEncodings) {
        if (auto converted = utf8FromWide(text, encoding)) {
            auto source = std::make_unique<const std::string>(std::move(*converted));
            if (auto document = JSONReader::read(*source)) {
                return Parsed{.source = std::move(source), .document = std::move(*document)};
            }
        }
    }
    return std::nullopt;
}

ParseResult parse(std::string_view text) {
    auto document = JSONReader::read(text);
    if (document) {
        return Parsed{.source = nullptr, .document = std::move(*document)};
    }
    if (text.contains('\0')) {
        if (auto parsed = parseWideEncodings(text)) {
            return std::move(*parsed);
        }
    }
    return std::unexpected(std::move(document.error()));
}

bool isBlank(std::string_view text) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(kByteOrderMark)) {
        text.remove_prefix(kByteOrderMark.size());
    }
    return trimmed(text).empty();
}

Validation verdict(std::string_view text, const ParseResult& parsed) {
    Validation validation;
    validation.byteSize = static_cast<std::int64_t>(text.size());
    if (isBlank(text)) {
        return validation;
    }
    if (!parsed) {
        validation.error = parsed.error().message;
        validation.errorRange = parsed.error().range;
        return validation;
    }
    const auto root = parsed->document.root();
    validation.isValid = true;
    if (root.isObject() || root.isArray()) {
        validation.topLevelKeyCount = static_cast<std::int64_t>(root.count());
    }
    validation.droppedDuplicates = static_cast<std::int64_t>(parsed->document.droppedDuplicates());
    return validation;
}

std::string written(JSONValue root, std::optional<Indent> indent, SortMode sortMode,
                    std::size_t expectedSize) {
    std::string text;
    text.reserve(expectedSize);
    JSONWriter(indent, sortMode, [&](std::string_view piece) { text += piece; }).write(root);
    return text;
}

std::expected<void, FormatError> write(std::string_view text, std::optional<Indent> indent, SortMode sortMode,
                                       const Sink& sink) {
    const auto parsed = parse(text);
    if (!parsed) {
        return std::unexpected(FormatError{parsed.error().message});
    }
    JSONWriter(indent, sortMode, sink).write(parsed->document.root());
    return {};
}

std::expected<std::string, FormatError> written(std::string_view text, std::optional<Indent> indent,
                                                SortMode sortMode) {
    std::string result;
    const auto outcome = write(text, indent, sortMode, [&](std::string_view piece) { result += piece; });
    if (!outcome) {
        return std::unexpected(outcome.error());
    }
    return result;
}

} // namespace

std::string Indent::unit() const {
    return m_count == kTab ? std::string("\t") : std::string(static_cast<std::size_t>(m_count), ' ');
}

Validation validate(std::string_view text) {
    return verdict(text, parse(text));
}

std::expected<std::string, FormatError> format(std::string_view text, Indent indent, SortMode sortMode) {
    return written(text, indent, sortMode);
}

std::expected<std::string, FormatError> minify(std::string_view text, SortMode sortMode) {
    return written(text, std::nullopt, sortMode);
}

std::expected<void, FormatError> format(std::string_view text, Indent indent, SortMode sortMode,
                                        const Sink& sink) {
    return write(text, indent, sortMode, sink);
}

std::expected<void, FormatError> minify(std::string_view text, SortMode sortMode, const Sink& sink) {
    return write(text, std::nullopt, sortMode, sink);
}

Outputs outputs(std::string_view text, Indent indent, SortMode sortMode) {
    const auto parsed = parse(text);
    Outputs outputs{.validation = verdict(text, parsed), .formatted = {}, .minified = {}};
    if (parsed) {
        const auto root = parsed->document.root();
        outputs.formatted = written(root, indent, sortMode, text.size());
        outputs.minified = written(root, std::nullopt, sortMode, text.size());
    }
    return outputs;
}

} // namespace tarnquill::JSONFormatter

std::size_t std::hash<tarnquill::JSONFormatter::Indent>::operator()(
    const tarnquill::JSONFormatter::Indent& indent) const noexcept {
    return std::hash<std::string>()(indent.unit());
}

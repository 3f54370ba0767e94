#include "json/JSONFormatter.h"

#include "common/JSONReader.h"
#include "common/LargeString.h"
#include "common/TextDecoding.h"
#include "common/WhiteSpace.h"
#include "json/JSONWriter.h"
#include "json/WideEncodings.h"

#include <future>
#include <memory>
#include <optional>
#include <utility>

namespace tarnquill::JSONFormatter {

namespace {

// The size from which a text takes longer to write than a thread takes to start.
constexpr std::size_t kWorthAThread = std::size_t{1} << 20;

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
    return trimmed(withoutByteOrderMark(text)).empty();
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

// A collector of pieces. Large texts grow here, because a string that grows by itself knows nothing of large
// pages.
class Text {
public:
    explicit Text(std::size_t expectedSize) : m_text(stringWithRoomFor(expectedSize)) {}

    void operator()(std::string_view piece) {
        if (piece.size() > m_text.capacity() - m_text.size()) {
            auto larger = stringWithRoomFor((m_text.size() + piece.size()) * 2);
            larger += m_text;
            m_text = std::move(larger);
        }
        m_text += piece;
    }

    [[nodiscard]] std::string take() { return std::move(m_text); }

private:
    std::string m_text;
};

std::string written(const JSONDocument& document, std::optional<Indent> indent, SortMode sortMode) {
    const auto sourceSize = document.source().size();
    Text text(indent ? sourceSize + sourceSize / 2 : sourceSize);
    JSONWriter(document, indent, sortMode, std::ref(text)).write();
    return text.take();
}

std::expected<void, FormatError> write(std::string_view text, std::optional<Indent> indent, SortMode sortMode,
                                       const Sink& sink) {
    const auto parsed = parse(text);
    if (!parsed) {
        return std::unexpected(FormatError{parsed.error().message});
    }
    JSONWriter(parsed->document, indent, sortMode, sink).writeByTwo();
    return {};
}

std::expected<std::string, FormatError> written(std::string_view text, std::optional<Indent> indent,
                                                SortMode sortMode) {
    const auto parsed = parse(text);
    if (!parsed) {
        return std::unexpected(FormatError{parsed.error().message});
    }
    return written(parsed->document, indent, sortMode);
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
        const auto otherThread = std::launch::async | std::launch::deferred;
        auto minified = std::async(text.size() < kWorthAThread ? std::launch::deferred : otherThread,
                                   [&] { return written(parsed->document, std::nullopt, sortMode); });
        outputs.formatted = written(parsed->document, indent, sortMode);
        outputs.minified = minified.get();
    }
    return outputs;
}

} // namespace tarnquill::JSONFormatter

std::size_t std::hash<tarnquill::JSONFormatter::Indent>::operator()(
    const tarnquill::JSONFormatter::Indent& indent) const noexcept {
    return std::hash<std::string>()(indent.unit());
}

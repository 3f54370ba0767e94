// Formats, minifies and validates JSON (RFC 8259), with its own layout and exact numbers.
#pragma once

#include "common/TextRange.h"

#include <cstddef>
#include <cstdint>
#include <expected>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tarnquill::JSONFormatter {

// For whoever has UTF-16 that cannot be made the UTF-8 that this engine takes.
inline constexpr std::string_view kNotEncodable = "Could not encode as UTF-8.";

// What one level of nesting is indented by.
class Indent {
public:
    Indent() = default; // two spaces
    [[nodiscard]] static constexpr Indent spaces(int count) { return Indent(count < 0 ? 0 : count); }
    [[nodiscard]] static constexpr Indent tabs() { return Indent(kTab); }

    [[nodiscard]] std::string unit() const;

    friend bool operator==(const Indent&, const Indent&) = default;

private:
    static constexpr int kTab = -1;

    explicit constexpr Indent(int count) : m_count(count) {}

    int m_count = 2;
};

enum class SortMode : std::uint8_t { none, ascending, descending };

struct Validation {
    bool isValid = false;
    std::optional<std::string> error;    // none for a blank text
    std::optional<TextRange> errorRange; // what the error is about, in UTF-16 units of the text
    std::optional<std::int64_t>
        topLevelKeyCount;               // members of a top-level object, elements of a top-level array
    std::int64_t byteSize = 0;          // of the whole text, also when it is blank or not valid
    std::int64_t droppedDuplicates = 0; // members whose key occurs again in their object

    friend bool operator==(const Validation&, const Validation&) = default;
};

struct Outputs {
    Validation validation;
    std::string formatted; // empty when the text is not valid, as is minified
    std::string minified;

    friend bool operator==(const Outputs&, const Outputs&) = default;
};

struct FormatError {
    std::string message;

    friend bool operator==(const FormatError&, const FormatError&) = default;
};

// Takes the output, piece by piece and in order.
using Sink = std::function<void(std::string_view)>;

[[nodiscard]] Validation validate(std::string_view text);

[[nodiscard]] std::expected<std::string, FormatError> format(std::string_view text, Indent indent,
                                                             SortMode sortMode);
[[nodiscard]] std::expected<std::string, FormatError> minify(std::string_view text, SortMode sortMode);

// The same without holding the output in memory. The sink gets nothing when the text is not valid.
[[nodiscard]] std::expected<void, FormatError> format(std::string_view text, Indent indent, SortMode sortMode,
                                                      const Sink& sink);
[[nodiscard]] std::expected<void, FormatError> minify(std::string_view text, SortMode sortMode,
                                                      const Sink& sink);

// The verdict and both outputs from one read.
[[nodiscard]] Outputs outputs(std::string_view text, Indent indent, SortMode sortMode);

} // namespace tarnquill::JSONFormatter

template <>
struct std::hash<tarnquill::JSONFormatter::Indent> {
    std::size_t operator()(const tarnquill::JSONFormatter::Indent& indent) const noexcept;
};

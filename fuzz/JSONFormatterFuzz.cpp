// A text is accepted exactly when Boost.JSON accepts it; its outputs say the same as it does, and formatting
// or minifying them again changes nothing.
#include "FuzzInput.h"
#include "common/JSONReader.h"
#include "common/TextDecoding.h"
#include "json/JSONFormatter.h"

#include <boost/json/parse.hpp>

namespace {

using namespace tarnquill;
using JSONFormatter::Indent;
using JSONFormatter::SortMode;

// What the text says, with numbers as doubles, or why it is not JSON.
boost::system::result<boost::json::value> meaningOf(std::string_view text) {
    boost::json::parse_options options;
    options.max_depth = JSONReader::kDeepestNesting;
    boost::system::error_code error;
    auto value = boost::json::parse(text, error, {}, options);
    if (error) {
        return error;
    }
    return value;
}

} // namespace

// The first byte chooses the options; the text follows.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    const auto sortMode = static_cast<SortMode>(data[0] % 3);
    const auto indent = data[0] / 3 % 2 == 0 ? Indent::spaces(data[0] / 6) : Indent::tabs();
    const std::string text(data + 1, data + size);

    const auto meaning = meaningOf(withoutByteOrderMark(text)); // which Boost.JSON does not know
    if (meaning.has_error() && meaning.error() == boost::json::error::exponent_overflow) {
        return 0; // a number that JSON allows and Boost.JSON does not
    }
    const auto outputs = JSONFormatter::outputs(text, indent, sortMode);
    if (outputs.validation.error.value_or("").ends_with("it is beyond the range of a double.")) {
        return 0; // which Boost.JSON takes for an infinity
    }
    if (!meaning && outputs.validation.isValid && text.contains('\0')) {
        return 0; // UTF-16 or UTF-32, which Boost.JSON does not know either
    }
    fuzz::require(outputs.validation.isValid == meaning.has_value());
    fuzz::require(JSONFormatter::validate(text) == outputs.validation);
    fuzz::require(outputs.validation.byteSize == static_cast<std::int64_t>(text.size()));
    if (!meaning) {
        fuzz::require(outputs.formatted.empty() && outputs.minified.empty());
        fuzz::require(!JSONFormatter::format(text, indent, sortMode));
        return 0;
    }
    fuzz::require(JSONFormatter::format(text, indent, sortMode) == outputs.formatted);
    fuzz::require(JSONFormatter::minify(text, sortMode) == outputs.minified);
    fuzz::require(meaningOf(outputs.formatted) == meaning);
    fuzz::require(meaningOf(outputs.minified) == meaning);

    const auto again = JSONFormatter::outputs(outputs.minified, indent, sortMode);
    fuzz::require(again.formatted == outputs.formatted && again.minified == outputs.minified);
    fuzz::require(JSONFormatter::format(outputs.formatted, indent, sortMode) == outputs.formatted);
    return 0;
}

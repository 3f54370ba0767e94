#include "common/JSONReader.h"

#include "common/JSONParser.h"
#include "common/JSONReaderError.h"
#include "common/TextDecoding.h"

namespace tarnquill::JSONReader {

namespace {

std::expected<JSONDocument, Error> parse(std::string_view source) {
    auto document = JSONParser(source).parse();
    if (document) {
        return std::move(*document);
    }
    const auto [kind, offset] = document.error();
    switch (kind) {
    case JSONParser::Fault::Kind::tooDeep:
        return std::unexpected(tooDeepError(source, offset));
    case JSONParser::Fault::Kind::overflow:
        return std::unexpected(overflowError(source, offset));
    case JSONParser::Fault::Kind::syntax:
        break;
    }
    return std::unexpected(syntaxError(source, offset));
}

} // namespace

std::expected<JSONDocument, Error> read(std::string_view source) {
    if (source.size() > JSONTape::kLargestSource) {
        return std::unexpected(Error{.message = "The text is too large to be read.", .range = {}});
    }
    const auto text = withoutByteOrderMark(source);
    auto document = parse(text);
    if (const auto mark = source.size() - text.size(); !document && mark > 0) {
        document.error().offset += mark;
        document.error().range.location += 1;
    }
    return document;
}

} // namespace tarnquill::JSONReader

// Writes a JSON value as text: in a layout with a member or an element a line, or with no white space at all.
#pragma once

#include "common/JSONValue.h"
#include "json/JSONFormatter.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarnquill {

class JSONWriter {
public:
    // Without an indentation the text has no white space. Call write() once.
    JSONWriter(std::optional<JSONFormatter::Indent> indent, JSONFormatter::SortMode sortMode,
               const JSONFormatter::Sink& sink);

    void write(JSONValue root);

private:
    void writeValue(JSONValue value, std::size_t depth);
    void writeArray(JSONValue array, std::size_t depth);
    void writeObject(JSONValue object, std::size_t depth);
    void writeMember(const JSONMember& member, std::size_t depth);
    void writeText(std::string_view text, bool mayNeedEscapes);
    void writeEscaped(std::string_view text);
    // The line feed and the indentation of a depth.
    void writeLineStart(std::size_t depth);

    void put(std::string_view text);
    void put(char character);
    void flush();

    std::string m_indentUnit;
    std::string_view m_keySeparator;
    bool m_hasLines;
    JSONFormatter::SortMode m_sortMode;
    const JSONFormatter::Sink& m_sink;
    std::string m_lineStart = "\n";   // a line feed and the deepest indentation so far
    std::vector<JSONMember> m_sorted; // the members of every object that is being written, the innermost last
    std::unique_ptr<char[]> m_block;
    std::size_t m_used = 0;
};

} // namespace tarnquill

// Writes a JSON value as text: in a layout with a member or an element a line, or with no white space at all.
#pragma once

#include "common/JSONReader.h"
#include "json/ElementBatches.h"
#include "json/JSONFormatter.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarnquill {

class JSONWriter {
public:
    // Without an indentation the text has no white space.
    JSONWriter(const JSONDocument& document, std::optional<JSONFormatter::Indent> indent,
               JSONFormatter::SortMode sortMode, const JSONFormatter::Sink& sink);

    void write();

    // The same by two threads when there is a large array, whose elements they share. The sink is called by
    // both, never at the same time.
    void writeByTwo();

private:
    struct SortedMember {
        std::string_view key;
        JSONMember member;
    };

    // Each of these writes at `next`, in the block, and returns where to write on. It stays out of the
    // members because every character that is written would make the compiler read them again.
    //
    // There always is kSlack of room, as what is long makes its own room and every line start renews it.
    char* writeValue(char* next, JSONValue value, std::size_t lineStart);
    char* writeArray(char* next, JSONValue array, std::size_t lineStart);
    char* writeArrayByTwo(char* next, JSONValue array, std::size_t lineStart);
    void writeBatches(ElementBatches& batches, std::size_t lineStart) const;
    template <typename Elements>
    char* writeElements(char* next, const Elements& elements, char separator, std::size_t lineStart);
    char* writeObject(char* next, JSONValue object, std::size_t lineStart);
    char* writeSortedMembers(char* next, JSONValue object, std::size_t lineStart);
    char* writeMember(char* next, const JSONMember& member, std::size_t lineStart);
    char* writeNumber(char* next, std::string_view literal);
    char* writeEscaped(char* next, std::string_view text);
    char* startLine(char* next, std::size_t lineStart);
    char* put(char* next, std::string_view text);
    char* putLiteral(char* next, std::string_view literal);
    char* flush(const char* next);

    const JSONDocument& m_document;
    std::optional<JSONFormatter::Indent> m_indent;
    std::string m_indentUnit;
    bool m_byTwo = false;
    std::string_view m_keySeparator;
    JSONFormatter::SortMode m_sortMode;
    const JSONFormatter::Sink& m_sink;
    std::string m_lineStarts; // a line feed and the deepest indentation so far, at least a chunk
    std::vector<SortedMember>
        m_sorted; // the members of every object that is being written, the innermost last
    const char* m_sourceEnd;
    std::unique_ptr<char[]> m_block;
    const char* m_full; // from here on the block is to be flushed
};

} // namespace tarnquill

// Reads single units of a text buffer; neighbours of the last one read cost next to nothing.
#pragma once

#include "common/TextBuffer.h"

namespace tarnquill {

class TextReader {
public:
    // The buffer has to outlive the reader.
    explicit TextReader(const TextBuffer& buffer) : m_buffer(buffer), m_piece(&buffer.pieces().front()) {}

    [[nodiscard]] char16_t operator[](std::size_t position) {
        if (position < m_piece->start || position >= m_piece->end()) {
            m_piece = &m_buffer.pieces()[m_buffer.pieceAt(position)];
        }
        return m_piece->chunk->text[position - m_piece->start];
    }

    [[nodiscard]] std::size_t length() const { return m_buffer.length(); }

private:
    const TextBuffer& m_buffer;
    const TextBuffer::Piece* m_piece;
};

} // namespace tarnquill

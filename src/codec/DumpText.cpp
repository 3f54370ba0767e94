#include "codec/DumpText.h"

#include "common/UnicodeText.h"

#include <chrono>

namespace tarnquill {

using namespace std::chrono_literals;

DumpText::DumpText(QObject* parent) : QObject(parent) {}

TextBuffer DumpText::textOf(const Codec::HexDump& dump, std::size_t bytesPerRow) {
    const auto text = Codec::hexDump(dump.bytes, bytesPerRow, dump.count);
    return TextBuffer(utf16FromUTF8(text).value_or(std::u16string()));
}

void DumpText::show(Dump dump, TextBuffer text, std::size_t bytesPerRow) {
    m_dump = std::move(dump);
    m_text = std::move(text);
    m_shownBytesPerRow = bytesPerRow;
    Q_EMIT textChanged();
    refresh();
}

void DumpText::clear() {
    m_task.cancel();
    m_dump = nullptr;
    m_text = TextBuffer();
}

void DumpText::setBytesPerRow(std::size_t bytesPerRow) {
    m_bytesPerRow = bytesPerRow;
    refresh();
}

void DumpText::refresh() {
    m_task.cancel();
    if (m_dump == nullptr || m_shownBytesPerRow == m_bytesPerRow) {
        return;
    }
    m_task.start(
        0ms,
        [dump = m_dump, bytesPerRow = m_bytesPerRow](const std::stop_token&) {
            return textOf(*dump, bytesPerRow);
        },
        [this, bytesPerRow = m_bytesPerRow](TextBuffer&& text) {
            m_text = std::move(text);
            m_shownBytesPerRow = bytesPerRow;
            Q_EMIT textChanged();
        });
}

} // namespace tarnquill

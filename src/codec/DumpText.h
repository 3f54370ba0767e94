// The text of a hex dump whose rows follow the width of the pane that shows it.
#pragma once

#include "codec/HexDump.h"
#include "common/LatestTask.h"
#include "common/TextBuffer.h"

#include <QObject>

#include <memory>

namespace tarnquill {

class DumpText : public QObject {
    Q_OBJECT

public:
    using Dump = std::shared_ptr<const Codec::HexDump>;

    explicit DumpText(QObject* parent = nullptr);

    // Shows another dump, whose text with so many bytes a row is there already. No dump has an empty text.
    void show(Dump dump, TextBuffer text, std::size_t bytesPerRow);
    void clear();

    // How many bytes fit the pane. The text of the dump that is shown follows in the background.
    void setBytesPerRow(std::size_t bytesPerRow);
    [[nodiscard]] std::size_t bytesPerRow() const { return m_bytesPerRow; }

    [[nodiscard]] const TextBuffer& text() const { return m_text; }
    [[nodiscard]] LatestTask& task() { return m_task; }

    [[nodiscard]] static TextBuffer textOf(const Codec::HexDump& dump, std::size_t bytesPerRow);

Q_SIGNALS:
    void textChanged();

private:
    void refresh();

    Dump m_dump;
    TextBuffer m_text;
    std::size_t m_bytesPerRow = Codec::HexDump::kBytesPerRow;
    std::size_t m_shownBytesPerRow = 0; // that m_text was built with
    LatestTask m_task;
};

} // namespace tarnquill

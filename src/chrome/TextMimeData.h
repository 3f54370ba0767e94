// Selected text on its way to the clipboard or to a drop: text of any size is handed over at once and
// converted only when someone asks for it.
#pragma once

#include "common/TextBuffer.h"

#include <QMimeData>

namespace tarnquill {

class TextMimeData : public QMimeData {
    Q_OBJECT

public:
    TextMimeData(const TextBuffer& text, TextRange range);

    [[nodiscard]] bool hasFormat(const QString& mimeType) const override;
    [[nodiscard]] QStringList formats() const override;

protected:
    [[nodiscard]] QVariant retrieveData(const QString& mimeType, QMetaType type) const override;

private:
    TextBuffer m_text;
    TextRange m_range;
};

} // namespace tarnquill

#include "chrome/TextMimeData.h"

#include <QStringList>

namespace tarnquill {

using namespace Qt::StringLiterals;

TextMimeData::TextMimeData(const TextBuffer& text, TextRange range) : m_text(text), m_range(range) {}

QStringList TextMimeData::formats() const {
    return {u"text/plain"_s};
}

bool TextMimeData::hasFormat(const QString& mimeType) const {
    return formats().contains(mimeType);
}

QVariant TextMimeData::retrieveData(const QString& mimeType, QMetaType type) const {
    if (!hasFormat(mimeType)) {
        return {};
    }
    const auto text = QString::fromStdU16String(m_text.text(m_range));
    return type.id() == QMetaType::QByteArray ? QVariant(text.toUtf8()) : QVariant(text);
}

} // namespace tarnquill

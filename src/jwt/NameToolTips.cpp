#include "jwt/NameToolTips.h"

#include "chrome/CodeEditor.h"
#include "common/UnicodeText.h"

#include <QHelpEvent>
#include <QToolTip>

namespace tarnquill {

namespace {

// The name at the start of a line that holds a member of the outermost object; empty on other lines.
std::u16string_view nameIn(std::u16string_view line) {
    constexpr std::u16string_view kBefore = u"  \"";
    if (!line.starts_with(kBefore)) {
        return {};
    }
    const auto name = line.substr(kBefore.size());
    const auto end = name.find(u"\" : ");
    return end == std::u16string_view::npos ? std::u16string_view() : name.substr(0, end);
}

} // namespace

NameToolTips::NameToolTips(CodeEditor& editor, MeaningOf meaningOf)
    : QObject(&editor), m_editor(editor), m_meaningOf(meaningOf) {
    editor.viewport()->installEventFilter(this);
}

bool NameToolTips::eventFilter(QObject* object, QEvent* event) {
    if (event->type() != QEvent::ToolTip) {
        return QObject::eventFilter(object, event);
    }
    const auto& help = static_cast<const QHelpEvent&>(*event);
    const auto& text = m_editor.buffer();
    // Members of a header or of claims have short names, so the start of a long line is enough.
    constexpr std::size_t kLongest = 200;
    auto line = text.lineRange(text.lineAt(m_editor.positionAt(help.pos())));
    line.length = std::min(line.length, kLongest);
    std::u16string scratch;
    const auto meaning = m_meaningOf(lossyUTF8FromUTF16(nameIn(text.view(line, scratch))));
    QToolTip::showText(help.globalPos(),
                       QString::fromUtf8(meaning.data(), static_cast<qsizetype>(meaning.size())),
                       m_editor.viewport());
    return true;
}

} // namespace tarnquill

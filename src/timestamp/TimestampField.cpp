#include "timestamp/TimestampField.h"

#include "chrome/Theme.h"
#include "timestamp/TimestampToolViewModel.h"

#include <QKeyEvent>
#include <QMimeData>

namespace tarnquill {

namespace {

constexpr int kHeight = 32;
constexpr int kNarrowest = 120;

} // namespace

TimestampField::TimestampField(QWidget* parent) : QPlainTextEdit(parent) {
    setFrameShape(QFrame::NoFrame);
    setLineWrapMode(NoWrap);
    setTabChangesFocus(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFont(Theme::instance().font(FontRole::timestampInput));
    document()->setDocumentMargin(0);
    setViewportMargins(0, 1, 0, 0);
    setCursorWidth(1);
    setPlaceholderText(tr("Unix time or a date"));
    setAccessibleName(tr("Unix time or a date"));
    setToolTip(tr("Type or paste a Unix time or a date, or paste a list of them"));
    applyTheme();
}

void TimestampField::setText(const QString& newText) {
    if (newText == text()) {
        return;
    }
    QTextCursor cursor(document());
    cursor.select(QTextCursor::Document);
    cursor.insertText(newText);
    moveCursor(QTextCursor::End);
}

QSize TimestampField::sizeHint() const {
    return {kNarrowest, kHeight};
}

QSize TimestampField::minimumSizeHint() const {
    return sizeHint();
}

bool TimestampField::canInsertFromMimeData(const QMimeData* source) const {
    return source->hasText() && !source->hasUrls();
}

void TimestampField::insertFromMimeData(const QMimeData* source) {
    const auto pasted = source->text();
    if (TimestampToolViewModel::isList(pasted)) {
        Q_EMIT listPasted(pasted);
    } else {
        textCursor().insertText(pasted.trimmed());
        ensureCursorVisible();
    }
}

void TimestampField::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QPlainTextEdit::keyPressEvent(event);
    }
}

void TimestampField::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ApplicationPaletteChange) {
        applyTheme();
    }
    QPlainTextEdit::changeEvent(event);
}

// One line has nowhere to scroll to.
void TimestampField::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

void TimestampField::applyTheme() {
    auto colors = Theme::instance().palette();
    colors.setColor(QPalette::Base, themeColor(ColorRole::background));
    colors.setColor(QPalette::PlaceholderText, themeColor(ColorRole::faint));
    if (colors != palette()) {
        setPalette(colors);
    }
}

} // namespace tarnquill

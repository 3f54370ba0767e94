#include "jwt/KeyField.h"

#include "chrome/CodeEditor.h"
#include "chrome/Painting.h"

#include <QStackedWidget>
#include <QVBoxLayout>

namespace tarnquill {

namespace {

constexpr int kFrame = 3; // the border, and what the focus adds around it
constexpr int kRadius = 6;
constexpr int kLowest = 48;

} // namespace

KeyField::KeyField(QWidget* parent)
    : QWidget(parent), m_editor(new CodeEditor), m_dots(new CodeEditor), m_pages(new QStackedWidget) {
    m_editor->setAccessibleName(tr("Key"));
    m_editor->setPlaceholderText(tr("Secret, PEM, certificate, JWK or JWK set"));
    m_dots->setAccessibleName(tr("Hidden key"));
    m_dots->setReadOnly(true);
    for (auto* const page : {m_editor, m_dots}) {
        page->setLineNumbersVisible(false);
        m_pages->addWidget(page);
        connect(page, &CodeEditor::focusChanged, this, qOverload<>(&QWidget::update));
    }
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kFrame, kFrame, kFrame, kFrame);
    layout->addWidget(m_pages);
    setFocusProxy(m_editor);
    connect(m_editor, &CodeEditor::textEdited, this, &KeyField::keyEdited);
}

void KeyField::replaceKey(const TextBuffer& key) {
    m_editor->replaceAll(key);
    if (m_pages->currentWidget() == m_dots) {
        showDots();
    }
}

void KeyField::setHidden(bool isHidden) {
    if (isHidden) {
        showDots();
    } else {
        m_dots->setBuffer({});
    }
    m_pages->setCurrentWidget(isHidden ? m_dots : m_editor);
    setFocusProxy(m_pages->currentWidget());
}

void KeyField::showDots() {
    m_dots->setBuffer(TextBuffer(std::u16string(m_editor->buffer().length(), u'•')));
}

QSize KeyField::minimumSizeHint() const {
    return {0, kLowest};
}

void KeyField::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const auto isFocused = m_pages->currentWidget()->hasFocus();
    if (isFocused) {
        constexpr double kHalo = 0.35;
        Painting::box(painter, rect(), kRadius + 2, Painting::faded(themeColor(ColorRole::accent), kHalo));
    }
    Painting::box(painter, rect().adjusted(2, 2, -2, -2), kRadius, themeColor(ColorRole::background),
                  themeColor(isFocused ? ColorRole::accent : ColorRole::field));
}

} // namespace tarnquill

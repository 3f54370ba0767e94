#include "jwt/KeyField.h"

#include "chrome/CodeEditor.h"
#include "chrome/Overlay.h"
#include "chrome/Painting.h"

#include <QStackedWidget>
#include <QVBoxLayout>

namespace tarnquill {

namespace {

constexpr int kRadius = 6;
constexpr int kLowest = 48;

} // namespace

// Above the editor, whose corners it rounds off.
class KeyField::Frame : public Overlay {
public:
    explicit Frame(QWidget* area) : Overlay(area, 0) { setShown(true); }

    void setFocused(bool isFocused) {
        m_isFocused = isFocused;
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        constexpr double kHaloOpacity = 0.35;
        QPainter painter(this);
        const auto color = themeColor(m_isFocused ? ColorRole::accent : ColorRole::field);
        if (m_isFocused) {
            Painting::box(painter, rect(), kRadius + kHalo, Qt::transparent,
                          Painting::faded(color, kHaloOpacity), kHalo);
        }
        Painting::box(painter, rect().adjusted(kHalo, kHalo, -kHalo, -kHalo), kRadius, Qt::transparent,
                      color);
    }

private:
    bool m_isFocused = false;
};

KeyField::KeyField(QWidget* parent)
    : QWidget(parent),
      m_editor(new CodeEditor),
      m_dots(new CodeEditor),
      m_pages(new QStackedWidget),
      m_frame(new Frame(this)) {
    m_editor->setAccessibleName(tr("Key"));
    m_editor->setPlaceholderText(tr("Secret, PEM, certificate, JWK or JWK set"));
    m_dots->setAccessibleName(tr("Hidden key"));
    m_dots->setReadOnly(true);
    for (auto* const page : {m_editor, m_dots}) {
        page->setLineNumbersVisible(false);
        m_pages->addWidget(page);
        connect(page, &CodeEditor::focusChanged, this,
                [this](bool hasFocus) { m_frame->setFocused(hasFocus); });
    }
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kHalo, kHalo, kHalo, kHalo);
    layout->addWidget(m_pages);
    m_frame->raise();
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

} // namespace tarnquill

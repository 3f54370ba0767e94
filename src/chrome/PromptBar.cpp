#include "chrome/PromptBar.h"

#include "chrome/PaneButton.h"
#include "chrome/Theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>

namespace tarnquill {

PromptBar::PromptBar(const QString& acceptTitle, const QString& declineTitle, QWidget* parent)
    : QWidget(parent), m_question(new QLabel) {
    m_question->setWordWrap(true);
    m_question->setTextFormat(Qt::PlainText);
    m_question->setFont(Theme::instance().font(FontRole::body));
    auto* const accept = new PaneButton(acceptTitle, {}, PaneButton::Look::outlined);
    auto* const decline = new PaneButton(declineTitle, {});
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(12, 8, 10, 8);
    row->setSpacing(8);
    row->addWidget(m_question, 1);
    row->addWidget(accept);
    row->addWidget(decline);
    hide();

    connect(accept, &PaneButton::clicked, this, [this] {
        hide();
        Q_EMIT accepted();
    });
    connect(decline, &PaneButton::clicked, this, [this] {
        hide();
        Q_EMIT declined();
    });
}

void PromptBar::ask(const QString& question) {
    m_question->setText(question);
    setAccessibleName(question);
    show();
}

void PromptBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), themeColor(ColorRole::raised));
    painter.fillRect(0, height() - 1, width(), 1, themeColor(ColorRole::hairline));
}

} // namespace tarnquill

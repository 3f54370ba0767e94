#include "chrome/ToolPane.h"

#include "chrome/BusyOverlay.h"
#include "chrome/DropOverlay.h"
#include "chrome/MessageView.h"
#include "chrome/PaneFooter.h"
#include "chrome/PaneHeader.h"
#include "common/LatestTask.h"

#include <QKeyEvent>
#include <QStackedLayout>
#include <QVBoxLayout>

namespace tarnquill {

ToolPane::ToolPane(const QString& role, QWidget* content, QWidget* parent)
    : QWidget(parent),
      m_header(new PaneHeader(role)),
      m_footer(new PaneFooter),
      m_body(new QWidget),
      m_content(content),
      m_error(new MessageView(MessageView::Kind::error)),
      m_busy(new BusyOverlay(m_body)),
      m_drop(new DropOverlay(m_body)) {
    setAccessibleName(role);
    auto* stack = new QStackedLayout(m_body);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->addWidget(content);
    stack->addWidget(m_error);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_header);
    layout->addWidget(m_body, 1);
    layout->addWidget(m_footer);

    connect(m_error, &MessageView::activated, this, &ToolPane::errorActivated);
}

void ToolPane::addBar(QWidget* bar) {
    auto* column = static_cast<QVBoxLayout*>(layout());
    column->insertWidget(column->indexOf(m_body), bar);
}

void ToolPane::showError(const QString& title, const QString& text, const QString& linkHelp) {
    m_error->setMessage(title, text);
    m_error->setLink(!linkHelp.isEmpty(), linkHelp);
    static_cast<QStackedLayout*>(m_body->layout())->setCurrentWidget(m_error);
}

void ToolPane::showContent() {
    static_cast<QStackedLayout*>(m_body->layout())->setCurrentWidget(m_content);
}

bool ToolPane::showsError() const {
    return static_cast<QStackedLayout*>(m_body->layout())->currentWidget() == m_error;
}

void ToolPane::setBusy(const QString& verb) {
    m_busy->setBusy(!verb.isEmpty());
    m_footer->setBusy(verb);
}

void ToolPane::follow(LatestTask& task, const QString& verb, Escape escape) {
    connect(&task, &LatestTask::longChanged, this,
            [this, verb](bool isLong) { setBusy(isLong ? verb : QString()); });
    if (escape == Escape::cancels) {
        m_cancellable = &task;
    }
}

void ToolPane::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && m_cancellable != nullptr && m_cancellable->isLong()) {
        m_cancellable->cancel();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void ToolPane::setDropTarget(bool isTarget) {
    m_drop->setShown(isTarget);
}

QSize ToolPane::minimumSizeHint() const {
    // The tool decides how narrow its panes may become; the content scrolls.
    return {0, m_header->minimumSizeHint().height() + m_footer->minimumSizeHint().height()};
}

} // namespace tarnquill

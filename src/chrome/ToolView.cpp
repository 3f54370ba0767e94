#include "chrome/ToolView.h"

#include "chrome/ActivePaneLine.h"
#include "chrome/DropOverlay.h"
#include "chrome/PaneHeader.h"
#include "chrome/Splitter.h"
#include "chrome/ToolPane.h"
#include "chrome/Toolbar.h"

#include <QFocusEvent>
#include <QVBoxLayout>

namespace tarnquill {

ToolView::ToolView(const QString& title, QWidget* parent)
    : QWidget(parent), m_toolbar(new Toolbar(title)), m_body(new QWidget), m_drop(new DropOverlay(m_body)) {
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_toolbar);
    column->addWidget(m_body, 1);
    connect(m_toolbar, &Toolbar::sidebarToggleRequested, this, &ToolView::sidebarToggleRequested);
}

void ToolView::setContent(QWidget* content) {
    auto* const layout = new QVBoxLayout(m_body);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(content);
}

ActivePaneLine* ToolView::setPanes(ToolPane* left, ToolPane* right) {
    constexpr int kMinimum = 320;
    auto* const splitter = new Splitter(Qt::Horizontal);
    splitter->addPane(left, 1, kMinimum);
    splitter->addPane(right, 1, kMinimum);
    constexpr int kShare = 10'000;
    splitter->setSizes({kShare, kShare + 1}); // of an odd width, the right one has the pixel more
    PaneHeader::alignHeights({&left->header(), &right->header()});
    setContent(splitter);
    setFirstFocus(left->content());
    auto* const activeLine = new ActivePaneLine(this);
    activeLine->addPane(left);
    activeLine->addPane(right);
    return activeLine;
}

void ToolView::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    if (m_firstFocus != nullptr) {
        m_firstFocus->setFocus(event->reason());
    }
}

bool ToolView::canPerform(ToolCommand /*command*/) const {
    return false;
}

void ToolView::perform(ToolCommand /*command*/) {}

bool ToolView::isWorking() const {
    return false;
}

void ToolView::setDropTarget(bool isTarget) {
    m_drop->setShown(isTarget);
}

} // namespace tarnquill

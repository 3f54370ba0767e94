#include "chrome/CopyRow.h"

#include "chrome/Painting.h"
#include "chrome/PaneButton.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

constexpr int kSide = 12;
constexpr int kGap = 12;

} // namespace

CopyRow::CopyRow(int height, Edge edge, QWidget* parent)
    : QWidget(parent), m_height(height), m_edge(edge), m_copy(new PaneButton(tr("Copy"), u"doc.on.doc"_s)) {
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
    m_copy->setIconOnly(true);
    connect(m_copy, &PaneButton::clicked, this, &CopyRow::copy);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(kSide, 0, kSide, 0);
    layout->setSpacing(0);
    layout->addStretch();
    layout->addWidget(m_copy);
}

void CopyRow::setContent(const QString& name, const QString& copied) {
    m_copied = copied;
    setAccessibleName(copied.isEmpty() ? name : name + u": "_s + copied);
    m_copy->setAccessibleName(tr("Copy %1").arg(name));
    m_copy->setToolTip(m_copy->accessibleName());
    m_copy->setEnabled(!copied.isEmpty());
    update();
}

void CopyRow::copy() {
    QGuiApplication::clipboard()->setText(m_copied);
    m_copy->flashCopied(PaneButton::Flash::widens);
}

QSize CopyRow::minimumSizeHint() const {
    return {0, m_height};
}

void CopyRow::addButton(PaneButton* button) {
    static_cast<QHBoxLayout*>(layout())->insertWidget(1, button);
}

QRect CopyRow::textArea() const {
    int end = width() - kSide;
    for (int index = 0; index < layout()->count(); ++index) {
        if (const auto* button = layout()->itemAt(index)->widget();
            button != nullptr && !button->isHidden()) {
            end -= button->sizeHint().width();
        }
    }
    return {kSide, 0, end - kGap - kSide, height()};
}

void CopyRow::setLit(bool isLit) {
    m_lit = isLit;
    updateLight();
}

void CopyRow::updateLight() {
    m_copy->setTint(m_lit || underMouse() ? std::optional(ColorRole::text) : std::nullopt);
    update();
}

bool CopyRow::event(QEvent* event) {
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverLeave) {
        updateLight();
    }
    return QWidget::event(event);
}

void CopyRow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const auto isLit = m_lit || underMouse();
    painter.fillRect(rect(), themeColor(isLit ? ColorRole::raised : ColorRole::background));
    if (m_edge == Edge::hairline) {
        painter.fillRect(0, height() - 1, width(), 1, themeColor(ColorRole::hairline));
    }
    paintText(painter, textArea());
}

} // namespace tarnquill

#include "chrome/LabelledControl.h"

#include "chrome/TextLabel.h"

#include <QHBoxLayout>

namespace tarnquill {

LabelledControl::LabelledControl(const QString& name, QWidget* control, QWidget* parent)
    : QWidget(parent), m_name(new TextLabel(name, FontRole::control, ColorRole::muted)) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    control->setAccessibleName(name);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(7);
    layout->addWidget(m_name);
    layout->addWidget(control);
}

void LabelledControl::setNameVisible(bool visible) {
    m_name->setVisible(visible);
}

} // namespace tarnquill

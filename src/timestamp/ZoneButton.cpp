#include "timestamp/ZoneButton.h"

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidth = 196;

} // namespace

ZoneButton::ZoneButton(QWidget* parent) : ComboBox(parent) {
    setSymbol(u"globe"_s);
    addItem({});
}

void ZoneButton::setZone(const QString& name, const QString& offset) {
    setItemText(0, name);
    setItemData(0, offset, kDetailRole);
    setToolTip(tr("The zone of local times: %1, %2").arg(name, offset));
}

QSize ZoneButton::sizeHint() const {
    return {kWidth, ComboBox::sizeHint().height()};
}

} // namespace tarnquill

#include "timestamp/ZoneSettings.h"

#include "chrome/PaneButton.h"
#include "timestamp/TimestampToolViewModel.h"
#include "timestamp/ZonePicker.h"

#include <QListWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace tarnquill {

ZoneSettings::ZoneSettings(TimestampToolViewModel& model, QWidget* parent)
    : QWidget(parent),
      m_model(model),
      m_list(new QListWidget),
      m_picker(new ZonePicker(tr("Add Zone"), m_zones, this)),
      m_add(new PaneButton(tr("Add…"), {}, PaneButton::Look::outlined)),
      m_remove(new PaneButton(tr("Remove"), {}, PaneButton::Look::outlined)),
      m_up(new PaneButton(tr("Move Up"), {}, PaneButton::Look::outlined)),
      m_down(new PaneButton(tr("Move Down"), {}, PaneButton::Look::outlined)) {
    m_list->setAccessibleName(tr("Time zones"));
    auto* const buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    for (auto* const button : {m_add, m_remove, m_up, m_down}) {
        buttons->addWidget(button);
    }
    buttons->addStretch();
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addWidget(m_list);
    layout->addLayout(buttons);

    connect(m_add, &PaneButton::clicked, this,
            [this] { m_picker->openBelow(m_add, m_model.instantOrNow().seconds, m_model.otherZoneNames()); });
    connect(m_picker, &ZonePicker::zonePicked, this, [this](const QString& name) {
        m_model.addZone(name);
        m_list->setCurrentRow(m_list->count() - 1);
    });
    connect(m_remove, &PaneButton::clicked, this, [this] { m_model.removeZone(m_list->currentRow()); });
    connect(m_up, &PaneButton::clicked, this, [this] { move(-1); });
    connect(m_down, &PaneButton::clicked, this, [this] { move(1); });
    connect(m_list, &QListWidget::currentRowChanged, this, &ZoneSettings::updateButtons);
    connect(&m_model, &TimestampToolViewModel::zonesChanged, this, &ZoneSettings::showZones);
    showZones();
}

void ZoneSettings::showZones() {
    const auto row = std::max(m_list->currentRow(), 0);
    m_list->clear();
    m_list->addItems(m_model.otherZoneNames());
    m_list->setCurrentRow(std::min(row, m_list->count() - 1));
    updateButtons();
}

void ZoneSettings::updateButtons() {
    const auto row = m_list->currentRow();
    m_remove->setEnabled(row >= 0);
    m_up->setEnabled(row > 0);
    m_down->setEnabled(row >= 0 && row < m_list->count() - 1);
}

void ZoneSettings::move(int steps) {
    const auto row = m_list->currentRow();
    m_model.moveZone(row, row + steps);
    m_list->setCurrentRow(row + steps);
}

} // namespace tarnquill

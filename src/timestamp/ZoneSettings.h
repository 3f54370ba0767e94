// The zones that the Timestamp tool remembers, to be put in order, removed and added outside of the tool.
#pragma once

#include "timestamp/ZoneSearchModel.h"

#include <QWidget>

class QListWidget;

namespace tarnquill {

class PaneButton;
class TimestampToolViewModel;
class ZonePicker;

class ZoneSettings : public QWidget {
    Q_OBJECT

public:
    // The model outlives the widget.
    explicit ZoneSettings(TimestampToolViewModel& model, QWidget* parent = nullptr);

private:
    void showZones();
    void updateButtons();
    void move(int steps);

    TimestampToolViewModel& m_model;
    ZoneSearchModel m_zones;
    QListWidget* m_list;
    ZonePicker* m_picker;
    PaneButton* m_add;
    PaneButton* m_remove;
    PaneButton* m_up;
    PaneButton* m_down;
};

} // namespace tarnquill

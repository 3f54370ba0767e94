// The Timestamp tool on screen: the input across the top, its instant in every form below, and the other
// zones beside that.
#pragma once

#include "chrome/ToolView.h"
#include "timestamp/TimestampToolViewModel.h"
#include "timestamp/ZoneSearchModel.h"

#include <QTimer>

class QStackedWidget;

namespace tarnquill {

class LineTable;
class MessageView;
class OutputRows;
class PaneButton;
class ToolPane;
class ZoneButton;
class ZonePicker;

class TimestampToolView : public ToolView {
    Q_OBJECT

public:
    // The model outlives the view.
    explicit TimestampToolView(TimestampToolViewModel& model, QWidget* parent = nullptr);

    [[nodiscard]] bool isWorking() const override;

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void makeToolbar();
    void makeOutputPane();
    void makeZonesPane();
    void showResult();
    void showPage(QWidget* page);
    void showLocalZone();
    void showZoneCount();
    void copyAll();
    void pickLocalZone();
    void pickOtherZone();

    TimestampToolViewModel& m_model;
    ZoneSearchModel m_zones;
    QTimer m_clock; // while shown
    ZoneButton* m_localZone;
    ZonePicker* m_localZonePicker;
    ZonePicker* m_otherZonePicker;
    PaneButton* m_useSystemZone;
    QStackedWidget* m_output;
    OutputRows* m_rows;
    LineTable* m_table;
    MessageView* m_prompt;
    PaneButton* m_copyAll;
    PaneButton* m_addZone;
    ToolPane* m_outputPane;
    ToolPane* m_zonesPane;
};

} // namespace tarnquill

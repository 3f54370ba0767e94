// The instant in one of the zones that the user has chosen. The row can be dragged, moved and removed.
#pragma once

#include "chrome/DetailRow.h"
#include "timestamp/TimestampToolViewModel.h"

namespace tarnquill {

class ZoneRow : public DetailRow {
    Q_OBJECT

public:
    explicit ZoneRow(QWidget* parent = nullptr);

    void setZone(const TimestampToolViewModel::OtherZone& zone);
    // While it is dragged.
    void setHeld(bool isHeld) { setLit(isHeld); }

    // Gives the keyboard to the row's first button.
    void takeFocus();

Q_SIGNALS:
    void moveRequested(int steps); // up when negative
    void removeRequested();
    void dragged(const QPoint& globalPosition);
    void dropped();

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void updateRemoveButton();
    [[nodiscard]] bool handleKey(const QKeyEvent& event);

    PaneButton* m_remove;
    QPoint m_pressed;
    bool m_dragging = false;
};

} // namespace tarnquill

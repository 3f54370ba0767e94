// Covers an old result while the next one is worked on: a veil, and a bar that moves along the top.
#pragma once

#include "chrome/Overlay.h"

#include <QVariantAnimation>

namespace tarnquill {

class BusyOverlay : public Overlay {
    Q_OBJECT

public:
    explicit BusyOverlay(QWidget* area);

    void setBusy(bool busy);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QVariantAnimation m_pass;
};

} // namespace tarnquill

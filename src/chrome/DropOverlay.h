// Covers an area while a file is dragged over it: what is below fades, and a chip says "Drop to open".
#pragma once

#include "chrome/Overlay.h"

namespace tarnquill {

class DropOverlay : public Overlay {
    Q_OBJECT

public:
    explicit DropOverlay(QWidget* area);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace tarnquill

// Shows a zone with its offset, and asks for another one.
#pragma once

#include "chrome/ComboBox.h"

namespace tarnquill {

class ZoneButton : public ComboBox {
    Q_OBJECT

public:
    explicit ZoneButton(QWidget* parent = nullptr);

    void setZone(const QString& name, const QString& offset);

    void showPopup() override { Q_EMIT pickRequested(); }
    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    void pickRequested();
};

} // namespace tarnquill

// A widget that always covers another one, lets the mouse through, and fades in and out.
#pragma once

#include <QWidget>

namespace tarnquill {

class Fade;

class Overlay : public QWidget {
    Q_OBJECT

public:
    // `fade` is in milliseconds.
    Overlay(QWidget* area, int fade);

    void setShown(bool shown);
    // How far the overlay has faded in, from 0 to 1.
    [[nodiscard]] double presence() const;

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    Fade* m_fade;
    bool m_shown = false;
};

} // namespace tarnquill

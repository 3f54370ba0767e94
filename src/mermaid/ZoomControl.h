// Zooms out and in by steps, and says how large things are shown.
#pragma once

#include <QWidget>

namespace tarnquill {

class PaneButton;

class ZoomControl : public QWidget {
    Q_OBJECT

public:
    explicit ZoomControl(QWidget* parent = nullptr);

    // 1 is 100 %.
    void setScale(double scale);

Q_SIGNALS:
    void zoomOutRequested();
    void zoomInRequested();
    void actualSizeRequested();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    PaneButton* m_out;
    PaneButton* m_percent;
    PaneButton* m_in;
};

} // namespace tarnquill

// The bottom of a pane: small metrics with dividers between them, or what the pane is busy with.
#pragma once

#include "chrome/Theme.h"

#include <QList>
#include <QTimer>
#include <QWidget>

namespace tarnquill {

struct Metric {
    QString text;
    // The initializer lets it be left out without a warning.
    // NOLINTNEXTLINE(readability-redundant-member-init)
    QString symbol = {};
    ColorRole color = ColorRole::muted;

    bool operator==(const Metric&) const = default;
};

class PaneFooter : public QWidget {
    Q_OBJECT

public:
    explicit PaneFooter(QWidget* parent = nullptr);

    void setMetrics(const QList<Metric>& metrics);
    [[nodiscard]] const QList<Metric>& metrics() const { return m_metrics; }

    // A turning spinner and "Formatting…" in place of the metrics; an empty text brings them back.
    void setBusy(const QString& verb);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void updateAccessibleName();
    void paintMetrics(QPainter& painter) const;
    void paintBusy(QPainter& painter) const;

    QList<Metric> m_metrics;
    QString m_busy;
    QTimer m_spin;
    int m_angle = 0;
};

} // namespace tarnquill

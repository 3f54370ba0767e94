// A label and the value behind it, in the columns of the output.
#pragma once

#include "chrome/CopyRow.h"

namespace tarnquill {

class ValueRow : public CopyRow {
    Q_OBJECT

public:
    explicit ValueRow(const QString& label, QWidget* parent = nullptr);

    void setValue(const QString& value);

protected:
    void paintText(QPainter& painter, const QRect& area) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] static QRect valueArea(const QRect& area);
    void updateToolTip();

    QString m_label;
};

} // namespace tarnquill

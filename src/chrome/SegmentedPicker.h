// One choice out of a few, all of them in view.
#pragma once

#include <QStringList>
#include <QWidget>

namespace tarnquill {

class Fade;

class SegmentedPicker : public QWidget {
    Q_OBJECT

public:
    explicit SegmentedPicker(const QStringList& titles, QWidget* parent = nullptr);

    [[nodiscard]] int currentIndex() const { return m_current; }
    // Emits currentIndexChanged() when it changes.
    void setCurrentIndex(int index);
    [[nodiscard]] QStringList titles() const { return m_titles; }

    // For titles of a letter or two, which would make segments too small to hit.
    void setSegmentMinimum(int width);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    void currentIndexChanged(int index);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] QRect segment(int index) const;
    [[nodiscard]] QRectF pill() const;

    QStringList m_titles;
    QList<int> m_widths;
    int m_current = 0;
    Fade* m_slide; // position of the pill, in segments
};

} // namespace tarnquill

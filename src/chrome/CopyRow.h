// A row of a list with something to copy: a button at its end, and a fill while the pointer is over it.
#pragma once

#include <QWidget>

namespace tarnquill {

class PaneButton;

class CopyRow : public QWidget {
    Q_OBJECT

public:
    enum class Edge { none, hairline }; // below the row

    CopyRow(int height, Edge edge, QWidget* parent = nullptr);

    // What the row is called, and what its button copies; nothing to copy disables it.
    void setContent(const QString& name, const QString& copied);
    [[nodiscard]] const QString& copied() const { return m_copied; }
    void copy();

    [[nodiscard]] QSize sizeHint() const override { return minimumSizeHint(); }
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    // Places a button before the one that copies.
    void addButton(PaneButton* button);

    // Where the row's text goes.
    [[nodiscard]] QRect textArea() const;

    // Keeps the row filled, as under the pointer.
    void setLit(bool isLit);

    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    virtual void paintText(QPainter& painter, const QRect& area) = 0;

private:
    void updateLight();

    int m_height;
    Edge m_edge;
    QString m_copied;
    PaneButton* m_copy;
    bool m_lit = false;
};

} // namespace tarnquill

// Panes side by side or on top of each other, with a thin line between them that can be moved by mouse and
// keyboard.
#pragma once

#include <QSplitter>

namespace tarnquill {

class Splitter : public QSplitter {
    Q_OBJECT

public:
    explicit Splitter(Qt::Orientation orientation, QWidget* parent = nullptr);

    // Adds a pane that takes its share of a change of size (0: it keeps its own) and never becomes smaller
    // than that.
    void addPane(QWidget* pane, int stretch, int minimum);

protected:
    QSplitterHandle* createHandle() override;
};

} // namespace tarnquill

// Marks the pane in which finding and going to the next match act: a line across its top, above everything
// beside it.
#pragma once

#include <QList>
#include <QPointer>
#include <QWidget>

namespace tarnquill {

class ActivePaneLine : public QWidget {
    Q_OBJECT

public:
    // `tool` is the view that holds the panes and the toolbar above them.
    explicit ActivePaneLine(QWidget* tool);

    // The first pane is active from the start; then whichever was last given the keyboard.
    void addPane(QWidget* pane);
    void setActivePane(QWidget* pane);
    [[nodiscard]] QWidget* activePane() const { return m_active; }

Q_SIGNALS:
    void activePaneChanged(QWidget* pane);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void place();

    QList<QPointer<QWidget>> m_panes;
    QPointer<QWidget> m_active;
};

} // namespace tarnquill

// A box that floats in its window, below the control that opened it or at the top, until Escape or a click
// elsewhere closes it.
#pragma once

#include <QPointer>
#include <QWidget>

class QHBoxLayout;

namespace tarnquill {

class Popover : public QWidget {
    Q_OBJECT

public:
    // Takes ownership of the content. With an empty title there is no title row.
    Popover(const QString& title, QWidget* content, QWidget* parent);

    // At the far end of the title row.
    void addTitleControl(QWidget* control);

    // Opens it in the control's window, where it shrinks to the room that there is, and gives the keyboard to
    // the first field in it.
    void openBelow(QWidget* control);
    // Opens it in the middle of the window's width. What has the keyboard now counts as the control.
    void openAtTopOf(QWidget* window);
    [[nodiscard]] bool isOpen() const { return isVisible(); }

    // Gives the keyboard back to the control.
    void close();

Q_SIGNALS:
    void closed();

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void open(QWidget* window, QPoint corner);
    [[nodiscard]] bool holds(const QObject* object) const;

    QWidget* m_titleRow;
    QHBoxLayout* m_titleLayout;
    QWidget* m_content;
    QPointer<QWidget> m_anchor;
};

} // namespace tarnquill

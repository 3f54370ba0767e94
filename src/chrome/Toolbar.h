// The top of a tool: its title, the name of the opened file, and the controls that act on the whole tool.
#pragma once

#include <QWidget>

class QHBoxLayout;

namespace tarnquill {

class PaneButton;
class TextLabel;

class Toolbar : public QWidget {
    Q_OBJECT

public:
    static constexpr int kHeight = 52;

    explicit Toolbar(const QString& title, QWidget* parent = nullptr);

    // Shows the file's name after the title; an empty path shows none. The whole path is the name's tooltip.
    void setFilePath(const QString& path);

    // Controls stand at the far end in the order of the calls; `addGroupGap` sets the next one further apart.
    void addControl(QWidget* control);
    void addGroupGap();

    [[nodiscard]] PaneButton& sidebarButton() const { return *m_sidebar; }

    // True below the width at which controls give up their labels.
    [[nodiscard]] bool isNarrow() const { return m_narrow; }

Q_SIGNALS:
    void sidebarToggleRequested();
    void narrowChanged(bool narrow);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    PaneButton* m_sidebar;
    TextLabel* m_file;
    QHBoxLayout* m_layout;
    int m_gapBefore;
    bool m_narrow = false;
};

} // namespace tarnquill

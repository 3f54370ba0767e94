// The list of tools, section by section, under the product's name and the menu button.
#pragma once

#include <QWidget>

class QMenu;

namespace tarnquill {

class PaneButton;
class ToolCatalogue;

class SidebarView : public QWidget {
    Q_OBJECT

public:
    // Together with the line at its edge, the sidebar is 200, 230 or 320 wide.
    static constexpr int kMinimumWidth = 199;
    static constexpr int kIdealWidth = 229;
    static constexpr int kMaximumWidth = 319;

    explicit SidebarView(const ToolCatalogue& catalogue, QWidget* parent = nullptr);

    // The selected tool's identifier; empty when no tool is selected.
    [[nodiscard]] QString selection() const;
    // Selects that tool, or none when the catalogue has no such tool.
    void setSelection(const QString& toolID);

    // What the menu button opens. Without a menu there is no button.
    void setMenu(QMenu* menu);
    [[nodiscard]] const QWidget& menuButton() const;

    [[nodiscard]] QSize sizeHint() const override { return {kIdealWidth, 0}; }

Q_SIGNALS:
    // The user selected a tool.
    void selectionChanged(const QString& toolID);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    class List;

    List* m_list;
    PaneButton* m_menuButton;
    QMenu* m_menu = nullptr;
};

} // namespace tarnquill

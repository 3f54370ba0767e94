// The top of a pane: its role and badge at the leading edge, then its options, a rule, and its buttons.
#pragma once

#include "chrome/BadgeLabel.h"
#include "chrome/Theme.h"

#include <optional>

namespace tarnquill {

class TextLabel;
class WrapLayout;

class PaneHeader : public QWidget {
    Q_OBJECT

public:
    explicit PaneHeader(const QString& role, QWidget* parent = nullptr);

    [[nodiscard]] QString role() const;
    // A dot in that colour before the role.
    void setDot(ColorRole color);
    void setBadge(const std::optional<PaneBadge>& badge);
    [[nodiscard]] std::optional<PaneBadge> badge() const;

    // Options come first and buttons after them, whatever the order of the calls; the rule between the two
    // groups is the header's own. A control that is hidden takes no room.
    void addOption(QWidget* control);
    void addButton(QWidget* button);

    // Headers that stand side by side: each is as tall as the tallest of them.
    static void alignHeights(const QList<PaneHeader*>& headers);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    class Layout;

    Layout* m_layout;
    TextLabel* m_role;
    BadgeLabel* m_badge;
    QWidget* m_rule;
};

} // namespace tarnquill

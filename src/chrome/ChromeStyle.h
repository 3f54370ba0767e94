// Draws Qt's standard widgets (menus, fields, scroll bars, check boxes, dialogs) with the theme's colours and
// metrics.
#pragma once

#include <QProxyStyle>

namespace tarnquill {

class ChromeStyle : public QProxyStyle {
    Q_OBJECT

public:
    ChromeStyle();

    using QProxyStyle::polish;
    void polish(QPalette& palette) override;
};

} // namespace tarnquill

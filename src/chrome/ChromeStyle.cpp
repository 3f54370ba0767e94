#include "chrome/ChromeStyle.h"

#include "chrome/Theme.h"

#include <QStyleFactory>

namespace tarnquill {

using namespace Qt::StringLiterals;

ChromeStyle::ChromeStyle() : QProxyStyle(QStyleFactory::create(u"Fusion"_s)) {}

void ChromeStyle::polish(QPalette& palette) {
    Theme& theme = Theme::instance();
    theme.systemPaletteSeen(palette);
    palette = theme.palette();
}

} // namespace tarnquill

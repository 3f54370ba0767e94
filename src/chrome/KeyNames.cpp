#include "chrome/KeyNames.h"

namespace tarnquill::KeyNames {

using namespace Qt::StringLiterals;

QString forPlatform(const QString& text, Platform platform) {
    if (platform == Platform::mac) {
        return text;
    }
    QString result;
    for (const QChar sign : text) {
        switch (sign.unicode()) {
        case u'⌘':
            result += "Ctrl+"_L1;
            break;
        case u'⇧':
            result += "Shift+"_L1;
            break;
        case u'⌥':
            result += "Alt+"_L1;
            break;
        default:
            result += sign;
        }
    }
    return result;
}

} // namespace tarnquill::KeyNames

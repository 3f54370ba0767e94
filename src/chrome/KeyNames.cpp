#include "chrome/KeyNames.h"

namespace tarnquill::KeyNames {

using namespace Qt::StringLiterals;

QString forPlatform(const QString& text, Platform platform) {
    if (platform == Platform::mac) {
        return text;
    }
    // Where keys have names, Ctrl comes first.
    return QString(text)
        .replace(u"⇧⌘"_s, u"⌘⇧"_s)
        .replace(u"⌥⌘"_s, u"⌘⌥"_s)
        .replace(u'⌘', "Ctrl+"_L1)
        .replace(u'⌥', "Alt+"_L1)
        .replace(u'⇧', "Shift+"_L1);
}

} // namespace tarnquill::KeyNames

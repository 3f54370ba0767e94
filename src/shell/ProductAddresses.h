// Where the product is found on the web and how its makers are reached. The domain is one that is reserved
// for examples: whoever publishes the program puts theirs here, and in packaging/.
#pragma once

#include <QString>
#include <QUrl>

namespace tarnquill::ProductAddresses {

inline QUrl support() {
    return QUrl(QStringLiteral("https://tarnquill.example/support"));
}
inline QUrl donation() {
    return QUrl(QStringLiteral("https://tarnquill.example/coffee"));
}
inline QUrl privacy() {
    return QUrl(QStringLiteral("https://tarnquill.example/privacy"));
}
inline QUrl author() {
    return QUrl(QStringLiteral("https://social.example/@tarnquill"));
}
inline QString email() {
    return QStringLiteral("hello@tarnquill.example");
}

} // namespace tarnquill::ProductAddresses

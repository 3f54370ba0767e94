// Takes the addresses that would open in the browser.
#pragma once

#include <QDesktopServices>
#include <QList>
#include <QObject>
#include <QUrl>

namespace tarnquill {

class Browser : public QObject {
    Q_OBJECT

public:
    Browser() {
        for (const auto& scheme : kSchemes) {
            QDesktopServices::setUrlHandler(scheme, this, "open");
        }
    }
    ~Browser() override {
        for (const auto& scheme : kSchemes) {
            QDesktopServices::unsetUrlHandler(scheme);
        }
    }

    Q_INVOKABLE void open(const QUrl& url) { opened.append(url); }

    QList<QUrl> opened;

private:
    inline static const QStringList kSchemes{QStringLiteral("http"), QStringLiteral("https"),
                                             QStringLiteral("mailto")};
};

} // namespace tarnquill

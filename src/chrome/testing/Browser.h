// Takes what would be opened outside of the program. A program that includes it lists it among its
// sources.
#pragma once

#include <QDesktopServices>
#include <QObject>
#include <QStringList>
#include <QUrl>

namespace tarnquill {

class Browser : public QObject {
    Q_OBJECT

public:
    Browser() {
        for (const auto& scheme : m_schemes) {
            QDesktopServices::setUrlHandler(scheme, this, "open");
        }
    }
    ~Browser() override {
        for (const auto& scheme : m_schemes) {
            QDesktopServices::unsetUrlHandler(scheme);
        }
    }

    [[nodiscard]] const QList<QUrl>& opened() const { return m_opened; }

    Q_INVOKABLE void open(const QUrl& url) { m_opened.append(url); }

private:
    const QStringList m_schemes{QStringLiteral("https"), QStringLiteral("http"), QStringLiteral("file"),
                                QStringLiteral("mailto")};
    QList<QUrl> m_opened;
};

} // namespace tarnquill

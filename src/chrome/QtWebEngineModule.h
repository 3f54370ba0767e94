// The module that WebEngine loads: everything of the program that uses Qt's web engine, and nothing else.
#pragma once

#include "chrome/WebPage.h"

#include <QObject>

namespace tarnquill {

class QtWebEngineModule : public QObject, public WebEngineModule {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "tarnquill.WebEngineModule")
    Q_INTERFACES(tarnquill::WebEngineModule)

public:
    void readAhead() const override;
    void registerSchemes(const QList<QByteArray>& schemes) override;
    [[nodiscard]] std::unique_ptr<WebPage> makePage(const WebPage::Setup& setup,
                                                    WebPage::Client& client) override;
};

} // namespace tarnquill

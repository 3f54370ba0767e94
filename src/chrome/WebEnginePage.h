// A WebPage in Qt's web engine. Part of the engine's module, which has none of the program's other objects in
// it.
#pragma once

#include "chrome/WebPage.h"

#include <QElapsedTimer>
#include <QObject>

class QWebEngineProfile;

namespace tarnquill {

class FileDropWebView;
class ScriptBridge;

class WebEnginePage : public QObject, public WebPage {
    Q_OBJECT

public:
    WebEnginePage(Setup setup, Client& client);
    ~WebEnginePage() override;

    [[nodiscard]] QWidget& view() override;
    void setFileDrop(const std::optional<FileDrop>& drop) override;
    void setTheme(const QColor& background, const QString& script) override;
    void loadHtml(const QString& html, const QUrl& base) override;
    void loadAddress(const QUrl& address) override;
    void reload() override;
    void restart() override;
    [[nodiscard]] bool isLoaded() const override { return m_state == State::loaded; }
    void run(const QString& script) override;
    void call(const QString& body, const QJsonObject& arguments, const Answer& answer) override;
    void find(const QString& text, FindDirection direction, const FindAnswer& answer) override;
    void endFind() override;
    void print(const QString& path) override;
    [[nodiscard]] double zoomFactor() const override;
    void setZoomFactor(double factor) override;

private:
    class Page;
    class RequestFilter;
    class SchemeHandler;
    class View;
    enum class State { empty, loading, loaded };

    void finishLoad(bool ok);
    void finishLoadWithScripts();
    void processDied();

    Setup m_setup;
    Client& m_client;
    std::optional<QString> m_html;
    QUrl m_address;
    State m_state = State::empty;
    int m_loads = 0;
    bool m_isSecondTry = false; // of a document that did not get its scripts
    bool m_isRestarting = false;
    int m_deaths = 0;
    QElapsedTimer m_sinceLoad;

    // Each of these needs the ones before it for as long as it lives.
    std::unique_ptr<RequestFilter> m_filter;
    std::unique_ptr<SchemeHandler> m_schemeHandler;
    std::unique_ptr<QWebEngineProfile> m_profile;
    std::unique_ptr<Page> m_page;
    std::unique_ptr<ScriptBridge> m_bridge;
    std::unique_ptr<View> m_view;
};

} // namespace tarnquill

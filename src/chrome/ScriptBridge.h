// Carries messages from the script of a web page to the program, and the answers of awaited script calls.
//
// Works under a page's content security policy, because its scripts are injected and need none of the page's
// own rights. Values travel as JSON: what JSON cannot hold (NaN, undefined) arrives as null.
#pragma once

#include "chrome/WebPage.h"

#include <QHash>
#include <QObject>

#include <functional>

class QWebEnginePage;

namespace tarnquill {

class ScriptBridge : public QObject {
    Q_OBJECT

public:
    // Offers `window.webkit.messageHandlers.<name>.postMessage(body)` to the scripts of every document that
    // the page loads from now on. The page has to live as long as the bridge.
    ScriptBridge(QWebEnginePage& page, const QStringList& handlers);

    // Tells whether the document has got the scripts of the bridge. The answer is no when the page is gone.
    void findScripts(const std::function<void(bool areThere)>& answer);

    // Runs the statements as the body of an async function whose parameters are the arguments' names, and
    // hands on what it returns in the end:
    //     call(u"return await draw(code);", {{u"code", text}}, …)
    void call(const QString& body, const QJsonObject& arguments, const WebPage::Answer& answer);

    // Nobody will answer any more, as when the page is loaded again: every waiting call fails with this.
    void failCalls(const QString& description);

    // Called by the page's end of the bridge, for each part of a message.
    Q_INVOKABLE void receive(const QString& part, int index, int count);

Q_SIGNALS:
    // The page has posted the body to one of the handlers.
    void messageReceived(const QString& handler, const QJsonValue& body);

private:
    void take(const QString& message);
    void finish(const QJsonObject& message);

    QWebEnginePage& m_page;
    QStringList m_handlers;
    QString m_message; // the parts that have come
    QHash<qint64, WebPage::Answer> m_calls;
    qint64 m_lastCall = 0;
};

} // namespace tarnquill

#include "chrome/ScriptBridge.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QWebChannel>
#include <QWebEnginePage>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>

#include <utility>

namespace tarnquill {
namespace {

using namespace Qt::StringLiterals;

// The page's scripts live in a world of their own, which sees the document's events but not the channel: an
// event carries each message from one to the other.
constexpr auto kPageScript = R"(
(names => {
    const handlers = {};
    for (const name of names) {
        const postMessage = body => {
            const detail = JSON.stringify([name, body ?? null]);
            window.dispatchEvent(new CustomEvent('tarnquill-message', { detail }));
        };
        handlers[name] = Object.freeze({ postMessage });
    }
    window.webkit = Object.freeze({ messageHandlers: Object.freeze(handlers) });
})(%1);
)";

// A long message goes in parts: the channel decodes each on the main thread at once.
constexpr auto kChannelScript = R"(
(() => {
    let send = null;
    const waiting = [];
    const pass = message => {
        if (send) {
            send(message);
        } else {
            waiting.push(message);
        }
    };
    window.addEventListener('tarnquill-message', ({ detail }) => pass(detail));
    window.tarnquillPost = (handler, body) => pass(JSON.stringify([handler, body]));
    new QWebChannel(qt.webChannelTransport, ({ objects }) => {
        send = message => message.match(/.{1,16384}/gsu)
            .forEach((part, index, parts) => objects.bridge.receive(part, index, parts.length));
        waiting.splice(0).forEach(send);
    });
})();
)";

// %1 id, %2 parameters, %3 body, %4 arguments
constexpr auto kCallScript = R"(
(async (%2) => {
%3
})(%4).then(
    value => ({ id: %1, value }),
    error => ({ id: %1, error: String(error?.message ?? error) })
).then(answer => {
    const detail = JSON.stringify(['', answer]);
    window.dispatchEvent(new CustomEvent('tarnquill-message', { detail }));
});
)";

QWebEngineScript script(const QString& source, quint32 world) {
    QWebEngineScript script;
    script.setSourceCode(source);
    script.setInjectionPoint(QWebEngineScript::DocumentCreation);
    script.setWorldId(world);
    return script;
}

QString channelLibrary() {
    QFile file(u":/qtwebchannel/qwebchannel.js"_s);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString json(const QJsonArray& values) {
    return QString::fromUtf8(QJsonDocument(values).toJson(QJsonDocument::Compact));
}

} // namespace

ScriptBridge::ScriptBridge(QWebEnginePage& page, const QStringList& handlers)
    : m_page(page), m_handlers(handlers) {
    auto* const channel = new QWebChannel(this);
    channel->registerObject(u"bridge"_s, this);
    page.setWebChannel(channel, QWebEngineScript::ApplicationWorld);
    page.scripts().insert(
        script(QString::fromLatin1(kPageScript).arg(json(QJsonArray::fromStringList(handlers))),
               QWebEngineScript::MainWorld));
    page.scripts().insert(
        script(channelLibrary() + QString::fromLatin1(kChannelScript), QWebEngineScript::ApplicationWorld));
}

void ScriptBridge::findScripts(const std::function<void(bool areThere)>& answer) {
    m_page.runJavaScript(u"typeof tarnquillPost"_s, QWebEngineScript::ApplicationWorld,
                         [answer](const QVariant& type) { answer(type.toString() == u"function"); });
}

void ScriptBridge::call(const QString& body, const QJsonObject& arguments, const WebPage::Answer& answer) {
    const auto id = ++m_lastCall;
    m_calls.insert(id, answer);
    QJsonArray values;
    for (const auto& value : arguments) {
        values.append(value);
    }
    const auto list = json(values);
    m_page.runJavaScript(
        QString::fromLatin1(kCallScript)
            .arg(QString::number(id), arguments.keys().join(u", "_s), body, list.sliced(1, list.size() - 2)));
}

void ScriptBridge::failCalls(const QString& description) {
    for (const auto& answer : std::exchange(m_calls, {})) {
        answer(std::unexpected(description));
    }
}

void ScriptBridge::receive(const QString& part, int index, int count) {
    if (index == 0) {
        m_message.clear();
    }
    m_message += part;
    if (index == count - 1) {
        take(std::exchange(m_message, {}));
    }
}

void ScriptBridge::take(const QString& message) {
    const auto parts = QJsonDocument::fromJson(message.toUtf8()).array();
    const auto handler = parts[0].toString();
    if (handler.isEmpty()) {
        finish(parts[1].toObject());
    } else if (m_handlers.contains(handler)) {
        Q_EMIT messageReceived(handler, parts[1]);
    }
}

void ScriptBridge::finish(const QJsonObject& message) {
    const auto answer = m_calls.take(message[u"id"_s].toInteger());
    if (!answer) {
        return;
    }
    if (const auto error = message[u"error"_s]; error.isString()) {
        answer(std::unexpected(error.toString()));
    } else {
        answer(message[u"value"_s]);
    }
}

} // namespace tarnquill

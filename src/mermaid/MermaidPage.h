// The page that holds the diagram engine, as the tool's logic sees it.
#pragma once

#include <QJsonObject>
#include <QObject>

#include <expected>
#include <functional>

namespace tarnquill {

class MermaidPage : public QObject {
    Q_OBJECT

public:
    // What the script returned, or the description of what it threw.
    using Answer = std::function<void(const std::expected<QJsonValue, QString>& result)>;

    using QObject::QObject;

    // Runs the statements with the named arguments and awaits what they return. The answer comes once, unless
    // the page goes first.
    virtual void call(const QString& body, const QJsonObject& arguments, const Answer& answer) = 0;
    // Evaluates the script. Nothing comes back.
    virtual void run(const QString& script) = 0;
    // Gives up whatever the page is doing and loads it anew; loaded() tells when it is there.
    virtual void restart() = 0;

Q_SIGNALS:
    void loaded();
    // The page is gone. It comes back by itself, with loaded(), or only when it is restarted.
    void lost(bool comesBack);
    void messageReceived(const QString& handler, const QJsonValue& body);
};

} // namespace tarnquill

// Makes a second start of the program hand its request to the first one.
//
// The first start holds a lock file and listens on a local socket beside it. Both lie in a folder that only
// the user can enter. What a crashed program left behind is taken over.
#pragma once

#include "shell/LaunchRequest.h"

#include <QDeadlineTimer>
#include <QLocalServer>
#include <QLockFile>
#include <QObject>

#include <chrono>

class QLocalSocket;

namespace tarnquill {

class SingleInstance : public QObject {
    Q_OBJECT

public:
    // How long a start waits for the running program's answer before it opens a window of its own.
    static constexpr std::chrono::milliseconds kPatience{5000};

    // `path` is the socket's absolute path; its folder is created when it is missing.
    explicit SingleInstance(const QString& path, QObject* parent = nullptr);

    // The socket of this user on this display.
    [[nodiscard]] static QString defaultPath();

    enum class Role {
        first,       // this program listens from now on
        handedOver,  // a running program took the request
        independent, // there is no way to listen, or the running program does not answer
    };

    // Hands the request over, or becomes the program that others hand theirs to.
    [[nodiscard]] Role claim(const LaunchRequest& request);

Q_SIGNALS:
    void received(const tarnquill::LaunchRequest& request);

private:
    [[nodiscard]] bool handOver(const LaunchRequest& request, QDeadlineTimer deadline) const;
    void serve(QLocalSocket* socket);

    QString m_path;
    QLockFile m_lock;
    QLocalServer m_server;
};

} // namespace tarnquill

#include "shell/SingleInstance.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLocalSocket>
#include <QStandardPaths>
#include <QThread>
#include <QTimer>

namespace tarnquill {

namespace {

const QByteArray kAccepted = QByteArrayLiteral("ok\n");

// Creates the folder if it is missing. Whether it is there and only the user can enter it.
bool makePrivateFolder(const QString& folder) {
    return QDir().mkpath(folder) &&
           QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

} // namespace

SingleInstance::SingleInstance(const QString& path, QObject* parent)
    : QObject(parent), m_path(path), m_lock(path + QStringLiteral(".lock")) {
    m_lock.setStaleLockTime(0); // A lock goes stale when its program is gone, never by its age.
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&m_server, &QLocalServer::newConnection, this, [this] {
        while (auto* const socket = m_server.nextPendingConnection()) {
            serve(socket);
        }
    });
}

QString SingleInstance::defaultPath() {
    const auto runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    const auto base =
        runtime.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) : runtime;
    const auto display = QStringList{QGuiApplication::platformName(), qEnvironmentVariable("WAYLAND_DISPLAY"),
                                     qEnvironmentVariable("DISPLAY")};
    const auto name = QCryptographicHash::hash(display.join(u'\n').toUtf8(), QCryptographicHash::Sha256);
    return base + QStringLiteral("/tarnquill/") + QString::fromLatin1(name.toHex().first(16));
}

SingleInstance::Role SingleInstance::claim(const LaunchRequest& request) {
    if (!makePrivateFolder(QFileInfo(m_path).path())) {
        return Role::independent;
    }
    const QDeadlineTimer deadline(kPatience);
    while (!m_lock.tryLock()) {
        if (m_lock.error() != QLockFile::LockFailedError || deadline.hasExpired()) {
            return Role::independent;
        }
        // The running program may have only just started, or be about to end: then the lock becomes free.
        if (handOver(request, deadline)) {
            return Role::handedOver;
        }
        QThread::msleep(20);
    }
    QLocalServer::removeServer(m_path);
    return m_server.listen(m_path) ? Role::first : Role::independent;
}

bool SingleInstance::handOver(const LaunchRequest& request, QDeadlineTimer deadline) const {
    const auto remaining = [&] { return static_cast<int>(deadline.remainingTime()); };
    QLocalSocket socket;
    socket.connectToServer(m_path);
    if (!socket.waitForConnected(remaining())) {
        return false;
    }
    socket.write(request.message());
    while (socket.bytesAvailable() < kAccepted.size()) {
        if (!socket.waitForReadyRead(remaining())) {
            return false;
        }
    }
    return socket.readAll() == kAccepted;
}

// Every connection carries one message and has a limited time for it.
void SingleInstance::serve(QLocalSocket* socket) {
    socket->setReadBufferSize(LaunchRequest::kMaxMessageBytes + 1);
    connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
    QTimer::singleShot(kPatience, socket, &QLocalSocket::abort);
    connect(socket, &QLocalSocket::readyRead, this, [this, socket] {
        if (!socket->canReadLine()) {
            if (socket->bytesAvailable() > LaunchRequest::kMaxMessageBytes) {
                socket->abort();
            }
            return;
        }
        socket->disconnect(this);
        const auto request = LaunchRequest::fromMessage(socket->readLine());
        if (!request) {
            socket->abort();
            return;
        }
        socket->write(kAccepted);
        socket->disconnectFromServer();
        Q_EMIT received(*request);
    });
}

} // namespace tarnquill

// The user's settings. They are held in memory, and a thread of their own keeps their file: a write waits for
// the disk, which takes a second when it is busy, and nobody else should.
#pragma once

#include <QHash>
#include <QSettings>
#include <QString>
#include <QThread>
#include <QVariant>

namespace tarnquill {

class Settings {
public:
    // The user's own.
    Settings();
    // Those of one file, which need not exist yet.
    explicit Settings(const QString& path);
    // Waits until everything is written.
    ~Settings();
    Q_DISABLE_COPY_MOVE(Settings)

    [[nodiscard]] QStringList keys() const { return m_values.keys(); }
    [[nodiscard]] bool contains(const QString& key) const { return m_values.contains(key); }
    [[nodiscard]] QVariant value(const QString& key, const QVariant& otherwise = {}) const {
        return m_values.value(key, otherwise);
    }

    // The path of the file when not everything in it could be read; empty otherwise.
    [[nodiscard]] const QString& damagedFile() const { return m_damagedFile; }

    void setValue(const QString& key, const QVariant& value);
    // With every "key/…" below it.
    void remove(const QString& key);

private:
    void start();

    QHash<QString, QVariant> m_values;
    QString m_damagedFile;
    QThread m_thread;
    QSettings m_file; // lives in the thread, if there is one
};

} // namespace tarnquill

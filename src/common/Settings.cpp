#include "common/Settings.h"

namespace tarnquill {

Settings::Settings() {
    start();
}

Settings::Settings(const QString& path) : m_file(path, QSettings::IniFormat) {
    start();
}

void Settings::start() {
    for (const auto& key : m_file.allKeys()) {
        m_values.insert(key, m_file.value(key));
    }
    if (m_file.status() != QSettings::NoError) {
        m_damagedFile = m_file.fileName();
    }
    m_thread.start();
    if (m_thread.isRunning()) { // Where no more threads can be had, this one keeps the file.
        m_file.moveToThread(&m_thread);
    }
}

Settings::~Settings() {
    QMetaObject::invokeMethod(&m_file, [this] {
        m_file.sync();
        m_thread.quit();
    });
    m_thread.wait();
}

void Settings::setValue(const QString& key, const QVariant& value) {
    m_values.insert(key, value);
    QMetaObject::invokeMethod(&m_file, [this, key, value] { m_file.setValue(key, value); });
}

void Settings::remove(const QString& key) {
    m_values.removeIf([group = key + u'/', &key](const auto& entry) {
        return entry.key() == key || entry.key().startsWith(group);
    });
    QMetaObject::invokeMethod(&m_file, [this, key] { m_file.remove(key); });
}

} // namespace tarnquill

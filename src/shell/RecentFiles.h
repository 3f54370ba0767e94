// The files that were opened last, kept in the settings from one start of the program to the next.
#pragma once

#include <QList>
#include <QObject>
#include <QString>

namespace tarnquill {

class Settings;

class RecentFiles : public QObject {
    Q_OBJECT

public:
    static constexpr int kMost = 12;

    struct File {
        QString path;
        QString toolID; // of the tool that opened it

        friend bool operator==(const File&, const File&) = default;
    };

    // The settings must outlive the list.
    explicit RecentFiles(Settings& settings, QObject* parent = nullptr);

    // The newest first.
    [[nodiscard]] const QList<File>& files() const { return m_files; }

    // Puts the file at the front; it is in the list once.
    void add(const File& file);
    void remove(const QString& path);
    void clear();

Q_SIGNALS:
    void changed();

private:
    void set(const QList<File>& files);

    Settings& m_settings;
    QList<File> m_files;
};

} // namespace tarnquill

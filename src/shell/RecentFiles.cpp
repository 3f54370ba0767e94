#include "shell/RecentFiles.h"

#include <QSettings>

#include <algorithm>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

const QString kFiles = u"recentFiles"_s;
const QString kPath = u"path"_s;
const QString kTool = u"tool"_s;

} // namespace

RecentFiles::RecentFiles(QSettings& settings, QObject* parent) : QObject(parent), m_settings(settings) {
    const auto count = m_settings.beginReadArray(kFiles);
    for (int index = 0; index < std::min(count, kMost); ++index) {
        m_settings.setArrayIndex(index);
        const File file{.path = m_settings.value(kPath).toString(),
                        .toolID = m_settings.value(kTool).toString()};
        if (!file.path.isEmpty()) {
            m_files.append(file);
        }
    }
    m_settings.endArray();
}

void RecentFiles::add(const File& file) {
    auto files = m_files;
    files.removeIf([&](const File& each) { return each.path == file.path; });
    files.prepend(file);
    set(files.first(std::min<qsizetype>(files.size(), kMost)));
}

void RecentFiles::remove(const QString& path) {
    auto files = m_files;
    files.removeIf([&](const File& each) { return each.path == path; });
    set(files);
}

void RecentFiles::clear() {
    set({});
}

void RecentFiles::set(const QList<File>& files) {
    if (files == m_files) {
        return;
    }
    m_files = files;
    m_settings.remove(kFiles);
    m_settings.beginWriteArray(kFiles, static_cast<int>(files.size()));
    for (int index = 0; index < files.size(); ++index) {
        m_settings.setArrayIndex(index);
        m_settings.setValue(kPath, files[index].path);
        m_settings.setValue(kTool, files[index].toolID);
    }
    m_settings.endArray();
    Q_EMIT changed();
}

} // namespace tarnquill

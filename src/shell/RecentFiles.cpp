#include "shell/RecentFiles.h"

#include "common/Settings.h"

#include <algorithm>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

const QString kFiles = u"recentFiles"_s;
const QString kCount = u"recentFiles/size"_s;

QString pathKey(qsizetype number) {
    return u"recentFiles/%1/path"_s.arg(number);
}

QString toolKey(qsizetype number) {
    return u"recentFiles/%1/tool"_s.arg(number);
}

} // namespace

RecentFiles::RecentFiles(Settings& settings, QObject* parent) : QObject(parent), m_settings(settings) {
    const auto count = std::min(m_settings.value(kCount).toInt(), kMost);
    for (int number = 1; number <= count; ++number) {
        const File file{.path = m_settings.value(pathKey(number)).toString(),
                        .toolID = m_settings.value(toolKey(number)).toString()};
        if (!file.path.isEmpty()) {
            m_files.append(file);
        }
    }
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
    m_settings.setValue(kCount, files.size());
    for (qsizetype number = 1; number <= files.size(); ++number) {
        m_settings.setValue(pathKey(number), files[number - 1].path);
        m_settings.setValue(toolKey(number), files[number - 1].toolID);
    }
    Q_EMIT changed();
}

} // namespace tarnquill

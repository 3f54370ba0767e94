#include "markdown/MarkdownFolderAccess.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace tarnquill {
namespace {

using namespace Qt::StringLiterals;

bool holds(const QString& folder, const QString& path) {
    return path == folder || path.startsWith(folder.endsWith(u'/') ? folder : folder + u'/');
}

} // namespace

void MarkdownFolderAccess::setDocumentFolder(const QString& folder) {
    m_documentFolder = folder;
    m_suggestedFolder.clear();
    m_declined = false;
    setNeedsAccess(false);
}

bool MarkdownFolderAccess::allows(const QString& file) const {
    const auto path = QFileInfo(file).canonicalFilePath();
    return !path.isEmpty() && std::ranges::any_of(m_granted, [&](const QString& folder) {
        return holds(QFileInfo(folder).canonicalFilePath(), path);
    });
}

void MarkdownFolderAccess::refuse(const QString& file) {
    auto folder = m_suggestedFolder.isEmpty() ? m_documentFolder : m_suggestedFolder;
    if (folder.isEmpty() || m_declined) {
        return;
    }
    while (!holds(folder, file)) {
        folder = QFileInfo(folder).path();
    }
    const bool isOther = std::exchange(m_suggestedFolder, folder) != folder;
    if (isOther && m_needsAccess) {
        Q_EMIT needsAccessChanged();
    }
    setNeedsAccess(true);
}

void MarkdownFolderAccess::grant(const QString& folder) {
    m_granted.append(QDir::cleanPath(folder));
    setNeedsAccess(false);
    m_suggestedFolder.clear();
    Q_EMIT reloadImages();
}

void MarkdownFolderAccess::decline() {
    m_declined = true;
    setNeedsAccess(false);
}

void MarkdownFolderAccess::setNeedsAccess(bool needs) {
    if (std::exchange(m_needsAccess, needs) != needs) {
        Q_EMIT needsAccessChanged();
    }
}

QString MarkdownFolderAccess::request() const {
    const auto name = QFileInfo(m_suggestedFolder).fileName();
    return u"To show the images in “"_s + (name.isEmpty() ? m_suggestedFolder : name) +
           u"”, allow Tarnquill to read the folder they are in."_s;
}

QString MarkdownFolderAccess::panelMessage() {
    return u"Allow Tarnquill to read the folder that holds this document's images"_s;
}

} // namespace tarnquill

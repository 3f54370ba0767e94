#include "common/InstalledFile.h"
#include "shell/BuiltInTools.h"

#include <QFile>
#include <QMimeDatabase>

#include <gtest/gtest.h>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

QStringList mimeTypesOfTheEntry() {
    QFile entry(installedFile(u"share/applications/org.tarnquill.Tarnquill.desktop"));
    EXPECT_TRUE(entry.open(QFile::ReadOnly)) << entry.fileName().toStdString();
    const auto lines = QString::fromUtf8(entry.readAll()).split(u'\n');
    const auto types = lines.filter(u"MimeType="_s).value(0).section(u'=', 1);
    return types.split(u';', Qt::SkipEmptyParts);
}

} // namespace

// Needs the build's share/ among the folders of XDG_DATA_DIRS, which ctest sees to.
TEST(DesktopEntry, OffersTheProgramForEveryFileThatAToolOpens) {
    const auto types = mimeTypesOfTheEntry();
    ASSERT_FALSE(types.isEmpty());
    const QMimeDatabase database;
    for (const auto* const tool : builtInTools().inSidebarOrder()) {
        for (const auto& extension : tool->acceptedExtensions) {
            const auto type = database.mimeTypeForFile(u"name."_s + extension, QMimeDatabase::MatchExtension);
            EXPECT_TRUE(types.contains(type.name()))
                << extension.toStdString() << " is " << type.name().toStdString();
        }
    }
}

} // namespace tarnquill

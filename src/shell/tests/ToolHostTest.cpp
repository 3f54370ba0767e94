#include "shell/ToolHost.h"

#include "shell/tests/FakeTool.h"

#include <QSettings>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace tarnquill {
namespace {

QUrl fileUrl(const char* path) {
    return QUrl::fromLocalFile(QString::fromUtf8(path));
}

TEST(ToolHostTest, ReadsNameAndExtensionOffTheLastPathComponent) {
    const struct {
        const char* path;
        const char* name;
        const char* extension;
    } rows[] = {
        {"/a/data.JSON", "data.JSON", "JSON"},
        {"/a/archive.tar.gz", "archive.tar.gz", "gz"},
        {"/a.json/Makefile", "Makefile", ""},
        {"/a/.json", ".json", ""},
        {"/a/.settings.json", ".settings.json", "json"},
        {"/a/ends with a dot.", "ends with a dot.", ""},
        {"/a/folder.json/", "folder.json", "json"},
        {"/a/100% #1?.csv", "100% #1?.csv", "csv"},
        {"/", "", ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(lastPathComponent(fileUrl(row.path)).toStdString(), row.name);
        EXPECT_EQ(pathExtension(fileUrl(row.path)).toStdString(), row.extension) << row.path;
    }
}

TEST(ToolHostTest, HandsAFileToTheToolThatAcceptsItAndToNoOther) {
    QList<QUrl> openedByProse;
    QList<QUrl> openedByTable;
    std::vector<std::unique_ptr<const Tool>> tools;
    tools.push_back(std::make_unique<FakeTool>(QStringLiteral("prose"), ToolCategory::text,
                                               QStringList{QStringLiteral("md")}, openedByProse));
    tools.push_back(std::make_unique<FakeTool>(QStringLiteral("table"), ToolCategory::data,
                                               QStringList{QStringLiteral("csv")}, openedByTable));
    const ToolCatalogue catalogue(std::move(tools));
    const QTemporaryDir folder;
    QSettings settings(folder.filePath(QStringLiteral("settings.ini")), QSettings::IniFormat);
    ToolHost host(catalogue, settings);

    EXPECT_EQ(host.open(fileUrl("/a/TABLE.CSV")), QStringLiteral("table"));
    EXPECT_EQ(host.open(fileUrl("/a/notes.pdf")), std::nullopt);
    EXPECT_EQ(openedByTable, QList<QUrl>{fileUrl("/a/TABLE.CSV")});
    EXPECT_TRUE(openedByProse.isEmpty());
}

} // namespace
} // namespace tarnquill

#include "shell/ToolHost.h"

#include "common/Settings.h"
#include "common/testing/WaitUntil.h"
#include "shell/tests/FakeTool.h"

#include <QFile>
#include <QSignalSpy>
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
    Settings settings(folder.filePath(QStringLiteral("settings.ini")));
    ToolHost host(catalogue, settings);

    EXPECT_EQ(host.open(fileUrl("/a/TABLE.CSV")), QStringLiteral("table"));
    EXPECT_EQ(host.open(fileUrl("/a/notes.pdf")), std::nullopt);
    EXPECT_EQ(openedByTable, QList<QUrl>{fileUrl("/a/TABLE.CSV")});
    EXPECT_TRUE(openedByProse.isEmpty());
}

TEST(ToolHostTest, AnnouncesTheFilesThatTheToolsHaveRead) {
    const ToolCatalogue catalogue({});
    const QTemporaryDir folder;
    Settings settings(folder.filePath(QStringLiteral("settings.ini")));
    ToolHost host(catalogue, settings);
    QFile file(folder.filePath(QStringLiteral("file")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("1");
    file.close();

    QSignalSpy opened(&host, &ToolHost::fileOpened);
    const auto opens = [&](auto& model, const char* toolID) {
        model.open(folder.filePath(QStringLiteral("missing")));
        model.open(file.fileName());
        ASSERT_TRUE(waitUntil([&] { return !opened.isEmpty(); })) << toolID;
        EXPECT_EQ(opened.takeFirst(), (QVariantList{file.fileName(), QString::fromUtf8(toolID)}));
    };
    opens(host.markdown(), "markdown");
    opens(host.json(), "json");
    opens(host.csv(), "csv");
    opens(host.mermaid(), "mermaid");
    opens(host.codec(), "codec");
    host.csv().setText(QStringLiteral("a,b"));
    waitUntil([&] { return !host.csv().isWorking(); });
    host.codec().clear();
    EXPECT_TRUE(opened.isEmpty()) << "what is pasted is no file";
}

} // namespace
} // namespace tarnquill

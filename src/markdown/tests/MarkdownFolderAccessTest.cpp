#include "markdown/MarkdownFolderAccess.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

void write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

} // namespace

TEST(MarkdownFolderAccess, EndsAtTheGrantedFolderEvenThroughLinks) {
    const QTemporaryDir folder;
    QDir(folder.path()).mkpath(u"docs"_s);
    QDir(folder.path()).mkpath(u"docs-private"_s);
    const auto inside = folder.filePath(u"docs/a.png"_s);
    const auto outside = folder.filePath(u"docs-private/a.png"_s);
    const auto link = folder.filePath(u"docs/link.png"_s);
    write(inside, "x");
    write(outside, "x");
    ASSERT_TRUE(QFile::link(outside, link));
    MarkdownFolderAccess access;
    EXPECT_FALSE(access.allows(inside));
    access.grant(folder.filePath(u"docs/"_s));
    EXPECT_TRUE(access.allows(inside));
    EXPECT_FALSE(access.allows(outside));
    EXPECT_FALSE(access.allows(link));
    EXPECT_FALSE(access.allows(folder.filePath(u"docs/none.png"_s)));
}

TEST(MarkdownFolderAccess, AsksForOneFolderThatHoldsEveryRefusedImageUntilAnswered) {
    MarkdownFolderAccess access;
    access.refuse(u"/home/notes/a.png"_s);
    EXPECT_FALSE(access.needsAccess()) << "there is no document";
    access.setDocumentFolder(u"/home/notes"_s);
    access.refuse(u"/home/notes/a.png"_s);
    EXPECT_TRUE(access.needsAccess());
    EXPECT_EQ(access.request(),
              u"To show the images in “notes”, allow Tarnquill to read the folder they are in."_s);
    access.refuse(u"/home/pictures/b.png"_s);
    EXPECT_EQ(access.suggestedFolder(), u"/home"_s);
    access.decline();
    access.refuse(u"/home/notes/c.png"_s);
    EXPECT_FALSE(access.needsAccess()) << "the answer holds for the document";
    access.setDocumentFolder(u"/home/notes"_s);
    access.refuse(u"/home/notes/c.png"_s);
    EXPECT_TRUE(access.needsAccess());
}

} // namespace tarnquill

#include "markdown/MarkdownLocalImages.h"

#include "markdown/MarkdownFolderAccess.h"
#include "markdown/MarkdownLinkPolicy.h"

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

TEST(MarkdownLocalImages, AddressesLeadBackToTheirFiles) {
    const auto base = MarkdownLocalImages::addressOf(u"/home/a b/ü#?%41/"_s);
    EXPECT_EQ(base.toString(QUrl::FullyEncoded), u"tarnquill-doc://document/home/a%20b/%C3%BC%23%3F%2541/"_s);
    const auto file = [&](const QString& relative) {
        return MarkdownLocalImages::fileOf(base.resolved(QUrl(relative)));
    };
    EXPECT_EQ(file(u"x y.png"_s), u"/home/a b/ü#?%41/x y.png"_s);
    EXPECT_EQ(file(u"../p/%C3%A4.png?v=1#f"_s), u"/home/a b/p/ä.png"_s);
    EXPECT_EQ(file(u"sub/"_s), std::nullopt);
    EXPECT_EQ(MarkdownLocalImages::fileOf(QUrl(u"tarnquill-doc://elsewhere/a.png"_s)), std::nullopt);
    EXPECT_EQ(MarkdownLocalImages::fileOf(QUrl(u"file:///a.png"_s)), std::nullopt);
}

TEST(MarkdownLocalImages, KnowTheirTypeAndReadNothingButFiles) {
    const QTemporaryDir folder;
    write(folder.filePath(u"a.svg"_s), "<svg xmlns='http://www.w3.org/2000/svg'/>");
    write(folder.filePath(u"a.zzz"_s), QByteArray("\x00\x01", 2));
    EXPECT_EQ(MarkdownLocalImages::readImage(folder.filePath(u"a.svg"_s)).value().mimeType, "image/svg+xml");
    EXPECT_EQ(MarkdownLocalImages::readImage(folder.filePath(u"a.zzz"_s)).value().mimeType,
              "application/octet-stream");
    EXPECT_FALSE(MarkdownLocalImages::readImage(folder.path()));
    EXPECT_FALSE(MarkdownLocalImages::readImage(u"/dev/zero"_s));
    EXPECT_FALSE(MarkdownLocalImages::readImage(folder.filePath(u"none.png"_s)));
}

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

TEST(MarkdownLinkPolicy, OpensWebLinksInTheBrowserAndAllowsNothingButThePageItself) {
    using MarkdownLinkPolicy::Cause;
    using MarkdownLinkPolicy::Decision;
    const QUrl page(u"tarnquill-doc://document/home/"_s);
    const auto decide = [&](const char* url, Cause cause, bool isMainFrame = true) {
        return MarkdownLinkPolicy::decide(QUrl(QString::fromUtf8(url)), cause, isMainFrame, page);
    };
    EXPECT_EQ(decide("HTTPS://example.org/", Cause::link), Decision::openInBrowser);
    EXPECT_EQ(decide("mailto:a@example.org", Cause::link), Decision::cancel);
    EXPECT_EQ(decide("tarnquill-doc://document/home/", Cause::link), Decision::cancel);
    EXPECT_EQ(decide("tarnquill-doc://document/home/", Cause::other), Decision::allow);
    EXPECT_EQ(decide("tarnquill-doc://document/home/", Cause::other, false), Decision::cancel);
    EXPECT_EQ(decide("tarnquill-doc://document/etc/", Cause::other), Decision::cancel);
    EXPECT_EQ(decide("https://example.org/", Cause::other), Decision::cancel);
    EXPECT_EQ(decide("tarnquill-doc://document/home/", Cause::reload), Decision::cancel);
    EXPECT_EQ(decide("", Cause::other), Decision::cancel);
}

} // namespace tarnquill

#include "markdown/MarkdownLocalImages.h"

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

} // namespace tarnquill

#include "common/Settings.h"

#include "common/testing/WaitUntil.h"

#include <gtest/gtest.h>

#include <QLockFile>
#include <QTemporaryDir>

namespace tarnquill {
namespace {

using namespace Qt::StringLiterals;

class SettingsTest : public testing::Test {
protected:
    QTemporaryDir folder;
    QString path = folder.filePath(u"settings.ini"_s);
};

TEST_F(SettingsTest, AreThereAgainInTheNextStart) {
    {
        Settings settings(path);
        settings.setValue(u"names"_s, QStringList{u"a, b"_s, u"ä;"_s, QString()});
        settings.setValue(u"main/place"_s, QByteArray("\0\xff", 2));
        settings.setValue(u"files"_s, 1);
        settings.setValue(u"files/1/path"_s, u"/tmp"_s);
        settings.setValue(u"filesOfOthers"_s, true);
        settings.remove(u"files"_s);
        EXPECT_EQ(settings.keys().size(), 3);
    }
    const Settings settings(path);
    EXPECT_EQ(settings.keys().size(), 3);
    EXPECT_EQ(settings.value(u"names"_s).toStringList(), (QStringList{u"a, b"_s, u"ä;"_s, QString()}));
    EXPECT_EQ(settings.value(u"main/place"_s).toByteArray(), QByteArray("\0\xff", 2));
    EXPECT_TRUE(settings.value(u"filesOfOthers"_s).toBool());
    EXPECT_EQ(settings.value(u"files"_s, 7).toInt(), 7);
}

TEST_F(SettingsTest, DoNotMakeAnyoneWaitForTheirFile) {
    {
        Settings settings(path);
        QLockFile otherWriter(path + u".lock"_s);
        ASSERT_TRUE(otherWriter.lock());
        settings.setValue(u"size"_s, 13);
        letEventsPass(50);
        settings.setValue(u"size"_s, 14);
        EXPECT_EQ(settings.value(u"size"_s).toInt(), 14);
        EXPECT_FALSE(QFile::exists(path));
    }
    EXPECT_EQ(Settings(path).value(u"size"_s).toInt(), 14);
}

} // namespace
} // namespace tarnquill

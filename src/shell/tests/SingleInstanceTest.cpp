#include "shell/SingleInstance.h"

#include "common/testing/WaitUntil.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocalSocket>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>

namespace tarnquill {
namespace {

using namespace Qt::StringLiterals;
using Role = SingleInstance::Role;

// The real program runs beside the test, in a home and on a socket of its own.
class SingleInstanceTest : public testing::Test {
protected:
    SingleInstanceTest() {
        qputenv("XDG_RUNTIME_DIR", folder.filePath(u"runtime"_s).toUtf8());
        qputenv("HOME", folder.path().toUtf8());
        QDir().mkpath(folder.filePath(u"runtime"_s));
        QFile::setPermissions(folder.filePath(u"runtime"_s),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    ~SingleInstanceTest() override {
        if (program.state() != QProcess::NotRunning) {
            program.kill();
            program.waitForFinished();
        }
    }

    void start(const QStringList& arguments) {
        program.setWorkingDirectory(folder.path());
        program.start(QStringLiteral(TARNQUILL_PROGRAM), arguments);
        ASSERT_TRUE(program.waitForStarted());
    }

    bool waitForEnd() {
        return waitUntil([&] { return program.state() == QProcess::NotRunning; });
    }

    // Runs the program until it listens.
    void startFirst() {
        start({});
        ASSERT_TRUE(waitUntil([] { return QFileInfo::exists(SingleInstance::defaultPath()); }));
    }

    // Writes to the running program's socket and waits until it hangs up.
    static QByteArray answerTo(const QByteArray& message) {
        QLocalSocket socket;
        socket.connectToServer(SingleInstance::defaultPath());
        socket.write(message);
        waitUntil([&] { return socket.state() == QLocalSocket::UnconnectedState; });
        return socket.readAll();
    }

    QTemporaryDir folder;
    QProcess program;
};

TEST_F(SingleInstanceTest, ASecondStartHandsItsFilesOverAndEnds) {
    SingleInstance instance(SingleInstance::defaultPath());
    QSignalSpy received(&instance, &SingleInstance::received);
    ASSERT_EQ(instance.claim({}), Role::first);

    start({u"data.json"_s, u"../Straße.md"_s, u"/tmp/x.csv"_s});
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(program.exitCode(), 0) << program.readAllStandardError().toStdString();
    ASSERT_EQ(received.count(), 1);
    EXPECT_EQ(received.first().first().value<LaunchRequest>().files,
              (QStringList{folder.filePath(u"data.json"_s),
                           QDir::cleanPath(folder.filePath(u"../Straße.md"_s)), u"/tmp/x.csv"_s}));
}

TEST_F(SingleInstanceTest, TheRunningProgramTakesARequestAndGoesOn) {
    startFirst();
    for (int request = 0; request < 2; ++request) {
        SingleInstance later(SingleInstance::defaultPath());
        EXPECT_EQ(later.claim({.files = {u"/tmp/a.json"_s}}), Role::handedOver);
    }
    EXPECT_EQ(program.state(), QProcess::Running);
}

TEST_F(SingleInstanceTest, TakesOverWhatACrashedProgramLeft) {
    startFirst();
    program.kill();
    program.waitForFinished();
    ASSERT_TRUE(QFileInfo::exists(SingleInstance::defaultPath()));

    SingleInstance instance(SingleInstance::defaultPath());
    QSignalSpy received(&instance, &SingleInstance::received);
    EXPECT_EQ(instance.claim({}), Role::first);
    EXPECT_EQ(answerTo(LaunchRequest{.files = {u"/tmp/a.json"_s}}.message()), "ok\n");
    EXPECT_EQ(received.count(), 1);
}

TEST_F(SingleInstanceTest, HangsUpOnWhatIsNotARequest) {
    SingleInstance instance(SingleInstance::defaultPath());
    QSignalSpy received(&instance, &SingleInstance::received);
    ASSERT_EQ(instance.claim({}), Role::first);

    EXPECT_EQ(answerTo("hello\n"), QByteArray());
    EXPECT_EQ(answerTo(QByteArray(LaunchRequest::kMaxMessageBytes + 2, 'x')), QByteArray());
    EXPECT_EQ(answerTo(LaunchRequest{}.message() + LaunchRequest{}.message()), "ok\n");
    EXPECT_EQ(received.count(), 1) << "one request a connection";
}

TEST_F(SingleInstanceTest, LetsNobodyElseReachTheSocket) {
    SingleInstance instance(SingleInstance::defaultPath());
    ASSERT_EQ(instance.claim({}), Role::first);
    const auto permissions = QFileInfo(QFileInfo(SingleInstance::defaultPath()).path()).permissions();
    EXPECT_FALSE(permissions & (QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther));
}

TEST_F(SingleInstanceTest, GoesOnAloneWhereItCannotListen) {
    SingleInstance instance(u"/dev/null/nowhere/socket"_s);
    EXPECT_EQ(instance.claim({}), Role::independent);
}

TEST_F(SingleInstanceTest, RefusesAnUnknownOptionWithTheUsage) {
    start({u"--fast"_s});
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(program.exitCode(), 2);
    EXPECT_TRUE(program.readAllStandardError().contains("Usage: tarnquill"));
}

} // namespace
} // namespace tarnquill

#include "common/SavedFile.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <csignal>

#include <sys/resource.h>

namespace tarnquill {
namespace {

using namespace Qt::StringLiterals;

// What a full disk does to a file that grows.
class SmallDisk {
public:
    SmallDisk() {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit small{.rlim_cur = 4'096, .rlim_max = m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &small);
        m_handler = std::signal(SIGXFSZ, SIG_IGN);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;
    ~SmallDisk() {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }

private:
    rlimit m_before{};
    void (*m_handler)(int);
};

TEST(SavedFile, KeepsTheFileThatWasThereWhenTheDiskIsFull) {
    const QTemporaryDir folder;
    const auto path = folder.filePath(u"table.csv"_s);
    ASSERT_EQ(saveFile(path, "before"), QString());
    {
        const SmallDisk disk;
        EXPECT_TRUE(saveFile(path, QByteArray(100'000, 'x')).startsWith(u"Could not write “table.csv”: "_s));
    }
    QFile file(path);
    ASSERT_TRUE(file.open(QFile::ReadOnly));
    EXPECT_EQ(file.readAll(), "before");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1)
        << "and leaves nothing half written beside it";
}

TEST(SavedFile, SaysWhyAFileCannotBeWritten) {
    const QTemporaryDir folder;
    EXPECT_EQ(saveFile(folder.filePath(u"no/such/a.pdf"_s), "x"),
              u"Could not write “a.pdf”: No such file or directory."_s);
    EXPECT_NE(saveFile(folder.path(), "x"), QString());
}

} // namespace
} // namespace tarnquill

#include "codec/CodecToolViewModel.h"

#include "common/testing/WaitUntil.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <fstream>
#include <sstream>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

using Codec::Direction;
using Codec::Scheme;

class CodecToolViewModelTest : public testing::Test {
protected:
    void SetUp() override {
        m_model.start();
        settle();
    }

    // Lets everything finish that the last change has set off.
    void settle() {
        ASSERT_TRUE(waitUntil([&] {
            return !m_model.transformTask().isPending() && !m_model.dumpTask().isPending() &&
                   !m_model.openingTask().isPending() && !m_model.savingTask().isPending();
        }));
    }

    void setInput(std::u16string_view text) {
        m_model.setInput(TextBuffer(text));
        settle();
    }

    void choose(Scheme scheme, Direction direction) {
        m_model.setScheme(scheme);
        m_model.setDirection(direction);
        settle();
    }

    [[nodiscard]] std::u16string shown() const { return m_model.shownOutput().text(); }

    [[nodiscard]] QString write(const QString& name, const std::string& bytes) const {
        const auto path = m_folder.filePath(name);
        std::ofstream(path.toStdString(), std::ios::binary) << bytes;
        return path;
    }

    void open(const QString& name, const std::string& bytes) {
        m_model.open(write(name, bytes));
        settle();
    }

    [[nodiscard]] static std::string contentOf(const QString& path) {
        std::ostringstream content;
        content << std::ifstream(path.toStdString(), std::ios::binary).rdbuf();
        return content.str();
    }

    CodecToolViewModel m_model;
    QTemporaryDir m_folder;
};

} // namespace

TEST_F(CodecToolViewModelTest, StartsWithTheSampleDecodedUnpackedAndFormatted) {
    EXPECT_EQ(m_model.input().length(), 100U);
    EXPECT_TRUE(shown().starts_with(u"{\n  \"tool\" : \"Encode / Decode\",\n"));
    EXPECT_EQ(m_model.shownOutput().metrics().lines, 8U);
    EXPECT_EQ(m_model.badge(), u"GZIP → JSON");
}

TEST_F(CodecToolViewModelTest, RunsOnceAfterQuickTyping) {
    QSignalSpy published(&m_model, &CodecToolViewModel::outputChanged);
    for (const auto* const text : {u"S", u"SG", u"SGV", u"SGVs", u"SGVsbG8"}) {
        m_model.setInput(TextBuffer(text));
        letEventsPass(20);
    }
    settle();
    EXPECT_EQ(published.count(), 1);
    EXPECT_EQ(shown(), u"Hello");
    EXPECT_EQ(m_model.badge(), u"TEXT");
}

TEST_F(CodecToolViewModelTest, NeverHoldsAFailureAndAnOutputTogether) {
    setInput(u"SGVsb");
    EXPECT_EQ(m_model.failureTitle(), u"Not Base64");
    EXPECT_FALSE(m_model.output());
    EXPECT_TRUE(m_model.shownOutput().isEmpty());
    EXPECT_TRUE(m_model.badge().isEmpty());
    EXPECT_FALSE(m_model.canSwap());
    choose(Scheme::hex, Direction::decode);
    EXPECT_EQ(m_model.failureTitle(), u"Not Hex");
    setInput(u"1f8b0800");
    EXPECT_EQ(m_model.failureTitle(), u"Could not unpack");
    setInput(u"4869");
    EXPECT_FALSE(m_model.failure());
    EXPECT_TRUE(m_model.failureTitle().isEmpty());
    EXPECT_EQ(shown(), u"Hi");
}

TEST_F(CodecToolViewModelTest, NamesTheEncodingInTheBadge) {
    for (const auto& [scheme, badge] : {std::pair(Scheme::base64, u"BASE64"_s),
                                        {Scheme::url, u"URL"_s},
                                        {Scheme::html, u"HTML"_s},
                                        {Scheme::hex, u"HEX"_s}}) {
        choose(scheme, Direction::encode);
        EXPECT_EQ(m_model.badge(), badge);
    }
    setInput(u"");
    EXPECT_TRUE(m_model.badge().isEmpty());
    EXPECT_TRUE(m_model.output());
}

TEST_F(CodecToolViewModelTest, SwapsThereAndBackAgain) {
    setInput(u"SGVsbG8");
    QSignalSpy replaced(&m_model, &CodecToolViewModel::inputReplaced);
    m_model.swap();
    EXPECT_EQ(m_model.input().text(), u"Hello");
    EXPECT_EQ(m_model.direction(), Direction::encode);
    EXPECT_EQ(replaced.count(), 1);
    settle();
    EXPECT_EQ(shown(), u"SGVsbG8=");
    m_model.swap();
    EXPECT_EQ(m_model.input().text(), u"SGVsbG8=");
    EXPECT_EQ(m_model.direction(), Direction::decode);
}

TEST_F(CodecToolViewModelTest, SwapLeavesABinaryOutputAlone) {
    setInput(u"/w==");
    m_model.swap();
    EXPECT_EQ(m_model.input().text(), u"/w==");
    EXPECT_EQ(m_model.direction(), Direction::decode);
}

TEST_F(CodecToolViewModelTest, ReflowsTheDumpAndCopiesItWithSixteenBytesARow) {
    m_model.setDumpBytesPerRow(8);
    setInput(u"/wABAgMEBQYHCAk=");
    EXPECT_EQ(m_model.badge(), u"BINARY");
    EXPECT_EQ(shown(),
              u"00000000  ff 00 01 02 03 04 05 06  |........|\n00000008  07 08 09                 |...|");
    m_model.setDumpBytesPerRow(2);
    settle();
    EXPECT_TRUE(shown().starts_with(u"00000000  ff 00  |..|\n"));
    EXPECT_EQ(m_model.hexDump().text(),
              u"00000000  ff 00 01 02 03 04 05 06  07 08 09                 |...........|");
    setInput(u"SGk=");
    m_model.setDumpBytesPerRow(4);
    settle();
    EXPECT_EQ(shown(), u"Hi");
    EXPECT_TRUE(m_model.hexDump().isEmpty());
}

TEST_F(CodecToolViewModelTest, EncodesALoneSurrogateAsTheReplacementCharacter) {
    m_model.setDirection(Direction::encode);
    setInput(std::u16string_view(u"a\xD800\0", 3));
    EXPECT_EQ(shown(), u"Ye+/vQA=");
}

TEST_F(CodecToolViewModelTest, TakesATextFileAsItStands) {
    const std::string bytes("\xEF\xBB\xBFline\r\nU0dWc2JHOA\0==", 21);
    m_model.setDirection(Direction::encode);
    open(u"notes.txt"_s, bytes);
    EXPECT_EQ(m_model.fileBytes(), nullptr);
    EXPECT_EQ(m_model.input().utf8(), bytes);
    EXPECT_TRUE(m_model.filePath().endsWith(u"notes.txt"_s));
    EXPECT_EQ(m_model.shownOutput().utf8(), Codec::encode(bytes, Scheme::base64, {}));
}

TEST_F(CodecToolViewModelTest, TakesABinaryFileAsBytesUntilItIsReplaced) {
    const std::string bytes("\xFF\xD8\xFF\0\r\n", 6);
    setInput(u"typed before");
    m_model.setDirection(Direction::encode);
    m_model.setFileBytesPerRow(4);
    open(u"photo.jpg"_s, bytes);
    ASSERT_NE(m_model.fileBytes(), nullptr);
    EXPECT_EQ(*m_model.fileBytes(), bytes);
    EXPECT_EQ(m_model.shownFile().text(), u"00000000  ff d8 ff 00  |....|\n00000004  0d 0a        |..|");
    EXPECT_EQ(m_model.input().text(), u"typed before");
    EXPECT_EQ(shown(), u"/9j/AA0K");
    m_model.clear();
    settle();
    EXPECT_EQ(m_model.fileBytes(), nullptr);
    EXPECT_TRUE(m_model.filePath().isEmpty());
    EXPECT_TRUE(m_model.input().isEmpty());
    EXPECT_TRUE(shown().empty());
}

TEST_F(CodecToolViewModelTest, KeepsTheInputWhenAFileCannotBeRead) {
    QSignalSpy failed(&m_model, &CodecToolViewModel::openingFailed);
    m_model.open(m_folder.filePath(u"missing"_s));
    settle();
    EXPECT_EQ(failed.count(), 1);
    EXPECT_EQ(m_model.input().length(), 100U);
    EXPECT_TRUE(m_model.filePath().isEmpty());
}

TEST_F(CodecToolViewModelTest, SavesAllTheBytesOfABinaryOutput) {
    const std::string bytes(100'000, '\xFE');
    open(u"bytes.b64"_s, Codec::encode(bytes, Scheme::base64, {}));
    const auto path = m_folder.filePath(u"saved"_s);
    QSignalSpy failed(&m_model, &CodecToolViewModel::savingFailed);
    m_model.save(path);
    settle();
    EXPECT_EQ(contentOf(path), bytes);
    m_model.save(m_folder.filePath(u"no/such/folder"_s));
    settle();
    EXPECT_EQ(failed.count(), 1);
}

} // namespace tarnquill

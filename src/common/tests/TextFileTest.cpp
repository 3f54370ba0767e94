#include "common/TextFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace tarnquill {

namespace {

class TextFile : public testing::Test {
protected:
    TextFile() { std::filesystem::create_directories(m_folder); }
    ~TextFile() override { std::filesystem::remove_all(m_folder); }

    [[nodiscard]] std::filesystem::path write(const std::string& name, std::string_view bytes) const {
        std::ofstream(m_folder / name, std::ios::binary) << bytes;
        return m_folder / name;
    }

    std::filesystem::path m_folder =
        std::filesystem::temp_directory_path() / ("tarnquill-text-file-" + std::to_string(getpid()));
};

} // namespace

TEST_F(TextFile, ReadsEveryEncodingToTheSameText) {
    using namespace std::string_view_literals;
    for (const auto bytes : {"a\u00E9\U0001F600\n"sv, "\uFEFFa\u00E9\U0001F600\n"sv,
                             "\xFF\xFE"
                             "a\0\xE9\0\x3D\xD8\0\xDE\n\0"sv,
                             "\xFE\xFF\0a\0\xE9\xD8\x3D\xDE\0\0\n"sv}) {
        const auto text = readTextFile(write("text.json", bytes));
        ASSERT_TRUE(text);
        EXPECT_EQ(text->text, u"a\u00E9\U0001F600\n");
    }
    EXPECT_EQ(readTextFile(write("empty.json", ""))->text, u"");
}

TEST_F(TextFile, RefusesOtherEncodingsWithASentence) {
    using namespace std::string_view_literals;
    for (const auto bytes : {"caf\xE9"sv, "\xFF\xFE\x61"sv, "\xFF\xFE\0\xD8"sv}) {
        const auto text = readTextFile(write("latin.json", bytes));
        ASSERT_FALSE(text);
        EXPECT_EQ(text.error(), "“latin.json” is not UTF-8 text, nor UTF-16 with a byte-order mark.");
    }
}

TEST_F(TextFile, SaysWhyAFileCannotBeRead) {
    EXPECT_EQ(readFile(m_folder / "gone.json").error(),
              "Could not read “gone.json”: No such file or directory.");
    EXPECT_EQ(readFile(m_folder).error(), "“" + m_folder.filename().string() + "” is a folder, not a file.");
    EXPECT_EQ(readFile("/dev/zero").error(), "“zero” is not an ordinary file.");
    const auto large = write("large.json", "");
    std::filesystem::resize_file(large, kLargestFile + 1);
    EXPECT_EQ(readFile(large).error(),
              "“large.json” is larger than 1 GB, which is the most that can be opened.");
}

} // namespace tarnquill

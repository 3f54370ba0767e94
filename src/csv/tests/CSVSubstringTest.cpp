#include "csv/CSVSubstring.h"

#include <gtest/gtest.h>

namespace tarnquill {

namespace {

using enum CSVSubstring::Comparison;

bool contains(std::string_view cell, std::string_view text, CSVSubstring::Comparison comparison = locale,
              const std::string& localeName = "en_US") {
    return CSVSubstring(text, comparison, localeName).isIn(cell);
}

} // namespace

TEST(CSVSubstring, IgnoresCaseInEveryScript) {
    for (const auto comparison : {lowercase, locale}) {
        EXPECT_TRUE(contains("inactive", "ACT", comparison));
        EXPECT_TRUE(contains("Straße und ÄRGER", "ärger", comparison));
        EXPECT_TRUE(contains("МОСКВА", "сква", comparison));
        EXPECT_TRUE(contains("\U00010400", "\U00010428", comparison));
        EXPECT_TRUE(contains("300 \u212A", "300 k", comparison)) << "the Kelvin sign";
        EXPECT_FALSE(contains("inactive", "acts", comparison));
        EXPECT_FALSE(contains("", "a", comparison));
        EXPECT_FALSE(contains("a", "é", comparison));
    }
    EXPECT_TRUE(contains("ΟΔΟΣ οδος", "οδός", locale) == contains("ΟΔΟΣ οδος", "ΟΔΌΣ", locale));
    EXPECT_TRUE(contains("οδος", "ΔΟΣ", locale));
    EXPECT_FALSE(contains("οδος", "ΔΟΣ", lowercase)) << "a final sigma is a lowercase letter of its own";
}

TEST(CSVSubstring, FollowsTheDottedAndDotlessIOfTheLocale) {
    EXPECT_TRUE(contains("ISPARTA", "isp", locale, "en_US"));
    EXPECT_FALSE(contains("ISPARTA", "isp", locale, "tr_TR"));
    EXPECT_TRUE(contains("ISPARTA", "ısp", locale, "tr_TR"));
    EXPECT_TRUE(contains("İZMİR", "izmir", locale, "az"));
}

TEST(CSVSubstring, FindsTheTextAtEveryDistance) {
    for (const std::string text : {"x", "Xy", "Kelvin", "é", "ÉÀ"}) {
        const CSVSubstring wanted(text, locale, "en_US");
        for (std::size_t before = 0; before < 40; ++before) {
            for (const auto after : {std::size_t{0}, std::size_t{1}, std::size_t{20}}) {
                const auto cell =
                    std::string(before, 'X').substr(text[0] == 'x' || text[0] == 'X' ? before : 0) + text +
                    std::string(after, '-');
                const auto found = wanted.find(cell);
                ASSERT_TRUE(found) << cell;
                EXPECT_EQ(*found, (TextRange{cell.size() - after - text.size(), text.size()})) << cell;
                EXPECT_FALSE(wanted.find(cell, found->location + 1)) << cell;
            }
        }
    }
}

} // namespace tarnquill

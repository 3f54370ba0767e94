#include "csv/CSVNumber.h"

#include <gtest/gtest.h>

#include <limits>

namespace tarnquill {

TEST(CSVNumber, ReadsDecimalNumbers) {
    constexpr auto kInfinity = std::numeric_limits<double>::infinity();
    const struct {
        std::string_view text;
        double value;
    } kRows[] = {
        {"42", 42},
        {"-3.5", -3.5},
        {"+7", 7},
        {".5", 0.5},
        {"5.", 5},
        {"1e3", 1000},
        {"1E-2", 0.01},
        {"007", 7},
        {"1e400", kInfinity},
        {"-1e400", -kInfinity},
        {"1e-400", 0},
        {"0.000000001e99999999999999999999", kInfinity},
        {"1e-99999999999999999999", 0},
        {"0.0000000001e310", 1e300},
    };
    for (const auto& [text, value] : kRows) {
        EXPECT_EQ(CSVNumber::read(text), value) << text;
    }
    EXPECT_EQ(CSVNumber::read(std::string(400, '9')), kInfinity);
    EXPECT_EQ(CSVNumber::read("0." + std::string(400, '0') + "1"), 0);
    EXPECT_EQ(CSVNumber::read("1" + std::string(400, '0') + "e-400"), 1);
}

TEST(CSVNumber, RefusesEverythingElse) {
    for (const auto text : {"", "-", ".", "-.", "e5", "1e", "1e+", "1,000", "$5", "n/a", "0x10", "inf", "nan",
                            " 1", "1 ", "1.2.3", "--1", "1-2", "1_000"}) {
        EXPECT_FALSE(CSVNumber::isNumber(text)) << text;
        EXPECT_EQ(CSVNumber::read(text), std::nullopt) << text;
    }
}

} // namespace tarnquill

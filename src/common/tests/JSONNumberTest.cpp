#include "common/JSONNumber.h"

#include <gtest/gtest.h>

#include <string>

namespace tarnquill {

namespace {

std::string printed(std::string_view literal) {
    JSONNumber::Buffer buffer;
    return std::string(JSONNumber::printed(literal, buffer));
}

} // namespace

TEST(JSONNumber, PrintsADoubleInOneForm) {
    const std::pair<const char*, const char*> rows[] = {
        {"1.0", "1.0"},
        {"1.50", "1.5"},
        {"0.10", "0.1"},
        {"1.0e0", "1.0"},
        {"1e2", "100.0"},
        {"1E5", "100000.0"},
        {"12.5e-1", "1.25"},
        {"1e15", "1000000000000000.0"},
        {"1e16", "1e+16"},
        {"1234567890123456.5", "1234567890123456.5"},
        {"1.5E+20", "1.5e+20"},
        {"0.0001", "0.0001"},
        {"0.00001", "1e-05"},
        {"123e-7", "1.23e-05"},
        {"1e-95", "1e-95"},
        {"5e-324", "5e-324"},
        {"1.7976931348623157E308", "1.7976931348623157e+308"},
        {"0e5", "0.0"},
        {"-0.0", "-0.0"},
        {"-0e-999", "-0.0"},
        {"10.00000000000000000000", "10.0"},
    };
    for (const auto& [literal, expected] : rows) {
        EXPECT_EQ(printed(literal), expected) << literal;
        EXPECT_EQ(printed(expected), expected);
    }
}

TEST(JSONNumber, KeepsEveryDigitThatADoubleWouldLose) {
    for (const auto* literal :
         {"0", "-0", "100", "12345678901234567890", "1234567890123456789012345678901234567890",
          "0.1234567890123456789012", "0.10000000000000001", "12345678901234567890.0", "9007199254740993.0",
          "1234567890123456789012345678901234567890E+5", "1e-400", "4.9e-324", "1.7976931348623158e308"}) {
        EXPECT_EQ(printed(literal), literal);
    }
}

TEST(JSONNumber, OverflowsWhereTheNearestDoubleIsInfinite) {
    const auto nines = std::string(309, '9');
    for (const auto& literal :
         {std::string("1e309"), std::string("-1e999"), std::string("1.7976931348623159e308"), nines,
          nines + ".5", "0." + std::string(400, '0') + "1e800", std::string("1e99999999999999999999999")}) {
        EXPECT_TRUE(JSONNumber::overflows(literal)) << literal;
    }
    const auto zeros = std::string(400, '0');
    for (const auto& literal :
         {std::string("1e308"), std::string("1.7976931348623158e308"),
          std::string("1e-99999999999999999999999"), std::string("0e99999999999999999999999"),
          "0." + zeros + "1e400", "1" + zeros + "e-200"}) {
        EXPECT_FALSE(JSONNumber::overflows(literal)) << literal;
    }
}

// Whatever the quick test takes is not looked at again, so it must not take a number that prints differently.
TEST(JSONNumber, CallsANumberPlainOnlyWhenItPrintsAsWritten) {
    const auto isPlain = [](std::string_view literal) {
        const auto point = literal.find('.');
        return JSONNumber::isPlain(literal.substr(0, point), literal.substr(point + 1));
    };
    for (const auto* literal :
         {"1.5", "0.0", "0.0001", "1234567890123456.7", "3.141592653589793", "0.12345678901234567"}) {
        EXPECT_TRUE(isPlain(literal)) << literal;
        EXPECT_EQ(printed(literal), literal);
    }
    for (const auto* literal : {"1.50", "0.00", "0.00001", "12345678901234567.5"}) {
        EXPECT_FALSE(isPlain(literal)) << literal;
    }
}

} // namespace tarnquill

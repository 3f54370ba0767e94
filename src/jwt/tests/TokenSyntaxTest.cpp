#include "jwt/TokenSyntax.h"

#include <gtest/gtest.h>

namespace tarnquill {

namespace {

// One character a unit: "-" plain, "." dot, then header, payload, signature and other by their first letters.
std::string kindsOf(std::u16string_view text) {
    std::string result;
    for (const auto kind : TokenSyntax::kinds(text)) {
        result += std::string_view("-.hpso")[static_cast<std::size_t>(kind)];
    }
    return result;
}

} // namespace

TEST(TokenSyntax, TellsThePartsApart) {
    EXPECT_EQ(kindsOf(u""), "");
    EXPECT_EQ(kindsOf(u"aa.b.cc"), "hh.p.ss");
    EXPECT_EQ(kindsOf(u"a\na..c\n\n"), "hhh..s--");
    EXPECT_EQ(kindsOf(u"a.b.c.d.e"), "h.o.o.p.s");
    EXPECT_EQ(kindsOf(u"a.b.c.d"), "h.p.s.-");
    EXPECT_EQ(kindsOf(u"aa.b"), "hh.p");
}

TEST(TokenSyntax, LeavesWhatStandsAroundATokenPlain) {
    EXPECT_EQ(kindsOf(u" 'Bearer  a.b.c' "), "----------h.p.s--");
    EXPECT_EQ(kindsOf(u"AUTHORIZATION: bearer\na.b.c"), "----------------------h.p.s");
    EXPECT_EQ(kindsOf(u"bearera.b"), "hhhhhhh.p");
    EXPECT_EQ(kindsOf(u"bearer"), "hhhhhh");
}

} // namespace tarnquill

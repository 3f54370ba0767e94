#include "common/Graphemes.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tarnquill {
namespace {

// The text's clusters, found forward; each is also what start() says of every unit in it.
std::vector<std::u16string> clusters(const std::u16string& text) {
    std::vector<std::u16string> result;
    for (std::size_t at = 0; at < text.size();) {
        const auto end = Graphemes::end(text, at);
        for (auto inside = at; inside < end; ++inside) {
            EXPECT_EQ(Graphemes::start(text, inside), at) << "at unit " << inside;
        }
        result.push_back(text.substr(at, end - at));
        at = end;
    }
    return result;
}

TEST(Graphemes, AreWhatAReaderTakesForOneCharacter) {
    using Clusters = std::vector<std::u16string>;
    EXPECT_EQ(clusters(u"ab\r\nc"), (Clusters{u"a", u"b", u"\r\n", u"c"}));
    EXPECT_EQ(clusters(u"e\u0301\u0323x"), (Clusters{u"e\u0301\u0323", u"x"}));
    EXPECT_EQ(clusters(u"👩‍👩‍👧‍👦👍🏽!"),
              (Clusters{u"👩‍👩‍👧‍👦", u"👍🏽", u"!"}));
    EXPECT_EQ(clusters(u"🇩🇪🇫🇷🇮"), (Clusters{u"🇩🇪", u"🇫🇷", u"🇮"}));
    EXPECT_EQ(clusters(u"\u1112\u1161\u11AB한가"), (Clusters{u"\u1112\u1161\u11AB", u"한", u"가"}));
    EXPECT_EQ(clusters(u"நி"), (Clusters{u"நி"}));
    EXPECT_EQ(clusters(u"\n\u0301"), (Clusters{u"\n", u"\u0301"}));
}

TEST(Graphemes, TakeLoneSurrogatesAsCharacters) {
    const std::u16string text{u'a', char16_t{0xD83D}, char16_t{0xD83D}, char16_t{0xDE00}, char16_t{0xDE00}};
    EXPECT_EQ(clusters(text), (std::vector<std::u16string>{text.substr(0, 1), text.substr(1, 1),
                                                           text.substr(2, 2), text.substr(4, 1)}));
}

TEST(Graphemes, EndInAFloodOfMarks) {
    const auto text = u"e" + std::u16string(100'000, u'\u0301');
    EXPECT_LE(Graphemes::end(text, 0), Graphemes::kLongest + 1);
    EXPECT_GE(Graphemes::start(text, 50'000), 50'000 - 3 * Graphemes::kLongest);
}

} // namespace
} // namespace tarnquill

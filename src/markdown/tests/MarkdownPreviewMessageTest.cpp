#include "markdown/MarkdownPreviewMessage.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace tarnquill::MarkdownPreviewMessage {

namespace {

QJsonValue json(const char* text) {
    return QJsonDocument::fromJson(QByteArray("[") + text + "]").array().first();
}

QJsonObject layout() {
    return json(
               R"({"kind":"layout","tops":[[1,10,1,30],[3,40,5,90]],"lineCount":7,"height":200,"viewport":120.5,
                    "scrollY":-3,"userScroll":true})")
        .toObject();
}

QJsonObject layoutWith(const char* key, const char* value) {
    auto message = layout();
    message[QLatin1String(key)] = json(value);
    return message;
}

} // namespace

TEST(MarkdownPreviewMessage, ReadsScrollsAndLayouts) {
    EXPECT_EQ(std::get<Scroll>(decoded(json(R"({"kind":"scroll","y":12.5,"user":true})")).value()),
              (Scroll{.y = 12.5, .user = true}));
    const auto read = std::get<Layout>(decoded(layout()).value());
    const std::array blocks{
        MarkdownLineMap::Block{.line = 1, .top = 10, .end = {}},
        MarkdownLineMap::Block{
            .line = 3, .top = 40, .end = MarkdownLineMap::Block::End{.line = 5, .bottom = 90}}};
    EXPECT_EQ(read.map, MarkdownLineMap(blocks, 7, 200));
    EXPECT_EQ(read.documentHeight, 200);
    EXPECT_EQ(read.viewportHeight, 120.5);
    EXPECT_EQ(read.scrollY, -3);
    EXPECT_TRUE(read.userScroll);
}

TEST(MarkdownPreviewMessage, DropsAMessageOfTheWrongShapeAsAWhole) {
    for (const auto* const message :
         {"null", "3", "[]", "{}", R"({"kind":1})", R"({"kind":"other"})", R"({"kind":"scroll","y":1})",
          R"({"kind":"scroll","y":true,"user":true})", R"({"kind":"scroll","y":1,"user":1})"}) {
        EXPECT_FALSE(decoded(json(message))) << message;
    }
    const struct {
        const char* key;
        const char* value;
    } rows[] = {{"tops", "{}"},        {"tops", "null"},      {"lineCount", "0"},    {"lineCount", "2.5"},
                {"lineCount", "1e19"}, {"lineCount", "true"}, {"lineCount", "null"}, {"height", "-1"},
                {"viewport", "\"9\""}, {"scrollY", "false"},  {"userScroll", "0"}};
    for (const auto& [key, value] : rows) {
        EXPECT_FALSE(decoded(layoutWith(key, value))) << key << " " << value;
    }
    EXPECT_TRUE(decoded(layoutWith("lineCount", "1e18")));
}

TEST(MarkdownPreviewMessage, LeavesOutEntriesOfTheWrongShapeAndKeepsTheOthers) {
    const auto good = std::get<Layout>(decoded(layoutWith("tops", "[[2,10,2,30]]")).value());
    const auto mixed = std::get<Layout>(
        decoded(layoutWith("tops", "[[1,true,1,3],[2,10,2,30],null,7,[1,2,3],[1,\"2\",3,4],{}]")).value());
    EXPECT_EQ(mixed.map, good.map);
}

} // namespace tarnquill::MarkdownPreviewMessage

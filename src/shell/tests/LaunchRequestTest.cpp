#include "shell/LaunchRequest.h"

#include <gtest/gtest.h>

namespace tarnquill {
namespace {

TEST(LaunchRequestTest, SurvivesTheWayThroughAMessage) {
    const LaunchRequest request{
        .files = {QStringLiteral("/tmp/a\nb \"c\".json"), QString::fromUtf8("/tmp/Straße – 日本.md")},
        .activationToken = QStringLiteral("token_1")};
    EXPECT_EQ(LaunchRequest::fromMessage(request.message()), request);
    EXPECT_EQ(LaunchRequest::fromMessage(LaunchRequest{}.message()), LaunchRequest{});
    EXPECT_EQ(request.message().count('\n'), 1) << "a line feed ends the message and stands nowhere else";
}

TEST(LaunchRequestTest, RefusesWhatIsNotAMessage) {
    const QByteArray rows[] = {
        "",
        "\n",
        "hello\n",
        "[]\n",
        R"({"files":[],"activationToken":""})",
        "{\"files\":[]}\n",
        "{\"files\":\"/etc/passwd\",\"activationToken\":\"\"}\n",
        "{\"files\":[7],\"activationToken\":\"\"}\n",
        "{\"files\":[\"relative.json\"],\"activationToken\":\"\"}\n",
        "{\"files\":[\"/tmp/a.json\\u0000.png\"],\"activationToken\":\"\"}\n",
        QByteArray(2000, '[') + '\n',
        LaunchRequest{.files = {u'/' + QString(LaunchRequest::kMaxMessageBytes, u'a')}}.message(),
    };
    for (const auto& row : rows) {
        EXPECT_EQ(LaunchRequest::fromMessage(row), std::nullopt) << row.left(80).toStdString();
    }
}

} // namespace
} // namespace tarnquill

#include "chrome/WebPageView.h"

#include "chrome/Theme.h"
#include "chrome/testing/WebPageProcess.h"
#include "common/testing/WaitUntil.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QJsonArray>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>

namespace tarnquill {
namespace {

using namespace Qt::StringLiterals;

using Result = std::expected<QJsonValue, QString>;

class WebPageViewTest : public testing::Test {
protected:
    void load(const QString& html) {
        QSignalSpy loaded(&view, &WebPageView::loaded);
        view.resize(400, 300);
        view.show();
        view.loadHtml(html, {});
        ASSERT_TRUE(waitUntil([&] { return loaded.count() == 1; }));
    }

    Result call(const QString& body, const QJsonObject& arguments = {}) {
        std::optional<Result> result;
        view.call(body, arguments, [&](const Result& answer) { result = answer; });
        waitUntil([&] { return result.has_value(); });
        return result.value_or(std::unexpected(u"No answer came."_s));
    }

    QList<QUrl> asked;
    WebPageView view{
        {.messageHandlers = {u"sync"_s}, .allowsRequest = [this](const QUrl& url, WebPage::Resource) {
             asked.append(url);
             return url.path() == u"/allowed.png";
         }}};
};

TEST_F(WebPageViewTest, DeliversMessagesFromTheFirstScriptOnInOrder) {
    QSignalSpy received(&view, &WebPageView::messageReceived);
    load(u"<script>for (const body of [1, [true, 'a\"\\n\u2028'], { y: 2.5 }, 'long'.repeat(20000), "
         u"undefined])"
         "window.webkit.messageHandlers.sync.postMessage(body)</script>"_s);
    ASSERT_TRUE(waitUntil([&] { return received.count() == 5; }));
    QJsonArray bodies;
    for (const auto& message : received) {
        EXPECT_EQ(message[0].toString(), u"sync"_s);
        bodies.append(message[1].toJsonValue());
    }
    EXPECT_EQ(bodies, (QJsonArray{1, QJsonArray{true, u"a\"\n\u2028"_s}, QJsonObject{{u"y"_s, 2.5}},
                                  u"long"_s.repeated(20000), QJsonValue::Null}));
}

TEST_F(WebPageViewTest, WorksUnderAPolicyThatForbidsEveryScript) {
    load(u"<meta http-equiv='Content-Security-Policy' content=\"default-src 'none'\">"
         "<script>document.title = 'ran'</script>"_s);
    EXPECT_EQ(call(u"return [document.title, typeof webkit.messageHandlers.sync.postMessage];"_s),
              Result(QJsonArray{u""_s, u"function"_s}));
}

TEST_F(WebPageViewTest, AwaitsWhatACallReturnsOrThrows) {
    load(u"<script>async function twice(text) {"
         "await new Promise(done => setTimeout(done, 20)); return text + text }</script>"_s);
    EXPECT_EQ(call(u"return await twice(b) + a;"_s, {{u"a"_s, 1}, {u"b"_s, u"%1`${x}'\"\n"_s}}),
              Result(u"%1`${x}'\"\n%1`${x}'\"\n1"_s));
    EXPECT_EQ(call(u"throw new Error('no such diagram');"_s), Result(std::unexpected(u"no such diagram"_s)));
    const auto nothing = call(u"await twice('a');"_s);
    EXPECT_TRUE(nothing && nothing->isUndefined());
    // Too long for one message of the channel, with a pair of surrogates wherever one may be divided.
    const auto faces = u"🙂"_s.repeated(50'000);
    EXPECT_EQ(call(u"return a + '🙂'.repeat(50000);"_s, {{u"a"_s, u"x"_s}}), Result(u'x' + faces));
}

TEST_F(WebPageViewTest, FailsACallThatNobodyWillAnswer) {
    EXPECT_FALSE(call(u"return 1;"_s)) << "nothing is loaded yet";
    load(u"<p>One</p>"_s);
    int failures = 0;
    view.call(u"await new Promise(() => {});"_s, {}, [&](const Result& result) { failures += !result; });
    view.loadHtml(u"<p>Two</p>"_s, {});
    EXPECT_EQ(failures, 1);
}

TEST_F(WebPageViewTest, LetsOnlyAllowedRequestsLeaveTheProgram) {
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    const auto host = u"http://127.0.0.1:%1"_s.arg(server.serverPort());
    // An image that is never answered keeps the load from finishing.
    const auto html =
        u"<img src='%1/refused.png'><link rel=stylesheet href='%1/s.css'><iframe src='%1/f'></iframe>"
        "<script>fetch('%1/fetched').catch(() => {});"
        "new Image().src = '%1/allowed.png'</script>"_s;
    view.resize(400, 300);
    view.show();
    view.loadHtml(html.arg(host), {});
    ASSERT_TRUE(waitUntil([&] { return server.hasPendingConnections(); }));
    letEventsPass(200);
    auto* const connection = server.nextPendingConnection();
    waitUntil([&] { return connection->canReadLine(); });
    EXPECT_EQ(connection->readLine(), "GET /allowed.png HTTP/1.1\r\n");
    EXPECT_FALSE(server.hasPendingConnections());
    EXPECT_THAT(asked, testing::Contains(QUrl(host + u"/fetched"_s)));
}

TEST_F(WebPageViewTest, StaysOnItsPageAndTellsWhereItWasToGo) {
    load(u"<a id=web href='https://example.org/'>web</a><a id=part href='#part'>part</a>"
         "<iframe src='about:blank#sub'></iframe>"_s);
    QSignalSpy refused(&view, &WebPageView::navigationRefused);
    view.run(u"web.click(); part.click()"_s);
    ASSERT_TRUE(waitUntil([&] { return !refused.isEmpty(); }));
    EXPECT_EQ(refused[0][0].toUrl(), QUrl(u"https://example.org/"_s));
    EXPECT_EQ(refused[0][1].value<WebPage::Navigation>(), WebPage::Navigation::link);
    letEventsPass(100);
    EXPECT_TRUE(view.isLoaded());
    EXPECT_EQ(call(u"return location.href;"_s), Result(u"about:blank"_s));
}

TEST_F(WebPageViewTest, FollowsTheThemeLive) {
    const auto color = [this] { return call(u"return getComputedStyle(document.body).color;"_s); };
    Theme::instance().setAppearance(Appearance::dark);
    load(u"<style>body { color: rgb(1, 1, 1) }"
         "@media (prefers-color-scheme: dark) { body { color: rgb(2, 2, 2) } }</style>"_s);
    EXPECT_EQ(color(), Result(u"rgb(2, 2, 2)"_s));
    Theme::instance().setAppearance(Appearance::light);
    EXPECT_EQ(color(), Result(u"rgb(1, 1, 1)"_s));
    Theme::instance().setAppearance(Appearance::dark);
    EXPECT_EQ(color(), Result(u"rgb(2, 2, 2)"_s));
    Theme::instance().setAppearance(Appearance::light);
}

TEST_F(WebPageViewTest, ComesBackWhenItsProcessHasDiedUnlessThatGoesOn) {
    load(u"<p>One</p>"_s);
    QSignalSpy loaded(&view, &WebPageView::loaded);
    QSignalSpy died(&view, &WebPageView::died);
    for (int death = 1; death <= 4; ++death) {
        killProcess(view);
        ASSERT_TRUE(waitUntil([&] { return died.count() == death; }));
        EXPECT_FALSE(view.isLoaded());
        ASSERT_EQ(died.last()[0].toBool(), death < 4);
        ASSERT_TRUE(death == 4 || waitUntil([&] { return loaded.count() == death; }));
    }
    view.reloadPage();
    ASSERT_TRUE(waitUntil([&] { return loaded.count() == 4; }));
    EXPECT_EQ(call(u"return document.body.textContent;"_s), Result(u"One"_s));
}

} // namespace
} // namespace tarnquill

#include "mermaid/MermaidWebPage.h"

#include "chrome/WebPageView.h"
#include "common/testing/WaitUntil.h"
#include "mermaid/MermaidTemplates.h"
#include "mermaid/MermaidThemes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QImage>
#include <QJsonArray>
#include <QProcess>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTcpServer>

namespace tarnquill {
namespace {

using namespace Qt::StringLiterals;

// The real page with the real engine.
class MermaidPageTest : public testing::Test {
protected:
    MermaidPageTest() {
        QSignalSpy loaded(&page, &MermaidPage::loaded);
        window.resize(800, 600);
        page.view().resize(800, 600);
        window.show();
        waitUntil([&] { return loaded.count() == 1; }, 30'000);
        EXPECT_TRUE(call(u"return boot(theme);"_s, {{u"theme"_s, u"default"_s}}).toBool());
    }

    QJsonValue call(const QString& body, const QJsonObject& arguments = {}) {
        std::optional<std::expected<QJsonValue, QString>> answer;
        page.call(body, arguments, [&](const auto& result) { answer = result; });
        EXPECT_TRUE(waitUntil([&] { return answer.has_value(); }, 240'000)) << body.toStdString();
        EXPECT_TRUE(answer && *answer)
            << body.toStdString() << ": " << (answer ? answer->error().toStdString() : "no answer");
        return answer && *answer ? **answer : QJsonValue();
    }

    QJsonValue render(const QString& source) {
        return call(u"return await renderDiagram(code);"_s, {{u"code"_s, source}});
    }
    QString svg() { return call(u"return getSVG();"_s).toString(); }

    QWidget window;
    MermaidWebPage page{&window};
};

QString toQString(std::u16string_view text) {
    return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}

TEST_F(MermaidPageTest, DrawsEveryTemplateInEveryTheme) {
    for (const auto& starter : MermaidTemplates::all()) {
        const auto result = render(toQString(starter.source));
        EXPECT_TRUE(result[u"ok"_s].toBool()) << toQString(starter.title).toStdString() << ": "
                                              << result[u"message"_s].toString().toStdString();
        const auto drawn = svg();
        EXPECT_EQ(result[u"svgBytes"_s].toInteger(), drawn.toUtf8().size());
        EXPECT_FALSE(drawn.contains(u"foreignObject"_s)) << toQString(starter.title).toStdString();
    }
    render(u"graph LR\n A --> B"_s);
    QStringList looks;
    for (const auto& choice : MermaidThemes::kChoices) {
        if (choice.id != MermaidThemes::kAutomatic) {
            call(u"return setTheme(theme);"_s,
                 {{u"theme"_s, QString::fromStdString(std::string(choice.id))}});
            looks.append(svg().remove(QRegularExpression(u"diagram-\\d+"_s)));
        }
    }
    EXPECT_EQ(looks.removeDuplicates(), 0) << "each theme is the engine's, and looks like itself";
}

TEST_F(MermaidPageTest, KeepsTheLastGoodDiagramUnderAnErrorWithItsLine) {
    ASSERT_TRUE(render(u"graph LR\n A[Kept] --> B"_s)[u"ok"_s].toBool());
    const auto before = svg();
    const struct {
        const char* name;
        const char16_t* source;
        int line;
    } rows[] = {
        {"as it is", u"graph LR\n A --> B\n B -->\n C[x", 4},
        {"behind blank lines", u"\n\n  \ngraph LR\n A -->\n", 5},
        {"behind front matter, a directive and comments",
         u"---\ntitle: x\n---\n\n%% a\n%%{init: {\n \"theme\": \"dark\"}}%%\ngraph LR\n\n %% b\n A --> B\n "
         u"D[[[ \n",
         12},
        {"behind a brace and a blank line", u"graph LR\n A{x}\n\n\n B[[[ \n", 5},
        {"with Windows line ends", u"%% a\r\nsequenceDiagram\r\n A->>B: x\r\n foo bar\r\n", 4},
        {"from the other parser", u"pie\n \"a\" : 1\n\n %% x\n foo\n", 5},
    };
    for (const auto& row : rows) {
        const auto result = render(QString::fromUtf16(row.source));
        EXPECT_FALSE(result[u"ok"_s].toBool()) << row.name;
        EXPECT_EQ(result[u"line"_s].toInt(), row.line)
            << row.name << ": " << result[u"message"_s].toString().toStdString();
        EXPECT_TRUE(
            call(u"return element('error').innerText;"_s).toString().contains(u"ine %1"_s.arg(row.line)));
    }
    const auto unknown = render(u"bogus"_s);
    EXPECT_FALSE(unknown[u"message"_s].toString().isEmpty());
    EXPECT_TRUE(unknown[u"line"_s].isUndefined());
    EXPECT_EQ(svg(), before);

    QSignalSpy messages(&page, &MermaidPage::messageReceived);
    render(u"graph LR\n A -->\n"_s);
    call(u"element('error').click();"_s);
    EXPECT_TRUE(waitUntil([&] { return !messages.isEmpty() && messages.last()[0] == u"errorActivated"_s; }));
    render(u"graph LR\n A"_s);
    EXPECT_TRUE(call(u"return element('error').hidden;"_s).toBool());
}

TEST_F(MermaidPageTest, NeverRunsOrReachesWhatADiagramBrings) {
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    const auto address = u"http://127.0.0.1:%1/x"_s.arg(server.serverPort());
    const QStringList sources{
        u"graph LR\n A[<img src=x onerror=window.ran=1>] --> B[\"<script>window.ran=1</script>\"]\n"
        " click A href \"javascript:window.ran=1\"\n click B call alert()"_s,
        u"%%{init: {\"securityLevel\": \"loose\", \"htmlLabels\": true, \"flowchart\": {\"htmlLabels\": "
        u"true}}}%%\n"
        "graph LR\n A[\"<img src='%1' onerror='window.ran=1'>\"] --> B\n click A call window.ran=1"_s.arg(
            address),
        u"%%{init: {\"themeCSS\": \"@import url('%1'); .node { background: url('%1') }\"}}%%\ngraph LR\n A"_s
            .arg(address),
        u"---\nconfig:\n  securityLevel: loose\n  dompurifyConfig: {ADD_TAGS: [script]}\n---\n"
        "sequenceDiagram\n A->>B: <iframe srcdoc='<script>parent.ran=1</script>'>\n"
        " link A: x @ javascript:window.ran=1"_s,
        u"classDiagram\n class A\n link A \"javascript:window.ran=1\" \"x\"\n A : <object data='%1'>"_s.arg(
            address),
    };
    for (const auto& source : sources) {
        render(source);
        const auto drawn = svg();
        EXPECT_FALSE(drawn.contains(u"javascript:"_s)) << drawn.toStdString();
        EXPECT_FALSE(drawn.contains(u"onerror="_s)) << drawn.toStdString();
        EXPECT_FALSE(drawn.contains(u"<script"_s));
    }
    call(
        u"for (const link of document.querySelectorAll('a')) link.dispatchEvent(new MouseEvent('click'));"_s);
    call(
        u"fetch(address).catch(() => {}); new Image().src = address; navigator.sendBeacon(address);"
        "const script = document.createElement('script'); script.src = address; document.head.append(script);"_s,
        {{u"address"_s, address}});
    letEventsPass(300);
    EXPECT_FALSE(server.hasPendingConnections());
    EXPECT_TRUE(call(u"return window.ran === undefined;"_s).toBool());
    EXPECT_EQ(call(u"return mermaid.mermaidAPI.getConfig().securityLevel;"_s), u"strict"_s);
}

TEST_F(MermaidPageTest, TakesSourcesOfAMegabyteAndTwoThousandEdges) {
    QString edges = u"graph LR\n"_s;
    for (int from = 0; from < 40; ++from) {
        for (int to = 0; to < 50; ++to) {
            edges += u" A%1 --> B%2\n"_s.arg(from).arg(to);
        }
    }
    EXPECT_TRUE(render(edges)[u"ok"_s].toBool());
    const auto text = u"%% remark\n"_s.repeated(100'000);
    EXPECT_TRUE(render(text + u"graph LR\n A --> B"_s)[u"ok"_s].toBool());
    const auto label = render(u"graph LR\n A[\"%1\"]"_s.arg(QString(1'000'000, u'x')));
    EXPECT_EQ(label[u"line"_s].toInt(), 2) << "the engine would use up all memory";
}

TEST_F(MermaidPageTest, KeepsZoomAndPlaceThroughEditsUntilItIsToFitAgain) {
    QSignalSpy messages(&page, &MermaidPage::messageReceived);
    const auto state = [&] { return messages.isEmpty() ? QJsonValue() : messages.last()[1].toJsonValue(); };
    const auto wide = u"graph LR\n A --> B --> C --> D --> E --> F --> G --> H --> I --> J --> K --> L"_s;
    render(wide);
    ASSERT_TRUE(waitUntil([&] { return state()[u"scale"_s].toDouble() < 1; }));
    EXPECT_TRUE(state()[u"isAutoFit"_s].toBool());

    // The wheel keeps the point under the pointer.
    const auto point = u"const m = new DOMMatrix(getComputedStyle(element('diagram')).transform);"
                       "return [(200 - m.e) / m.a, (100 - m.f) / m.d].map(Math.round);"_s;
    const auto before = call(point);
    call(u"element('stage').dispatchEvent(new WheelEvent('wheel', "
         "{ deltaY: -400, clientX: 200, clientY: 100, cancelable: true }));"_s);
    EXPECT_EQ(call(point), before);
    ASSERT_TRUE(waitUntil([&] { return !state()[u"isAutoFit"_s].toBool(); }));
    const auto zoomed = state()[u"scale"_s];
    render(u"graph LR\n A --> B"_s);
    letEventsPass(100);
    EXPECT_EQ(state()[u"scale"_s], zoomed);
    EXPECT_EQ(call(point), before);

    page.run(u"viewport.zoomTo(1)"_s);
    ASSERT_TRUE(waitUntil([&] { return state()[u"scale"_s] == 1; }));
    page.run(u"viewport.zoomOut()"_s);
    ASSERT_TRUE(waitUntil([&] { return state()[u"scale"_s] == 0.8; }));
    page.run(u"requestAutoFit()"_s);
    ASSERT_TRUE(waitUntil([&] { return state()[u"isAutoFit"_s].toBool(); }));
    EXPECT_EQ(state()[u"scale"_s], 1) << "a small diagram is not blown up";
}

TEST_F(MermaidPageTest, GivesTheDiagramAsAPictureOfTheWantedScale) {
    render(u"graph LR\n A[Label] --> B"_s);
    const auto size = call(u"return [shell.size.width, shell.size.height];"_s);
    const auto address = call(u"return await getPNG(scale);"_s, {{u"scale"_s, 3}}).toString();
    const auto prefix = u"data:image/png;base64,"_s;
    ASSERT_TRUE(address.startsWith(prefix));
    const auto picture = QImage::fromData(QByteArray::fromBase64(address.sliced(prefix.size()).toLatin1()));
    EXPECT_EQ(picture.width(), std::ceil(size[0].toDouble() * 3));
    EXPECT_EQ(picture.height(), std::ceil(size[1].toDouble() * 3));
    EXPECT_EQ(qAlpha(picture.pixel(0, 0)), 0);
    EXPECT_EQ(qAlpha(picture.pixel(picture.width() / 5, picture.height() / 2)), 255);
    render(QString());
    EXPECT_TRUE(call(u"return await getPNG(2);"_s).isNull());
    EXPECT_TRUE(call(u"return getSVG();"_s).isNull());
}

// Draws the SVG with a program that is no browser and gives back the words in it.
QString textSeenElsewhere(const QString& svg) {
    const auto run = [](const QString& program, const QStringList& arguments, const QByteArray& input) {
        QProcess process;
        process.start(program, arguments);
        process.write(input);
        process.closeWriteChannel();
        process.waitForFinished();
        return process.readAllStandardOutput();
    };
    const auto pdf = run(u"rsvg-convert"_s, {u"--format=pdf"_s}, svg.toUtf8());
    return QString::fromUtf8(run(u"pdftotext"_s, {u"-"_s, u"-"_s}, pdf)).simplified();
}

TEST_F(MermaidPageTest, ExportsSVGWhoseTextsShowOutsideOfBrowsers) {
    const struct {
        const char16_t* title;
        QStringList labels;
    } rows[] = {
        {u"Flowchart", {u"Paste, drop or open"_s, u"Base64"_s}},
        {u"Sequence", {u"Reader"_s, u"Drop a file"_s, u"Nothing leaves the machine"_s}},
        {u"Class", {u"Shape"_s, u"area"_s, u"holds"_s}},
        {u"State", {u"Idle"_s, u"text changed"_s}},
        {u"Entity Relationship", {u"CUSTOMER"_s, u"places"_s, u"email"_s}},
        {u"Gantt", {u"A small release"_s, u"Write"_s}},
        {u"Pie", {u"Where the time goes"_s, u"Coffee"_s}},
        {u"Mindmap", {u"Trip"_s, u"Mountains"_s}},
    };
    for (const auto& row : rows) {
        const auto starter = std::ranges::find(MermaidTemplates::all(), std::u16string_view(row.title),
                                               &MermaidTemplates::Template::title);
        render(toQString(starter->source));
        const auto seen = textSeenElsewhere(svg());
        for (const auto& label : row.labels) {
            EXPECT_TRUE(seen.contains(label)) << label.toStdString() << " in: " << seen.toStdString();
        }
    }
}

TEST_F(MermaidPageTest, ComesBackWhenItIsRestartedInTheMiddleOfAScript) {
    QSignalSpy loaded(&page, &MermaidPage::loaded);
    std::optional<bool> failed;
    page.call(u"for (;;) {}"_s, {}, [&](const auto& result) { failed = !result; });
    letEventsPass(200);
    page.restart();
    ASSERT_TRUE(waitUntil([&] { return loaded.count() == 1; }, 30'000));
    EXPECT_EQ(failed, true);
    EXPECT_TRUE(call(u"return boot('default');"_s).toBool());
    EXPECT_TRUE(render(u"graph LR\n A"_s)[u"ok"_s].toBool());
}

} // namespace
} // namespace tarnquill

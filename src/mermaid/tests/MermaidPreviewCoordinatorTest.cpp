#include "mermaid/MermaidPreviewCoordinator.h"

#include "common/testing/WaitUntil.h"
#include "mermaid/MermaidExport.h"
#include "mermaid/MermaidViewportController.h"
#include "mermaid/testing/FakeMermaidPage.h"

#include <gtest/gtest.h>

#include <QJsonArray>

namespace tarnquill {
namespace {

using namespace Qt::StringLiterals;
using Failed = MermaidOutcome::Failed;
using Rendered = MermaidOutcome::Rendered;

class MermaidPreviewCoordinatorTest : public testing::Test {
protected:
    MermaidPreviewCoordinatorTest() {
        QObject::connect(&coordinator, &MermaidPreviewCoordinator::outcome, &coordinator,
                         [this](const MermaidOutcome& outcome) { outcomes.append(outcome); });
        coordinator.setTheme(u"dark"_s);
    }

    void boot() {
        Q_EMIT page.loaded();
        page.answer(u"boot"_s, QJsonValue(true));
        outcomes.clear();
    }

    // What the present source comes to when the page answers that to its render.
    std::optional<MermaidOutcome> rendered(const std::expected<QJsonValue, QString>& result) {
        coordinator.setSource(u"source %1"_s.arg(++sources));
        page.answer(u"renderDiagram"_s, result);
        return outcomes.isEmpty() ? std::nullopt : std::optional(outcomes.takeLast());
    }

    static QJsonObject good(int bytes) { return {{u"ok"_s, true}, {u"svgBytes"_s, bytes}}; }

    FakeMermaidPage page;
    MermaidViewportController viewport;
    MermaidExportController exporting;
    MermaidPreviewCoordinator coordinator{page, viewport, exporting};
    QList<MermaidOutcome> outcomes;
    int sources = 0;
};

TEST_F(MermaidPreviewCoordinatorTest, StartsTheEngineBeforeItRenders) {
    coordinator.setSource(u"graph TD"_s);
    EXPECT_TRUE(page.calls.empty());
    Q_EMIT page.loaded();
    ASSERT_EQ(page.calls.size(), 1U);
    EXPECT_EQ(page.calls.front().body, u"return boot(theme);");
    EXPECT_EQ(page.answer(u"boot"_s, QJsonValue(true)), (QJsonObject{{u"theme"_s, u"dark"_s}}));
    EXPECT_EQ(outcomes, QList<MermaidOutcome>{{MermaidOutcome::Engine{.ready = true}}});
    ASSERT_EQ(page.calls.size(), 1U);
    EXPECT_EQ(page.calls.front().body, u"return await renderDiagram(code);");
    EXPECT_EQ(page.calls.front().arguments, (QJsonObject{{u"code"_s, u"graph TD"_s}}));
}

TEST_F(MermaidPreviewCoordinatorTest, TellsWhenTheEngineDoesNotStart) {
    coordinator.setSource(u"graph TD"_s);
    const std::expected<QJsonValue, QString> answers[] = {QJsonValue(false), QJsonValue(),
                                                          std::unexpected(u"No engine"_s)};
    for (const auto& answer : answers) {
        outcomes.clear();
        Q_EMIT page.loaded();
        page.answer(u"boot"_s, answer);
        EXPECT_EQ(outcomes, QList<MermaidOutcome>{{MermaidOutcome::Engine{.ready = false}}});
        EXPECT_TRUE(page.calls.empty());
        EXPECT_FALSE(coordinator.isRendering());
        EXPECT_FALSE(exporting.fetchSVG);
    }
}

TEST_F(MermaidPreviewCoordinatorTest, ReadsWhateverARenderAnswers) {
    boot();
    const auto fields = [](const QJsonValue& ok, const QJsonValue& message, const QJsonValue& line) {
        return QJsonObject{{u"ok"_s, ok}, {u"message"_s, message}, {u"line"_s, line}};
    };
    EXPECT_EQ(rendered(good(63'300)), MermaidOutcome{Rendered{.bytes = 63'300}});
    EXPECT_EQ(rendered(fields(false, u"Parse error"_s, 3)), (MermaidOutcome{Failed{u"Parse error"_s, 3}}));
    EXPECT_EQ(rendered(fields(false, u"Parse error"_s, 3.5)), (MermaidOutcome{Failed{u"Parse error"_s, {}}}));
    EXPECT_EQ(rendered(fields(false, u"Parse error"_s, u"3"_s)),
              (MermaidOutcome{Failed{u"Parse error"_s, {}}}));
    EXPECT_EQ(rendered(fields({}, 7, {})), (MermaidOutcome{Failed{u"Unknown error."_s, {}}}));
    EXPECT_EQ(rendered(QJsonObject{{u"ok"_s, false}}), (MermaidOutcome{Failed{u"Unknown error."_s, {}}}));
    EXPECT_EQ(rendered(QJsonObject{}), (MermaidOutcome{Failed{u"Unknown error."_s, {}}}));
    const MermaidOutcome nothing{Failed{u"The preview returned no result."_s, {}}};
    EXPECT_EQ(rendered(QJsonValue()), nothing);
    EXPECT_EQ(rendered(QJsonValue(QJsonValue::Undefined)), nothing);
    EXPECT_EQ(rendered(u"ok"_s), nothing);
    EXPECT_EQ(rendered(QJsonArray{true}), nothing);
    EXPECT_EQ(rendered(std::unexpected(u"It threw."_s)), (MermaidOutcome{Failed{u"It threw."_s, {}}}));
}

TEST_F(MermaidPreviewCoordinatorTest, RendersASourceOnceAndOnlyTheLatestOfSeveral) {
    boot();
    coordinator.setSource(u"a"_s);
    coordinator.setSource(u"a"_s);
    coordinator.setSource(u"b"_s);
    coordinator.setSource(u"c"_s);
    EXPECT_EQ(page.answer(u"renderDiagram"_s, good(1))[u"code"_s], u"a"_s);
    EXPECT_TRUE(outcomes.isEmpty()) << "it is about a source of the past";
    EXPECT_EQ(page.answer(u"renderDiagram"_s, good(3))[u"code"_s], u"c"_s);
    coordinator.setSource(u"c"_s);
    EXPECT_TRUE(page.calls.empty());
    EXPECT_EQ(outcomes, QList<MermaidOutcome>{{Rendered{.bytes = 3}}});
}

TEST_F(MermaidPreviewCoordinatorTest, HandsAThemeOnWhenItIsAnother) {
    boot();
    coordinator.setTheme(u"dark"_s);
    EXPECT_TRUE(page.calls.empty());
    coordinator.setTheme(u"forest"_s);
    coordinator.setTheme(u"forest"_s);
    ASSERT_EQ(page.calls.size(), 1U);
    EXPECT_EQ(page.calls.front().body, u"return setTheme(theme);");
    EXPECT_EQ(page.calls.front().arguments, (QJsonObject{{u"theme"_s, u"forest"_s}}));
}

TEST_F(MermaidPreviewCoordinatorTest, FetchesTheDiagramAndNothingElse) {
    EXPECT_FALSE(exporting.fetchPNG);
    boot();
    coordinator.setPixelScale(3);
    const auto png = [this](const std::expected<QJsonValue, QString>& result) {
        std::optional<QByteArray> fetched;
        exporting.fetchPNG([&](const auto& bytes) { fetched = bytes; });
        EXPECT_EQ(page.calls.front().body, u"return await getPNG(scale);");
        EXPECT_EQ(page.answer(u"getPNG"_s, result)[u"scale"_s], 3);
        return fetched;
    };
    EXPECT_EQ(png(u"data:image/png;base64,iVBORw=="_s), "\x89PNG");
    EXPECT_EQ(png(u"data:image/jpeg;base64,iVBORw=="_s), std::nullopt);
    EXPECT_EQ(png(u"data:image/png;base64,iV*ORw=="_s), std::nullopt);
    EXPECT_EQ(png(QJsonValue()), std::nullopt);
    EXPECT_EQ(png(std::unexpected(u"It threw."_s)), std::nullopt);

    const auto svg = [this](const std::expected<QJsonValue, QString>& result) {
        std::optional<QString> fetched;
        exporting.fetchSVG([&](const auto& text) { fetched = text; });
        EXPECT_EQ(page.calls.front().body, u"return getSVG();");
        page.answer(u"getSVG"_s, result);
        return fetched;
    };
    EXPECT_EQ(svg(u"<svg/>"_s), u"<svg/>"_s);
    EXPECT_EQ(svg(7), std::nullopt);
    EXPECT_EQ(svg(std::unexpected(u"It threw."_s)), std::nullopt);

    Q_EMIT page.lost(true);
    EXPECT_FALSE(exporting.fetchSVG);
}

TEST_F(MermaidPreviewCoordinatorTest, BringsAPageThatDiedBackToWhereItWas) {
    boot();
    coordinator.setSource(u"good"_s);
    page.answer(u"renderDiagram"_s, good(1));
    coordinator.setSource(u"bad"_s);
    const auto lostCall = page.calls.front();
    page.calls.clear();
    outcomes.clear();

    Q_EMIT page.lost(true);
    lostCall.answer(std::unexpected(u"The page's process has ended."_s));
    EXPECT_TRUE(outcomes.isEmpty());
    Q_EMIT page.loaded();
    page.answer(u"boot"_s, QJsonValue(true));
    EXPECT_EQ(page.answer(u"renderDiagram"_s, good(1))[u"code"_s], u"good"_s)
        << "the last good diagram first";
    EXPECT_EQ(page.answer(u"renderDiagram"_s, QJsonObject{})[u"code"_s], u"bad"_s);
    EXPECT_TRUE(std::holds_alternative<Failed>(outcomes.last().value));

    Q_EMIT page.lost(false);
    EXPECT_EQ(outcomes.last(), (MermaidOutcome{MermaidOutcome::Engine{.ready = false}}));
    EXPECT_EQ(page.restarts, 0);
    coordinator.setSource(u"next"_s);
    EXPECT_EQ(page.restarts, 1);
}

TEST_F(MermaidPreviewCoordinatorTest, GivesUpALongRenderForTheNextSource) {
    boot();
    coordinator.setPatience(std::chrono::milliseconds(100));
    coordinator.setSource(u"endless"_s);
    letEventsPass(200);
    EXPECT_EQ(page.restarts, 0) << "as long as there is nothing else to draw";
    coordinator.setSource(u"short"_s);
    EXPECT_EQ(page.restarts, 1);
    page.calls.clear();
    Q_EMIT page.loaded();
    page.answer(u"boot"_s, QJsonValue(true));
    EXPECT_EQ(page.answer(u"renderDiagram"_s, good(1))[u"code"_s], u"short"_s);

    coordinator.setSource(u"endless"_s);
    coordinator.setSource(u"another"_s);
    EXPECT_EQ(page.restarts, 1) << "it may take a moment";
    EXPECT_TRUE(waitUntil([this] { return page.restarts == 2; }));
}

TEST_F(MermaidPreviewCoordinatorTest, CarriesTheViewportsMessagesBothWays) {
    Q_EMIT page.messageReceived(u"viewState"_s, QJsonObject{{u"scale"_s, 0.5}, {u"isAutoFit"_s, false}});
    EXPECT_EQ(viewport.scale(), 0.5);
    EXPECT_FALSE(viewport.isAutoFit());
    const QJsonValue wrong[] = {QJsonObject{{u"scale"_s, -1}, {u"isAutoFit"_s, true}}, QJsonValue(2),
                                QJsonObject{{u"scale"_s, 2}}};
    for (const auto& state : wrong) {
        Q_EMIT page.messageReceived(u"viewState"_s, state);
    }
    Q_EMIT page.messageReceived(u"other"_s, QJsonObject{{u"scale"_s, 3}, {u"isAutoFit"_s, true}});
    EXPECT_EQ(viewport.scale(), 0.5);
    EXPECT_FALSE(viewport.isAutoFit());
    viewport.requestAutoFit();
    EXPECT_EQ(page.scripts, QStringList{u"requestAutoFit()"_s});
}

TEST(MermaidExport, ProposesANameAfterTheOpenDocument) {
    using MermaidExport::Format;
    using MermaidExport::proposedName;
    EXPECT_EQ(proposedName(Format::svg, {}), u"diagram.svg");
    EXPECT_EQ(proposedName(Format::png, {}), u"diagram.png");
    EXPECT_EQ(proposedName(Format::source, {}), u"diagram.mmd");
    EXPECT_EQ(proposedName(Format::svg, u"/a/plan.v2.mmd"_s), u"plan.v2.svg");
    EXPECT_EQ(proposedName(Format::source, u"/a/plan.mermaid"_s), u"plan.mermaid");
}

} // namespace
} // namespace tarnquill

#include "shell/ToolCatalogue.h"

#include "shell/tests/FakeTool.h"

#include <gtest/gtest.h>

namespace tarnquill {
namespace {

QStringList ids(const std::vector<const Tool*>& tools) {
    QStringList result;
    for (const auto* const tool : tools) {
        result.append(tool->id);
    }
    return result;
}

// Two tools of one section stand apart, and two tools accept the same extension.
class ToolCatalogueTest : public testing::Test {
protected:
    static ToolCatalogue makeCatalogue(QList<QUrl>& opened) {
        std::vector<std::unique_ptr<const Tool>> tools;
        const auto add = [&](const QString& id, ToolCategory category, const QStringList& extensions) {
            tools.push_back(std::make_unique<FakeTool>(id, category, extensions, opened));
        };
        add(QStringLiteral("table"), ToolCategory::data, {QStringLiteral("csv"), QStringLiteral("txt")});
        add(QStringLiteral("prose"), ToolCategory::text, {QStringLiteral("md"), QStringLiteral("txt")});
        add(QStringLiteral("clock"), ToolCategory::data, {});
        return ToolCatalogue(std::move(tools));
    }

    QList<QUrl> opened;
    ToolCatalogue catalogue = makeCatalogue(opened);
};

TEST_F(ToolCatalogueTest, FindsAToolByItsExactIdentifierOnly) {
    ASSERT_NE(catalogue.tool(u"prose"), nullptr);
    EXPECT_EQ(catalogue.tool(u"prose")->id, QStringLiteral("prose"));
    EXPECT_EQ(catalogue.tool(u"Prose"), nullptr);
    EXPECT_EQ(catalogue.tool(u""), nullptr);
}

TEST_F(ToolCatalogueTest, GivesAnExtensionToTheFirstToolThatAcceptsIt) {
    EXPECT_EQ(catalogue.toolForExtension(QStringLiteral("TXT"))->id, QStringLiteral("table"));
    EXPECT_EQ(catalogue.toolForExtension(QStringLiteral("Md"))->id, QStringLiteral("prose"));
    EXPECT_EQ(catalogue.toolForExtension(QStringLiteral("pdf")), nullptr);
    EXPECT_EQ(catalogue.toolForExtension(QString()), nullptr);
}

TEST_F(ToolCatalogueTest, OrdersToolsBySectionAndThenAsListed) {
    EXPECT_EQ(ids(catalogue.tools(ToolCategory::data)),
              QStringList({QStringLiteral("table"), QStringLiteral("clock")}));
    EXPECT_EQ(ids(catalogue.tools(ToolCategory::encoding)), QStringList());
    EXPECT_EQ(ids(catalogue.inSidebarOrder()),
              QStringList({QStringLiteral("prose"), QStringLiteral("table"), QStringLiteral("clock")}));
}

TEST(ToolCategoryTest, ReadsItsOwnNamesAndNoOthers) {
    for (const auto category : kToolCategories) {
        EXPECT_EQ(toolCategory(rawValue(category)), category);
    }
    for (const auto name : {u"Text", u"", u"text ", u"TEXT", u"tools"}) {
        EXPECT_EQ(toolCategory(name), std::nullopt) << QStringView(name).toUtf8().constData();
    }
}

} // namespace
} // namespace tarnquill

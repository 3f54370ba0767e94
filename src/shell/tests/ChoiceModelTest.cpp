#include "shell/ChoiceModel.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>

namespace tarnquill {
namespace {

using namespace Qt::StringLiterals;

Choice choiceOf(const QString& title, const QString& detail, const QString& shortcut = {}) {
    return {.title = title, .detail = detail, .symbol = {}, .shortcut = shortcut, .choose = {}};
}

class ChoiceModelTest : public testing::Test {
protected:
    ChoiceModelTest() {
        model.setChoices({choiceOf(u"Find Next"_s, u"Edit"_s, u"Ctrl+G"_s), choiceOf(u"Undo"_s, u"Edit"_s),
                          choiceOf(u"edges.csv"_s, u"~/graphs"_s), choiceOf(u"Zoom In"_s, u"View"_s)});
    }

    QStringList titles(const QString& query) {
        model.setQuery(query);
        QStringList result;
        for (int row = 0; row < model.rowCount(); ++row) {
            result.append(model.index(row).data().toString());
        }
        return result;
    }

    ChoiceModel model;
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(ChoiceModelTest, ListsWhatMatchesWithTitlesBeforeDetails) {
    EXPECT_EQ(titles({}), (QStringList{u"Find Next"_s, u"Undo"_s, u"edges.csv"_s, u"Zoom In"_s}));
    EXPECT_EQ(titles(u"ed"_s), (QStringList{u"edges.csv"_s, u"Find Next"_s, u"Undo"_s}));
    EXPECT_EQ(titles(u"graphs edg"_s), QStringList{u"edges.csv"_s});
    EXPECT_TRUE(titles(u"xyz"_s).isEmpty());
}

TEST_F(ChoiceModelTest, ReadsOutAWholeRow) {
    EXPECT_EQ(model.index(0).data(Qt::AccessibleTextRole), u"Find Next, Edit, Ctrl+G"_s);
    EXPECT_EQ(model.index(1).data(Qt::AccessibleTextRole), u"Undo, Edit"_s);
}

} // namespace
} // namespace tarnquill

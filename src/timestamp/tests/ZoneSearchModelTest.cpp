#include "timestamp/ZoneSearchModel.h"

#include "common/testing/WaitUntil.h"

#include <QAbstractItemModelTester>

#include <gtest/gtest.h>

namespace tarnquill {

using namespace Qt::StringLiterals;

TEST(ZoneSearchModel, ShowsTheZonesThatFitTheQueryWithTheirOffsetAtTheInstant) {
    ZoneSearchModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.setQuery(u"berl"_s); // before the zones are there
    model.load(1'790'380'800);
    ASSERT_TRUE(waitUntil([&] { return model.rowCount() == 1; }));
    const auto berlin = model.index(0);
    EXPECT_EQ(berlin.data(ZoneSearchModel::nameRole), u"Europe/Berlin"_s);
    EXPECT_EQ(berlin.data(ZoneSearchModel::placeRole), u"Berlin, Germany"_s);
    EXPECT_EQ(berlin.data(ZoneSearchModel::detailRole), u"+02:00 · CET, CEST"_s);
    EXPECT_EQ(berlin.data(ZoneSearchModel::isChosenRole), false);

    model.setChosen({u"Europe/Berlin"_s});
    EXPECT_EQ(model.index(0).data(ZoneSearchModel::isChosenRole), true);
    model.load(1'767'225'600);
    EXPECT_EQ(model.index(0).data(ZoneSearchModel::detailRole), u"+01:00 · CET, CEST"_s);
    model.setQuery(u"nowhere at all"_s);
    EXPECT_EQ(model.rowCount(), 0);
}

} // namespace tarnquill

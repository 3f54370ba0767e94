// Entry point of the tests that need widgets: an application with the program's own look, in light.
#include "chrome/Theme.h"

#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    tarnquill::Theme::instance().setAppearance(tarnquill::Appearance::light);
    tarnquill::Theme::instance().install(application);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

#include "chrome/Theme.h"
#include "chrome/Symbols.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFontInfo>
#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QSignalSpy>
#include <QStyle>

#include <cmath>

namespace tarnquill {
namespace {

using namespace Qt::StringLiterals;

double luminance(const QColor& color) {
    const auto linear = [](double channel) {
        return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor& one, const QColor& other) {
    const double a = luminance(one);
    const double b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

QColor over(const QColor& top, const QColor& bottom) {
    QImage pixel(1, 1, QImage::Format_ARGB32_Premultiplied);
    pixel.fill(bottom);
    QPainter(&pixel).fillRect(pixel.rect(), top);
    return pixel.pixelColor(0, 0);
}

// Puts the theme back to light when a test ends.
class ThemeTest : public testing::Test {
protected:
    void TearDown() override { Theme::instance().setAppearance(Appearance::light); }
};

TEST_F(ThemeTest, EveryTextPairReachesTheContrastOfSmallText) {
    using enum ColorRole;
    const std::vector<std::pair<ColorRole, std::vector<ColorRole>>> texts{
        {text,
         {background, sidebar, raised, menu, hover, pressed, pill, selectedRow, textSelection, findOther}},
        {secondaryText, {background, hover, pressed, track}},
        {muted, {background, sidebar, raised}},
        {faint, {background}},
        {accentText, {background, accentTint, accentTintHover, accentTintPressed, selectedRow}},
        {fillText, {fill, fillHover, fillPressed}},
        {findCurrentText, {findCurrent}},
        {okText, {okTint, background}},
        {badText, {badTint, background}},
        {warnText, {warnTint, background}},
        {neutralText, {neutralTint}},
        {tooltipText, {tooltip}},
        {link, {background}},
        {syntaxPunctuation, {background}},
        {syntaxNumber, {background}},
        {syntaxKeyword, {background}},
        {syntaxString, {background}},
        {syntaxKey, {background}},
        {syntaxDiagramType, {background}},
        {syntaxComment, {background}},
        {segmentHeader, {background}},
        {segmentPayload, {background}},
        {segmentSignature, {background}},
    };
    for (const bool dark : {false, true}) {
        const QColor ground = Theme::color(background, dark);
        for (const auto& [foreground, fills] : texts) {
            for (const ColorRole fillRole : fills) {
                const QColor under = over(Theme::color(fillRole, dark), ground);
                EXPECT_GE(contrast(Theme::color(foreground, dark), under), 4.5)
                    << "text role " << static_cast<int>(foreground) << " on " << static_cast<int>(fillRole)
                    << (dark ? " in dark" : " in light");
            }
        }
        EXPECT_GE(contrast(Theme::color(field, dark), ground), 3.0);
        EXPECT_GE(contrast(Theme::color(accent, dark), ground), 3.0);
    }
}

TEST_F(ThemeTest, TellsOnceWhenTheAppearanceSwitchesAndCarriesThePaletteAlong) {
    Theme& theme = Theme::instance();
    QSignalSpy spy(&theme, &Theme::changed);
    theme.setAppearance(Appearance::dark);
    theme.setAppearance(Appearance::dark);
    EXPECT_EQ(spy.count(), 1);
    EXPECT_TRUE(theme.isDark());
    EXPECT_EQ(QApplication::palette().color(QPalette::Base), Theme::color(ColorRole::background, true));
    theme.setAppearance(Appearance::light);
    EXPECT_EQ(QApplication::palette().color(QPalette::Base), Theme::color(ColorRole::background, false));
}

TEST_F(ThemeTest, FollowsThePaletteThatTheSystemGivesUnlessToldOtherwise) {
    Theme& theme = Theme::instance();
    theme.setAppearance(Appearance::system);
    QSignalSpy spy(&theme, &Theme::changed);
    const auto systemBecomes = [](const QColor& window) {
        QPalette palette;
        palette.setColor(QPalette::Window, window);
        QApplication::style()->polish(palette);
        return palette.color(QPalette::Window);
    };
    EXPECT_EQ(systemBecomes(Qt::black), Theme::color(ColorRole::background, true));
    EXPECT_TRUE(theme.isDark());
    EXPECT_EQ(systemBecomes(Qt::white), Theme::color(ColorRole::background, false));
    QCoreApplication::processEvents();
    EXPECT_EQ(spy.count(), 2);
    theme.setAppearance(Appearance::light);
    systemBecomes(Qt::black);
    EXPECT_FALSE(theme.isDark());
    systemBecomes(Qt::white);
}

TEST_F(ThemeTest, ShowsItsOwnTypefacesInEveryWeight) {
    const Theme& theme = Theme::instance();
    EXPECT_EQ(QFontInfo(theme.font(FontRole::body)).family(), u"Inter"_s);
    EXPECT_EQ(QFontInfo(theme.font(FontRole::editor)).family(), u"JetBrains Mono"_s);
    const auto width = [&](FontRole role) {
        return QFontMetricsF(theme.font(role)).horizontalAdvance(u"Handgloves and more"_s);
    };
    EXPECT_LT(width(FontRole::body), width(FontRole::sidebarRow));
    EXPECT_LT(width(FontRole::sidebarRow), width(FontRole::paneRole));
}

TEST_F(ThemeTest, KeepsAnArrowInMonoThreeCharacters) {
    const QFont font = Theme::instance().font(FontRole::editor);
    QImage together(60, 24, QImage::Format_ARGB32_Premultiplied);
    QImage apart(together.size(), together.format());
    for (QImage* image : {&together, &apart}) {
        image->fill(Qt::white);
    }
    const double cell = QFontMetricsF(font).horizontalAdvance(u'-');
    QPainter first(&together);
    first.setFont(font);
    first.drawText(QPointF(4, 16), u"-->"_s);
    QPainter second(&apart);
    second.setFont(font);
    for (int index = 0; index < 3; ++index) {
        second.drawText(QPointF(4 + cell * index, 16), u"-->"_s.mid(index, 1));
    }
    EXPECT_EQ(QFontMetricsF(font).horizontalAdvance(u"-->"_s), cell * 3);
    EXPECT_EQ(together, apart);
}

TEST_F(ThemeTest, DrawsASymbolInItsColourAndFollowsASwitch) {
    const QIcon icon = Symbols::icon(u"trash"_s, ColorRole::accent);
    const auto ink = [&] {
        const QImage image = icon.pixmap(QSize(16, 16), 2.0).toImage();
        EXPECT_EQ(image.size(), QSize(32, 32));
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y).alpha() == 255) {
                    return image.pixelColor(x, y);
                }
            }
        }
        return QColor();
    };
    EXPECT_EQ(ink(), Theme::color(ColorRole::accent, false));
    Theme::instance().setAppearance(Appearance::dark);
    EXPECT_EQ(ink(), Theme::color(ColorRole::accent, true));
}

} // namespace
} // namespace tarnquill

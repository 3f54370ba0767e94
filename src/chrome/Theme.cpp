#include "chrome/Theme.h"

#include "chrome/Accessibility.h"
#include "chrome/ChromeStyle.h"
#include "chrome/Painting.h"
#include "chrome/SystemAppearance.h"
#include "chrome/ToolTips.h"

#include <QApplication>
#include <QFontDatabase>
#include <QStringList>
#include <QToolTip>

#include <utility>

namespace tarnquill {

using namespace Qt::StringLiterals;

Theme::Theme() = default;

Theme& Theme::instance() {
    static Theme theme;
    return theme;
}

void Theme::install(QApplication& application) {
    Q_ASSERT(!m_installed);
    m_installed = true;
    for (const auto& face :
         {u"Inter-Regular.otf"_s, u"Inter-Medium.otf"_s, u"Inter-SemiBold.otf"_s, u"Inter-Bold.otf"_s,
          u"JetBrainsMono-Regular.ttf"_s, u"JetBrainsMono-Bold.ttf"_s}) {
        QFontDatabase::addApplicationFont(u":/fonts/"_s + face);
    }
    application.setFont(font(FontRole::body));
    m_system = new SystemAppearance(&application);
    connect(m_system, &SystemAppearance::changed, this, &Theme::resolveAndTell);
    // The style polishes every palette that the system gives, which is also how its appearance becomes known.
    QApplication::setStyle(new ChromeStyle);
    QToolTip::setFont(font(FontRole::note));
    QToolTip::setPalette(palette());
    ToolTips::install();
    Accessibility::install();
}

void Theme::setAppearance(Appearance appearance) {
    const bool isOther = std::exchange(m_appearance, appearance) != appearance;
    resolveAndTell();
    if (isOther) {
        Q_EMIT appearanceChanged();
    }
}

void Theme::resolveAndTell() {
    if (resolveAppearance()) {
        if (m_installed) {
            // Has Qt ask for the polished palette again, and repaint every widget.
            QApplication::setPalette(QPalette());
        }
        Q_EMIT changed();
    }
}

void Theme::systemPaletteSeen(const QPalette& palette) {
    m_systemPaletteIsDark = palette.color(QPalette::Window).lightness() < 128;
    if (resolveAppearance()) {
        // Qt is about to put the new palette in place; whoever is told should find it there.
        QMetaObject::invokeMethod(this, &Theme::changed, Qt::QueuedConnection);
    }
}

bool Theme::resolveAppearance() {
    bool dark = m_appearance == Appearance::dark;
    if (m_appearance == Appearance::system) {
        dark = m_systemPaletteIsDark;
        if (m_system != nullptr) {
            dark = m_system->prefersDark().value_or(dark);
        }
    }
    return std::exchange(m_dark, dark) != dark;
}

QColor Theme::color(ColorRole role) const {
    return color(role, m_dark);
}

QPalette Theme::palette() const {
    QPalette palette;
    const auto set = [&](QPalette::ColorRole paletteRole, ColorRole role, ColorRole disabledRole) {
        palette.setColor(QPalette::Active, paletteRole, color(role));
        palette.setColor(QPalette::Inactive, paletteRole, color(role));
        palette.setColor(QPalette::Disabled, paletteRole, color(disabledRole));
    };
    const auto setAll = [&](QPalette::ColorRole paletteRole, ColorRole role) {
        set(paletteRole, role, role);
    };
    setAll(QPalette::Window, ColorRole::background);
    setAll(QPalette::Base, ColorRole::background);
    setAll(QPalette::Button, ColorRole::background);
    setAll(QPalette::Light, ColorRole::background);
    setAll(QPalette::Midlight, ColorRole::hairline);
    setAll(QPalette::Mid, ColorRole::border);
    setAll(QPalette::Dark, ColorRole::field);
    setAll(QPalette::Shadow, ColorRole::field);
    setAll(QPalette::ToolTipBase, ColorRole::tooltip);
    setAll(QPalette::ToolTipText, ColorRole::tooltipText);
    setAll(QPalette::Highlight, ColorRole::textSelection);
    setAll(QPalette::HighlightedText, ColorRole::text);
    setAll(QPalette::PlaceholderText, ColorRole::faint);
    setAll(QPalette::BrightText, ColorRole::fillText);
    setAll(QPalette::Link, ColorRole::link);
    setAll(QPalette::LinkVisited, ColorRole::link);
    set(QPalette::WindowText, ColorRole::text, ColorRole::faint);
    set(QPalette::Text, ColorRole::text, ColorRole::faint);
    set(QPalette::ButtonText, ColorRole::text, ColorRole::faint);
    palette.setColor(QPalette::AlternateBase,
                     Painting::mix(color(ColorRole::background), color(ColorRole::raised), 0.55));
    return palette;
}

int Theme::duration(int milliseconds) const {
    const bool reduced = m_reducedMotion.value_or(m_system != nullptr && m_system->reducesMotion());
    return reduced ? 0 : milliseconds;
}

void Theme::setReducedMotion(bool reduced) {
    m_reducedMotion = reduced;
}

} // namespace tarnquill

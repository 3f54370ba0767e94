#include "shell/Preferences.h"

#include "chrome/EditorOptions.h"
#include "chrome/Theme.h"
#include "common/Settings.h"

#include <QFontDatabase>

#include <array>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

const QString kAppearance = u"appearance"_s;
const QString kLineNumbers = u"lineNumbers"_s;
const QString kWrapLines = u"wrapLines"_s;
const QString kEditorFont = u"editorFont"_s;
const QString kEditorFontSize = u"editorFontSize"_s;

// By the name that the settings keep.
const std::array kAppearances{
    std::pair{u"system"_s, Appearance::system},
    std::pair{u"light"_s, Appearance::light},
    std::pair{u"dark"_s, Appearance::dark},
};

} // namespace

Preferences::Preferences(Settings& settings, QObject* parent) : QObject(parent), m_settings(settings) {
    restore();
    connect(&Theme::instance(), &Theme::appearanceChanged, this, &Preferences::store);
    connect(&EditorOptions::instance(), &EditorOptions::changed, this, &Preferences::store);
}

void Preferences::restore() {
    const auto appearance = m_settings.value(kAppearance).toString();
    for (const auto& [name, value] : kAppearances) {
        if (name == appearance) {
            Theme::instance().setAppearance(value);
        }
    }
    auto& options = EditorOptions::instance();
    options.setLineNumbersVisible(m_settings.value(kLineNumbers, true).toBool());
    options.setWrapsLines(m_settings.value(kWrapLines, true).toBool());
    // A typeface may have been removed since.
    const auto family = m_settings.value(kEditorFont).toString();
    options.setFontFamily(!family.isEmpty() && QFontDatabase::isFixedPitch(family) ? family : QString());
    bool isNumber = false;
    const auto size = m_settings.value(kEditorFontSize).toInt(&isNumber);
    options.setFontSize(isNumber ? size : EditorOptions::kUsualFontSize);
}

void Preferences::store() {
    for (const auto& [name, value] : kAppearances) {
        if (value == Theme::instance().appearance()) {
            m_settings.setValue(kAppearance, name);
        }
    }
    const auto& options = EditorOptions::instance();
    m_settings.setValue(kLineNumbers, options.showsLineNumbers());
    m_settings.setValue(kWrapLines, options.wrapsLines());
    m_settings.setValue(kEditorFont, options.fontFamily());
    m_settings.setValue(kEditorFontSize, options.fontSize());
}

} // namespace tarnquill

// The one source of the program's look: colours by role in light and dark, typefaces by role, and their live
// switch.
#pragma once

#include <QColor>
#include <QFont>
#include <QObject>
#include <QPalette>

#include <optional>

class QApplication;

namespace tarnquill {

class SystemAppearance;

// What a colour is used for. "Tint" is the fill under a text of the same name.
enum class ColorRole {
    background, // toolbar, pane headers, editors, footers
    sidebar,
    raised, // table header, find bar, code blocks, hovered output rows, menus in dark
    menu,
    hover, // fills of outlined and plain buttons
    pressed,
    text,
    secondaryText, // plain button label, unselected segment
    muted,         // labels, footers, icons, section titles, secondary mark-up
    faint,         // placeholders, line numbers, tertiary mark-up; on background only
    border,        // outside edges, splitters, controls
    hairline,      // lines inside a pane
    field,         // border of text fields
    track,         // segmented control
    pill,
    pillBorder,
    accent, // lines, icons, rings
    accentText,
    accentTint, // a control that is on
    accentTintHover,
    accentTintPressed,
    accentLine,
    fill, // primary button, count bubble, hovered menu item
    fillHover,
    fillPressed,
    fillText,
    selectedRow,
    textSelection,
    findCurrent,
    findCurrentText,
    findOther,
    okText,
    okTint,
    okIcon,
    badText,
    badTint,
    badIcon,
    warnText,
    warnTint,
    warnIcon,
    neutralText,
    neutralTint,
    tooltip,
    tooltipText,
    scroll,
    scrim,
    outline, // edge of menus and popovers
    shadow,  // darkest point of their shadow
    canvasDot,
    syntaxPunctuation,
    syntaxNumber,
    syntaxKeyword,
    syntaxString,
    syntaxKey,
    syntaxDiagramType,
    syntaxComment,
    link,
    segmentHeader, // parts of a token
    segmentPayload,
    segmentSignature,
};
inline constexpr int kColorRoleCount = static_cast<int>(ColorRole::segmentSignature) + 1;

// What a text is. The mono roles are shown without ligatures, so that every character keeps its cell.
enum class FontRole {
    toolTitle,
    productName,
    paneRole,
    sidebarRow,
    sidebarRowSelected,
    body, // menu items, list rows, table cells, messages
    control,
    controlSelected,
    note, // footers, help notes, second lines of rows
    tableHeader,
    tableNumber,
    sidebarSection,
    groupTitle,
    badge,
    editor,
    editorBold,
    lineNumber,
    timestampInput,
    messageTitle,
    alertButton,
};
inline constexpr int kFontRoleCount = static_cast<int>(FontRole::alertButton) + 1;

enum class Appearance { system, light, dark };

class Theme : public QObject {
    Q_OBJECT

public:
    static Theme& instance();

    // Registers the typefaces and gives the application its style, palette and font. Call once, before any
    // widget.
    void install(QApplication& application);

    [[nodiscard]] Appearance appearance() const { return m_appearance; }
    void setAppearance(Appearance appearance);
    [[nodiscard]] bool isDark() const { return m_dark; }

    [[nodiscard]] QColor color(ColorRole role) const;
    [[nodiscard]] static QColor color(ColorRole role, bool dark);

    [[nodiscard]] QFont font(FontRole role) const;
    // Height of a line of text in logical pixels; 0 where the typeface's own line height holds.
    [[nodiscard]] static int lineHeight(FontRole role);

    // The palette that standard widgets are drawn with.
    [[nodiscard]] QPalette palette() const;

    // The time a movement takes: 0 when the system asks for reduced motion.
    [[nodiscard]] int duration(int milliseconds) const;
    // Overrules the system.
    void setReducedMotion(bool reduced);

Q_SIGNALS:
    // Colours have changed. Widgets are repainted anyway; for whatever keeps a colour.
    void changed();
    // Another appearance was chosen, which may look the same.
    void appearanceChanged();

private:
    friend class ChromeStyle;

    Theme();

    // Called by the style whenever Qt asks it to polish the system's palette.
    void systemPaletteSeen(const QPalette& palette);
    // Returns whether light and dark have changed places.
    bool resolveAppearance();
    void resolveAndTell();

    Appearance m_appearance = Appearance::system;
    SystemAppearance* m_system = nullptr;
    std::optional<bool> m_reducedMotion;
    bool m_systemPaletteIsDark = false;
    bool m_dark = false;
    bool m_installed = false;
};

// Shorthand for painting code.
[[nodiscard]] inline QColor themeColor(ColorRole role) {
    return Theme::instance().color(role);
}

} // namespace tarnquill

// The themes that the user can choose from: the engine's own, and one that follows light and dark.
#pragma once

#include <array>
#include <string_view>

namespace tarnquill::MermaidThemes {

struct Choice {
    std::string_view id; // the engine's name, or kAutomatic
    std::u16string_view title;
};

inline constexpr std::string_view kAutomatic = "automatic";

inline constexpr std::array kChoices{
    Choice{.id = kAutomatic, .title = u"Automatic"},
    Choice{.id = "default", .title = u"Default"},
    Choice{.id = "dark", .title = u"Dark"},
    Choice{.id = "neutral", .title = u"Neutral"},
    Choice{.id = "forest", .title = u"Forest"},
    Choice{.id = "base", .title = u"Base"},
    Choice{.id = "neo", .title = u"Neo"},
    Choice{.id = "neo-dark", .title = u"Neo Dark"},
    Choice{.id = "redux", .title = u"Redux"},
    Choice{.id = "redux-dark", .title = u"Redux Dark"},
    Choice{.id = "redux-color", .title = u"Redux Color"},
    Choice{.id = "redux-dark-color", .title = u"Redux Dark Color"},
};

// The engine's name of the choice.
[[nodiscard]] constexpr std::string_view engineTheme(std::string_view choice, bool isDark) {
    if (choice != kAutomatic) {
        return choice;
    }
    return isDark ? "dark" : "default";
}

} // namespace tarnquill::MermaidThemes

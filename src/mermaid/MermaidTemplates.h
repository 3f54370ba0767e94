// One small diagram of every kind to begin with.
#pragma once

#include <span>
#include <string_view>

namespace tarnquill::MermaidTemplates {

struct Template {
    std::u16string_view title;
    std::u16string_view source; // begins with the diagram's type
};

// In the order of the menu. The first is what the tool shows when it has shown nothing yet.
[[nodiscard]] std::span<const Template> all();

} // namespace tarnquill::MermaidTemplates

// The sections of the sidebar, in the order in which it shows them.
#pragma once

#include <QString>

#include <array>
#include <optional>

namespace tarnquill {

enum class ToolCategory { text, data, encoding };

inline constexpr std::array kToolCategories{ToolCategory::text, ToolCategory::data, ToolCategory::encoding};

// The category's stable name: "text", "data" or "encoding".
[[nodiscard]] QString rawValue(ToolCategory category);

// The category with exactly that stable name; none for any other text.
[[nodiscard]] std::optional<ToolCategory> toolCategory(QStringView rawValue);

// The section's title as the sidebar writes it, in capitals.
[[nodiscard]] QString sectionTitle(ToolCategory category);

} // namespace tarnquill

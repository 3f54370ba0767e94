// Finds the box of a task item in its source line.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace tarnquill::Markdown {

struct TaskBox {
    std::size_t position = 0; // of the character between the brackets, in UTF-16 units
    bool isChecked = false;

    friend bool operator==(const TaskBox&, const TaskBox&) = default;
};

// The line may stand in quotes.
[[nodiscard]] std::optional<TaskBox> taskBoxIn(std::u16string_view line);

} // namespace tarnquill::Markdown

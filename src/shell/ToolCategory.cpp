#include "shell/ToolCategory.h"

namespace tarnquill {

QString rawValue(ToolCategory category) {
    switch (category) {
    case ToolCategory::text:
        return QStringLiteral("text");
    case ToolCategory::data:
        return QStringLiteral("data");
    case ToolCategory::encoding:
        return QStringLiteral("encoding");
    }
    Q_UNREACHABLE();
}

std::optional<ToolCategory> toolCategory(QStringView name) {
    for (const auto category : kToolCategories) {
        if (rawValue(category) == name) {
            return category;
        }
    }
    return std::nullopt;
}

QString sectionTitle(ToolCategory category) {
    return rawValue(category).toUpper();
}

} // namespace tarnquill

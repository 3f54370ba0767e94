#include "common/CountText.h"

#include "common/LocalizedInteger.h"

#include <array>

namespace tarnquill {

std::string countText(std::size_t count, std::string_view one, std::string_view many) {
    return localizedInteger(static_cast<std::int64_t>(count)) + " " + std::string(count == 1 ? one : many);
}

std::string byteCountText(std::size_t bytes) {
    if (bytes < 1000) {
        return countText(bytes, "byte", "bytes");
    }
    constexpr std::array<std::string_view, 4> kUnits{"KB", "MB", "GB", "TB"};
    // 999.5 of a unit is the next unit's 1. Below a hundred a tenth is shown; everything is rounded half up.
    std::size_t unit = 0;
    std::size_t scale = 1000;
    while (2 * bytes >= 1999 * scale && unit + 1 < kUnits.size()) {
        ++unit;
        scale *= 1000;
    }
    const auto tenths = (10 * bytes + scale / 2) / scale;
    const bool showsTenth = tenths < 1000;
    const auto whole = showsTenth ? tenths / 10 : (bytes + scale / 2) / scale;
    auto text = localizedInteger(static_cast<std::int64_t>(whole));
    if (showsTenth && tenths % 10 != 0) {
        text += "." + std::to_string(tenths % 10);
    }
    return text + " " + std::string(kUnits[unit]);
}

} // namespace tarnquill

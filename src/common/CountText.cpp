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
    // In tenths of the unit, rounded half up. From a hundred on only the whole is shown, so that 999.5 is the
    // next unit's 1.
    std::size_t unit = 0;
    std::size_t scale = 1000;
    std::size_t tenths = (bytes * 10 + scale / 2) / scale;
    while (tenths >= 9995 && unit + 1 < kUnits.size()) {
        ++unit;
        scale *= 1000;
        tenths = (bytes * 10 + scale / 2) / scale;
    }
    const auto whole = tenths < 1000 ? tenths / 10 : (tenths + 5) / 10;
    auto text = localizedInteger(static_cast<std::int64_t>(whole));
    if (tenths < 1000 && tenths % 10 != 0) {
        text += "." + std::to_string(tenths % 10);
    }
    return text + " " + std::string(kUnits[unit]);
}

} // namespace tarnquill

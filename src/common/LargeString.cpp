#include "common/LargeString.h"

#include "common/LargePages.h"

namespace tarnquill {

std::string stringWithRoomFor(std::size_t capacity) {
    std::string string;
    string.reserve(capacity);
    adviseLargePages(string.data(), capacity);
    return string;
}

} // namespace tarnquill

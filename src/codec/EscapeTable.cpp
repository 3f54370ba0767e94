#include "codec/EscapeTable.h"

#include "common/LargeString.h"

#include <cstring>

namespace tarnquill {

std::string EscapeTable::escape(std::string_view text) const {
    const auto entryOf = [this](char byte) -> const Entry& {
        return m_entries[static_cast<unsigned char>(byte)];
    };
    std::size_t length = 0;
    for (const auto byte : text) {
        length += entryOf(byte).length;
    }
    const auto room = length + sizeof(Entry);
    auto result = stringWithRoomFor(room);
    result.resize_and_overwrite(room, [&](char* output, std::size_t) {
        for (const auto byte : text) {
            const auto& entry = entryOf(byte);
            std::memcpy(output, &entry, sizeof entry);
            output += entry.length;
        }
        return length;
    });
    return result;
}

} // namespace tarnquill

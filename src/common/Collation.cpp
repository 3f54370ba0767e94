#include "common/Collation.h"

#include "common/UserLocale.h"

#include <unicode/ustring.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>

namespace tarnquill {

Collation::Collation(const std::string& locale) {
    auto error = U_ZERO_ERROR;
    m_collator.reset(icu::Collator::createInstance(userLocale(locale), error));
    if (U_FAILURE(error)) {
        std::fprintf(stderr, "The collation rules are missing: %s\n", u_errorName(error));
        std::abort();
    }
    m_collator->setStrength(icu::Collator::SECONDARY);
    m_collator->setAttribute(UCOL_NUMERIC_COLLATION, UCOL_ON, error);
}

void Collation::appendKey(std::string_view text, std::string& keys) {
    if (m_text.size() < text.size()) {
        m_text.resize(text.size());
    }
    std::int32_t length = 0;
    auto error = U_ZERO_ERROR;
    u_strFromUTF8WithSub(m_text.data(), static_cast<std::int32_t>(m_text.size()), &length, text.data(),
                         static_cast<std::int32_t>(text.size()), 0xFFFD, nullptr, &error);
    // Most keys take less than three bytes a character; a longer one tells its size.
    const auto start = keys.size();
    auto room = std::min<std::size_t>(text.size() * 3 + 16, std::numeric_limits<std::int32_t>::max());
    while (true) {
        keys.resize(start + room);
        const auto size = static_cast<std::size_t>(m_collator->getSortKey(
            m_text.data(), length, reinterpret_cast<std::uint8_t*>(keys.data() + start),
            static_cast<std::int32_t>(room)));
        keys.resize(start + std::min(size, room));
        if (size <= room) {
            return;
        }
        room = size;
    }
}

} // namespace tarnquill

// Zones for tests: one offset for ever, or one that changes once.
#pragma once

#include "common/TimeZone.h"

namespace tarnquill {

class FixedZone final : public TimeZone {
public:
    explicit FixedZone(std::int32_t offset) : m_offset(offset) {}

    [[nodiscard]] ZoneOffset offsetAt(std::int64_t) const override { return {.seconds = m_offset}; }

private:
    std::int32_t m_offset;
};

class ChangingZone final : public TimeZone {
public:
    // The offset is `before` until the instant, and `after` from then on.
    ChangingZone(std::int64_t change, std::int32_t before, std::int32_t after)
        : m_change(change), m_before(before), m_after(after) {}

    [[nodiscard]] ZoneOffset offsetAt(std::int64_t seconds) const override {
        return {.seconds = seconds < m_change ? m_before : m_after};
    }

private:
    std::int64_t m_change;
    std::int32_t m_before;
    std::int32_t m_after;
};

} // namespace tarnquill

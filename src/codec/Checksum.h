// The checksums that compressed containers end with.
#pragma once

#include <cstdint>
#include <string_view>

namespace tarnquill::Checksum {

// CRC-32 of IEEE 802.3, as gzip uses it (RFC 1952, section 8).
[[nodiscard]] std::uint32_t crc32(std::string_view bytes);

// Adler-32 (RFC 1950, section 8).
[[nodiscard]] std::uint32_t adler32(std::string_view bytes);

} // namespace tarnquill::Checksum

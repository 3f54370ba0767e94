// The token that a new window shows: issued 2026-09-26T00:00:00Z, expiring 2036-09-26T00:00:00Z, signed with
// HS256.
#pragma once

#include <string_view>

namespace tarnquill {

// {"alg":"HS256","typ":"JWT"}
// {"sub":"1234567890","name":"Tarnquill","iat":1790380800,"exp":2106000000}
inline constexpr std::string_view kSampleToken =
    "eyJhbGciOiJIUzI1NiIsInR5cCI6IkpXVCJ9"
    ".eyJzdWIiOiIxMjM0NTY3ODkwIiwibmFtZSI6IlRhcm5xdWlsbCIsImlhdCI6MTc5MDM4MDgwMCwiZXhwIjoyMTA2MDAwMDAwfQ"
    ".sC2g3bFbksAP5oQekAGWeV56JOjuTnMIOuRZdVNWUSQ";

inline constexpr std::string_view kSampleSecret = "quarrybel";

} // namespace tarnquill

// Decodes JSON Web Tokens (RFC 7519), signed (RFC 7515) or encrypted (RFC 7516), and judges their time
// claims.
#pragma once

#include "common/JSONValue.h"

#include <array>
#include <cstdint>
#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarnquill::JWTDecoder {

struct TimeClaim {
    enum class Name : std::uint8_t { exp, nbf, iat };

    Name name = Name::exp;
    std::optional<double> date; // seconds since 1970-01-01T00:00:00Z; none when the claim is no number

    friend bool operator==(const TimeClaim&, const TimeClaim&) = default;
};

inline constexpr std::array kTimeClaimNames{TimeClaim::Name::exp, TimeClaim::Name::nbf, TimeClaim::Name::iat};

// The claim's key: "exp".
[[nodiscard]] std::string_view rawText(TimeClaim::Name name);

struct Payload {
    enum class Kind : std::uint8_t {
        json,
        text,
        binary,
        detached, // the part is empty: the signed content travels separately
        encrypted
    };

    Kind kind = Kind::detached;
    std::string text{};                       // of JSON, formatted, and of text
    std::optional<std::int64_t> claimCount{}; // members of a JSON object
    std::int64_t byteCount = 0;               // of binary content

    friend bool operator==(const Payload&, const Payload&) = default;
};

struct Decoded {
    std::string header; // formatted
    std::int64_t headerKeyCount = 0;
    std::int64_t headerByteCount = 0;
    std::optional<std::string> algorithm; // `alg` as written, when it is a text
    Payload payload;
    std::int64_t payloadByteCount = 0;              // of the ciphertext, when the token is encrypted
    std::optional<std::int64_t> signatureByteCount; // of a signed token
    std::int64_t segmentCount = 0;                  // 3 or 5
    std::vector<TimeClaim> timeClaims;              // those that there are, in the order of kTimeClaimNames

    friend bool operator==(const Decoded&, const Decoded&) = default;
};

struct Failure {
    enum class Reason : std::uint8_t { segmentCount, notBase64URL, empty, headerNotJSONObject };

    Reason reason;
    std::int64_t segment = 0;   // the number of parts, or the position of the one that is wrong, from 1
    std::string_view name = {}; // of the part that is wrong

    friend bool operator==(const Failure&, const Failure&) = default;
};

// The sentence for the user.
[[nodiscard]] std::string message(const Failure& failure);

[[nodiscard]] std::expected<Decoded, Failure> decode(std::string_view token);

// Nothing is found in a value that is no object.
[[nodiscard]] std::vector<TimeClaim> timeClaims(JSONValue claims);

enum class Validity : std::uint8_t { badTimeClaim, expired, notYetValid, notExpired, noExpiry };

// "notExpired"
[[nodiscard]] std::string_view rawText(Validity validity);

// `now` is in seconds since 1970-01-01T00:00:00Z, as are the claims.
[[nodiscard]] Validity validity(const std::vector<TimeClaim>& claims, double now);

// The same for a token that can be judged, which is one whose payload is a JSON object.
[[nodiscard]] std::optional<Validity> validity(const Decoded& token, double now);

// Whether a date is so late that it must have been meant as milliseconds.
[[nodiscard]] bool looksLikeMilliseconds(double date);

} // namespace tarnquill::JWTDecoder

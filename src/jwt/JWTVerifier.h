// Checks the signature of a signed token (RFC 7515) against a secret, a PEM key, a certificate, a JWK or a
// JWK set. The algorithm is the header's, whatever the key says of itself, so that a public key can never
// serve as a shared secret. Certificates are not judged for trust or dates.
#pragma once

#include "jwt/JWTAlgorithm.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tarnquill::JWTVerifier {

struct Outcome {
    enum class Kind : std::uint8_t {
        verified,
        mismatch,
        unsupported,
        badKey,
        noKey,
        notSigned,
        encrypted,
        malformed
    };

    Kind kind = Kind::malformed;
    // The key's description when the signature was checked, `alg` as written when it is unsupported, or the
    // sentence about a bad key.
    std::string detail{};

    friend bool operator==(const Outcome&, const Outcome&) = default;
};

// The name of the outcome: "verified", "unsigned".
[[nodiscard]] std::string_view rawText(Outcome::Kind kind);

// How a shared secret is written.
enum class SecretForm : std::uint8_t { text, base64 };

[[nodiscard]] Outcome verify(std::string_view token, std::string_view key, SecretForm secretForm);

// Whether the key that was used came from a certificate, of which neither trust nor dates are judged.
[[nodiscard]] bool usesCertificate(const Outcome& outcome);

// What the token's header names; unknown as well when the token is malformed.
[[nodiscard]] Algorithm algorithmOf(std::string_view token);

// The sentence for the user; for a missing key and a malformed token it asks for what is needed.
[[nodiscard]] std::string message(const Outcome& outcome, std::string_view token);

} // namespace tarnquill::JWTVerifier

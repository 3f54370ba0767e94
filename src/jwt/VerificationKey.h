// Keys that check signatures with OpenSSL. Whatever describes a key ends with its origin, such as
// ", from a JWK".
#pragma once

#include "jwt/JWTAlgorithm.h"

#include <expected>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tarnquill::JWTVerifier {

struct VerificationKey {
    std::string description;
    std::function<bool(std::string_view signingInput, std::string_view signature)> verifies;
};

// A key, or the sentence that says why there is none.
using KeyResult = std::expected<VerificationKey, std::string>;

// RFC 7518, section 3.2. Compares in constant time.
[[nodiscard]] VerificationKey sharedSecretKey(std::string secret, Hash hash, std::string_view origin);

// RFC 7518, sections 3.3 and 3.5, with a modulus and an exponent as unsigned big-endian numbers. Refused are
// numbers that no RSA key has, moduli below 1,024 and above 16,384 bits, exponents above 64 bits, which would
// only cost time, and keys that are too short for the algorithm's padding.
[[nodiscard]] KeyResult rsaKey(std::string_view modulus, std::string_view exponent, Algorithm algorithm,
                               std::string_view origin);

// RFC 7518, section 3.4, with a point of the algorithm's curve as SEC 1 encodes it, compressed or not.
[[nodiscard]] KeyResult ecdsaKey(std::string_view point, Algorithm algorithm, std::string_view origin);

// RFC 8037, section 3.1, with the 32 bytes of RFC 8032.
[[nodiscard]] KeyResult ed25519Key(std::string_view bytes, Algorithm algorithm, std::string_view origin);

} // namespace tarnquill::JWTVerifier

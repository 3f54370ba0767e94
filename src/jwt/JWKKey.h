// Reads JSON Web Keys and sets of them (RFC 7517, RFC 7518 section 6, RFC 8037 section 2).
#pragma once

#include "common/JSONValue.h"
#include "jwt/VerificationKey.h"

namespace tarnquill::JWTVerifier {

// Whether an object says that it is a key or a set of keys.
[[nodiscard]] bool isJWKOrSet(JSONValue value);

// Of a set, the key that the token names by its `kid`, or else the only one that fits the algorithm.
[[nodiscard]] KeyResult readJWKOrSet(JSONValue value, Algorithm algorithm,
                                     const std::optional<std::string>& keyIdentifier);

} // namespace tarnquill::JWTVerifier

// Reads public keys and certificates in PEM (RFC 7468), and refuses private ones.
#pragma once

#include "jwt/VerificationKey.h"

namespace tarnquill::JWTVerifier {

// The origin of a key that a certificate holds.
inline constexpr std::string_view kFromCertificate = ", from a certificate";

[[nodiscard]] bool isPEM(std::string_view text);

[[nodiscard]] KeyResult readPEM(std::string_view text, Algorithm algorithm);

} // namespace tarnquill::JWTVerifier

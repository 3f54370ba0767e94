// Reads public keys and certificates in PEM (RFC 7468), and refuses private ones.
#pragma once

#include "jwt/VerificationKey.h"

namespace tarnquill::JWTVerifier {

// The origin of a key that a certificate holds.
inline constexpr std::string_view kFromCertificate = ", from a certificate";

[[nodiscard]] bool isPEM(std::string_view text);

[[nodiscard]] KeyResult readPEM(std::string_view text, Algorithm algorithm);

// The PEM of a key file in DER, as which certificates above all are handed on; nothing when the bytes are not
// one of the structures that readPEM() tells apart.
[[nodiscard]] std::optional<std::string> pemFromDER(std::string_view bytes);

} // namespace tarnquill::JWTVerifier

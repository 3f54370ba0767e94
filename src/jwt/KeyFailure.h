// The sentences that say why a key cannot check a signature. Algorithms are known ones.
#pragma once

#include "jwt/JWTAlgorithm.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace tarnquill::JWTVerifier::KeyFailure {

[[nodiscard]] std::string privateKey();
[[nodiscard]] std::string publicKeyForSharedSecret(Algorithm algorithm);
[[nodiscard]] std::string secretForPublicKey(Algorithm algorithm);
[[nodiscard]] std::string secretNotBase64();
[[nodiscard]] std::string bodyNotBase64();
[[nodiscard]] std::string unknownLabel(std::string_view label);
[[nodiscard]] std::string unreadableCertificate();
[[nodiscard]] std::string ed448();

// The key is none of the kind that a public-key algorithm needs, or is broken.
[[nodiscard]] std::string wrongKind(Algorithm algorithm);

[[nodiscard]] std::string notASecretJWK(Algorithm algorithm, std::string_view keyType);
[[nodiscard]] std::string noneNamed(std::string_view keyIdentifier);
[[nodiscard]] std::string noneFits(Algorithm algorithm);
[[nodiscard]] std::string severalFit(std::size_t count);

} // namespace tarnquill::JWTVerifier::KeyFailure

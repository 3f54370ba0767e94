// A fresh key that signs tokens with OpenSSL, for tests, fuzz targets and benchmarks.
#pragma once

#include "jwt/JWTAlgorithm.h"

#include <openssl/evp.h>
#include <openssl/params.h>

#include <memory>
#include <string>
#include <string_view>

namespace tarnquill {

class SigningKey {
public:
    // RSA keys have 2,048 bits; the shared secret is kSecret.
    explicit SigningKey(JWTVerifier::Algorithm algorithm);

    // A key that only verifies, from what publicText() gave.
    SigningKey(JWTVerifier::Algorithm algorithm, const std::string& publicText);

    static constexpr std::string_view kSecret = "an example secret of thirty-two.";

    [[nodiscard]] std::string token(std::string_view payload) const;
    // The header and the payload, encoded.
    [[nodiscard]] std::string signingInput(std::string_view payload) const;
    // As JWS writes it.
    [[nodiscard]] std::string signature(std::string_view input) const;

    // Of a PSS key, with a salt of so many bytes.
    [[nodiscard]] std::string signatureWithSalt(std::string_view input, int saltSize) const;

    // As OpenSSL writes it, and its verdict on it: what is left when nothing has to be read or converted.
    [[nodiscard]] std::string nativeSignature(std::string_view input) const;
    [[nodiscard]] bool verifies(std::string_view input, std::string_view nativeSignature) const;
    // The same with a key that OpenSSL first makes of this one's numbers, as whoever keeps none has to.
    [[nodiscard]] bool verifiesAnew(std::string_view input, std::string_view nativeSignature) const;

    // What checks the signatures: a PEM, or the secret.
    [[nodiscard]] std::string publicText() const;

private:
    [[nodiscard]] std::string sign(std::string_view input, int saltSize) const;

    JWTVerifier::Algorithm m_algorithm;
    std::shared_ptr<EVP_PKEY> m_key;
    std::shared_ptr<OSSL_PARAM> m_publicNumbers;
};

} // namespace tarnquill

#include "jwt/testing/SigningKey.h"

#include "codec/Base64.h"

#include <openssl/bio.h>
#include <openssl/ecdsa.h>
#include <openssl/hmac.h>
#include <openssl/pem.h>
#include <openssl/rsa.h>

#include <array>
#include <cstdlib>

namespace tarnquill {

namespace {

using JWTVerifier::Algorithm;
using JWTVerifier::Family;

// What OpenSSL does here only fails when the caller is wrong.
void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

const unsigned char* bytesOf(std::string_view text) {
    return reinterpret_cast<const unsigned char*>(text.data());
}

EVP_PKEY* generate(Algorithm algorithm) {
    switch (family(algorithm)) {
    case Family::hmac:
        return nullptr;
    case Family::rsaPKCS1:
    case Family::rsaPSS:
        return EVP_RSA_gen(2048);
    case Family::ecdsa:
        return EVP_EC_gen(std::string(curve(hash(algorithm)).name).c_str());
    case Family::edwards:
        return EVP_PKEY_Q_keygen(nullptr, nullptr, "ED25519");
    }
    return nullptr;
}

const EVP_MD* digest(Algorithm algorithm) {
    if (family(algorithm) == Family::edwards) {
        return nullptr;
    }
    const std::array digests{EVP_sha256(), EVP_sha384(), EVP_sha512()};
    return digests.at(static_cast<std::size_t>(hash(algorithm)));
}

void setPadding(EVP_PKEY_CTX* context, Algorithm algorithm, int saltSize = RSA_PSS_SALTLEN_DIGEST) {
    if (family(algorithm) == Family::rsaPSS) {
        EVP_PKEY_CTX_set_rsa_padding(context, RSA_PKCS1_PSS_PADDING);
        EVP_PKEY_CTX_set_rsa_pss_saltlen(context, saltSize);
    }
}

std::string mac(Algorithm algorithm, std::string_view input) {
    std::array<unsigned char, EVP_MAX_MD_SIZE> bytes{};
    unsigned size = 0;
    HMAC(digest(algorithm), SigningKey::kSecret.data(), static_cast<int>(SigningKey::kSecret.size()),
         bytesOf(input), input.size(), bytes.data(), &size);
    return {bytes.begin(), bytes.begin() + size};
}

std::string rawFromDER(std::string_view der, std::size_t coordinateSize) {
    const auto* next = bytesOf(der);
    const std::unique_ptr<ECDSA_SIG, decltype(&ECDSA_SIG_free)> pair(
        d2i_ECDSA_SIG(nullptr, &next, static_cast<long>(der.size())), &ECDSA_SIG_free);
    require(pair != nullptr);
    std::string raw(2 * coordinateSize, '\0');
    auto* const output = reinterpret_cast<unsigned char*>(raw.data());
    const auto size = static_cast<int>(coordinateSize);
    require(BN_bn2binpad(ECDSA_SIG_get0_r(pair.get()), output, size) == size);
    require(BN_bn2binpad(ECDSA_SIG_get0_s(pair.get()), output + size, size) == size);
    return raw;
}

bool verifiesWith(EVP_PKEY* key, Algorithm algorithm, std::string_view input, std::string_view signature) {
    const std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> context(EVP_MD_CTX_new(), &EVP_MD_CTX_free);
    EVP_PKEY_CTX* keyContext = nullptr;
    require(EVP_DigestVerifyInit(context.get(), &keyContext, digest(algorithm), nullptr, key) == 1);
    setPadding(keyContext, algorithm);
    return EVP_DigestVerify(context.get(), bytesOf(signature), signature.size(), bytesOf(input),
                            input.size()) == 1;
}

} // namespace

SigningKey::SigningKey(Algorithm algorithm)
    : m_algorithm(algorithm), m_key(generate(algorithm), EVP_PKEY_free) {
    if (family(algorithm) == Family::hmac) {
        return;
    }
    require(m_key != nullptr);
    OSSL_PARAM* numbers = nullptr;
    require(EVP_PKEY_todata(m_key.get(), EVP_PKEY_PUBLIC_KEY, &numbers) == 1);
    m_publicNumbers.reset(numbers, OSSL_PARAM_free);
}

SigningKey::SigningKey(Algorithm algorithm, const std::string& publicText) : m_algorithm(algorithm) {
    if (family(algorithm) == Family::hmac) {
        return;
    }
    const std::unique_ptr<BIO, decltype(&BIO_free_all)> input(
        BIO_new_mem_buf(publicText.data(), static_cast<int>(publicText.size())), &BIO_free_all);
    m_key.reset(PEM_read_bio_PUBKEY(input.get(), nullptr, nullptr, nullptr), EVP_PKEY_free);
    require(m_key != nullptr);
}

std::string SigningKey::token(std::string_view payload) const {
    const auto input = signingInput(payload);
    return input + "." + Base64::encode(signature(input), Base64::Alphabet::urlSafe);
}

std::string SigningKey::signingInput(std::string_view payload) const {
    const auto header = R"({"alg":")" + displayName(m_algorithm) + R"(","typ":"JWT"})";
    return Base64::encode(header, Base64::Alphabet::urlSafe) + "." +
           Base64::encode(payload, Base64::Alphabet::urlSafe);
}

std::string SigningKey::signature(std::string_view input) const {
    if (!m_key) {
        return mac(m_algorithm, input);
    }
    const auto signature = nativeSignature(input);
    return family(m_algorithm) == Family::ecdsa
               ? rawFromDER(signature, curve(hash(m_algorithm)).coordinateSize)
               : signature;
}

std::string SigningKey::nativeSignature(std::string_view input) const {
    return m_key ? sign(input, RSA_PSS_SALTLEN_DIGEST) : mac(m_algorithm, input);
}

std::string SigningKey::signatureWithSalt(std::string_view input, int saltSize) const {
    return sign(input, saltSize);
}

std::string SigningKey::sign(std::string_view input, int saltSize) const {
    const std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> context(EVP_MD_CTX_new(), &EVP_MD_CTX_free);
    EVP_PKEY_CTX* keyContext = nullptr;
    require(EVP_DigestSignInit(context.get(), &keyContext, digest(m_algorithm), nullptr, m_key.get()) == 1);
    setPadding(keyContext, m_algorithm, saltSize);
    std::string signature(1024, '\0');
    auto size = signature.size();
    require(EVP_DigestSign(context.get(), reinterpret_cast<unsigned char*>(signature.data()), &size,
                           bytesOf(input), input.size()) == 1);
    signature.resize(size);
    return signature;
}

bool SigningKey::verifies(std::string_view input, std::string_view nativeSignature) const {
    if (!m_key) {
        const auto expected = mac(m_algorithm, input);
        return expected.size() == nativeSignature.size() &&
               CRYPTO_memcmp(expected.data(), nativeSignature.data(), expected.size()) == 0;
    }
    return verifiesWith(m_key.get(), m_algorithm, input, nativeSignature);
}

bool SigningKey::verifiesAnew(std::string_view input, std::string_view nativeSignature) const {
    if (!m_key) {
        return verifies(input, nativeSignature);
    }
    const std::unique_ptr<EVP_PKEY_CTX, decltype(&EVP_PKEY_CTX_free)> context(
        EVP_PKEY_CTX_new_from_name(nullptr, EVP_PKEY_get0_type_name(m_key.get()), nullptr),
        &EVP_PKEY_CTX_free);
    EVP_PKEY* key = nullptr;
    require(EVP_PKEY_fromdata_init(context.get()) == 1 &&
            EVP_PKEY_fromdata(context.get(), &key, EVP_PKEY_PUBLIC_KEY, m_publicNumbers.get()) == 1);
    const std::unique_ptr<EVP_PKEY, decltype(&EVP_PKEY_free)> owner(key, &EVP_PKEY_free);
    return verifiesWith(key, m_algorithm, input, nativeSignature);
}

std::string SigningKey::publicText() const {
    if (!m_key) {
        return std::string(kSecret);
    }
    const std::unique_ptr<BIO, decltype(&BIO_free_all)> output(BIO_new(BIO_s_mem()), &BIO_free_all);
    require(PEM_write_bio_PUBKEY(output.get(), m_key.get()) == 1);
    char* text = nullptr;
    const auto size = BIO_get_mem_data(output.get(), &text);
    return {text, static_cast<std::size_t>(size)};
}

} // namespace tarnquill

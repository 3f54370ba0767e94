#include "jwt/VerificationKey.h"

#include "jwt/KeyFailure.h"

#include <openssl/bn.h>
#include <openssl/core_names.h>
#include <openssl/crypto.h>
#include <openssl/ecdsa.h>
#include <openssl/evp.h>
#include <openssl/param_build.h>
#include <openssl/rsa.h>

#include <algorithm>
#include <array>
#include <climits>
#include <memory>

namespace tarnquill::JWTVerifier {

namespace {

template <auto Free>
struct Freer {
    template <typename Object>
    void operator()(Object* object) const {
        Free(object);
    }
};

template <typename Object, auto Free>
using Owned = std::unique_ptr<Object, Freer<Free>>;

using Number = Owned<BIGNUM, BN_free>;
using MACContext = Owned<EVP_MAC_CTX, EVP_MAC_CTX_free>;
using DigestContext = Owned<EVP_MD_CTX, EVP_MD_CTX_free>;
using KeyContext = Owned<EVP_PKEY_CTX, EVP_PKEY_CTX_free>;
using ParameterBuilder = Owned<OSSL_PARAM_BLD, OSSL_PARAM_BLD_free>;
using Parameters = Owned<OSSL_PARAM, OSSL_PARAM_free>;
using Signature = Owned<ECDSA_SIG, ECDSA_SIG_free>;
using Key = std::shared_ptr<EVP_PKEY>;

constexpr int kFewestRSABits = 1024;
constexpr int kMostRSABits = 16'384;
constexpr int kMostExponentBits = 64;

constexpr std::array kHashNames{"SHA256", "SHA384", "SHA512"};

const unsigned char* bytesOf(std::string_view text) {
    return reinterpret_cast<const unsigned char*>(
        text.data()); // NOLINT(cppcoreguidelines-pro-type-reinterpret-cast)
}

Key owned(EVP_PKEY* key) {
    return key == nullptr ? nullptr : Key(key, EVP_PKEY_free);
}

const EVP_MD* digest(Hash hash) {
    const std::array digests{EVP_sha256(), EVP_sha384(), EVP_sha512()};
    return digests.at(static_cast<std::size_t>(hash));
}

// Contexts without a key, to be copied: finding a MAC and its hash by name takes longer than a short token's
// MAC itself.
const EVP_MAC_CTX* hmac(Hash hash) {
    static const auto kContexts = [] {
        std::array<MACContext, kHashNames.size()> contexts;
        const Owned<EVP_MAC, EVP_MAC_free> mac(EVP_MAC_fetch(nullptr, OSSL_MAC_NAME_HMAC, nullptr));
        for (std::size_t i = 0; i < contexts.size(); ++i) {
            std::string name = kHashNames.at(i);
            const std::array parameters{
                OSSL_PARAM_construct_utf8_string(OSSL_MAC_PARAM_DIGEST, name.data(), 0),
                OSSL_PARAM_construct_end()};
            contexts.at(i).reset(EVP_MAC_CTX_new(mac.get()));
            EVP_MAC_CTX_set_params(contexts.at(i).get(), parameters.data());
        }
        return contexts;
    }();
    return kContexts.at(static_cast<std::size_t>(hash)).get();
}

bool verifiesMAC(std::string_view secret, Hash hash, std::string_view input, std::string_view signature) {
    const MACContext context(EVP_MAC_CTX_dup(hmac(hash)));
    std::array<unsigned char, EVP_MAX_MD_SIZE> mac{};
    std::size_t size = 0;
    return context && EVP_MAC_init(context.get(), bytesOf(secret), secret.size(), nullptr) == 1 &&
           EVP_MAC_update(context.get(), bytesOf(input), input.size()) == 1 &&
           EVP_MAC_final(context.get(), mac.data(), &size, mac.size()) == 1 && signature.size() == size &&
           CRYPTO_memcmp(mac.data(), signature.data(), size) == 0;
}

bool usePSS(EVP_PKEY_CTX* context, Hash hash) {
    return EVP_PKEY_CTX_set_rsa_padding(context, RSA_PKCS1_PSS_PADDING) == 1 &&
           EVP_PKEY_CTX_set_rsa_mgf1_md(context, digest(hash)) == 1 &&
           EVP_PKEY_CTX_set_rsa_pss_saltlen(context, RSA_PSS_SALTLEN_DIGEST) == 1;
}

bool verifiesDigest(EVP_PKEY* key, Algorithm algorithm, std::string_view input, std::string_view signature) {
    const auto* const hashing = family(algorithm) == Family::edwards ? nullptr : digest(hash(algorithm));
    const DigestContext context(EVP_MD_CTX_new());
    EVP_PKEY_CTX* keyContext = nullptr; // the digest context's own
    return context && EVP_DigestVerifyInit(context.get(), &keyContext, hashing, nullptr, key) == 1 &&
           (family(algorithm) != Family::rsaPSS || usePSS(keyContext, hash(algorithm))) &&
           EVP_DigestVerify(context.get(), bytesOf(signature), signature.size(), bytesOf(input),
                            input.size()) == 1;
}

// JWS writes the numbers R and S one after the other, OpenSSL reads them as DER.
bool verifiesECDSA(EVP_PKEY* key, Algorithm algorithm, std::string_view input, std::string_view signature) {
    const auto size = curve(hash(algorithm)).coordinateSize;
    if (signature.size() != 2 * size) {
        return false;
    }
    const auto number = [](std::string_view bytes) {
        return BN_bin2bn(bytesOf(bytes), static_cast<int>(bytes.size()), nullptr);
    };
    const Signature pair(ECDSA_SIG_new());
    if (!pair ||
        ECDSA_SIG_set0(pair.get(), number(signature.substr(0, size)), number(signature.substr(size))) != 1) {
        return false;
    }
    constexpr std::size_t kMostDERBytes = 160; // two numbers of 67 bytes with their tags and lengths
    std::array<unsigned char, kMostDERBytes> der{};
    auto* end = der.data();
    const auto length = i2d_ECDSA_SIG(pair.get(), &end);
    if (length <= 0) {
        return false;
    }
    const auto* const start =
        reinterpret_cast<const char*>(der.data()); // NOLINT(cppcoreguidelines-pro-type-reinterpret-cast)
    return verifiesDigest(key, algorithm, input, {start, static_cast<std::size_t>(length)});
}

Key makeKey(const char* type, int selection, OSSL_PARAM* parameters) {
    const KeyContext context(EVP_PKEY_CTX_new_from_name(nullptr, type, nullptr));
    EVP_PKEY* key = nullptr;
    if (!context || EVP_PKEY_fromdata_init(context.get()) != 1 ||
        EVP_PKEY_fromdata(context.get(), &key, selection, parameters) != 1) {
        return nullptr;
    }
    return owned(key);
}

// How many bits a modulus takes at least. The padding of PSS holds the hash, a salt as long and two bytes in
// one bit less than the modulus (RFC 8017, 9.1.1); any usable modulus has room for that of PKCS #1 v1.5.
int fewestBits(Algorithm algorithm) {
    if (family(algorithm) != Family::rsaPSS) {
        return kFewestRSABits;
    }
    const auto hashBits = static_cast<int>(hashSize(hash(algorithm))) * CHAR_BIT;
    return std::max(kFewestRSABits, 2 * hashBits + CHAR_BIT + 2);
}

bool isUsable(const BIGNUM* modulus, const BIGNUM* exponent, Algorithm algorithm) {
    const auto bits = BN_num_bits(modulus);
    return fewestBits(algorithm) <= bits && bits <= kMostRSABits && BN_is_odd(modulus) == 1 &&
           BN_num_bits(exponent) <= kMostExponentBits && BN_is_odd(exponent) == 1 && BN_is_one(exponent) == 0;
}

Number number(std::string_view bytes) {
    // Longer numbers are refused in any case, and their length need not fit an int.
    constexpr std::size_t kMostBytes = kMostRSABits;
    return bytes.size() > kMostBytes
               ? nullptr
               : Number(BN_bin2bn(bytesOf(bytes), static_cast<int>(bytes.size()), nullptr));
}

// A key that holds nothing but its curve, to be copied: setting a curve up by its name takes a good part of
// a check.
const EVP_PKEY* onlyCurve(Hash hash) {
    static const auto kKeys = [] {
        std::array<Key, 3> keys;
        for (std::size_t i = 0; i < keys.size(); ++i) {
            std::string name(curve(static_cast<Hash>(i)).name);
            std::array parameters{
                OSSL_PARAM_construct_utf8_string(OSSL_PKEY_PARAM_GROUP_NAME, name.data(), 0),
                OSSL_PARAM_construct_end()};
            keys.at(i) = makeKey("EC", EVP_PKEY_KEY_PARAMETERS, parameters.data());
        }
        return keys;
    }();
    return kKeys.at(static_cast<std::size_t>(hash)).get();
}

Key makeRSAKey(const BIGNUM* modulus, const BIGNUM* exponent) {
    const ParameterBuilder builder(OSSL_PARAM_BLD_new());
    if (!builder || OSSL_PARAM_BLD_push_BN(builder.get(), OSSL_PKEY_PARAM_RSA_N, modulus) != 1 ||
        OSSL_PARAM_BLD_push_BN(builder.get(), OSSL_PKEY_PARAM_RSA_E, exponent) != 1) {
        return nullptr;
    }
    const Parameters parameters(OSSL_PARAM_BLD_to_param(builder.get()));
    return makeKey("RSA", EVP_PKEY_PUBLIC_KEY, parameters.get());
}

// Nothing when the point does not lie on the curve.
Key makeECKey(Hash hash, std::string_view point) {
    auto key = owned(EVP_PKEY_dup(const_cast<EVP_PKEY*>(onlyCurve(hash)))); // it is only read
    return key && EVP_PKEY_set1_encoded_public_key(key.get(), bytesOf(point), point.size()) == 1 ? key
                                                                                                 : nullptr;
}

} // namespace

VerificationKey sharedSecretKey(std::string secret, Hash hash, std::string_view origin) {
    auto description = "HMAC secret, " + std::to_string(secret.size()) +
                       (secret.size() == 1 ? " byte" : " bytes") + std::string(origin);
    return {
        .description = std::move(description),
        .verifies = [secret = std::move(secret), hash](std::string_view input, std::string_view signature) {
            return verifiesMAC(secret, hash, input, signature);
        }};
}

KeyResult rsaKey(std::string_view modulus, std::string_view exponent, Algorithm algorithm,
                 std::string_view origin) {
    const auto n = number(modulus);
    const auto e = number(exponent);
    auto key = n && e && isUsable(n.get(), e.get(), algorithm) ? makeRSAKey(n.get(), e.get()) : nullptr;
    if (!key) {
        return std::unexpected(KeyFailure::wrongKind(algorithm));
    }
    const auto size = static_cast<std::size_t>(BN_num_bytes(n.get()));
    return VerificationKey{
        .description = "RSA public key, " + std::to_string(size * CHAR_BIT) + " bits" + std::string(origin),
        .verifies = [key = std::move(key), size, algorithm](std::string_view input,
                                                            std::string_view signature) {
            return signature.size() == size && verifiesDigest(key.get(), algorithm, input, signature);
        }};
}

KeyResult ecdsaKey(std::string_view point, Algorithm algorithm, std::string_view origin) {
    const auto& curve = JWTVerifier::curve(hash(algorithm));
    const auto isWhole = point.starts_with('\x04') && point.size() == 1 + 2 * curve.coordinateSize;
    const auto isCompressed =
        (point.starts_with('\x02') || point.starts_with('\x03')) && point.size() == 1 + curve.coordinateSize;
    auto key = isWhole || isCompressed ? makeECKey(hash(algorithm), point) : nullptr;
    if (!key) {
        return std::unexpected(KeyFailure::wrongKind(algorithm));
    }
    return VerificationKey{
        .description = std::string(curve.name) + " public key" + std::string(origin),
        .verifies = [key = std::move(key), algorithm](std::string_view input, std::string_view signature) {
            return verifiesECDSA(key.get(), algorithm, input, signature);
        }};
}

KeyResult ed25519Key(std::string_view bytes, Algorithm algorithm, std::string_view origin) {
    auto key =
        owned(EVP_PKEY_new_raw_public_key_ex(nullptr, "ED25519", nullptr, bytesOf(bytes), bytes.size()));
    if (!key) {
        return std::unexpected(KeyFailure::wrongKind(algorithm));
    }
    return VerificationKey{
        .description = "Ed25519 public key" + std::string(origin),
        .verifies = [key = std::move(key), algorithm](std::string_view input, std::string_view signature) {
            return verifiesDigest(key.get(), algorithm, input, signature);
        }};
}

} // namespace tarnquill::JWTVerifier

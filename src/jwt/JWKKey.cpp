#include "jwt/JWKKey.h"

#include "codec/Base64.h"
#include "jwt/KeyFailure.h"

#include <utility>

namespace tarnquill::JWTVerifier {

namespace {

std::optional<std::string_view> text(JSONValue jwk, std::string_view member) {
    const auto value = jwk.find(member);
    return value && value->isText() ? std::optional(value->text()) : std::nullopt;
}

std::optional<std::string> bytes(JSONValue jwk, std::string_view member) {
    const auto written = text(jwk, member);
    return written ? Base64::decode(*written) : std::nullopt;
}

KeyResult readSecret(JSONValue jwk, std::string_view type, Algorithm algorithm, std::string_view origin) {
    auto secret = type == "oct" ? bytes(jwk, "k") : std::nullopt;
    if (!secret || secret->empty()) {
        return std::unexpected(KeyFailure::notASecretJWK(algorithm, type));
    }
    return sharedSecretKey(std::move(*secret), hash(algorithm), origin);
}

KeyResult readRSA(JSONValue jwk, std::string_view type, Algorithm algorithm, std::string_view origin) {
    const auto modulus = bytes(jwk, "n");
    const auto exponent = bytes(jwk, "e");
    return type == "RSA" && modulus && exponent ? rsaKey(*modulus, *exponent, algorithm, origin)
                                                : std::unexpected(KeyFailure::wrongKind(algorithm));
}

KeyResult readEC(JSONValue jwk, std::string_view type, Algorithm algorithm, std::string_view origin) {
    const auto& curve = JWTVerifier::curve(hash(algorithm));
    const auto x = bytes(jwk, "x");
    const auto y = bytes(jwk, "y");
    const auto isWhole = type == "EC" && text(jwk, "crv") == curve.name && x && y &&
                         x->size() == curve.coordinateSize && y->size() == curve.coordinateSize;
    return isWhole ? ecdsaKey("\x04" + *x + *y, algorithm, origin)
                   : std::unexpected(KeyFailure::wrongKind(algorithm));
}

KeyResult readEdwards(JSONValue jwk, std::string_view type, Algorithm algorithm, std::string_view origin) {
    const auto curve = text(jwk, "crv");
    if (type == "OKP" && curve == "Ed448") {
        return std::unexpected(KeyFailure::ed448());
    }
    const auto x = bytes(jwk, "x");
    return type == "OKP" && curve == "Ed25519" && x ? ed25519Key(*x, algorithm, origin)
                                                    : std::unexpected(KeyFailure::wrongKind(algorithm));
}

KeyResult readJWK(JSONValue jwk, Algorithm algorithm, std::string_view origin) {
    const auto type = text(jwk, "kty").value_or("untyped");
    if (type != "oct" && jwk.find("d")) {
        return std::unexpected(KeyFailure::privateKey());
    }
    switch (family(algorithm)) {
    case Family::hmac:
        return readSecret(jwk, type, algorithm, origin);
    case Family::rsaPKCS1:
    case Family::rsaPSS:
        return readRSA(jwk, type, algorithm, origin);
    case Family::ecdsa:
        return readEC(jwk, type, algorithm, origin);
    case Family::edwards:
        return readEdwards(jwk, type, algorithm, origin);
    }
    std::unreachable();
}

bool fits(JSONValue jwk, Algorithm algorithm) {
    const auto type = text(jwk, "kty");
    switch (family(algorithm)) {
    case Family::hmac:
        return type == "oct";
    case Family::rsaPKCS1:
    case Family::rsaPSS:
        return type == "RSA";
    case Family::ecdsa:
        return type == "EC" && text(jwk, "crv") == curve(hash(algorithm)).name;
    case Family::edwards:
        return type == "OKP" && text(jwk, "crv") == "Ed25519";
    }
    std::unreachable();
}

KeyResult readNamed(JSONValue keys, Algorithm algorithm, const std::string& keyIdentifier) {
    for (const auto jwk : keys.elements()) {
        if (text(jwk, "kid") == keyIdentifier) {
            return readJWK(jwk, algorithm, ", from a JWK set, kid " + keyIdentifier);
        }
    }
    return std::unexpected(KeyFailure::noneNamed(keyIdentifier));
}

KeyResult readFitting(JSONValue keys, Algorithm algorithm) {
    std::optional<JSONValue> only;
    std::size_t count = 0;
    for (const auto jwk : keys.elements()) {
        if (fits(jwk, algorithm)) {
            only = jwk;
            ++count;
        }
    }
    if (count > 1) {
        return std::unexpected(KeyFailure::severalFit(count));
    }
    return only ? readJWK(*only, algorithm, ", from a JWK set")
                : std::unexpected(KeyFailure::noneFits(algorithm));
}

bool holdsOnlyObjects(JSONValue array) {
    for (const auto element : array.elements()) {
        if (!element.isObject()) {
            return false;
        }
    }
    return true;
}

} // namespace

bool isJWKOrSet(JSONValue value) {
    return value.find("kty") || value.find("keys");
}

KeyResult readJWKOrSet(JSONValue value, Algorithm algorithm,
                       const std::optional<std::string>& keyIdentifier) {
    const auto keys = value.find("keys");
    if (!keys || !keys->isArray() || !holdsOnlyObjects(*keys)) {
        return readJWK(value, algorithm, ", from a JWK");
    }
    return keyIdentifier ? readNamed(*keys, algorithm, *keyIdentifier) : readFitting(*keys, algorithm);
}

} // namespace tarnquill::JWTVerifier

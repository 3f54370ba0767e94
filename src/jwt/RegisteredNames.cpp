#include "jwt/RegisteredNames.h"

#include <array>
#include <span>

namespace tarnquill::RegisteredNames {

namespace {

struct Meaning {
    std::string_view name;
    std::string_view sentence;
};

constexpr std::array kClaims{
    Meaning{"iss", "Issuer: who made the token."},
    Meaning{"sub", "Subject: whom the token is about."},
    Meaning{"aud", "Audience: who is meant to accept the token. Everybody else has to refuse it."},
    Meaning{"exp", "Expiration time: from this second on the token must not be accepted."},
    Meaning{"nbf", "Not before: until this second the token must not be accepted."},
    Meaning{"iat", "Issued at: when the token was made. It has no say in whether the token is valid."},
    Meaning{"jti", "Token identifier: tells this token from all others, against replay."},
    Meaning{"azp", "Authorized party: the client that the token was issued to."},
    Meaning{"nonce", "Nonce: ties the token to the request that asked for it."},
    Meaning{"auth_time", "Authentication time: when the user signed in."},
    Meaning{"scope", "Scope: what the bearer may do."},
};

constexpr std::array kHeader{
    Meaning{"alg", "Algorithm: how the token is signed, or how its key is encrypted."},
    Meaning{"typ", "Type of the whole token, usually JWT."},
    Meaning{"cty", "Content type of the payload. JWT says that there is a token inside."},
    Meaning{"kid", "Key identifier: which of the issuer's keys was used."},
    Meaning{"enc", "Content encryption: the algorithm that the payload is encrypted with."},
    Meaning{"zip", "Compression: how the payload was packed before it was encrypted."},
    Meaning{"crit", "Critical: extensions that whoever accepts the token has to understand."},
    Meaning{"jku", "Address of the JWK set with the key. Trust it only if you know it."},
    Meaning{"jwk", "The public key itself. It proves nothing unless you know it from elsewhere."},
    Meaning{"x5u", "Address of the certificate with the key. Trust it only if you know it."},
    Meaning{"x5c", "The certificate with the key, and those that vouch for it."},
    Meaning{"x5t", "SHA-1 thumbprint of the certificate with the key."},
    Meaning{"x5t#S256", "SHA-256 thumbprint of the certificate with the key."},
};

std::string_view find(std::span<const Meaning> meanings, std::string_view name) {
    for (const auto& meaning : meanings) {
        if (meaning.name == name) {
            return meaning.sentence;
        }
    }
    return {};
}

} // namespace

std::string_view ofClaim(std::string_view name) {
    return find(kClaims, name);
}

std::string_view ofHeader(std::string_view name) {
    return find(kHeader, name);
}

} // namespace tarnquill::RegisteredNames

#include "jwt/KeyFailure.h"

#include <utility>

namespace tarnquill::JWTVerifier::KeyFailure {

namespace {

std::string kindNeeded(Algorithm algorithm) {
    switch (family(algorithm)) {
    case Family::hmac:
        break; // needs no public key
    case Family::rsaPKCS1:
    case Family::rsaPSS:
        return "an RSA";
    case Family::ecdsa:
        return "a " + std::string(curve(hash(algorithm)).name);
    case Family::edwards:
        return "an Ed25519";
    }
    std::unreachable();
}

} // namespace

std::string privateKey() {
    return "This is a private key. A signature is checked with the public key, so paste that instead; the "
           "private "
           "key need never leave where it is kept.";
}

std::string publicKeyForSharedSecret(Algorithm algorithm) {
    return "This is a public key or a certificate, but " + displayName(algorithm) +
           " is checked with the shared secret.";
}

std::string secretForPublicKey(Algorithm algorithm) {
    return displayName(algorithm) +
           " is checked with a public key: a PEM, a certificate, a JWK or a JWK set.";
}

std::string secretNotBase64() {
    return "The secret is not Base64. Turn Base64 off to use it as text.";
}

std::string bodyNotBase64() {
    return "The PEM's body is not Base64.";
}

std::string unknownLabel(std::string_view label) {
    return "A PEM labelled " + std::string(label) + " is not a key this tool reads.";
}

std::string unreadableCertificate() {
    return "This certificate could not be read.";
}

std::string ed448() {
    return "This is an Ed448 key. Only Ed25519 can be checked here: macOS's CryptoKit has no Ed448.";
}

std::string wrongKind(Algorithm algorithm) {
    return "Not " + kindNeeded(algorithm) + " public key, which " + displayName(algorithm) + " needs.";
}

std::string notASecretJWK(Algorithm algorithm, std::string_view keyType) {
    return displayName(algorithm) + " needs an oct JWK, with the secret in k. This one is " +
           std::string(keyType) + ".";
}

std::string noneNamed(std::string_view keyIdentifier) {
    return "No key in this JWK set has the kid “" + std::string(keyIdentifier) + "”, which the token names.";
}

std::string noneFits(Algorithm algorithm) {
    return "No key in this JWK set fits " + displayName(algorithm) + ".";
}

std::string severalFit(std::size_t count) {
    return "The token names no kid, and " + std::to_string(count) +
           " keys in this JWK set could fit. Paste the one that signed it.";
}

} // namespace tarnquill::JWTVerifier::KeyFailure

#include "jwt/JWTVerifier.h"

#include "codec/Base64.h"
#include "common/JSONReader.h"
#include "common/WhiteSpace.h"
#include "jwt/JWKKey.h"
#include "jwt/KeyFailure.h"
#include "jwt/PEMKey.h"
#include "jwt/SampleToken.h"
#include "jwt/TokenParts.h"

#include <openssl/err.h>

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace tarnquill::JWTVerifier {

namespace {

using Kind = Outcome::Kind;

struct Header {
    std::string algorithm; // empty when the header names none
    std::optional<std::string> keyIdentifier;
};

std::optional<Header> readHeader(std::string_view part) {
    const auto json = Base64::decode(part);
    if (!json) {
        return std::nullopt;
    }
    const auto document = JSONReader::read(*json);
    if (!document || !document->root().isObject()) {
        return std::nullopt;
    }
    Header header;
    const auto root = document->root();
    if (const auto alg = root.find("alg")) {
        header.algorithm = alg->text();
    }
    if (const auto kid = root.find("kid"); kid && kid->isText()) {
        header.keyIdentifier = kid->text();
    }
    return header;
}

bool isNone(std::string_view alg) {
    constexpr std::string_view kNone = "none";
    return std::ranges::equal(alg, kNone, [](char a, char b) { return (a | 0x20) == b; });
}

KeyResult readSecret(std::string_view text, Algorithm algorithm, SecretForm form) {
    if (form == SecretForm::text) {
        return sharedSecretKey(std::string(text), hash(algorithm), {});
    }
    auto secret = Base64::decode(text);
    if (!secret || secret->empty()) {
        return std::unexpected(KeyFailure::secretNotBase64());
    }
    return sharedSecretKey(std::move(*secret), hash(algorithm), {});
}

KeyResult readKey(std::string_view text, Algorithm algorithm, const Header& header, SecretForm form) {
    if (isPEM(text)) {
        return readPEM(text, algorithm);
    }
    if (text.starts_with('{')) {
        const auto document = JSONReader::read(text);
        if (document && isJWKOrSet(document->root())) {
            return readJWKOrSet(document->root(), algorithm, header.keyIdentifier);
        }
    }
    return family(algorithm) == Family::hmac ? readSecret(text, algorithm, form)
                                             : std::unexpected(KeyFailure::secretForPublicKey(algorithm));
}

Outcome check(std::string_view signingInput, std::string_view signature, const KeyResult& key) {
    if (key && key->verifies(signingInput, signature)) {
        return {.kind = Kind::verified, .detail = key->description};
    }
    ERR_clear_error(); // leaves nothing for this thread's next user of OpenSSL
    return key ? Outcome{.kind = Kind::mismatch, .detail = key->description}
               : Outcome{.kind = Kind::badKey, .detail = key.error()};
}

std::string prompt(std::string_view token) {
    const auto algorithm = algorithmOf(token);
    if (algorithm == Algorithm::unknown) {
        return "Paste the key to check the signature.";
    }
    const auto name = displayName(algorithm);
    if (family(algorithm) != Family::hmac) {
        return "Paste the public key to check this " + name +
               " signature: a PEM, a certificate, a JWK, or a JWK set.";
    }
    auto sentence = "Paste the shared secret to check this " + name + " signature.";
    if (token == kSampleToken) {
        sentence.append(" The sample token's secret is ").append(kSampleSecret).append(".");
    }
    return sentence;
}

} // namespace

std::string_view rawText(Outcome::Kind kind) {
    constexpr std::array<std::string_view, 8> kTexts{"verified", "mismatch", "unsupported", "badKey",
                                                     "noKey",    "unsigned", "encrypted",   "malformed"};
    return kTexts.at(static_cast<std::size_t>(kind));
}

Outcome verify(std::string_view token, std::string_view key, SecretForm secretForm) {
    const auto cleaned = cleanedToken(token);
    const TokenParts parts(cleaned);
    if (parts.count() == TokenParts::kEncrypted) {
        return {.kind = Kind::encrypted};
    }
    if (parts.count() != TokenParts::kSigned) {
        return {.kind = Kind::malformed};
    }
    const auto header = readHeader(parts[0]);
    const auto signature = header ? Base64::decode(parts[2]) : std::nullopt;
    if (!signature) {
        return {.kind = Kind::malformed};
    }
    if (isNone(header->algorithm)) {
        return {.kind = Kind::notSigned};
    }
    const auto algorithm = JWTVerifier::algorithm(header->algorithm);
    if (algorithm == Algorithm::unknown) {
        return {.kind = Kind::unsupported, .detail = header->algorithm};
    }
    const auto trimmedKey = trimmed(key);
    if (trimmedKey.empty()) {
        return {.kind = Kind::noKey};
    }
    return check(parts.signingInput(), *signature, readKey(trimmedKey, algorithm, *header, secretForm));
}

bool usesCertificate(const Outcome& outcome) {
    const auto isChecked = outcome.kind == Kind::verified || outcome.kind == Kind::mismatch;
    return isChecked && outcome.detail.ends_with(kFromCertificate);
}

Algorithm algorithmOf(std::string_view token) {
    const auto cleaned = cleanedToken(token);
    const TokenParts parts(cleaned);
    const auto header = parts.count() == TokenParts::kSigned ? readHeader(parts[0]) : std::nullopt;
    return header ? algorithm(header->algorithm) : Algorithm::unknown;
}

std::string message(const Outcome& outcome, std::string_view token) {
    switch (outcome.kind) {
    case Kind::verified:
        return "The signature matches this key.";
    case Kind::mismatch:
        return "The signature does not match this key. Either the key is not the one that signed it, or the "
               "token was "
               "changed after signing.";
    case Kind::unsupported:
        return (outcome.detail.empty() ? "A missing alg" : outcome.detail) +
               " is not a signature this tool can check. It checks HS, RS, PS and ES with SHA-256, SHA-384 "
               "or "
               "SHA-512, and EdDSA on Ed25519.";
    case Kind::badKey:
        return outcome.detail;
    case Kind::notSigned:
        return "The header's alg is none: there is no signature, so anyone could have written this token.";
    case Kind::encrypted:
        return "An encrypted token has no signature to check.";
    case Kind::malformed:
        return "Paste the key to check the signature.";
    case Kind::noKey:
        return prompt(token);
    }
    std::unreachable();
}

} // namespace tarnquill::JWTVerifier

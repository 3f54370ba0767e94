#include "jwt/PEMKey.h"

#include "codec/Base64.h"
#include "jwt/DERReader.h"
#include "jwt/KeyFailure.h"

#include <openssl/x509.h>

#include <algorithm>
#include <array>
#include <climits>
#include <memory>

namespace tarnquill::JWTVerifier {

namespace {

constexpr std::string_view kBegin = "-----BEGIN";
constexpr std::string_view kEnd = "-----END";
constexpr std::string_view kDashes = "-----";

// The contents of DER object identifiers.
constexpr std::string_view kECPublicKey = "\x2A\x86\x48\xCE\x3D\x02\x01";
constexpr std::string_view kEd25519 = "\x2B\x65\x70";
constexpr std::string_view kEd448 = "\x2B\x65\x71";

std::string_view labelOf(std::string_view text) {
    constexpr std::string_view kBeforeLabel = "-----BEGIN ";
    const auto begin = text.find(kBeforeLabel);
    if (begin == std::string_view::npos) {
        return {};
    }
    const auto start = begin + kBeforeLabel.size();
    const auto end = text.find(kDashes, start);
    return end == std::string_view::npos ? std::string_view() : text.substr(start, end - start);
}

// What stands between the lines of BEGIN and END. Decoding Base64 skips the line breaks in it.
std::string_view bodyOf(std::string_view text) {
    constexpr std::array<std::string_view, 7> kLineBreaks{"\n",     "\r",     "\v",    "\f",
                                                          "\u0085", "\u2028", "\u2029"};
    auto firstLine = text.size();
    for (const auto lineBreak : kLineBreaks) {
        firstLine = std::min(firstLine, text.find(lineBreak));
    }
    const auto body = text.substr(firstLine);
    return body.substr(0, body.find(kEnd));
}

// RSAPublicKey of RFC 8017, A.1.1.
KeyResult readRSAPublicKey(std::string_view der, Algorithm algorithm, std::string_view origin) {
    DERReader outer(der);
    DERReader numbers(outer.take(DERTag::sequence).value_or(""));
    const auto modulus = numbers.takeUnsignedInteger();
    const auto exponent = numbers.takeUnsignedInteger();
    if (!modulus || !exponent || !numbers.isAtEnd() || !outer.isAtEnd()) {
        return std::unexpected(KeyFailure::wrongKind(algorithm));
    }
    return rsaKey(*modulus, *exponent, algorithm, origin);
}

// SubjectPublicKeyInfo of RFC 5280, 4.1.2.7.
struct PublicKeyInfo {
    std::string_view algorithm; // the object identifier
    DERReader parameters;
    std::string_view key;
};

std::optional<PublicKeyInfo> readPublicKeyInfo(std::string_view der) {
    DERReader outer(der);
    DERReader info(outer.take(DERTag::sequence).value_or(""));
    DERReader identifier(info.take(DERTag::sequence).value_or(""));
    const auto algorithm = identifier.take(DERTag::objectIdentifier);
    const auto key = info.takeBytesOfBitString();
    if (!algorithm || !key || !info.isAtEnd() || !outer.isAtEnd()) {
        return std::nullopt;
    }
    return PublicKeyInfo{.algorithm = *algorithm, .parameters = identifier, .key = *key};
}

KeyResult readPublicKey(std::string_view der, Algorithm algorithm, std::string_view origin) {
    auto info = readPublicKeyInfo(der);
    if (!info) {
        return std::unexpected(KeyFailure::wrongKind(algorithm));
    }
    switch (family(algorithm)) {
    case Family::rsaPKCS1:
    case Family::rsaPSS:
        // Under whichever of RSA's identifiers: no other kind of key holds an RSAPublicKey.
        return readRSAPublicKey(info->key, algorithm, origin);
    case Family::ecdsa:
        if (info->algorithm == kECPublicKey &&
            info->parameters.take(DERTag::objectIdentifier) == curve(hash(algorithm)).objectIdentifier) {
            return ecdsaKey(info->key, algorithm, origin);
        }
        break;
    case Family::edwards:
        if (info->algorithm == kEd448) {
            return std::unexpected(KeyFailure::ed448());
        }
        if (info->algorithm == kEd25519) {
            return ed25519Key(info->key, algorithm, origin);
        }
        break;
    case Family::hmac:
        break;
    }
    return std::unexpected(KeyFailure::wrongKind(algorithm));
}

// The DER of the public key in a certificate; nothing when either cannot be read.
std::optional<std::string> publicKeyOfCertificate(std::string_view der, Algorithm algorithm) {
    struct Free {
        void operator()(X509* certificate) const { X509_free(certificate); }
    };
    if (der.size() > LONG_MAX) {
        return std::nullopt;
    }
    const auto* next = reinterpret_cast<const unsigned char*>(
        der.data()); // NOLINT(cppcoreguidelines-pro-type-reinterpret-cast)
    const auto* const end = next + der.size();
    const std::unique_ptr<X509, Free> certificate(d2i_X509(nullptr, &next, static_cast<long>(der.size())));
    if (!certificate || next != end) {
        return std::nullopt;
    }
    // Edwards keys are read from the bytes alone, so that one that is not supported is named.
    if (family(algorithm) != Family::edwards && X509_get0_pubkey(certificate.get()) == nullptr) {
        return std::nullopt;
    }
    const auto* const key = X509_get_X509_PUBKEY(certificate.get());
    const auto size = i2d_X509_PUBKEY(key, nullptr);
    if (size <= 0) {
        return std::nullopt;
    }
    std::string bytes(static_cast<std::size_t>(size), '\0');
    auto* output =
        reinterpret_cast<unsigned char*>(bytes.data()); // NOLINT(cppcoreguidelines-pro-type-reinterpret-cast)
    i2d_X509_PUBKEY(key, &output);
    return bytes;
}

// The label of the structure by what it begins with.
std::optional<std::string_view> labelOfDER(std::string_view bytes) {
    DERReader outer(bytes);
    const auto content = outer.take(DERTag::sequence);
    if (!content || !outer.isAtEnd()) {
        return std::nullopt;
    }
    DERReader values(*content);
    if (values.takeUnsignedInteger()) {
        // A modulus and an exponent; a private key begins with its version.
        return values.takeUnsignedInteger() && values.isAtEnd() ? "RSA PUBLIC KEY" : "PRIVATE KEY";
    }
    if (!values.take(DERTag::sequence)) {
        return std::nullopt;
    }
    if (values.takeBytesOfBitString() && values.isAtEnd()) {
        return "PUBLIC KEY";
    }
    const auto isCertificate = values.take(DERTag::sequence) && values.takeBytesOfBitString();
    return isCertificate && values.isAtEnd() ? std::optional("CERTIFICATE") : std::nullopt;
}

} // namespace

bool isPEM(std::string_view text) {
    return text.starts_with(kBegin);
}

KeyResult readPEM(std::string_view text, Algorithm algorithm) {
    const auto label = labelOf(text);
    if (label.contains("PRIVATE")) {
        return std::unexpected(KeyFailure::privateKey());
    }
    if (family(algorithm) == Family::hmac) {
        return std::unexpected(KeyFailure::publicKeyForSharedSecret(algorithm));
    }
    const auto der = Base64::decode(bodyOf(text));
    if (!der) {
        return std::unexpected(KeyFailure::bodyNotBase64());
    }
    if (label == "CERTIFICATE") {
        const auto key = publicKeyOfCertificate(*der, algorithm);
        return key ? readPublicKey(*key, algorithm, kFromCertificate)
                   : std::unexpected(KeyFailure::unreadableCertificate());
    }
    if (label == "PUBLIC KEY") {
        return readPublicKey(*der, algorithm, {});
    }
    if (label == "RSA PUBLIC KEY") {
        const auto isRSA = family(algorithm) == Family::rsaPKCS1 || family(algorithm) == Family::rsaPSS;
        return isRSA ? readRSAPublicKey(*der, algorithm, {})
                     : std::unexpected(KeyFailure::wrongKind(algorithm));
    }
    return std::unexpected(KeyFailure::unknownLabel(label));
}

std::optional<std::string> pemFromDER(std::string_view bytes) {
    constexpr std::size_t kLineLength = 64;
    const auto label = labelOfDER(bytes);
    if (!label) {
        return std::nullopt;
    }
    const auto boundary = [&label](std::string_view word) {
        return std::string(kDashes).append(word).append(" ").append(*label).append(kDashes).append("\n");
    };
    auto pem = boundary("BEGIN");
    const auto body = Base64::encode(bytes, Base64::Alphabet::standard);
    for (std::size_t start = 0; start < body.size(); start += kLineLength) {
        pem.append(body, start, kLineLength).append("\n");
    }
    return pem + boundary("END");
}

} // namespace tarnquill::JWTVerifier

#include "jwt/JWTDecoder.h"

#include "codec/Base64.h"
#include "common/JSONReader.h"
#include "common/UnicodeText.h"
#include "jwt/TokenParts.h"
#include "json/JSONFormatter.h"
#include "json/JSONWriter.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <utility>

namespace tarnquill::JWTDecoder {

namespace {

constexpr std::array<std::string_view, TokenParts::kSigned> kSignedParts{"header", "payload", "signature"};
constexpr std::array<std::string_view, TokenParts::kEncrypted> kEncryptedParts{
    "header", "encrypted key", "initialization vector", "ciphertext", "authentication tag"};

constexpr double kFirstMilliseconds = 1e11; // as seconds, in the year 5138

std::int64_t count(std::size_t size) {
    return static_cast<std::int64_t>(size);
}

std::string formatted(const JSONDocument& document) {
    std::string text;
    const JSONFormatter::Sink sink = [&text](std::string_view piece) { text += piece; };
    JSONWriter(document, JSONFormatter::Indent::spaces(2), JSONFormatter::SortMode::ascending, sink).write();
    return text;
}

std::optional<std::string> text(std::optional<JSONValue> value) {
    return value && value->isText() ? std::optional<std::string>(value->text()) : std::nullopt;
}

Payload notJSON(std::string bytes) {
    if (isWellFormedUTF8(bytes)) {
        return {.kind = Payload::Kind::text, .text = std::move(bytes)};
    }
    return {.kind = Payload::Kind::binary, .byteCount = count(bytes.size())};
}

void readPayload(Decoded& token, std::string bytes) {
    if (bytes.empty()) {
        token.payload = {.kind = Payload::Kind::detached};
        return;
    }
    const auto document = JSONReader::read(bytes);
    if (!document) {
        token.payload = notJSON(std::move(bytes));
        return;
    }
    const auto root = document->root();
    token.payload = {.kind = Payload::Kind::json, .text = formatted(*document)};
    if (root.isObject()) {
        token.payload.claimCount = count(root.count());
    }
    token.timeClaims = timeClaims(root);
}

} // namespace

std::string_view rawText(TimeClaim::Name name) {
    constexpr std::array<std::string_view, 3> kTexts{"exp", "nbf", "iat"};
    return kTexts.at(static_cast<std::size_t>(name));
}

std::string_view rawText(Validity validity) {
    constexpr std::array<std::string_view, 5> kTexts{"badTimeClaim", "expired", "notYetValid", "notExpired",
                                                     "noExpiry"};
    return kTexts.at(static_cast<std::size_t>(validity));
}

std::string message(const Failure& failure) {
    switch (failure.reason) {
    case Failure::Reason::empty:
        return "Paste a token to decode it.";
    case Failure::Reason::headerNotJSONObject:
        return "The header does not decode to a JSON object.";
    case Failure::Reason::segmentCount:
        return "A JWT has three parts separated by dots, or five when it is encrypted. This has " +
               std::to_string(failure.segment) + (failure.segment == 1 ? " part." : " parts.");
    case Failure::Reason::notBase64URL:
        return "Part " + std::to_string(failure.segment) + ", the " + std::string(failure.name) +
               ", is not base64url.";
    }
    std::unreachable();
}

std::expected<Decoded, Failure> decode(std::string_view token) {
    using Reason = Failure::Reason;
    const auto cleaned = cleanedToken(token);
    if (cleaned.empty()) {
        return std::unexpected(Failure{.reason = Reason::empty});
    }
    const TokenParts parts(cleaned);
    const auto isSigned = parts.count() == TokenParts::kSigned;
    if (!isSigned && parts.count() != TokenParts::kEncrypted) {
        return std::unexpected(Failure{.reason = Reason::segmentCount, .segment = count(parts.count())});
    }
    const auto names = isSigned ? std::span<const std::string_view>(kSignedParts) : kEncryptedParts;
    std::array<std::string, TokenParts::kEncrypted> decodedParts;
    for (std::size_t i = 0; i < parts.count(); ++i) {
        auto bytes = Base64::decode(parts[i]);
        if (!bytes) {
            return std::unexpected(
                Failure{.reason = Reason::notBase64URL, .segment = count(i + 1), .name = names[i]});
        }
        decodedParts.at(i) = std::move(*bytes);
    }
    auto& [header, second, third, fourth, fifth] = decodedParts;
    const auto document = JSONReader::read(header);
    if (!document || !document->root().isObject()) {
        return std::unexpected(Failure{.reason = Reason::headerNotJSONObject});
    }
    Decoded decoded;
    decoded.header = formatted(*document);
    decoded.headerKeyCount = count(document->root().count());
    decoded.headerByteCount = count(header.size());
    decoded.algorithm = text(document->root().find("alg"));
    decoded.segmentCount = count(parts.count());
    if (isSigned) {
        decoded.payloadByteCount = count(second.size());
        decoded.signatureByteCount = count(third.size());
        readPayload(decoded, std::move(second));
    } else {
        decoded.payloadByteCount = count(fourth.size());
        decoded.payload.kind = Payload::Kind::encrypted;
    }
    return decoded;
}

std::vector<TimeClaim> timeClaims(JSONValue claims) {
    std::vector<TimeClaim> found;
    for (const auto name : kTimeClaimNames) {
        if (const auto value = claims.find(rawText(name))) {
            const auto number = value->asDouble();
            found.push_back({.name = name, .date = number && std::isfinite(*number) ? number : std::nullopt});
        }
    }
    return found;
}

Validity validity(const std::vector<TimeClaim>& claims, double now) {
    const auto find = [&claims](TimeClaim::Name name) {
        return std::ranges::find(claims, name, &TimeClaim::name);
    };
    const auto expiry = find(TimeClaim::Name::exp);
    const auto notBefore = find(TimeClaim::Name::nbf);
    const auto none = claims.end();
    if ((expiry != none && !expiry->date) || (notBefore != none && !notBefore->date)) {
        return Validity::badTimeClaim;
    }
    if (expiry != none && now >= *expiry->date) {
        return Validity::expired;
    }
    if (notBefore != none && now < *notBefore->date) {
        return Validity::notYetValid;
    }
    return expiry != none ? Validity::notExpired : Validity::noExpiry;
}

std::optional<Validity> validity(const Decoded& token, double now) {
    return token.payload.claimCount ? std::optional(validity(token.timeClaims, now)) : std::nullopt;
}

bool looksLikeMilliseconds(double date) {
    return date >= kFirstMilliseconds;
}

} // namespace tarnquill::JWTDecoder

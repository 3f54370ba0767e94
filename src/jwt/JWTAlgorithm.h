// The signature algorithms of RFC 7518 (JWA), RFC 8037 and RFC 9864 that can be checked.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tarnquill::JWTVerifier {

enum class Hash : std::uint8_t { sha256, sha384, sha512 };

// One byte: the family above, the ordinal of its hash in the low five bits.
enum class Algorithm : std::uint8_t {
    hs256 = 0,
    hs384,
    hs512,
    rs256 = 32,
    rs384,
    rs512,
    ps256 = 64,
    ps384,
    ps512,
    es256 = 96,
    es384,
    es512,
    eddsa = 128,
    ed25519,
    unknown = 252
};

enum class Family : std::uint8_t { hmac, rsaPKCS1, rsaPSS, ecdsa, edwards };

// The algorithm that a header's `alg` names. Case counts.
[[nodiscard]] Algorithm algorithm(std::string_view alg);

// "HS256", "EdDSA". The algorithm must be a known one for this and all that follow.
[[nodiscard]] std::string displayName(Algorithm algorithm);

[[nodiscard]] constexpr Family family(Algorithm algorithm) {
    return static_cast<Family>(static_cast<unsigned>(algorithm) >> 5);
}

// Of an algorithm whose name says it; Ed25519 has a hash of its own.
[[nodiscard]] constexpr Hash hash(Algorithm algorithm) {
    return static_cast<Hash>(static_cast<unsigned>(algorithm) & 0x1F);
}

// In bytes.
[[nodiscard]] constexpr std::size_t hashSize(Hash hash) {
    return 32 + 16 * static_cast<std::size_t>(hash);
}

// A curve that ECDSA is used on, by the hash that goes with it.
struct Curve {
    std::string_view name;
    std::string_view objectIdentifier; // the bytes of its DER content
    std::size_t coordinateSize;        // in bytes
};

[[nodiscard]] const Curve& curve(Hash hash);

} // namespace tarnquill::JWTVerifier

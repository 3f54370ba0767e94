#include "jwt/JWTAlgorithm.h"

#include <array>
#include <utility>

namespace tarnquill::JWTVerifier {

namespace {

constexpr std::array<std::pair<std::string_view, Family>, 4> kFamilies{{
    {"HS", Family::hmac},
    {"RS", Family::rsaPKCS1},
    {"PS", Family::rsaPSS},
    {"ES", Family::ecdsa},
}};
constexpr std::array<std::string_view, 3> kSizes{"256", "384", "512"};

using namespace std::string_view_literals; // for the zero bytes

constexpr std::array kCurves{
    Curve{.name = "P-256", .objectIdentifier = "\x2A\x86\x48\xCE\x3D\x03\x01\x07"sv, .coordinateSize = 32},
    Curve{.name = "P-384", .objectIdentifier = "\x2B\x81\x04\x00\x22"sv, .coordinateSize = 48},
    Curve{.name = "P-521", .objectIdentifier = "\x2B\x81\x04\x00\x23"sv, .coordinateSize = 66},
};

} // namespace

Algorithm algorithm(std::string_view alg) {
    if (alg == "EdDSA") {
        return Algorithm::eddsa;
    }
    if (alg == "Ed25519") {
        return Algorithm::ed25519;
    }
    for (const auto& [letters, family] : kFamilies) {
        for (std::size_t ordinal = 0; ordinal < kSizes.size(); ++ordinal) {
            if (alg.size() == 5 && alg.starts_with(letters) && alg.ends_with(kSizes.at(ordinal))) {
                return static_cast<Algorithm>(static_cast<std::size_t>(family) << 5 | ordinal);
            }
        }
    }
    return Algorithm::unknown;
}

std::string displayName(Algorithm algorithm) {
    if (algorithm == Algorithm::eddsa) {
        return "EdDSA";
    }
    if (algorithm == Algorithm::ed25519) {
        return "Ed25519";
    }
    std::string name(kFamilies.at(static_cast<std::size_t>(family(algorithm))).first);
    return name.append(kSizes.at(static_cast<std::size_t>(hash(algorithm))));
}

const Curve& curve(Hash hash) {
    return kCurves.at(static_cast<std::size_t>(hash));
}

} // namespace tarnquill::JWTVerifier

// Decoding and verifying agree on what a token is, and no changed signature is verified with any key. A zero
// byte stands between token and key.
#include "FuzzInput.h"
#include "codec/Base64.h"
#include "common/UnicodeText.h"
#include "jwt/JWTDecoder.h"
#include "jwt/JWTVerifier.h"
#include "jwt/TokenParts.h"

using namespace tarnquill;

namespace {

using JWTVerifier::SecretForm;
using Kind = JWTVerifier::Outcome::Kind;

void checkDecoding(std::string_view token, Kind outcome) {
    const auto decoded = JWTDecoder::decode(token);
    if (!decoded) {
        fuzz::require(!JWTDecoder::message(decoded.error()).empty());
        return;
    }
    fuzz::require(isWellFormedUTF8(decoded->header) && isWellFormedUTF8(decoded->payload.text));
    fuzz::require(outcome != Kind::malformed);
    fuzz::require((outcome == Kind::encrypted) == (decoded->segmentCount == 5));
    fuzz::require(decoded->payload.claimCount.has_value() == JWTDecoder::validity(*decoded, 0).has_value());
}

void checkChangedSignatures(std::string_view token, std::string_view key, SecretForm form) {
    const auto cleaned = cleanedToken(token);
    const TokenParts parts(cleaned);
    auto signature = Base64::decode(parts[2]).value_or("");
    for (const auto at : {std::size_t{0}, signature.size() / 2, signature.size() - 1}) {
        signature[at] = static_cast<char>(signature[at] ^ 1);
        const auto changed = std::string(parts.signingInput()) + "." + Base64::encode(signature);
        fuzz::require(JWTVerifier::verify(changed, key, form).kind == Kind::mismatch);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string input(data, data + size);
    const auto middle = input.find('\0');
    const auto token = std::string_view(input).substr(0, middle);
    const auto key =
        middle == std::string::npos ? std::string_view() : std::string_view(input).substr(middle + 1);
    for (const auto form : {SecretForm::text, SecretForm::base64}) {
        const auto outcome = JWTVerifier::verify(token, key, form);
        fuzz::require(!message(outcome, token).empty());
        checkDecoding(token, outcome.kind);
        if (outcome.kind == Kind::verified) {
            checkChangedSignatures(token, key, form);
        }
    }
    return 0;
}

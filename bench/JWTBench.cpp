// Measures the decoder, and the verifier beside OpenSSL's own calls in the same run: its check of the same
// bytes with a key that is ready (checkOnly), and the same with the key read from the same PEM first
// (readAndCheck). The verifier reads its key every time, and takes the token apart as well.
#include "jwt/JWTDecoder.h"
#include "jwt/JWTVerifier.h"
#include "jwt/SampleToken.h"
#include "jwt/testing/SigningKey.h"

#include <benchmark/benchmark.h>

namespace tarnquill {

namespace {

using JWTVerifier::Algorithm;

// The claims of an ordinary token.
constexpr std::string_view kClaims =
    R"({"iss":"https://login.example.com/","sub":"auth0|5f7c8ec7c33c6c004bbafe82","aud":["https://api.example.com/",)"
    R"("https://example.eu.example.com/userinfo"],"iat":1790380800,"exp":2106000000,"azp":"my_client_id",)"
    R"("scope":"openid profile email read:messages write:messages"})";

void decode(benchmark::State& state, const std::string& token) {
    for (auto _ : state) {
        auto decoded = JWTDecoder::decode(token);
        benchmark::DoNotOptimize(decoded);
    }
    state.SetItemsProcessed(state.iterations());
    state.SetBytesProcessed(static_cast<std::int64_t>(token.size()) * state.iterations());
}

void decodeSample(benchmark::State& state) {
    decode(state, std::string(kSampleToken));
}

void decodeOrdinary(benchmark::State& state) {
    decode(state, SigningKey(Algorithm::rs256).token(kClaims));
}

void decodeLong(benchmark::State& state) {
    std::string claims = R"({"scopes":[")";
    while (claims.size() < 3'750'000) {
        claims += "read:messages\",\"";
    }
    decode(state, SigningKey(Algorithm::hs256).token(claims + "\"]}"));
}

void verify(benchmark::State& state, Algorithm algorithm) {
    const SigningKey key(algorithm);
    const auto token = key.token(kClaims);
    const auto publicKey = key.publicText();
    for (auto _ : state) {
        auto outcome = JWTVerifier::verify(token, publicKey, JWTVerifier::SecretForm::text);
        if (outcome.kind != JWTVerifier::Outcome::Kind::verified) {
            state.SkipWithError("not verified");
        }
    }
    state.SetItemsProcessed(state.iterations());
}

void checkOnly(benchmark::State& state, Algorithm algorithm) {
    const SigningKey key(algorithm);
    const auto input = key.signingInput(kClaims);
    const auto signature = key.nativeSignature(input);
    for (auto _ : state) {
        if (!key.verifies(input, signature)) {
            state.SkipWithError("not verified");
        }
    }
    state.SetItemsProcessed(state.iterations());
}

void readAndCheck(benchmark::State& state, Algorithm algorithm) {
    const SigningKey key(algorithm);
    const auto input = key.signingInput(kClaims);
    const auto signature = key.nativeSignature(input);
    const auto text = key.publicText();
    for (auto _ : state) {
        if (!SigningKey(algorithm, text).verifies(input, signature)) {
            state.SkipWithError("not verified");
        }
    }
    state.SetItemsProcessed(state.iterations());
}

BENCHMARK(decodeSample);
BENCHMARK(decodeOrdinary);
BENCHMARK(decodeLong);
BENCHMARK_CAPTURE(verify, HS256, Algorithm::hs256);
BENCHMARK_CAPTURE(checkOnly, HS256, Algorithm::hs256);
BENCHMARK_CAPTURE(verify, RS256, Algorithm::rs256);
BENCHMARK_CAPTURE(checkOnly, RS256, Algorithm::rs256);
BENCHMARK_CAPTURE(readAndCheck, RS256, Algorithm::rs256);
BENCHMARK_CAPTURE(verify, ES256, Algorithm::es256);
BENCHMARK_CAPTURE(checkOnly, ES256, Algorithm::es256);
BENCHMARK_CAPTURE(readAndCheck, ES256, Algorithm::es256);
BENCHMARK_CAPTURE(verify, EdDSA, Algorithm::eddsa);
BENCHMARK_CAPTURE(checkOnly, EdDSA, Algorithm::eddsa);
BENCHMARK_CAPTURE(readAndCheck, EdDSA, Algorithm::eddsa);

} // namespace

} // namespace tarnquill

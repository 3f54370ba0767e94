// Measures the decoder, and the verifier beside OpenSSL's own calls. The verifier takes the token apart and
// reads its key every time; how many times as fast it is as OpenSSL's check of the same bytes is told in
// three ways: with a key that is ready and has been used before (of_check), with a key that OpenSSL makes of
// its numbers (of_check_with_new_key), and with a key that OpenSSL reads from the same PEM
// (of_reading_and_check).
#include "jwt/JWTDecoder.h"
#include "jwt/JWTVerifier.h"
#include "jwt/SampleToken.h"
#include "jwt/testing/SigningKey.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <vector>

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

using Clock = std::chrono::steady_clock;

// The seconds that each of many checks takes.
template <typename Check>
double secondsEach(Check check) {
    constexpr int kChecks = 50;
    const auto start = Clock::now();
    for (int i = 0; i < kChecks; ++i) {
        auto isVerified = check();
        benchmark::DoNotOptimize(isVerified);
    }
    return std::chrono::duration<double>(Clock::now() - start).count() / kChecks;
}

double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::ranges::nth_element(values, middle);
    return *middle;
}

// The verifier and OpenSSL take turns, so that whatever else the machine does slows down both.
void verify(benchmark::State& state, Algorithm algorithm) {
    const SigningKey key(algorithm);
    const auto token = key.token(kClaims);
    const auto publicKey = key.publicText();
    const auto input = key.signingInput(kClaims);
    const auto signature = key.nativeSignature(input);
    const auto verifies = [&] {
        return JWTVerifier::verify(token, publicKey, JWTVerifier::SecretForm::text).kind ==
               JWTVerifier::Outcome::Kind::verified;
    };
    if (!verifies() || !key.verifies(input, signature) || !key.verifiesAnew(input, signature)) {
        state.SkipWithError("not verified");
    }
    std::vector<double> ofCheck;
    std::vector<double> ofCheckWithNewKey;
    std::vector<double> ofReadingAndCheck;
    for (auto _ : state) {
        const auto ours = secondsEach(verifies);
        ofCheck.push_back(secondsEach([&] { return key.verifies(input, signature); }) / ours);
        ofCheckWithNewKey.push_back(secondsEach([&] { return key.verifiesAnew(input, signature); }) / ours);
        ofReadingAndCheck.push_back(
            secondsEach([&] { return SigningKey(algorithm, publicKey).verifies(input, signature); }) / ours);
        state.SetIterationTime(ours);
    }
    state.counters["of_check"] = median(std::move(ofCheck));
    state.counters["of_check_with_new_key"] = median(std::move(ofCheckWithNewKey));
    state.counters["of_reading_and_check"] = median(std::move(ofReadingAndCheck));
    state.SetItemsProcessed(state.iterations());
}

// An iteration is many checks of each kind, far more work than the time that it states.
constexpr int kRounds = 400;

BENCHMARK(decodeSample);
BENCHMARK(decodeOrdinary);
BENCHMARK(decodeLong);
BENCHMARK_CAPTURE(verify, HS256, Algorithm::hs256)->UseManualTime()->Iterations(kRounds);
BENCHMARK_CAPTURE(verify, RS256, Algorithm::rs256)->UseManualTime()->Iterations(kRounds);
BENCHMARK_CAPTURE(verify, PS256, Algorithm::ps256)->UseManualTime()->Iterations(kRounds);
BENCHMARK_CAPTURE(verify, ES256, Algorithm::es256)->UseManualTime()->Iterations(kRounds);
BENCHMARK_CAPTURE(verify, EdDSA, Algorithm::eddsa)->UseManualTime()->Iterations(kRounds);

} // namespace

} // namespace tarnquill

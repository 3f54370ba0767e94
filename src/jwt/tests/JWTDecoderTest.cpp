#include "jwt/JWTDecoder.h"

#include "codec/Base64.h"
#include "common/JSONReader.h"
#include "jwt/SampleToken.h"

#include <gtest/gtest.h>

#include <chrono>

namespace tarnquill {

using JWTDecoder::Payload;
using JWTDecoder::TimeClaim;
using JWTDecoder::Validity;
using Name = JWTDecoder::TimeClaim::Name;

namespace {

std::string part(std::string_view bytes) {
    return Base64::encode(bytes, Base64::Alphabet::urlSafe);
}

std::string tokenWithPayload(std::string_view payload) {
    return "e30." + part(payload) + ".";
}

std::string filled(std::size_t size, char character) {
    return std::string(size, character);
}

Payload payloadOf(std::string_view payload) {
    return JWTDecoder::decode(tokenWithPayload(payload)).value().payload;
}

std::string failureOf(std::string_view token) {
    const auto decoded = JWTDecoder::decode(token);
    return decoded ? "decodes" : JWTDecoder::message(decoded.error());
}

std::vector<TimeClaim> timeClaimsOf(std::string_view claims) {
    return JWTDecoder::decode(tokenWithPayload(claims)).value().timeClaims;
}

Validity validityOf(std::string_view claims, double now) {
    return JWTDecoder::validity(timeClaimsOf(claims), now);
}

} // namespace

TEST(JWTDecoder, DecodesTheSample) {
    const auto token = JWTDecoder::decode(kSampleToken);
    ASSERT_TRUE(token);
    EXPECT_EQ(token->header, "{\n  \"alg\" : \"HS256\",\n  \"typ\" : \"JWT\"\n}");
    EXPECT_EQ(token->algorithm, "HS256");
    EXPECT_EQ(token->payload.text,
              "{\n  \"exp\" : 2106000000,\n  \"iat\" : 1790380800,\n  \"name\" : \"Tarnquill\",\n"
              "  \"sub\" : \"1234567890\"\n}");
    EXPECT_EQ(token->payload.claimCount, 4);
    EXPECT_EQ(token->payloadByteCount, 73);
    EXPECT_EQ(token->signatureByteCount, 32);
    EXPECT_EQ(token->segmentCount, 3);
    EXPECT_EQ(token->timeClaims,
              (std::vector<TimeClaim>{{Name::exp, 2106000000.0}, {Name::iat, 1790380800.0}}));
}

TEST(JWTDecoder, TakesOffWhatPeoplePasteAroundAToken) {
    const auto expected = JWTDecoder::decode(kSampleToken);
    const std::string token(kSampleToken);
    const auto half = token.size() / 2;
    for (const auto& pasted : {
             " \r\n" + token + "\u2028\u00A0",
             "\"" + token + "\"",
             "'" + token + "'",
             "\"'" + token + "'\"",
             "Bearer " + token,
             "bEARER\u3000\n" + token,
             "Authorization:" + token,
             "authorization: \t BEARER  " + token,
             "'AUTHORIZATION: Bearer " + token + "'",
             token.substr(0, half) + "\r\n    " + token.substr(half),
             token.substr(0, half) + "\u0085" + token.substr(half),
         }) {
        EXPECT_EQ(JWTDecoder::decode(pasted), expected) << pasted;
    }
    for (const auto& pasted : {"bearer" + token, "'\"" + token + "\"'", "\"" + token, "basic " + token,
                               "Bearer Authorization: " + token, token + "\u200B"}) {
        EXPECT_FALSE(JWTDecoder::decode(pasted)) << pasted;
    }
}

TEST(JWTDecoder, SaysWhatIsWrong) {
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"", "Paste a token to decode it."},
        {" \n\u2003", "Paste a token to decode it."},
        {"\"\"", "Paste a token to decode it."},
        {"Bearer ", "Paste a token to decode it."},
        {"bearer", "Paste a token to decode it."},
        {"abc", "A JWT has three parts separated by dots, or five when it is encrypted. This has 1 part."},
        {"a.b", "A JWT has three parts separated by dots, or five when it is encrypted. This has 2 parts."},
        {"a.b.c.d",
         "A JWT has three parts separated by dots, or five when it is encrypted. This has 4 parts."},
        {"e30.e30.e30.e30.e30.",
         "A JWT has three parts separated by dots, or five when it is encrypted. This has 6 parts."},
        {"abcde.e30.", "Part 1, the header, is not base64url."},
        {"bad!.b!d.b!d", "Part 1, the header, is not base64url."},
        {"e30.e*0.", "Part 2, the payload, is not base64url."},
        {"e30.e30.abcde", "Part 3, the signature, is not base64url."},
        {"e30.a.e30.e30.e30", "Part 2, the encrypted key, is not base64url."},
        {"e30..a.e30.e30", "Part 3, the initialization vector, is not base64url."},
        {"e30...a.e30", "Part 4, the ciphertext, is not base64url."},
        {"e30....a", "Part 5, the authentication tag, is not base64url."},
        {"W10.e30.", "The header does not decode to a JSON object."},
        {"MQ.e30.", "The header does not decode to a JSON object."},
        {"..", "The header does not decode to a JSON object."},
        {"eyJhIjoi_yJ9.e30.", "The header does not decode to a JSON object."}, // a byte FF in a text
    };
    for (const auto& [token, sentence] : rows) {
        EXPECT_EQ(failureOf(token), sentence) << token;
    }
}

TEST(JWTDecoder, ReadsEveryFormOfBase64) {
    EXPECT_EQ(JWTDecoder::decode("eyJhIjo-fQ==.e30=.")->header,
              JWTDecoder::decode("eyJhIjo+fQ.e30.")->header);
    EXPECT_EQ(JWTDecoder::decode("e30.Pz8_.--__++//")->payloadByteCount, 3);
}

TEST(JWTDecoder, TakesOnlyATextForTheAlgorithm) {
    const auto algorithm = [](std::string_view header) {
        return JWTDecoder::decode(part(header) + ".e30.").value().algorithm;
    };
    EXPECT_EQ(algorithm(R"({"alg":256})"), std::nullopt);
    EXPECT_EQ(algorithm(R"({"alg":null})"), std::nullopt);
    EXPECT_EQ(algorithm(R"({"ALG":"HS256"})"), std::nullopt);
    EXPECT_EQ(algorithm(R"({"alg":" hs256"})"), " hs256");
    EXPECT_EQ(algorithm(R"({"alg":"none","alg":"HS\u0032\u0035\u0036"})"), "HS256");
}

TEST(JWTDecoder, SaysWhatThePayloadIs) {
    using Kind = Payload::Kind;
    EXPECT_EQ(payloadOf("{}"), (Payload{.kind = Kind::json, .text = "{}", .claimCount = 0}));
    EXPECT_EQ(payloadOf(R"({"b":1,"a":2,"b":3})"),
              (Payload{.kind = Kind::json, .text = "{\n  \"a\" : 2,\n  \"b\" : 3\n}", .claimCount = 2}));
    EXPECT_EQ(payloadOf("42"), (Payload{.kind = Kind::json, .text = "42"}));
    EXPECT_EQ(payloadOf("[1]"), (Payload{.kind = Kind::json, .text = "[\n  1\n]"}));
    EXPECT_EQ(payloadOf("hello"), (Payload{.kind = Kind::text, .text = "hello"}));
    EXPECT_EQ(payloadOf("{\"a\":1"), (Payload{.kind = Kind::text, .text = "{\"a\":1"}));
    EXPECT_EQ(payloadOf("\xFF\xFE"), (Payload{.kind = Kind::binary, .byteCount = 2}));
    EXPECT_EQ(payloadOf("\"\xFF\""), (Payload{.kind = Kind::binary, .byteCount = 3}));
    EXPECT_EQ(payloadOf(""), (Payload{.kind = Kind::detached}));
}

TEST(JWTDecoder, ShowsOnlyTheHeaderOfAnEncryptedToken) {
    const auto token =
        JWTDecoder::decode(part(R"({"alg":"RSA-OAEP","enc":"A256GCM"})") + ".AAAA.BBBB.Q0NDQw.DDDD");
    ASSERT_TRUE(token);
    EXPECT_EQ(token->payload, Payload{.kind = Payload::Kind::encrypted});
    EXPECT_EQ(token->algorithm, "RSA-OAEP");
    EXPECT_EQ(token->payloadByteCount, 4);
    EXPECT_EQ(token->signatureByteCount, std::nullopt);
    EXPECT_EQ(token->segmentCount, 5);
    EXPECT_TRUE(token->timeClaims.empty());
    EXPECT_EQ(JWTDecoder::validity(*token, 0), std::nullopt);
}

TEST(JWTDecoder, TakesOnlyNumbersForDates) {
    EXPECT_EQ(timeClaimsOf(R"({"iat":-1.5,"sub":1,"nbf":0,"exp":1e3})"),
              (std::vector<TimeClaim>{{Name::exp, 1000.0}, {Name::nbf, 0.0}, {Name::iat, -1.5}}));
    EXPECT_EQ(timeClaimsOf(R"({"exp":true,"nbf":"1700000000","iat":null})"),
              (std::vector<TimeClaim>{{Name::exp, {}}, {Name::nbf, {}}, {Name::iat, {}}}));
    EXPECT_EQ(timeClaimsOf(R"({"exp":{},"iat":[1]})"),
              (std::vector<TimeClaim>{{Name::exp, {}}, {Name::iat, {}}}));
    EXPECT_TRUE(timeClaimsOf(R"([{"exp":1}])").empty());
}

TEST(JWTDecoder, JudgesTheTimeClaimsInTheirOrder) {
    const std::tuple<std::string_view, double, Validity> rows[] = {
        {"{}", 0, Validity::noExpiry},
        {R"({"iat":"x"})", 0, Validity::noExpiry},
        {R"({"exp":true})", 0, Validity::badTimeClaim},
        {R"({"exp":10,"nbf":"5"})", 20, Validity::badTimeClaim},
        {R"({"exp":10})", 9.999, Validity::notExpired},
        {R"({"exp":10})", 10, Validity::expired},
        {R"({"exp":10,"nbf":30})", 20, Validity::expired},
        {R"({"exp":40,"nbf":30})", 29.999, Validity::notYetValid},
        {R"({"exp":40,"nbf":30})", 30, Validity::notExpired},
        {R"({"nbf":30})", 20, Validity::notYetValid},
        {R"({"nbf":30})", 30, Validity::noExpiry},
        {R"({"exp":1700000000000})", 1'800'000'000, Validity::notExpired},
    };
    for (const auto& [claims, now, validity] : rows) {
        EXPECT_EQ(validityOf(claims, now), validity) << claims << " at " << now;
    }
    EXPECT_TRUE(JWTDecoder::looksLikeMilliseconds(1e11));
    EXPECT_FALSE(JWTDecoder::looksLikeMilliseconds(99'999'999'999));
    for (const std::string_view payload : {"", "42", "[]", "hello", "\xFF"}) {
        EXPECT_EQ(JWTDecoder::validity(JWTDecoder::decode(tokenWithPayload(payload)).value(), 0),
                  std::nullopt);
    }
}

TEST(JWTDecoder, StaysQuickWithHostileTokens) {
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(
        failureOf(filled(10'000'000, '.')),
        "A JWT has three parts separated by dots, or five when it is encrypted. This has 10000001 parts.");
    EXPECT_EQ(payloadOf(filled(1'000'000, '[')).kind, Payload::Kind::text);
    EXPECT_EQ(payloadOf(filled(1'000'000, '[') + filled(1'000'000, ']')).kind, Payload::Kind::text);
    EXPECT_EQ(failureOf(filled(5'000'000, ' ') + "\u2028" + filled(5'000'000, '\'')), failureOf("abcde"));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

} // namespace tarnquill

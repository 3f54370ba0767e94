#include "jwt/JWTVerifier.h"

#include "codec/Base64.h"
#include "jwt/SampleToken.h"
#include "jwt/testing/SigningKey.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>

namespace tarnquill {

using JWTVerifier::Algorithm;
using JWTVerifier::Outcome;
using JWTVerifier::SecretForm;
using Kind = JWTVerifier::Outcome::Kind;

namespace {

constexpr std::array kAlgorithms{Algorithm::hs256, Algorithm::hs384,  Algorithm::hs512, Algorithm::rs256,
                                 Algorithm::rs384, Algorithm::rs512,  Algorithm::ps256, Algorithm::ps384,
                                 Algorithm::ps512, Algorithm::es256,  Algorithm::es384, Algorithm::es512,
                                 Algorithm::eddsa, Algorithm::ed25519};

constexpr std::string_view kPrivateKey = "This is a private key. A signature is checked with the public key, "
                                         "so paste that instead; the private key "
                                         "need never leave where it is kept.";

// An unsigned token whose header has the members.
std::string tokenOf(std::string_view members) {
    return Base64::encode("{" + std::string(members) + "}", Base64::Alphabet::urlSafe) + ".e30.AAAA";
}

std::string tokenFor(std::string_view alg) {
    return tokenOf(R"("alg":")" + std::string(alg) + "\"");
}

Outcome check(std::string_view token, std::string_view key, SecretForm form = SecretForm::text) {
    return JWTVerifier::verify(token, key, form);
}

// The outcome and what is said about it.
std::string said(std::string_view token, std::string_view key, SecretForm form = SecretForm::text) {
    const auto outcome = check(token, key, form);
    return std::string(rawText(outcome.kind)) + ": " + message(outcome, token);
}

std::string pem(std::string_view label, std::string_view der) {
    const std::string name(label);
    return "-----BEGIN " + name + "-----\n" + Base64::encode(der) + "\n-----END " + name + "-----\n";
}

std::string derOf(std::string_view pem) {
    const auto start = pem.find('\n');
    return Base64::decode(pem.substr(start, pem.find("-----END") - start)).value();
}

std::string filled(std::size_t size, char character) {
    return std::string(size, character);
}

std::string jwkOfRSA(std::string_view n, std::string_view e) {
    return R"({"kty":"RSA","n":")" + Base64::encode(n) + R"(","e":")" + Base64::encode(e) + "\"}";
}

} // namespace

TEST(JWTVerifier, VerifiesTheSampleWithItsSecret) {
    EXPECT_EQ(check(kSampleToken, "quarrybel"), (Outcome{Kind::verified, "HMAC secret, 9 bytes"}));
    EXPECT_EQ(check("Bearer " + std::string(kSampleToken), " quarrybel\n"),
              (Outcome{Kind::verified, "HMAC secret, 9 bytes"}));
    EXPECT_EQ(check(kSampleToken, "cXVhcnJ5YmVs", SecretForm::base64),
              (Outcome{Kind::verified, "HMAC secret, 9 bytes"}));
    EXPECT_EQ(check(kSampleToken, R"({"kty":"oct","k":"cXVhcnJ5YmVs"})", SecretForm::base64),
              (Outcome{Kind::verified, "HMAC secret, 9 bytes, from a JWK"}));
    EXPECT_EQ(check(kSampleToken, "q"), (Outcome{Kind::mismatch, "HMAC secret, 1 byte"}));
    EXPECT_EQ(check(kSampleToken, "quarry bel"), (Outcome{Kind::mismatch, "HMAC secret, 10 bytes"}));
    for (const std::string_view key : {"quarrybel", "=", "cXVh!"}) {
        EXPECT_EQ(said(kSampleToken, key, SecretForm::base64),
                  "badKey: The secret is not Base64. Turn Base64 off to use it as text.");
    }
    EXPECT_EQ(check(kSampleToken, R"({"no":"jwk"})"), (Outcome{Kind::mismatch, "HMAC secret, 12 bytes"}));
}

TEST(JWTVerifier, SaysWhatBecameOfATokenWithoutAKey) {
    constexpr std::string_view kPrompt = "Paste the key to check the signature.";
    const auto malformed = "malformed: " + std::string(kPrompt);
    for (const std::string_view token :
         {"", "a.b", "e30.e30", "!.e30.AA", "e30.e30.a", "W10.e30.", "e30.e30.e30.e30"}) {
        EXPECT_EQ(said(token, "key"), malformed) << token;
    }
    EXPECT_EQ(said("....", ""), "encrypted: An encrypted token has no signature to check.");
    for (const std::string_view alg : {"none", "NONE", "nOnE"}) {
        EXPECT_EQ(said(tokenFor(alg), ""),
                  "unsigned: The header's alg is none: there is no signature, so anyone "
                  "could have written this token.");
    }
    const std::string rest =
        " is not a signature this tool can check. It checks HS, RS, PS and ES with SHA-256, "
        "SHA-384 or SHA-512, and EdDSA on Ed25519.";
    for (const std::string alg :
         {"hs256", "HS1024", "ES256K", "RS1", "HS257", "XS256", "Eddsa", "none ", "HS256 "}) {
        EXPECT_EQ(said(tokenFor(alg), ""), std::string("unsupported: ").append(alg).append(rest));
    }
    EXPECT_EQ(said(tokenOf(R"("alg":256)"), "key"), "unsupported: A missing alg" + rest);
    EXPECT_EQ(said(kSampleToken, " \n"),
              "noKey: Paste the shared secret to check this HS256 signature. The sample "
              "token's secret is quarrybel.");
    EXPECT_EQ(said(tokenFor("HS512"), ""), "noKey: Paste the shared secret to check this HS512 signature.");
    EXPECT_EQ(said(tokenFor("Ed25519"), ""),
              "noKey: Paste the public key to check this Ed25519 signature: a PEM, a "
              "certificate, a JWK, or a JWK set.");
    // The payload need not decode: what is signed is its text.
    EXPECT_EQ(check("eyJhbGciOiJIUzI1NiJ9.!.AAAA", "key").kind, Kind::mismatch);
}

TEST(JWTVerifier, ChecksEveryAlgorithmAndNeverAnEmptySignature) {
    for (const auto algorithm : kAlgorithms) {
        const SigningKey key(algorithm);
        const auto token = key.token(R"({"sub":"x"})");
        EXPECT_EQ(check(token, key.publicText()).kind, Kind::verified) << displayName(algorithm);
        EXPECT_EQ(check(token.substr(0, token.rfind('.') + 1), key.publicText()).kind, Kind::mismatch)
            << displayName(algorithm);
        EXPECT_EQ(check(token, SigningKey(algorithm).publicText()).kind,
                  family(algorithm) == JWTVerifier::Family::hmac ? Kind::verified : Kind::mismatch);
    }
}

TEST(JWTVerifier, AcceptsASaltOfTheHashesLengthOnly) {
    const SigningKey key(Algorithm::ps256);
    const auto input = key.signingInput("{}");
    for (const auto& [salt, kind] :
         {std::pair(32, Kind::verified), {0, Kind::mismatch}, {31, Kind::mismatch}}) {
        const auto signature = key.signatureWithSalt(input, salt);
        EXPECT_EQ(check(input + "." + Base64::encode(signature), key.publicText()).kind, kind) << salt;
    }
}

TEST(JWTVerifier, LetsTheHeaderDecideWhatIsChecked) {
    const auto publicKey = SigningKey(Algorithm::rs256).publicText();
    const std::string refusal =
        "badKey: This is a public key or a certificate, but HS256 is checked with the shared secret.";
    EXPECT_EQ(said(tokenFor("HS256"), publicKey), refusal);
    EXPECT_EQ(said(tokenFor("HS256"), publicKey, SecretForm::base64), refusal);
    EXPECT_EQ(said(tokenFor("HS256"), pem("CERTIFICATE", "")), refusal);
    EXPECT_EQ(said(tokenFor("HS256"), R"({"kty":"RSA","alg":"HS256","n":"AA","e":"AQAB"})"),
              "badKey: HS256 needs an oct JWK, with the secret in k. This one is RSA.");
    EXPECT_EQ(said(tokenFor("RS256"), "a secret"),
              "badKey: RS256 is checked with a public key: a PEM, a certificate, a JWK or a JWK set.");
    EXPECT_EQ(said(tokenFor("EdDSA"), "{\"keys\"}"),
              "badKey: EdDSA is checked with a public key: a PEM, a certificate, a JWK or a JWK set.");
}

TEST(JWTVerifier, RefusesPEMsThatAreNoKeyForTheAlgorithm) {
    for (const std::string_view label :
         {"PRIVATE KEY", "RSA PRIVATE KEY", "EC PRIVATE KEY", "ENCRYPTED PRIVATE KEY"}) {
        for (const std::string_view alg : {"HS256", "RS256", "EdDSA"}) {
            EXPECT_EQ(said(tokenFor(alg), pem(label, "x")), "badKey: " + std::string(kPrivateKey));
        }
    }
    const std::tuple<std::string_view, std::string, std::string_view> rows[] = {
        {"RS256", "-----BEGIN PUBLIC KEY-----\n*\n-----END PUBLIC KEY-----", "The PEM's body is not Base64."},
        {"RS256", pem("EC PUBLIC KEY", ""), "A PEM labelled EC PUBLIC KEY is not a key this tool reads."},
        {"ES256", "-----BEGIN", "A PEM labelled  is not a key this tool reads."},
        {"EdDSA", pem("CERTIFICATE", "no certificate"), "This certificate could not be read."},
        {"RS256", pem("CERTIFICATE", "no certificate"), "This certificate could not be read."},
        {"RS256", SigningKey(Algorithm::es256).publicText(), "Not an RSA public key, which RS256 needs."},
        {"PS384", SigningKey(Algorithm::eddsa).publicText(), "Not an RSA public key, which PS384 needs."},
        {"ES384", SigningKey(Algorithm::rs256).publicText(), "Not a P-384 public key, which ES384 needs."},
        {"ES256", SigningKey(Algorithm::es384).publicText(), "Not a P-256 public key, which ES256 needs."},
        {"ES512", pem("RSA PUBLIC KEY", ""), "Not a P-521 public key, which ES512 needs."},
        {"Ed25519", SigningKey(Algorithm::es256).publicText(),
         "Not an Ed25519 public key, which Ed25519 needs."},
        {"EdDSA", pem("RSA PUBLIC KEY", ""), "Not an Ed25519 public key, which EdDSA needs."},
    };
    for (const auto& [alg, key, sentence] : rows) {
        EXPECT_EQ(said(tokenFor(alg), key), "badKey: " + std::string(sentence)) << key;
    }
}

TEST(JWTVerifier, ReadsThePEMBetweenItsLinesHoweverTheyEnd) {
    const SigningKey key(Algorithm::es256);
    const auto token = key.token("{}");
    for (const std::string_view lineBreak :
         {"\r", "\r\n", "\v", "\f", "\u0085", "\u2028", "\u2029", "\n \n\t"}) {
        std::string text;
        for (const auto character : key.publicText()) {
            text += character == '\n' ? lineBreak : std::string_view(&character, 1);
        }
        EXPECT_EQ(check(token, text).kind, Kind::verified);
    }
    EXPECT_EQ(check(token, key.publicText() + "-----BEGIN CERTIFICATE-----").kind, Kind::verified);
}

TEST(JWTVerifier, RefusesJWKsThatAreNoKeyForTheAlgorithm) {
    const std::string x(32, 'x');
    const auto ec = [](std::string_view first, std::string_view second) {
        return R"({"kty":"EC","crv":"P-256","x":")" + Base64::encode(first) + R"(","y":")" +
               Base64::encode(second) + "\"}";
    };
    const std::tuple<std::string_view, std::string, std::string_view> rows[] = {
        {"HS256", R"({"kty":"RSA","d":""})", kPrivateKey},
        {"EdDSA", R"({"kty":"OKP","crv":"Ed25519","x":"AA","d":1})", kPrivateKey},
        {"RS256", R"({"keys":1,"d":"AA"})", kPrivateKey},
        {"HS384", R"({"kty":"oct","k":""})",
         "HS384 needs an oct JWK, with the secret in k. This one is oct."},
        {"HS384", R"({"kty":1,"k":"AA"})",
         "HS384 needs an oct JWK, with the secret in k. This one is untyped."},
        {"HS384", R"({"keys":[1]})", "HS384 needs an oct JWK, with the secret in k. This one is untyped."},
        {"RS256", R"({"kty":"oct","k":"AA","d":"AA"})", "Not an RSA public key, which RS256 needs."},
        {"RS256", R"({"kty":"RSA","n":"AQAB"})", "Not an RSA public key, which RS256 needs."},
        {"ES256", ec(x, x), "Not a P-256 public key, which ES256 needs."}, // not on the curve
        {"ES256", ec("", ""), "Not a P-256 public key, which ES256 needs."},
        {"ES256", ec(x.substr(1), 'y' + x), "Not a P-256 public key, which ES256 needs."}, // 64 bytes in all
        {"ES384", ec(x, x), "Not a P-384 public key, which ES384 needs."},
        {"EdDSA", R"({"kty":"OKP","crv":"Ed448","x":"AA"})",
         "This is an Ed448 key. Only Ed25519 can be checked here: macOS's CryptoKit has no Ed448."},
        {"EdDSA", R"({"kty":"OKP","crv":"Ed25519","x":"AA"})",
         "Not an Ed25519 public key, which EdDSA needs."},
        {"EdDSA", R"({"kty":"OKP","crv":"X25519","x":"AA"})",
         "Not an Ed25519 public key, which EdDSA needs."},
    };
    for (const auto& [alg, key, sentence] : rows) {
        EXPECT_EQ(said(tokenFor(alg), key), "badKey: " + std::string(sentence)) << key;
    }
}

TEST(JWTVerifier, PicksTheKeyOfASetByItsNameOrElseByItsFit) {
    const auto said = [](std::string_view header, std::string_view keys) {
        const auto outcome = check(tokenOf(header), R"({"kty":"EC","keys":[)" + std::string(keys) + "]}");
        return std::string(rawText(outcome.kind)) + ": " + outcome.detail;
    };
    constexpr std::string_view kOct = R"({"kty":"oct","k":"QUE","kid":"a"})";
    constexpr std::string_view kTwo = R"({"kty":"oct","k":"QUE","kid":"a"},{"kty":"oct","k":"QQ","kid":"b"})";
    constexpr std::string_view kHS = R"("alg":"HS256")";
    EXPECT_EQ(said(R"("alg":"HS256","kid":"b")", kTwo),
              "mismatch: HMAC secret, 1 byte, from a JWK set, kid b");
    EXPECT_EQ(said(R"("alg":"HS256","kid":"A")", kTwo),
              "badKey: No key in this JWK set has the kid “A”, which the token names.");
    EXPECT_EQ(said(kHS, kTwo),
              "badKey: The token names no kid, and 2 keys in this JWK set could fit. Paste the one "
              "that signed it.");
    EXPECT_EQ(said(R"("alg":"HS256","kid":7)", kOct), "mismatch: HMAC secret, 2 bytes, from a JWK set");
    EXPECT_EQ(said(kHS, R"({"kid":"a"},{"kty":"EC"},{"kty":"oct","k":"QQ"})"),
              "mismatch: HMAC secret, 1 byte, from a JWK set");
    EXPECT_EQ(said(kHS, ""), "badKey: No key in this JWK set fits HS256.");
    EXPECT_EQ(said(R"("alg":"ES384")", R"({"kty":"EC","crv":"P-256"},{"kty":"OKP","crv":"P-384"})"),
              "badKey: No key in this JWK set fits ES384.");
    EXPECT_EQ(said(R"("alg":"EdDSA")", R"({"kty":"OKP","crv":"Ed448"})"),
              "badKey: No key in this JWK set fits EdDSA.");
    EXPECT_EQ(said(R"("alg":"PS256","kid":"a")", kOct), "badKey: Not an RSA public key, which PS256 needs.");
    EXPECT_EQ(said(R"("alg":"HS256","kid":"b","kid":"a")", kTwo),
              "mismatch: HMAC secret, 2 bytes, from a JWK set, kid a");
}

TEST(JWTVerifier, RefusesNumbersThatNoRSAKeyHas) {
    const auto isRefused = [](std::string_view n, std::string_view e, std::string_view alg = "RS256") {
        return check(tokenFor(alg), jwkOfRSA(n, e)).kind == Kind::badKey;
    };
    const std::string e("\x01\x00\x01", 3);
    const std::string n(256, '\xC1');
    EXPECT_FALSE(isRefused(n, e));
    EXPECT_FALSE(isRefused(std::string(3, '\0') + n, '\0' + e));
    EXPECT_FALSE(isRefused(n, "\x03"));
    EXPECT_FALSE(isRefused(std::string(128, '\xC1'), e, "PS384"));
    EXPECT_TRUE(isRefused(std::string(128, '\xC1'), e, "PS512")); // has no room for the salt
    EXPECT_TRUE(isRefused(std::string(127, '\xC1'), e));
    EXPECT_TRUE(isRefused(std::string(255, '\xC1') + '\xC2', e));
    EXPECT_TRUE(isRefused(filled(1'000'000, '\xC1'), e));
    for (const auto& bad : {std::string(), std::string(1, '\0'), std::string("\x01"), std::string("\x02"),
                            '\x01' + std::string(8, '\xC1'), n}) {
        EXPECT_TRUE(isRefused(n, bad));
    }
    EXPECT_EQ(check(tokenFor("RS256"), jwkOfRSA('\x01' + n, e)).detail,
              "RSA public key, 2056 bits, from a JWK");
}

TEST(JWTVerifier, ReadsNoKeyFromDamagedDER) {
    for (const auto algorithm : {Algorithm::rs256, Algorithm::es256, Algorithm::eddsa}) {
        const SigningKey key(algorithm);
        const auto token = key.token("{}");
        const auto der = derOf(key.publicText());
        const auto kindOf = [&](const std::string& changed) {
            return check(token, pem("PUBLIC KEY", changed)).kind;
        };
        ASSERT_EQ(kindOf(der), Kind::verified);
        for (std::size_t length = 0; length < der.size(); ++length) {
            EXPECT_EQ(kindOf(der.substr(0, length)), Kind::badKey) << length;
            check(token, pem("CERTIFICATE", der.substr(0, length)));
        }
        EXPECT_EQ(kindOf(der + '\0'), Kind::badKey);
        const auto content = der.substr(der.size() > 127 ? 4 : 2);
        EXPECT_EQ(kindOf("\x30\x80" + content + std::string(2, '\0')), Kind::badKey); // indefinite
        const std::string size{static_cast<char>(content.size() >> 8), static_cast<char>(content.size())};
        const auto sized = size + content;
        EXPECT_EQ(kindOf("\x30\x84" + std::string(2, '\0') + sized), Kind::badKey); // longer than need be
        EXPECT_EQ(kindOf("\x30\x85" + std::string(3, '\0') + sized), Kind::badKey);
        EXPECT_EQ(kindOf("\x30\x84\xFF\xFF\xFF\xFF" + content), Kind::badKey);
    }
}

TEST(JWTVerifier, StaysQuickWithHostileKeysAndTokens) {
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(check(filled(10'000'000, '.'), "key").kind, Kind::malformed);
    EXPECT_EQ(check(tokenFor("HS256"), filled(10'000'000, '{')).kind, Kind::mismatch);
    EXPECT_EQ(check(tokenFor("RS256"), "{\"keys\":" + filled(1'000'000, '[')).kind, Kind::badKey);
    EXPECT_EQ(check(tokenFor("RS256"), "-----BEGIN PUBLIC KEY-----" + filled(10'000'000, '\n')).kind,
              Kind::badKey);
    EXPECT_EQ(check(tokenFor("RS256"), pem("CERTIFICATE", filled(5'000'000, '\x30'))).kind, Kind::badKey);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

} // namespace tarnquill

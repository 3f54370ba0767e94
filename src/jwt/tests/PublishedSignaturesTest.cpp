// The signatures that the standards publish, with their keys.
#include "codec/Base64.h"
#include "jwt/JWTVerifier.h"
#include "jwt/TokenParts.h"

#include <gtest/gtest.h>

#include <array>

namespace tarnquill {

using JWTVerifier::Outcome;
using JWTVerifier::SecretForm;
using Kind = JWTVerifier::Outcome::Kind;

namespace {

struct Example {
    std::string_view name;
    std::string_view token;
    std::string_view jwk;
    std::string_view description;
};

constexpr std::array kExamples{
    Example{"RFC 7515, A.1",
            "eyJ0eXAiOiJKV1QiLA0KICJhbGciOiJIUzI1NiJ9"
            ".eyJpc3MiOiJqb2UiLA0KICJleHAiOjEzMDA4MTkzODAsDQogImh0dHA6Ly9leGFtcGxlLmNvbS9pc19yb290"
            "Ijp0cnVlfQ"
            ".dBjftJeZ4CVP-mB92K27uhbUJU1p1r_wW1gFWFOEjXk",
            R"({"kty":"oct","k":"AyM1SysPpbyDfgZld3umj1qzKObwVMkoqQ-EstJQLr_T-1qS0gZH75aKtMN3Yj0iPS)"
            R"(4hcgUuTwjAzZr1Z9CAow"})",
            "HMAC secret, 64 bytes"},
    Example{"RFC 7515, A.2",
            "eyJhbGciOiJSUzI1NiJ9"
            ".eyJpc3MiOiJqb2UiLA0KICJleHAiOjEzMDA4MTkzODAsDQogImh0dHA6Ly9leGFtcGxlLmNvbS9pc19yb290"
            "Ijp0cnVlfQ"
            ".cC4hiUPoj9Eetdgtv3hF80EGrhuB__dzERat0XF9g2VtQgr9PJbu3XOiZj5RZmh7AAuHIm4Bh-0Qc_lF5YKt"
            "_O8W2Fp5jujGbds9uJdbF9CUAr7t1dnZcAcQjbKBYNX4BAynRFdiuB--f_nZLgrnbyTyWzO75vRK5h6xBArL"
            "IARNPvkSjtQBMHlb1L07Qe7K0GarZRmB_eSN9383LcOLn6_dO--xi12jzDwusC-eOkHWEsqtFZESc6BfI7no"
            "OPqvhJ1phCnvWh6IeYI2w9QOYEUipUTI8np6LbgGY9Fs98rqVt5AXLIhWkWywlVmtVrBp0igcN_IoypGlUPQ"
            "Ge77Rw",
            R"({"kty":"RSA","n":"ofgWCuLjybRlzo0tZWJjNiuSfb4p4fAkd_wWJcyQoTbji9k0l8W26mPddxHmfHQp-V)"
            R"(aw-4qPCJrcS2mJPMEzP1Pt0Bm4d4QlL-yRT-SFd2lZS-pCgNMsD1W_YpRPEwOWvG6b32690r2jZ47soMZo9w)"
            R"(Gzjb_7OMg0LOL-bSf63kpaSHSXndS5z5rexMdbBYUsLA9e-KXBdQOS-UTo7WTBEMa2R2CapHg665xsmtdVMT)"
            R"(BQY4uDZlxvb3qCo5ZwKh9kG4LT6_I5IhlJH7aGhyxXFvUK-DWNmoudF8NAco9_h9iaGNj8q2ethFkMLs91kz)"
            R"(k2PAcDTW9gb54h4FRWyuXpoQ","e":"AQAB"})",
            "RSA public key, 2048 bits"},
    Example{"RFC 7515, A.3",
            "eyJhbGciOiJFUzI1NiJ9"
            ".eyJpc3MiOiJqb2UiLA0KICJleHAiOjEzMDA4MTkzODAsDQogImh0dHA6Ly9leGFtcGxlLmNvbS9pc19yb290"
            "Ijp0cnVlfQ"
            ".DtEhU3ljbEg8L38VWAfUAqOyKAM6-Xx-F4GawxaepmXFCgfTjDxw5djxLa8ISlSApmWQxfKTUJqPP3-Kg6NU"
            "1Q",
            R"({"kty":"EC","crv":"P-256","x":"f83OJ3D2xF1Bg8vub9tLe1gHMzV76e8Tus9uPHvRVEU","y":"x_F)"
            R"(EzRu9m36HLN_tue659LNpXW6pCyStikYjKIWI5a0"})",
            "P-256 public key"},
    Example{"RFC 7515, A.4",
            "eyJhbGciOiJFUzUxMiJ9"
            ".UGF5bG9hZA"
            ".AdwMgeerwtHoh-l192l60hp9wAHZFVJbLfD_UxMi70cwnZOYaRI1bKPWROc-mZZqwqT2SI-KGDKB34XO0aw_"
            "7XdtAG8GaSwFKdCAPZgoXD2YBJZCPEX3xKpRwcdOO8KpEHwJjyqOgzDO7iKvU8vcnwNrmxYbSW9ERBXukOXo"
            "lLzeO_Jn",
            R"({"kty":"EC","crv":"P-521","x":"AekpBQ8ST8a8VcfVOTNl353vSrDCLLJXmPk06wTjxrrjcBpXp5EOn)"
            R"(YG_NjFZ6OvLFV1jSfS9tsz4qUxcWceqwQGk","y":"ADSmRA43Z1DSNx_RvcLI87cdL07l6jQyyBXMoxVg_l)"
            R"(2Th-x3S1WDhjDly79ajL4Kkd0AZMaZmh9ubmf63e3kyMj2"})",
            "P-521 public key"},
    Example{"RFC 7520, 4.1",
            "eyJhbGciOiJSUzI1NiIsImtpZCI6ImJpbGJvLmJhZ2dpbnNAaG9iYml0b24uZXhhbXBsZSJ9"
            ".SXTigJlzIGEgZGFuZ2Vyb3VzIGJ1c2luZXNzLCBGcm9kbywgZ29pbmcgb3V0IHlvdXIgZG9vci4gWW91IHN0"
            "ZXAgb250byB0aGUgcm9hZCwgYW5kIGlmIHlvdSBkb24ndCBrZWVwIHlvdXIgZmVldCwgdGhlcmXigJlzIG5v"
            "IGtub3dpbmcgd2hlcmUgeW91IG1pZ2h0IGJlIHN3ZXB0IG9mZiB0by4"
            ".MRjdkly7_-oTPTS3AXP41iQIGKa80A0ZmTuV5MEaHoxnW2e5CZ5NlKtainoFmKZopdHM1O2U4mwzJdQx996i"
            "vp83xuglII7PNDi84wnB-BDkoBwA78185hX-Es4JIwmDLJK3lfWRa-XtL0RnltuYv746iYTh_qHRD68BNt1u"
            "SNCrUCTJDt5aAE6x8wW1Kt9eRo4QPocSadnHXFxnt8Is9UzpERV0ePPQdLuW3IS_de3xyIrDaLGdjluPxUAh"
            "b6L2aXic1U12podGU0KLUQSE_oI-ZnmKJ3F4uOZDnd6QZWJushZ41Axf_fcIe8u9ipH84ogoree7vjbU5y18"
            "kDquDg",
            R"({"kty":"RSA","n":"n4EPtAOCc9AlkeQHPzHStgAbgs7bTZLwUBZdR8_KuKPEHLd4rHVTeT-O-XV2jRojdN)"
            R"(hxJWTDvNd7nqQ0VEiZQHz_AJmSCpMaJMRBSFKrKb2wqVwGU_NsYOYL-QtiWN2lbzcEe6XC0dApr5ydQLrHqk)"
            R"(HHig3RBordaZ6Aj-oBHqFEHYpPe7Tpe-OfVfHd1E6cS6M1FZcD1NNLYD5lFHpPI9bTwJlsde3uhGqC0ZCuEH)"
            R"(g8lhzwOHrtIQbS0FVbb9k3-tVTU4fg_3L_vniUFAKwuCLqKnS2BYwdq_mzSnbLY7h_qixoR7jig3__kRhuax)"
            R"(wUkRz5iaiQkqgc5gHdrNP5zw","e":"AQAB"})",
            "RSA public key, 2048 bits"},
    Example{"RFC 7520, 4.2",
            "eyJhbGciOiJQUzM4NCIsImtpZCI6ImJpbGJvLmJhZ2dpbnNAaG9iYml0b24uZXhhbXBsZSJ9"
            ".SXTigJlzIGEgZGFuZ2Vyb3VzIGJ1c2luZXNzLCBGcm9kbywgZ29pbmcgb3V0IHlvdXIgZG9vci4gWW91IHN0"
            "ZXAgb250byB0aGUgcm9hZCwgYW5kIGlmIHlvdSBkb24ndCBrZWVwIHlvdXIgZmVldCwgdGhlcmXigJlzIG5v"
            "IGtub3dpbmcgd2hlcmUgeW91IG1pZ2h0IGJlIHN3ZXB0IG9mZiB0by4"
            ".cu22eBqkYDKgIlTpzDXGvaFfz6WGoz7fUDcfT0kkOy42miAh2qyBzk1xEsnk2IpN6-tPid6VrklHkqsGqDqH"
            "CdP6O8TTB5dDDItllVo6_1OLPpcbUrhiUSMxbbXUvdvWXzg-UD8biiReQFlfz28zGWVsdiNAUf8ZnyPEgVFn"
            "442ZdNqiVJRmBqrYRXe8P_ijQ7p8Vdz0TTrxUeT3lm8d9shnr2lfJT8ImUjvAA2Xez2Mlp8cBE5awDzT0qI0"
            "n6uiP1aCN_2_jLAeQTlqRHtfa64QQSUmFAAjVKPbByi7xho0uTOcbH510a6GYmJUAfmWjwZ6oD4ifKo8DYM-"
            "X72Eaw",
            R"({"kty":"RSA","n":"n4EPtAOCc9AlkeQHPzHStgAbgs7bTZLwUBZdR8_KuKPEHLd4rHVTeT-O-XV2jRojdN)"
            R"(hxJWTDvNd7nqQ0VEiZQHz_AJmSCpMaJMRBSFKrKb2wqVwGU_NsYOYL-QtiWN2lbzcEe6XC0dApr5ydQLrHqk)"
            R"(HHig3RBordaZ6Aj-oBHqFEHYpPe7Tpe-OfVfHd1E6cS6M1FZcD1NNLYD5lFHpPI9bTwJlsde3uhGqC0ZCuEH)"
            R"(g8lhzwOHrtIQbS0FVbb9k3-tVTU4fg_3L_vniUFAKwuCLqKnS2BYwdq_mzSnbLY7h_qixoR7jig3__kRhuax)"
            R"(wUkRz5iaiQkqgc5gHdrNP5zw","e":"AQAB"})",
            "RSA public key, 2048 bits"},
    Example{"RFC 7520, 4.3",
            "eyJhbGciOiJFUzUxMiIsImtpZCI6ImJpbGJvLmJhZ2dpbnNAaG9iYml0b24uZXhhbXBsZSJ9"
            ".SXTigJlzIGEgZGFuZ2Vyb3VzIGJ1c2luZXNzLCBGcm9kbywgZ29pbmcgb3V0IHlvdXIgZG9vci4gWW91IHN0"
            "ZXAgb250byB0aGUgcm9hZCwgYW5kIGlmIHlvdSBkb24ndCBrZWVwIHlvdXIgZmVldCwgdGhlcmXigJlzIG5v"
            "IGtub3dpbmcgd2hlcmUgeW91IG1pZ2h0IGJlIHN3ZXB0IG9mZiB0by4"
            ".AE_R_YZCChjn4791jSQCrdPZCNYqHXCTZH0-JZGYNlaAjP2kqaluUIIUnC9qvbu9Plon7KRTzoNEuT4Va2cm"
            "L1eJAQy3mtPBu_u_sDDyYjnAMDxXPn7XrT0lw-kvAD890jl8e2puQens_IEKBpHABlsbEPX6sFY8OcGDqoRu"
            "Bomu9xQ2",
            R"({"kty":"EC","crv":"P-521","x":"AHKZLLOsCOzz5cY97ewNUajB957y-C-U88c3v13nmGZx6sYl_oJXu)"
            R"(9A5RkTKqjqvjyekWF-7ytDyRXYgCF5cj0Kt","y":"AdymlHvOiLxXkEhayXQnNCvDX4h9htZaCJN34kfmC6)"
            R"(pV5OhQHiraVySsUdaQkAgDPrwQrJmbnX9cwlGfP-HqHZR1"})",
            "P-521 public key"},
    Example{"RFC 7520, 4.4",
            "eyJhbGciOiJIUzI1NiIsImtpZCI6IjAxOGMwYWU1LTRkOWItNDcxYi1iZmQ2LWVlZjMxNGJjNzAzNyJ9"
            ".SXTigJlzIGEgZGFuZ2Vyb3VzIGJ1c2luZXNzLCBGcm9kbywgZ29pbmcgb3V0IHlvdXIgZG9vci4gWW91IHN0"
            "ZXAgb250byB0aGUgcm9hZCwgYW5kIGlmIHlvdSBkb24ndCBrZWVwIHlvdXIgZmVldCwgdGhlcmXigJlzIG5v"
            "IGtub3dpbmcgd2hlcmUgeW91IG1pZ2h0IGJlIHN3ZXB0IG9mZiB0by4"
            ".s0h6KThzkfBBBkLspW1h84VsJZFTsPPqMDA7g1Md7p0",
            R"({"kty":"oct","k":"hJtXIZ2uSN5kbQfbtTNWbpdmhkV8FJG-Onbc6mxCcYg"})", "HMAC secret, 32 bytes"},
    Example{"RFC 8037, A.4",
            "eyJhbGciOiJFZERTQSJ9"
            ".RXhhbXBsZSBvZiBFZDI1NTE5IHNpZ25pbmc"
            ".hgyY0il_MGCjP0JzlnLWG1PPOt7-09PGcvMg3AIbQR6dWbhijcNR4ki4iylGjg5BhVsPt9g7sVvpAr_MuM0K"
            "Ag",
            R"({"kty":"OKP","crv":"Ed25519","x":"11qYAYKxCrfVS_7TyWQHOg7hcvPapiMlrwIaaPcHURo"})",
            "Ed25519 public key"},
};

Kind verify(std::string_view token, std::string_view key) {
    return JWTVerifier::verify(token, key, SecretForm::text).kind;
}

} // namespace

TEST(PublishedSignatures, AreVerified) {
    for (const auto& example : kExamples) {
        EXPECT_EQ(
            JWTVerifier::verify(example.token, example.jwk, SecretForm::text),
            (Outcome{.kind = Kind::verified, .detail = std::string(example.description) + ", from a JWK"}))
            << example.name;
    }
    // RFC 7515, A.5.
    EXPECT_EQ(
        verify("eyJhbGciOiJub25lIn0.eyJpc3MiOiJqb2UiLA0KICJleHAiOjEzMDA4MTkzODAsDQogImh0dHA6Ly9leGFtcGxlLmNvb"
               "S9pc19yb290Ijp0cnVlfQ.",
               "key"),
        Kind::notSigned);
}

TEST(PublishedSignatures, AreNotVerifiedWithAnyByteFlipped) {
    for (const auto& example : kExamples) {
        const TokenParts parts(example.token);
        const auto signedSize = parts.signingInput().size();
        for (std::size_t i = 0; i < signedSize; ++i) {
            std::string token(example.token);
            token[i] = static_cast<char>(token[i] ^ 1);
            EXPECT_NE(verify(token, example.jwk), Kind::verified) << example.name << " at " << i;
        }
        // The last character of a signature has bits that count for nothing, so its bytes are flipped here.
        const auto signature = Base64::decode(parts[2]).value();
        for (std::size_t i = 0; i < signature.size(); ++i) {
            auto changed = signature;
            changed[i] = static_cast<char>(changed[i] ^ (1 << i % 8));
            const auto token = std::string(parts.signingInput()) + "." + Base64::encode(changed);
            EXPECT_EQ(verify(token, example.jwk), Kind::mismatch) << example.name << " at " << i;
        }
    }
}

TEST(PublishedSignatures, AreNotVerifiedWithAnotherLength) {
    for (const auto& example : kExamples) {
        const TokenParts parts(example.token);
        const auto signature = Base64::decode(parts[2]).value();
        for (const auto& changed : {std::string(), signature.substr(1), signature + '\0', '\0' + signature,
                                    signature + signature, std::string(signature.size(), '\0')}) {
            const auto token = std::string(parts.signingInput()) + "." + Base64::encode(changed);
            EXPECT_EQ(verify(token, example.jwk), Kind::mismatch) << example.name;
        }
    }
}

} // namespace tarnquill

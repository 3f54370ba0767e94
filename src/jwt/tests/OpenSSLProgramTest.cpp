// Tokens, keys and certificates made with the openssl program.
#include "codec/Base64.h"
#include "jwt/DERReader.h"
#include "jwt/JWTVerifier.h"
#include "jwt/PEMKey.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace tarnquill {

using JWTVerifier::Family;
using JWTVerifier::Outcome;
using Kind = JWTVerifier::Outcome::Kind;

namespace {

class OpenSSLProgram : public testing::Test {
protected:
    OpenSSLProgram() {
        std::string name = (std::filesystem::temp_directory_path() / "tarnquill-XXXXXX").string();
        m_folder = ::mkdtemp(name.data());
    }
    ~OpenSSLProgram() override { std::filesystem::remove_all(m_folder); }

    // Files are named relative to a folder of the test's own.
    void run(const std::string& arguments) const {
        const auto command = "cd '" + m_folder.string() + "' && openssl " + arguments + " 2>errors";
        ASSERT_EQ(std::system(command.c_str()), 0) << command << "\n" << read("errors");
    }
    [[nodiscard]] std::string read(const std::string& name) const {
        const std::ifstream file(m_folder / name, std::ios::binary);
        std::ostringstream content;
        content << file.rdbuf();
        return content.str();
    }
    void write(const std::string& name, std::string_view content) const {
        std::ofstream(m_folder / name, std::ios::binary) << content;
    }

    void makeKey(const std::string& generateOptions) const {
        run("genpkey " + generateOptions + " -out key");
        run("pkey -in key -pubout -out public");
        run("req -x509 -key key -subj /CN=tarnquill -days 1 -out certificate");
    }

    // A token signed with the key that was made.
    [[nodiscard]] std::string sign(const std::string& alg) const {
        const auto header = R"({"alg":")" + alg + "\"}";
        auto token = Base64::encode(header, Base64::Alphabet::urlSafe) + ".e30";
        write("input", token);
        const auto algorithm = JWTVerifier::algorithm(alg);
        const auto digest = "dgst -sha" + alg.substr(2) + " -sign key ";
        if (family(algorithm) == Family::edwards) {
            run("pkeyutl -sign -inkey key -rawin -in input -out signature");
        } else if (family(algorithm) == Family::rsaPSS) {
            run(digest + "-sigopt rsa_padding_mode:pss -sigopt rsa_pss_saltlen:digest -out signature input");
        } else {
            run(digest + "-out signature input");
        }
        auto signature = read("signature");
        if (family(algorithm) == Family::ecdsa) {
            signature = rawSignature(signature, curve(hash(algorithm)).coordinateSize);
        }
        return token + "." + Base64::encode(signature, Base64::Alphabet::urlSafe);
    }

    void expectVerified(const std::string& alg, const std::string& keyFile,
                        const std::string& description) const {
        EXPECT_EQ(JWTVerifier::verify(sign(alg), read(keyFile), JWTVerifier::SecretForm::text),
                  (Outcome{.kind = Kind::verified, .detail = description}))
            << alg << " with " << keyFile;
    }

    void expectRefused(const std::string& alg, const std::string& keyFile,
                       const std::string& sentence) const {
        const auto header = R"({"alg":")" + alg + "\"}";
        EXPECT_EQ(JWTVerifier::verify(Base64::encode(header) + ".e30.", read(keyFile),
                                      JWTVerifier::SecretForm::text),
                  (Outcome{.kind = Kind::badKey, .detail = sentence}))
            << alg << " with " << keyFile;
    }

private:
    static std::string rawSignature(std::string_view der, std::size_t size) {
        DERReader numbers(DERReader(der).take(DERTag::sequence).value());
        const std::string r(numbers.takeUnsignedInteger().value());
        const std::string s(numbers.takeUnsignedInteger().value());
        return std::string(size - r.size(), '\0') + r + std::string(size - s.size(), '\0') + s;
    }

    std::filesystem::path m_folder;
};

} // namespace

TEST_F(OpenSSLProgram, SignsWithRSA) {
    makeKey("-algorithm RSA -pkeyopt rsa_keygen_bits:2050");
    run("rsa -in key -RSAPublicKey_out -out pkcs1");
    for (const auto* const alg : {"RS256", "RS384", "RS512", "PS256", "PS384", "PS512"}) {
        expectVerified(alg, "public", "RSA public key, 2056 bits");
        expectVerified(alg, "pkcs1", "RSA public key, 2056 bits");
        expectVerified(alg, "certificate", "RSA public key, 2056 bits, from a certificate");
    }
    expectRefused("ES256", "certificate", "Not a P-256 public key, which ES256 needs.");
    expectRefused("EdDSA", "certificate", "Not an Ed25519 public key, which EdDSA needs.");
    expectRefused("HS256", "certificate",
                  "This is a public key or a certificate, but HS256 is checked with the shared secret.");
}

TEST_F(OpenSSLProgram, WritesInPEMWhatItWritesInDER) {
    makeKey("-algorithm RSA");
    run("rsa -in key -RSAPublicKey_out -out pkcs1");
    run("pkey -in key -pubout -outform DER -out public.der");
    run("rsa -in key -RSAPublicKey_out -outform DER -out pkcs1.der");
    run("x509 -in certificate -outform DER -out certificate.der");
    run("pkcs8 -topk8 -nocrypt -in key -outform DER -out key.der");
    for (const auto* const name : {"public", "pkcs1", "certificate", "key"}) {
        const auto der = read(name + std::string(".der"));
        EXPECT_EQ(JWTVerifier::pemFromDER(der), read(name));
        EXPECT_EQ(JWTVerifier::pemFromDER(der.substr(1)), std::nullopt);
        EXPECT_EQ(JWTVerifier::pemFromDER(der + '\0'), std::nullopt);
    }
}

TEST_F(OpenSSLProgram, SignsWithEllipticCurves) {
    for (const auto& [alg, name] : {std::pair("ES256", "P-256"), {"ES384", "P-384"}, {"ES512", "P-521"}}) {
        makeKey("-algorithm EC -pkeyopt ec_paramgen_curve:" + std::string(name));
        run("pkey -in key -pubout -ec_conv_form compressed -out compressed");
        const auto description = std::string(name) + " public key";
        expectVerified(alg, "public", description);
        expectVerified(alg, "compressed", description);
        expectVerified(alg, "certificate", description + ", from a certificate");
    }
    makeKey("-algorithm EC -pkeyopt ec_paramgen_curve:secp256k1");
    expectRefused("ES256", "public", "Not a P-256 public key, which ES256 needs.");
    expectRefused("ES256", "certificate", "Not a P-256 public key, which ES256 needs.");
}

TEST_F(OpenSSLProgram, SignsWithEdwardsCurves) {
    makeKey("-algorithm ED25519");
    for (const auto* const alg : {"EdDSA", "Ed25519"}) {
        expectVerified(alg, "public", "Ed25519 public key");
        expectVerified(alg, "certificate", "Ed25519 public key, from a certificate");
    }
    makeKey("-algorithm ED448");
    const std::string sentence =
        "This is an Ed448 key. Only Ed25519 can be checked here: macOS's CryptoKit has no Ed448.";
    expectRefused("EdDSA", "public", sentence);
    expectRefused("EdDSA", "certificate", sentence);
    expectRefused("RS256", "certificate", "Not an RSA public key, which RS256 needs.");
}

} // namespace tarnquill

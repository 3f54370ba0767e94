#include "jwt/JWTToolViewModel.h"

#include "common/testing/FixedZone.h"
#include "common/testing/WaitUntil.h"
#include "jwt/SampleToken.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

using JWTDecoder::Validity;
using JWTVerifier::SecretForm;
using Kind = JWTVerifier::Outcome::Kind;

class JWTToolViewModelTest : public testing::Test {
protected:
    void SetUp() override {
        m_model.start();
        settle();
    }

    void settle() {
        ASSERT_TRUE(waitUntil([&] {
            return !m_model.decodingTask().isPending() && !m_model.checkingTask().isPending() &&
                   !m_model.openingTask().isPending();
        }));
    }

    void setToken(std::u16string_view token) {
        m_model.setToken(TextBuffer(token));
        settle();
    }

    void setKey(std::u16string_view key) {
        m_model.setKey(TextBuffer(key));
        settle();
    }

    [[nodiscard]] Kind outcome() const { return m_model.check().value().outcome.kind; }

    double m_now = 1'790'380'800;
    JWTToolViewModel m_model{[this] { return m_now; }, std::make_shared<FixedZone>(7'200)};
};

} // namespace

TEST_F(JWTToolViewModelTest, StartsWithTheSampleVerified) {
    ASSERT_TRUE(m_model.decoded());
    EXPECT_EQ(m_model.token().utf8(), kSampleToken);
    EXPECT_EQ(m_model.header().text(), u"{\n  \"alg\" : \"HS256\",\n  \"typ\" : \"JWT\"\n}");
    EXPECT_EQ(m_model.decoded()->payload.text, m_model.payload().utf8());
    EXPECT_EQ(outcome(), Kind::verified);
    EXPECT_EQ(m_model.check()->sentence, u"The signature matches this key."_s);
    EXPECT_TRUE(m_model.usesSharedSecret());
    EXPECT_EQ(m_model.timeClaims().at(0).local, "2036-09-26T02:00:00+02:00");
    EXPECT_EQ(m_model.timeClaimsJSON().text(), u"{\n  \"exp\" : 2106000000,\n  \"iat\" : 1790380800\n}");
}

TEST_F(JWTToolViewModelTest, JudgesTheTimeEachTimeItLooksAtTheClock) {
    EXPECT_EQ(m_model.validity(), Validity::notExpired);
    m_now = 2'106'000'000;
    EXPECT_EQ(m_model.validity(), Validity::notExpired);
    const QSignalSpy changes(&m_model, &JWTToolViewModel::timesChanged);
    m_model.refresh();
    EXPECT_EQ(m_model.validity(), Validity::expired);
    EXPECT_EQ(m_model.timeClaims().at(0).relative, "now");
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(JWTToolViewModelTest, NeverLeavesAVerdictBesideAnotherTokenOrKey) {
    m_model.setKey(TextBuffer(u"quarrybe"));
    EXPECT_FALSE(m_model.check());
    settle();
    EXPECT_EQ(outcome(), Kind::mismatch);
    m_model.setKey(TextBuffer(u"quarrybel"));
    m_model.setToken(TextBuffer(u"e30.e30."));
    EXPECT_FALSE(m_model.check());
    settle();
    EXPECT_EQ(outcome(), Kind::unsupported);
    setToken(m_model.token().text() + u"x");
    EXPECT_EQ(outcome(), Kind::malformed);
    m_model.useSample();
    EXPECT_FALSE(m_model.check());
    settle();
    EXPECT_EQ(outcome(), Kind::verified);
    m_model.setSecretForm(SecretForm::base64);
    EXPECT_FALSE(m_model.check());
    settle();
    EXPECT_EQ(outcome(), Kind::badKey);
    setKey(u"cXVhcnJ5YmVs");
    EXPECT_EQ(outcome(), Kind::verified);
}

TEST_F(JWTToolViewModelTest, AsksForTheKeyThatTheTokenNeeds) {
    setKey(u"");
    EXPECT_TRUE(m_model.check()->sentence.endsWith(u" The sample token's secret is quarrybel."_s));
    setToken(u"eyJhbGciOiJFUzI1NiJ9.e30.AAAA"); // ES256
    EXPECT_EQ(m_model.check()->sentence, u"Paste the public key to check this ES256 signature: a PEM, a "
                                         u"certificate, a JWK, or a JWK set."_s);
    EXPECT_FALSE(m_model.usesSharedSecret());
    m_model.clearToken();
    settle();
    EXPECT_EQ(m_model.failure()->reason, JWTDecoder::Failure::Reason::empty);
    EXPECT_FALSE(m_model.decoded());
    EXPECT_TRUE(m_model.header().isEmpty());
    EXPECT_TRUE(m_model.timeClaims().empty());
    EXPECT_EQ(m_model.validity(), std::nullopt);
    EXPECT_EQ(m_model.check()->sentence, u"Paste the key to check the signature."_s);
}

TEST_F(JWTToolViewModelTest, GivesTheSampleItsSecretUnlessThereIsAKey) {
    setKey(u"mine");
    m_model.useSample();
    EXPECT_EQ(m_model.key().text(), u"mine");
    setKey(u"");
    m_model.useSample();
    settle();
    EXPECT_EQ(outcome(), Kind::verified);
}

TEST_F(JWTToolViewModelTest, TakesAKeyFromAFileOrSaysWhyNot) {
    const QTemporaryDir folder;
    const auto path = folder.filePath(u"key"_s);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("another\n");
    file.close();
    QFile der(folder.filePath(u"key.der"_s));
    ASSERT_TRUE(der.open(QIODevice::WriteOnly));
    der.write(QByteArray::fromHex("300b300506032b6570030200ff"));
    der.close();
    const QSignalSpy replaced(&m_model, &JWTToolViewModel::keyReplaced);
    const QSignalSpy failed(&m_model, &JWTToolViewModel::openingFailed);
    m_model.openKey(path);
    settle();
    EXPECT_EQ(m_model.check()->outcome.detail, "HMAC secret, 7 bytes");
    EXPECT_EQ(replaced.count(), 1);
    m_model.openKey(folder.filePath(u"none"_s));
    settle();
    EXPECT_EQ(failed.count(), 1);
    EXPECT_EQ(m_model.key().text(), u"another\n");
    m_model.openKey(der.fileName());
    settle();
    EXPECT_EQ(m_model.key().text(),
              u"-----BEGIN PUBLIC KEY-----\nMAswBQYDK2VwAwIA/w==\n-----END PUBLIC KEY-----\n");
}

} // namespace tarnquill

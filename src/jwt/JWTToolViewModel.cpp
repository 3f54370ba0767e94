#include "jwt/JWTToolViewModel.h"

#include "common/ICUTimeZone.h"
#include "common/TextFile.h"
#include "common/UnicodeText.h"
#include "jwt/PEMKey.h"
#include "jwt/SampleToken.h"

#include <openssl/crypto.h>

#include <chrono>
#include <expected>
#include <utility>

namespace tarnquill {

using namespace std::chrono_literals;

namespace {

double systemTime() {
    return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
}

TextBuffer bufferOf(std::string_view text) {
    return TextBuffer(utf16FromUTF8(text).value_or(std::u16string()));
}

// A text is taken as it stands, a key in DER as its PEM.
std::expected<TextBuffer, std::string> readKey(const std::string& path) {
    const auto file = readTextFile(path);
    if (file) {
        return TextBuffer(file->text);
    }
    const auto bytes = readFile(path);
    const auto pem = bytes ? JWTVerifier::pemFromDER(*bytes) : std::nullopt;
    return pem ? std::expected<TextBuffer, std::string>(bufferOf(*pem)) : std::unexpected(file.error());
}

} // namespace

// What the background makes of a token.
struct JWTToolViewModel::Reading {
    std::expected<JWTDecoder::Decoded, JWTDecoder::Failure> result;
    TextBuffer header;
    TextBuffer payload;
};

JWTToolViewModel::JWTToolViewModel(QObject* parent)
    : JWTToolViewModel(systemTime,
                       ICUTimeZone::find(ICUTimeZone::systemZoneName().value_or(ICUTimeZone::kFallbackName)),
                       parent) {}

JWTToolViewModel::JWTToolViewModel(Clock clock, std::shared_ptr<const TimeZone> localZone, QObject* parent)
    : QObject(parent),
      m_clock(std::move(clock)),
      m_localZone(std::move(localZone)),
      m_token(bufferOf(kSampleToken)),
      m_key(bufferOf(kSampleSecret)),
      m_now(m_clock()) {}

void JWTToolViewModel::start() {
    if (!std::exchange(m_hasStarted, true)) {
        decode(0ms);
        verify(0ms);
    }
}

// An ordinary token takes less time than there is between two keys; a long one is left alone while it is
// typed.
std::chrono::milliseconds JWTToolViewModel::typingDelay() const {
    constexpr std::size_t kOrdinary = 20'000;
    return m_token.length() + m_key.length() <= kOrdinary ? 0ms : 150ms;
}

void JWTToolViewModel::setToken(const TextBuffer& token) {
    m_token = token;
    changed();
    decode(typingDelay());
}

void JWTToolViewModel::setKey(const TextBuffer& key) {
    m_key = key;
    changed();
}

void JWTToolViewModel::setSecretForm(JWTVerifier::SecretForm form) {
    if (std::exchange(m_secretForm, form) != form) {
        changed();
    }
}

// What was found out about another token or key must not stand beside the new one.
void JWTToolViewModel::changed() {
    m_check.reset();
    verify(typingDelay());
    Q_EMIT inputChanged();
}

void JWTToolViewModel::useSample() {
    if (m_key.isEmpty()) {
        m_key = bufferOf(kSampleSecret);
        Q_EMIT keyReplaced();
    }
    replaceToken(bufferOf(kSampleToken));
}

void JWTToolViewModel::replaceToken(const TextBuffer& token) {
    setToken(token);
    Q_EMIT tokenReplaced();
}

void JWTToolViewModel::clearToken() {
    replaceToken(TextBuffer());
}

void JWTToolViewModel::openKey(const QString& path) {
    m_opening.start(
        0ms, [path = path.toStdString()](const std::stop_token&) { return readKey(path); },
        [this](const std::expected<TextBuffer, std::string>& key) {
            if (!key) {
                Q_EMIT openingFailed(QString::fromStdString(key.error()));
                return;
            }
            setKey(*key);
            Q_EMIT keyReplaced();
        });
}

void JWTToolViewModel::decode(std::chrono::milliseconds delay) {
    m_decoding.start(
        delay,
        [token = m_token](const std::stop_token&) {
            Reading reading{.result = JWTDecoder::decode(token.utf8()), .header = {}, .payload = {}};
            if (reading.result) {
                reading.header = bufferOf(reading.result->header);
                reading.payload = bufferOf(reading.result->payload.text);
            }
            return reading;
        },
        [this](Reading&& reading) { publish(std::move(reading)); });
}

void JWTToolViewModel::publish(Reading&& reading) {
    m_decoded.reset();
    m_failure.reset();
    if (reading.result) {
        m_decoded = std::move(*reading.result);
    } else {
        m_failure = reading.result.error();
    }
    m_header = std::move(reading.header);
    m_payload = std::move(reading.payload);
    m_now = m_clock();
    Q_EMIT decodedChanged();
}

void JWTToolViewModel::verify(std::chrono::milliseconds delay) {
    m_checking.start(
        delay,
        [token = m_token, key = m_key, form = m_secretForm](const std::stop_token&) {
            const auto tokenText = token.utf8();
            auto outcome = JWTVerifier::verify(tokenText, key.utf8(), form);
            OPENSSL_thread_stop(); // the thread may end after OpenSSL, which could not free its part then
            auto sentence = QString::fromStdString(message(outcome, tokenText));
            return Check{.outcome = std::move(outcome), .sentence = std::move(sentence)};
        },
        [this](Check&& check) {
            m_check = std::move(check);
            Q_EMIT checkChanged();
        });
}

bool JWTToolViewModel::usesSharedSecret() const {
    using JWTVerifier::Algorithm;
    if (!m_decoded || !m_decoded->signatureByteCount) {
        return false;
    }
    const auto algorithm = JWTVerifier::algorithm(m_decoded->algorithm.value_or(""));
    return algorithm != Algorithm::unknown && family(algorithm) == JWTVerifier::Family::hmac;
}

std::optional<JWTDecoder::Validity> JWTToolViewModel::validity() const {
    return m_decoded ? JWTDecoder::validity(*m_decoded, m_now) : std::nullopt;
}

std::vector<TimeClaimTexts> JWTToolViewModel::timeClaims() const {
    std::vector<TimeClaimTexts> rows;
    if (m_decoded) {
        for (const auto& claim : m_decoded->timeClaims) {
            rows.push_back(texts(claim, m_now, *m_localZone));
        }
    }
    return rows;
}

TextBuffer JWTToolViewModel::timeClaimsJSON() const {
    return m_decoded ? bufferOf(datesAsJSON(m_decoded->timeClaims)) : TextBuffer();
}

void JWTToolViewModel::refresh() {
    m_now = m_clock();
    Q_EMIT timesChanged();
}

} // namespace tarnquill

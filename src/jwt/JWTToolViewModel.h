// The state of the JWT tool: a token and what it says, a key and whether it signed the token. Both are worked
// out in the background and published only while they belong to what is shown. The key is kept in memory
// alone.
#pragma once

#include "common/LatestTask.h"
#include "common/TextBuffer.h"
#include "common/TimeZone.h"
#include "jwt/JWTDecoder.h"
#include "jwt/JWTVerifier.h"
#include "jwt/TimeClaimTexts.h"

#include <QObject>
#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace tarnquill {

class JWTToolViewModel : public QObject {
    Q_OBJECT

public:
    using Clock = std::function<double()>; // seconds since 1970-01-01T00:00:00Z

    // The outcome of a check and the sentence about it.
    struct Check {
        JWTVerifier::Outcome outcome;
        QString sentence;
    };

    explicit JWTToolViewModel(QObject* parent = nullptr);
    JWTToolViewModel(Clock clock, std::shared_ptr<const TimeZone> localZone, QObject* parent = nullptr);

    // Decodes and checks at once what has not been yet. The view calls it when it appears.
    void start();

    [[nodiscard]] const TextBuffer& token() const { return m_token; }
    void setToken(const TextBuffer& token);
    [[nodiscard]] const TextBuffer& key() const { return m_key; }
    void setKey(const TextBuffer& key);
    [[nodiscard]] JWTVerifier::SecretForm secretForm() const { return m_secretForm; }
    void setSecretForm(JWTVerifier::SecretForm form);

    // Shows the sample token, with its secret where there is no key yet.
    void useSample();
    // Takes another token, or none, as an edit that the editor can undo.
    void replaceToken(const TextBuffer& token);
    void clearToken();
    // Takes the file's text as the key.
    void openKey(const QString& path);

    // Never both, and neither before the first token is decoded. They stay until the next ones are there.
    [[nodiscard]] const std::optional<JWTDecoder::Decoded>& decoded() const { return m_decoded; }
    [[nodiscard]] const std::optional<JWTDecoder::Failure>& failure() const { return m_failure; }
    // The header and the payload as text; empty where there is none.
    [[nodiscard]] const TextBuffer& header() const { return m_header; }
    [[nodiscard]] const TextBuffer& payload() const { return m_payload; }
    // Whether the token is one that a shared secret signs.
    [[nodiscard]] bool usesSharedSecret() const;

    // As of the last refresh().
    [[nodiscard]] std::optional<JWTDecoder::Validity> validity() const;
    [[nodiscard]] std::vector<TimeClaimTexts> timeClaims() const;
    // The dates of the time claims as a JSON object of seconds.
    [[nodiscard]] TextBuffer timeClaimsJSON() const;
    // Looks at the clock. Call it every second while shown.
    void refresh();

    // None while it does not belong to the token and the key that are shown.
    [[nodiscard]] const std::optional<Check>& check() const { return m_check; }

    [[nodiscard]] LatestTask& decodingTask() { return m_decoding; }
    [[nodiscard]] LatestTask& checkingTask() { return m_checking; }
    [[nodiscard]] LatestTask& openingTask() { return m_opening; }

Q_SIGNALS:
    void tokenReplaced(); // by something other than the editor, which can undo it
    void keyReplaced();
    void inputChanged(); // the token, the key or its form
    void decodedChanged();
    void timesChanged();
    void checkChanged();
    void openingFailed(const QString& sentence);

private:
    struct Reading;

    void decode(std::chrono::milliseconds delay);
    void verify(std::chrono::milliseconds delay);
    void publish(Reading&& reading);
    void changed();
    [[nodiscard]] std::chrono::milliseconds typingDelay() const;

    Clock m_clock;
    std::shared_ptr<const TimeZone> m_localZone;
    TextBuffer m_token;
    TextBuffer m_key;
    JWTVerifier::SecretForm m_secretForm = JWTVerifier::SecretForm::text;
    bool m_hasStarted = false;
    std::optional<JWTDecoder::Decoded> m_decoded;
    std::optional<JWTDecoder::Failure> m_failure;
    TextBuffer m_header;
    TextBuffer m_payload;
    double m_now = 0;
    std::optional<Check> m_check;
    LatestTask m_decoding;
    LatestTask m_checking;
    LatestTask m_opening;
};

} // namespace tarnquill

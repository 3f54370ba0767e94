#include "jwt/JWTToolView.h"

#include "chrome/CodeEditor.h"
#include "chrome/MessageView.h"
#include "chrome/PaneButton.h"
#include "chrome/PaneFooter.h"
#include "chrome/PaneHeader.h"
#include "chrome/ToolPane.h"
#include "chrome/testing/FindWidgets.h"
#include "common/testing/FixedZone.h"
#include "common/testing/WaitUntil.h"
#include "jwt/ClaimRow.h"
#include "jwt/OutcomeBox.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QDragEnterEvent>
#include <QHelpEvent>
#include <QMimeData>
#include <QTemporaryFile>
#include <QTest>
#include <QToolTip>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

class JWTToolViewTest : public testing::Test {
protected:
    JWTToolViewTest() {
        m_view.resize(1050, 800);
        m_view.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&m_view));
        settle();
    }

    void settle() {
        ASSERT_TRUE(waitUntil([&] { return !m_model.openingTask().isPending() && !m_view.isWorking(); }));
    }

    [[nodiscard]] ToolPane& pane(const QString& role) const { return paneWithRole(m_view, role); }

    [[nodiscard]] CodeEditor& editor(const QString& name) const {
        return widgetNamed<CodeEditor>(m_view, name);
    }

    [[nodiscard]] PaneButton& button(const QString& role, const QString& name) const {
        return widgetNamed<PaneButton>(pane(role), name);
    }

    [[nodiscard]] QString badge(const QString& role) const {
        return pane(role).header().badge().value_or(PaneBadge()).text;
    }

    [[nodiscard]] QStringList metrics(const QString& role) const {
        QStringList texts;
        for (const auto& metric : pane(role).footer().metrics()) {
            texts.append(metric.text);
        }
        return texts;
    }

    [[nodiscard]] OutcomeBox& outcome() const { return *m_view.findChild<OutcomeBox*>(); }

    [[nodiscard]] QList<ClaimRow*> claimRows() const {
        QList<ClaimRow*> rows;
        for (auto* const row : m_view.findChildren<ClaimRow*>()) {
            if (row->isVisible()) {
                rows.append(row);
            }
        }
        return rows;
    }

    // By hand, as a user would.
    void paste(CodeEditor& into, const QString& text) {
        QGuiApplication::clipboard()->setText(text);
        into.selectAll();
        into.paste();
        settle();
    }
    void pasteToken(const QString& text) { paste(editor(u"Token"_s), text); }
    void pasteKey(const QString& text) { paste(editor(u"Key"_s), text); }

    // The title of the message that is shown in the pane.
    [[nodiscard]] QString messageIn(const QString& role) const {
        for (auto* const message : pane(role).findChildren<MessageView*>()) {
            if (message->isVisible()) {
                return message->accessibleName();
            }
        }
        return {};
    }

    double m_now = 1'790'553'600;
    JWTToolViewModel m_model{[this] { return m_now; }, std::make_shared<FixedZone>(7'200)};
    JWTToolView m_view{m_model};
};

} // namespace

TEST_F(JWTToolViewTest, ShowsTheSampleVerified) {
    EXPECT_EQ(badge(u"Token"_s), u"JWS"_s);
    EXPECT_EQ(badge(u"Header"_s), u"HS256"_s);
    EXPECT_EQ(badge(u"Payload"_s), u"JSON"_s);
    EXPECT_EQ(badge(u"Signature"_s), u"VERIFIED"_s);
    EXPECT_EQ(badge(u"Time claims"_s), u"NOT EXPIRED"_s);
    EXPECT_EQ(metrics(u"Token"_s), (QStringList{u"3 parts"_s, u"179 characters"_s}));
    EXPECT_EQ(metrics(u"Header"_s), (QStringList{u"2 keys"_s, u"27 bytes"_s}));
    EXPECT_EQ(metrics(u"Payload"_s), (QStringList{u"4 claims"_s, u"73 bytes"_s}));
    EXPECT_EQ(metrics(u"Signature"_s), (QStringList{u"HS256"_s, u"32 bytes"_s}));
    EXPECT_EQ(outcome().accessibleName(), u"The signature matches this key."_s);
    EXPECT_EQ(outcome().accessibleDescription(), u"HMAC secret, 9 bytes"_s);
    ASSERT_EQ(claimRows().size(), 2);
    EXPECT_EQ(claimRows().at(1)->texts(),
              (DetailRow::Texts{.title = u"Issued"_s,
                                .note = {},
                                .value = u"2026-09-26T00:00:00Z"_s,
                                .detail = u"2026-09-26T02:00:00+02:00 · 2 days ago"_s}));
    const auto top = [this](const QString& role) { return pane(role).mapTo(&m_view, QPoint()).y(); };
    EXPECT_EQ(top(u"Signature"_s), top(u"Time claims"_s));
}

TEST_F(JWTToolViewTest, LooksAtTheClockWhileItIsShown) {
    m_now = 2'106'000'000;
    EXPECT_TRUE(waitUntil([this] { return badge(u"Time claims"_s) == u"EXPIRED"_s; }, 3'000));
    m_view.hide();
    m_now = 1'790'553'600;
    letEventsPass(1'200);
    EXPECT_EQ(badge(u"Time claims"_s), u"EXPIRED"_s);
    m_view.show();
    EXPECT_EQ(badge(u"Time claims"_s), u"NOT EXPIRED"_s);
}

TEST_F(JWTToolViewTest, SaysWhatAPastedTokenIs) {
    const std::tuple<QString, QString, QString, QString> rows[] = {
        {u"abc"_s, u"INVALID"_s, {}, u"Not a token"_s},
        {u" "_s, {}, {}, u"No token yet"_s},
        {u"e30.."_s, u"JWS"_s, u"DETACHED"_s, u"Detached payload"_s},
        {u"e30...."_s, u"JWE"_s, u"ENCRYPTED"_s, u"Encrypted payload"_s},
        {u"e30.__8."_s, u"JWS"_s, u"BINARY"_s, u"Binary payload"_s},
        {u"e30.aGVsbG8."_s, u"JWS"_s, u"TEXT"_s, {}},
        {u"e30.e30."_s, u"JWS"_s, u"JSON"_s, {}},
    };
    for (const auto& [token, tokenBadge, payloadBadge, message] : rows) {
        pasteToken(token);
        EXPECT_EQ(badge(u"Token"_s), tokenBadge);
        EXPECT_EQ(badge(u"Payload"_s), payloadBadge);
        EXPECT_EQ(messageIn(u"Payload"_s), message);
        EXPECT_EQ(messageIn(u"Time claims"_s), u"No time claims"_s);
        EXPECT_EQ(badge(u"Signature"_s), QString());
    }
    EXPECT_EQ(badge(u"Time claims"_s), u"NO EXPIRY"_s);
    button(u"Token"_s, u"Clear"_s).click();
    settle();
    EXPECT_TRUE(editor(u"Token"_s).buffer().isEmpty());
    editor(u"Token"_s).undo();
    settle();
    EXPECT_EQ(m_model.token().text(), u"e30.e30.");
}

TEST_F(JWTToolViewTest, WarnsOfClaimsThatAreNoDates) {
    pasteToken(u"e30.eyJleHAiOiJ4IiwiaWF0IjoxZTEyfQ."_s); // {"exp":"x","iat":1e12}
    EXPECT_EQ(badge(u"Time claims"_s), u"BAD TIME CLAIM"_s);
    ASSERT_EQ(claimRows().size(), 2);
    EXPECT_EQ(claimRows().at(0)->texts().value, u"Not a number of seconds"_s);
    EXPECT_TRUE(
        claimRows().at(0)->toolTip().startsWith(u"RFC 7519 wants a number of seconds since 1970 here."_s));
    EXPECT_TRUE(claimRows().at(1)->toolTip().startsWith(
        u"This looks like milliseconds. RFC 7519 wants seconds since 1970."_s));
}

TEST_F(JWTToolViewTest, ShowsTheBase64ToggleForSharedSecretsOnly) {
    auto& toggle = button(u"Signature"_s, u"Base64"_s);
    EXPECT_TRUE(toggle.isVisible());
    toggle.click();
    settle();
    EXPECT_EQ(outcome().accessibleName(), u"The secret is not Base64. Turn Base64 off to use it as text."_s);
    pasteKey(u"cXVhcnJ5YmVs"_s);
    EXPECT_EQ(badge(u"Signature"_s), u"VERIFIED"_s);
    pasteToken(u"eyJhbGciOiJSUzI1NiJ9.e30.AAAA"_s); // RS256
    EXPECT_FALSE(toggle.isVisible());
}

TEST_F(JWTToolViewTest, HidesTheKeyOnRequest) {
    auto& hide = button(u"Signature"_s, u"Hide the key"_s);
    hide.click();
    EXPECT_FALSE(editor(u"Key"_s).isVisible());
    EXPECT_EQ(editor(u"Hidden key"_s).buffer().text(), std::u16string(9, u'•'));
    EXPECT_EQ(badge(u"Signature"_s), u"VERIFIED"_s);
    hide.click();
    EXPECT_TRUE(editor(u"Key"_s).isVisible());
    EXPECT_EQ(editor(u"Key"_s).buffer().text(), u"quarrybel");
}

TEST_F(JWTToolViewTest, TakesADroppedFileForTheKey) {
    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    file.write("dropped");
    file.close();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(file.fileName())});
    auto* const target = editor(u"Key"_s).viewport();
    QDragEnterEvent enter(QPoint(20, 20), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &enter);
    QDropEvent drop(QPointF(20, 20), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &drop);
    settle();
    EXPECT_EQ(editor(u"Key"_s).buffer().text(), u"dropped");
    EXPECT_EQ(badge(u"Signature"_s), u"MISMATCH"_s);
}

TEST_F(JWTToolViewTest, CopiesHeaderPayloadAndTimeClaimsAsJSON) {
    const std::pair<QString, QString> rows[] = {
        {u"Header"_s, u"{\n  \"alg\" : \"HS256\",\n  \"typ\" : \"JWT\"\n}"_s},
        {u"Payload"_s, QString::fromStdString(m_model.decoded()->payload.text)},
        {u"Time claims"_s, u"{\n  \"exp\" : 2106000000,\n  \"iat\" : 1790380800\n}"_s},
    };
    for (const auto& [role, text] : rows) {
        for (auto* const copy : pane(role).header().findChildren<PaneButton*>()) {
            copy->click();
        }
        EXPECT_EQ(QGuiApplication::clipboard()->text(), text);
    }
}

TEST_F(JWTToolViewTest, ExplainsRegisteredNamesUnderThePointer) {
    auto& payload = editor(u"Payload"_s);
    const auto ask = [&payload](std::size_t position) {
        const auto point = payload.caretRect(position).center().toPoint();
        QHelpEvent help(QEvent::ToolTip, point, payload.viewport()->mapToGlobal(point));
        QApplication::sendEvent(payload.viewport(), &help);
    };
    ask(payload.buffer().text().find(u"exp"));
    EXPECT_TRUE(QToolTip::text().startsWith(u"Expiration time: "_s));
    ask(payload.buffer().text().find(u"name"));
    EXPECT_TRUE(waitUntil([] { return !QToolTip::isVisible(); }));
}

} // namespace tarnquill

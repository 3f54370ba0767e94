#include "jwt/JWTToolView.h"

#include "chrome/ActivePaneLine.h"
#include "chrome/Alert.h"
#include "chrome/CodeEditor.h"
#include "chrome/EditorZoom.h"
#include "chrome/FileDropTarget.h"
#include "chrome/MessageView.h"
#include "chrome/PaneButton.h"
#include "chrome/PaneHeader.h"
#include "chrome/PaneText.h"
#include "chrome/Splitter.h"
#include "chrome/TextLabel.h"
#include "chrome/ToolPane.h"
#include "chrome/Toolbar.h"
#include "jwt/ClaimRow.h"
#include "jwt/KeyField.h"
#include "jwt/NameToolTips.h"
#include "jwt/OutcomeBox.h"
#include "jwt/RegisteredNames.h"
#include "jwt/TokenHighlighter.h"
#include "json/JSONHighlighter.h"

#include <QFileDialog>
#include <QScrollArea>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <chrono>

namespace tarnquill {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

using JWTDecoder::Payload;
using JWTDecoder::Validity;
using JWTVerifier::SecretForm;
using Kind = JWTVerifier::Outcome::Kind;
using Tint = PaneBadge::Tint;

constexpr int kPaneWidth = 320;
constexpr int kPaneHeight = 96;
constexpr int kLeftWidth = 452;
constexpr int kContentWidth = 1'050; // any width with room for both sides
constexpr int kHeaderHeight = 172;
constexpr int kBottomHeight = 336;
constexpr int kPayloadHeight = 160; // from which on the other panes give way

PaneBadge badgeOf(Validity validity) {
    switch (validity) {
    case Validity::badTimeClaim:
        return {.text = u"BAD TIME CLAIM"_s, .tint = Tint::bad};
    case Validity::expired:
        return {.text = u"EXPIRED"_s, .tint = Tint::bad};
    case Validity::notYetValid:
        return {.text = u"NOT YET VALID"_s, .tint = Tint::warn};
    case Validity::notExpired:
        return {.text = u"NOT EXPIRED"_s, .tint = Tint::ok};
    case Validity::noExpiry:
        return {.text = u"NO EXPIRY"_s, .tint = Tint::neutral};
    }
    Q_UNREACHABLE();
}

std::optional<PaneBadge> badgeOf(Kind kind) {
    switch (kind) {
    case Kind::verified:
        return PaneBadge{.text = u"VERIFIED"_s, .tint = Tint::ok};
    case Kind::mismatch:
        return PaneBadge{.text = u"MISMATCH"_s, .tint = Tint::bad};
    case Kind::notSigned:
        return PaneBadge{.text = u"UNSIGNED"_s, .tint = Tint::bad};
    default:
        return std::nullopt;
    }
}

PaneBadge badgeOf(Payload::Kind kind) {
    constexpr std::array<QStringView, 5> kTexts{u"JSON", u"TEXT", u"BINARY", u"DETACHED", u"ENCRYPTED"};
    return {.text = kTexts[static_cast<std::size_t>(kind)].toString(), .tint = Tint::neutral};
}

// What stands in the place of a payload that has no text.
struct PayloadMessage {
    QString title;
    QString text;
};

PayloadMessage messageOf(const Payload& payload) {
    switch (payload.kind) {
    case Payload::Kind::binary:
        return {.title = u"Binary payload"_s,
                .text = u"%1 bytes that are neither JSON nor UTF-8 text."_s.arg(payload.byteCount)};
    case Payload::Kind::detached:
        return {.title = u"Detached payload"_s,
                .text = u"The payload part is empty. The signed content travels separately from the "
                        "token."_s};
    case Payload::Kind::encrypted:
        return {.title = u"Encrypted payload"_s,
                .text = u"This is a JWE. Its claims cannot be read without the recipient's key, so only the "
                        "header is shown."_s};
    case Payload::Kind::json:
    case Payload::Kind::text:
        break;
    }
    return {};
}

PaneButton* makeCopyButton(const QString& help) {
    auto* button = new PaneButton(u"Copy"_s, u"doc.on.doc"_s);
    button->reserveCopied();
    button->setToolTip(help);
    return button;
}

PaneButton* makeSmallButton(const QString& title, const QString& symbol) {
    auto* button = new PaneButton(title, symbol);
    button->setIconOnly(true);
    button->setSize(PaneButton::Size::compact);
    button->setToolTip(title);
    return button;
}

CodeEditor* makeJSONEditor(const QString& name) {
    auto* editor = new CodeEditor;
    editor->setAccessibleName(name);
    editor->setReadOnly(true);
    editor->setHighlighter(makeJSONHighlighter());
    return editor;
}

Metric sizeMetric(std::int64_t bytes) {
    return byteMetric(static_cast<std::size_t>(bytes));
}

Metric countedMetric(std::int64_t count, std::string_view one, std::string_view many) {
    return countMetric(static_cast<std::size_t>(count), one, many);
}

} // namespace

JWTToolView::JWTToolView(JWTToolViewModel& model, QWidget* parent)
    : ToolView(u"JWT"_s, parent),
      m_model(model),
      m_token(new CodeEditor),
      m_header(makeJSONEditor(u"Header"_s)),
      m_payload(makeJSONEditor(u"Payload"_s)),
      m_payloadMessage(new MessageView(MessageView::Kind::placeholder)),
      m_payloadPages(new QStackedWidget),
      m_key(new KeyField),
      m_outcome(new OutcomeBox),
      m_claimList(new QWidget),
      m_claimColumn(new QVBoxLayout(m_claimList)),
      m_noClaims(new MessageView(MessageView::Kind::placeholder)),
      m_claimPages(new QStackedWidget),
      m_headerPane(new ToolPane(u"Header"_s, m_header)),
      m_payloadPane(new ToolPane(u"Payload"_s, m_payloadPages)),
      m_timePane(new ToolPane(u"Time claims"_s, m_claimPages)),
      m_left(new Splitter(Qt::Vertical)),
      m_right(new Splitter(Qt::Vertical)) {
    makeToolbar();
    makeTokenPane();
    makeSignaturePane();
    makeDecodedPanes();
    makeTimePane();
    arrange();
    connectModel();
    m_token->setBuffer(m_model.token());
    m_key->editor().setBuffer(m_model.key());
    showInput();
    showDecoded();
    showCheck();
    m_model.start();
}

void JWTToolView::makeToolbar() {
    auto* sample = new PaneButton(u"Sample Token"_s, u"sparkles"_s, PaneButton::Look::outlined);
    sample->setToolTip(u"Show the sample token"_s);
    connect(sample, &PaneButton::clicked, &m_model, &JWTToolViewModel::useSample);
    toolbar().addControl(sample);
}

void JWTToolView::makeTokenPane() {
    m_token->setAccessibleName(u"Token"_s);
    m_token->setPlaceholderText(u"Paste a token"_s);
    m_token->setHighlighter(makeTokenHighlighter());
    m_tokenPane = new ToolPane(u"Token"_s, m_token);
    m_copyToken = makeCopyButton(u"Copy the token"_s);
    connect(m_copyToken, &PaneButton::clicked, this, [this] { copyText(m_model.token(), *m_copyToken); });
    m_clear = new PaneButton(u"Clear"_s, u"trash"_s);
    m_clear->setToolTip(u"Empty the token"_s);
    connect(m_clear, &PaneButton::clicked, &m_model, &JWTToolViewModel::clearToken);
    m_tokenPane->header().addButton(m_copyToken);
    m_tokenPane->header().addButton(m_clear);
}

void JWTToolView::makeSignaturePane() {
    constexpr int kSide = 12;
    auto* hide = makeSmallButton(u"Hide the key"_s, u"eye"_s);
    hide->setCheckable(true);
    connect(hide, &PaneButton::toggled, this, [this, hide](bool isHidden) {
        m_key->setHidden(isHidden);
        hide->setSymbol(isHidden ? u"eye-off"_s : u"eye"_s);
        hide->setToolTip(isHidden ? u"Show the key"_s : u"Hide the key"_s);
    });
    auto* open = makeSmallButton(u"Read the key from a file"_s, u"folder-open"_s);
    connect(open, &PaneButton::clicked, this, &JWTToolView::chooseKeyFile);
    auto* title = new QHBoxLayout;
    title->setSpacing(0);
    title->addWidget(new TextLabel(u"Key"_s, FontRole::control, ColorRole::muted));
    title->addStretch();
    title->addWidget(hide);
    title->addWidget(open);

    auto* content = new QWidget;
    content->setBackgroundRole(QPalette::Base);
    content->setAutoFillBackground(true);
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(kSide - KeyField::kHalo, 8, kSide - KeyField::kHalo, kSide);
    column->setSpacing(0);
    title->setContentsMargins(KeyField::kHalo, 0, KeyField::kHalo, 0);
    column->addLayout(title);
    column->addSpacing(2);
    column->addWidget(m_key, 1);
    column->addSpacing(kSide - KeyField::kHalo);
    auto* outcome = new QHBoxLayout;
    outcome->setContentsMargins(KeyField::kHalo, 0, KeyField::kHalo, 0);
    outcome->addWidget(m_outcome);
    column->addLayout(outcome);

    m_signaturePane = new ToolPane(u"Signature"_s, content);
    auto& header = m_signaturePane->header();
    header.setDot(ColorRole::segmentSignature);
    m_base64 = new PaneButton(u"Base64"_s, {}, PaneButton::Look::outlined);
    m_base64->setCheckable(true);
    m_base64->setToolTip(u"Read an HMAC secret as Base64 rather than as text"_s);
    connect(m_base64, &PaneButton::clicked, this,
            [this](bool isOn) { m_model.setSecretForm(isOn ? SecretForm::base64 : SecretForm::text); });
    header.addOption(m_base64);
    m_signaturePane->follow(m_model.openingTask(), u"Opening…"_s, ToolPane::Escape::cancels);
    new FileDropTarget(m_signaturePane,
                       {.open =
                            [this](const QList<QUrl>& urls) {
                                if (!urls.isEmpty()) {
                                    m_model.openKey(urls.first().toLocalFile());
                                }
                                return !urls.isEmpty();
                            },
                        .targeted = [this](bool isTarget) { m_signaturePane->setDropTarget(isTarget); }});
}

void JWTToolView::makeDecodedPanes() {
    m_headerPane->header().setDot(ColorRole::segmentHeader);
    m_copyHeader = makeCopyButton(u"Copy the header"_s);
    connect(m_copyHeader, &PaneButton::clicked, this, [this] { copyText(m_model.header(), *m_copyHeader); });
    m_headerPane->header().addButton(m_copyHeader);
    new NameToolTips(*m_header, RegisteredNames::ofHeader);

    m_payloadPages->addWidget(m_payload);
    m_payloadPages->addWidget(m_payloadMessage);
    m_payloadPane->header().setDot(ColorRole::segmentPayload);
    m_copyPayload = makeCopyButton(u"Copy the payload"_s);
    connect(m_copyPayload, &PaneButton::clicked, this,
            [this] { copyText(m_model.payload(), *m_copyPayload); });
    m_payloadPane->header().addButton(m_copyPayload);
    m_payloadPane->follow(m_model.decodingTask(), u"Decoding…"_s);
    new NameToolTips(*m_payload, RegisteredNames::ofClaim);
}

void JWTToolView::makeTimePane() {
    m_claimColumn->setContentsMargins(0, 0, 0, 0);
    m_claimColumn->setSpacing(0);
    m_claimColumn->addStretch();
    m_claimList->setBackgroundRole(QPalette::Base);
    m_claimList->setAutoFillBackground(true);
    auto* scrolled = new QScrollArea;
    scrolled->setFrameShape(QFrame::NoFrame);
    scrolled->setWidgetResizable(true);
    scrolled->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scrolled->setFocusPolicy(Qt::NoFocus);
    scrolled->setWidget(m_claimList);
    m_claimPages->addWidget(scrolled);
    m_claimPages->addWidget(m_noClaims);
    m_copyTimes = makeCopyButton(u"Copy the time claims as JSON"_s);
    connect(m_copyTimes, &PaneButton::clicked, this,
            [this] { copyText(m_model.timeClaimsJSON(), *m_copyTimes); });
    m_timePane->header().addButton(m_copyTimes);
}

void JWTToolView::arrange() {
    m_left->addPane(m_tokenPane, 1, kPaneHeight);
    m_left->addPane(m_signaturePane, 0, kPaneHeight);
    m_right->addPane(m_headerPane, 0, kPaneHeight);
    m_right->addPane(m_payloadPane, 1, kPaneHeight);
    m_right->addPane(m_timePane, 0, kPaneHeight);
    for (const auto* const column : {m_left, m_right}) {
        connect(column, &QSplitter::splitterMoved, this, [this] { m_isArrangedByUser = true; });
    }
    auto* columns = new Splitter(Qt::Horizontal);
    columns->addPane(m_left, 0, kPaneWidth);
    columns->addPane(m_right, 1, kPaneWidth);
    columns->setSizes({kLeftWidth, kContentWidth - kLeftWidth});
    PaneHeader::alignHeights({&m_tokenPane->header(), &m_headerPane->header()});
    PaneHeader::alignHeights({&m_signaturePane->header(), &m_timePane->header()});
    setContent(columns);
    setFirstFocus(m_token);
    auto* activeLine = new ActivePaneLine(this);
    for (auto* const pane : {m_tokenPane, m_signaturePane, m_headerPane, m_payloadPane, m_timePane}) {
        activeLine->addPane(pane);
    }
}

// Until the user divides the columns otherwise, the panes at the bottom start at one line, and all but the
// payload keep their heights as long as there is room for them.
void JWTToolView::placePanes() {
    constexpr int kWanted = kHeaderHeight + kPayloadHeight + kBottomHeight;
    const auto available = height() - Toolbar::kHeight;
    const auto share = [available](int wanted) {
        return available < kWanted ? wanted * available / kWanted : wanted;
    };
    const auto bottom = share(kBottomHeight);
    const auto header = share(kHeaderHeight);
    m_left->setSizes({available - bottom - 1, bottom});
    m_right->setSizes({header, available - header - bottom - 2, bottom});
}

void JWTToolView::connectModel() {
    connect(m_token, &CodeEditor::textEdited, this, [this] { m_model.setToken(m_token->buffer()); });
    connect(m_key, &KeyField::keyEdited, this, [this] { m_model.setKey(m_key->editor().buffer()); });
    connect(&m_model, &JWTToolViewModel::tokenReplaced, this,
            [this] { m_token->replaceAll(m_model.token()); });
    connect(&m_model, &JWTToolViewModel::keyReplaced, this, [this] { m_key->replaceKey(m_model.key()); });
    connect(&m_model, &JWTToolViewModel::inputChanged, this, &JWTToolView::showInput);
    connect(&m_model, &JWTToolViewModel::decodedChanged, this, &JWTToolView::showDecoded);
    connect(&m_model, &JWTToolViewModel::timesChanged, this, &JWTToolView::showTimes);
    connect(&m_model, &JWTToolViewModel::checkChanged, this, &JWTToolView::showCheck);
    connect(&m_model, &JWTToolViewModel::openingFailed, this, [this](const QString& sentence) {
        Alert::say(window(), u"The key could not be opened"_s, sentence);
    });
    m_clock.setInterval(1s);
    connect(&m_clock, &QTimer::timeout, &m_model, &JWTToolViewModel::refresh);
    // One size for all of them, whichever was asked to change it.
    for (auto* const changed : editors()) {
        for (auto* const editor : editors()) {
            if (editor != changed) {
                connect(changed, &CodeEditor::zoomChanged, editor, &CodeEditor::setZoom);
            }
        }
    }
}

std::array<CodeEditor*, 4> JWTToolView::editors() const {
    return {m_token, m_header, m_payload, &m_key->editor()};
}

void JWTToolView::showEvent(QShowEvent* event) {
    ToolView::showEvent(event);
    m_model.refresh();
    m_clock.start();
}

void JWTToolView::hideEvent(QHideEvent* event) {
    m_clock.stop();
    ToolView::hideEvent(event);
}

void JWTToolView::resizeEvent(QResizeEvent* event) {
    ToolView::resizeEvent(event);
    if (!m_isArrangedByUser) {
        placePanes();
    }
}

void JWTToolView::showInput() {
    const auto hasToken = !m_model.token().isEmpty();
    m_copyToken->setEnabled(hasToken);
    m_clear->setEnabled(hasToken);
    m_base64->setChecked(m_model.secretForm() == SecretForm::base64);
    showCheck();
}

void JWTToolView::showDecoded() {
    const auto& token = m_model.decoded();
    m_header->setBuffer(m_model.header());
    m_copyHeader->setEnabled(!m_model.header().isEmpty());
    QList<Metric> tokenMetrics;
    QList<Metric> headerMetrics;
    QList<Metric> signatureMetrics;
    std::optional<PaneBadge> tokenBadge;
    std::optional<PaneBadge> algorithmBadge;
    if (token) {
        tokenBadge = {.text = token->signatureByteCount ? u"JWS"_s : u"JWE"_s};
        tokenMetrics.append(countedMetric(token->segmentCount, "part", "parts"));
        headerMetrics = {countedMetric(token->headerKeyCount, "key", "keys"),
                         sizeMetric(token->headerByteCount)};
        const auto algorithm = QString::fromStdString(token->algorithm.value_or(""));
        if (!algorithm.isEmpty()) {
            algorithmBadge = {.text = algorithm};
            signatureMetrics.append({.text = algorithm});
        }
        if (token->signatureByteCount) {
            signatureMetrics.append(sizeMetric(*token->signatureByteCount));
        }
    } else if (const auto& failure = m_model.failure();
               failure && failure->reason != JWTDecoder::Failure::Reason::empty) {
        tokenBadge = {.text = u"INVALID"_s, .tint = Tint::bad};
    }
    tokenMetrics.append(countMetric(m_model.token().length(), "character", "characters"));
    m_tokenPane->header().setBadge(tokenBadge);
    m_tokenPane->footer().setMetrics(tokenMetrics);
    m_headerPane->header().setBadge(algorithmBadge);
    m_headerPane->footer().setMetrics(headerMetrics);
    m_signaturePane->footer().setMetrics(signatureMetrics);
    m_base64->setVisible(m_model.usesSharedSecret());
    showPayload();
    showTimes();
}

void JWTToolView::showPayload() {
    const auto& token = m_model.decoded();
    const auto& failure = m_model.failure();
    m_payload->setBuffer(m_model.payload());
    m_copyPayload->setEnabled(!m_model.payload().isEmpty());
    m_payloadPane->header().setBadge(token ? std::optional(badgeOf(token->payload.kind)) : std::nullopt);
    QList<Metric> metrics;
    m_payloadPages->setCurrentWidget(m_payload);
    m_payloadPane->showContent();
    if (token) {
        const auto& payload = token->payload;
        if (payload.claimCount) {
            metrics.append(countedMetric(*payload.claimCount, "claim", "claims"));
        }
        metrics.append(sizeMetric(token->payloadByteCount));
        if (const auto [title, text] = messageOf(payload); !title.isEmpty()) {
            m_payloadMessage->setMessage(title, text, u"file"_s);
            m_payloadPages->setCurrentWidget(m_payloadMessage);
        }
    } else if (failure && failure->reason == JWTDecoder::Failure::Reason::empty) {
        m_payloadMessage->setMessage(u"No token yet"_s, QString::fromStdString(message(*failure)),
                                     u"key.horizontal"_s);
        m_payloadPages->setCurrentWidget(m_payloadMessage);
    } else if (failure) {
        m_payloadPane->showError(u"Not a token"_s, QString::fromStdString(message(*failure)));
    }
    m_payloadPane->footer().setMetrics(metrics);
}

void JWTToolView::showTimes() {
    const auto claims = m_model.timeClaims();
    while (m_claimRows.size() < claims.size()) {
        m_claimRows.push_back(new ClaimRow);
        m_claimColumn->insertWidget(static_cast<int>(m_claimRows.size()) - 1, m_claimRows.back());
    }
    for (std::size_t i = 0; i < m_claimRows.size(); ++i) {
        m_claimRows[i]->setVisible(i < claims.size());
        if (i < claims.size()) {
            m_claimRows[i]->setClaim(m_model.decoded()->timeClaims[i].name, claims[i]);
        }
    }
    m_noClaims->setMessage(u"No time claims"_s,
                           m_model.payload().isEmpty() ? u"There is no payload to read them from."_s
                                                       : u"The payload has no exp, nbf or iat."_s,
                           u"clock"_s);
    m_claimPages->setCurrentIndex(claims.empty() ? 1 : 0);
    const auto validity = m_model.validity();
    m_timePane->header().setBadge(validity ? std::optional(badgeOf(*validity)) : std::nullopt);
    m_timePane->footer().setMetrics({countMetric(claims.size(), "time claim", "time claims")});
    m_copyTimes->setEnabled(!m_model.timeClaimsJSON().isEmpty());
}

void JWTToolView::showCheck() {
    const auto& check = m_model.check();
    m_outcome->setCheck(check);
    m_signaturePane->header().setBadge(check ? badgeOf(check->outcome.kind) : std::nullopt);
}

void JWTToolView::chooseKeyFile() {
    const auto path = QFileDialog::getOpenFileName(this, u"Choose a file with a key"_s);
    if (!path.isEmpty()) {
        m_model.openKey(path);
    }
}

bool JWTToolView::canPerform(ToolCommand command) const {
    return isZoom(command);
}

void JWTToolView::perform(ToolCommand command) {
    performZoom(*m_token, command);
}

bool JWTToolView::isWorking() const {
    return m_model.decodingTask().isPending() || m_model.checkingTask().isPending();
}

} // namespace tarnquill

#include "jwt/OutcomeBox.h"

#include "chrome/Painting.h"

#include <array>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

using Kind = JWTVerifier::Outcome::Kind;

constexpr int kPadding = 12;
constexpr int kIcon = 20;
constexpr int kGap = 10;
constexpr int kRadius = 8;
constexpr int kNarrowest = 200;

struct Look {
    ColorRole fill;
    ColorRole text;
    ColorRole icon;
    QStringView symbol;
};

constexpr std::array kLooks{
    Look{ColorRole::neutralTint, ColorRole::neutralText, ColorRole::neutralText, u"info"},
    Look{ColorRole::okTint, ColorRole::okText, ColorRole::okIcon, u"shield-check"},
    Look{ColorRole::badTint, ColorRole::badText, ColorRole::badIcon, u"shield-x"},
};

QString detailsOf(const JWTVerifier::Outcome& outcome) {
    if (outcome.kind != Kind::verified && outcome.kind != Kind::mismatch) {
        return {};
    }
    const auto key = QString::fromStdString(outcome.detail);
    return usesCertificate(outcome)
               ? key + u'\n' + OutcomeBox::tr("Whether the certificate is trusted or in date is not checked.")
               : key;
}

} // namespace

OutcomeBox::OutcomeBox(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void OutcomeBox::setCheck(const std::optional<JWTToolViewModel::Check>& check) {
    if (check) {
        const auto kind = check->outcome.kind;
        m_tone = kind == Kind::verified                              ? Tone::ok
                 : kind == Kind::mismatch || kind == Kind::notSigned ? Tone::bad
                                                                     : Tone::neutral;
        m_sentence = check->sentence;
        m_details = detailsOf(check->outcome);
        updateGeometry();
    } else {
        m_tone = Tone::neutral;
        // As tall as before, so that the key above does not move with every letter.
        m_sentence.fill(u' ');
        m_details.fill(u' ');
    }
    setAccessibleName(m_sentence.trimmed());
    setAccessibleDescription(m_details.trimmed());
    update();
}

int OutcomeBox::textWidth() const {
    return std::max(width(), kNarrowest) - 2 * kPadding - kIcon - kGap;
}

QSize OutcomeBox::sizeHint() const {
    auto height = Painting::paragraphSize(m_sentence, FontRole::paneRole, textWidth()).height();
    if (!m_details.isEmpty()) {
        height += Painting::paragraphSize(m_details, FontRole::note, textWidth()).height();
    }
    return {kNarrowest, std::max(height, kIcon) + 2 * kPadding};
}

void OutcomeBox::resizeEvent(QResizeEvent*) {
    updateGeometry();
}

void OutcomeBox::paintEvent(QPaintEvent*) {
    const auto& look = kLooks[static_cast<std::size_t>(m_tone)];
    QPainter painter(this);
    Painting::box(painter, rect(), kRadius, themeColor(look.fill));
    if (m_sentence.trimmed().isEmpty()) {
        return;
    }
    Painting::symbol(painter, QRect(kPadding, kPadding, kIcon, kIcon), look.symbol.toString(), kIcon,
                     themeColor(look.icon));
    QRect text(kPadding + kIcon + kGap, kPadding, textWidth(), height());
    Painting::paragraph(painter, text, m_sentence, FontRole::paneRole, themeColor(look.text));
    text.translate(0, Painting::paragraphSize(m_sentence, FontRole::paneRole, text.width()).height());
    Painting::paragraph(painter, text, m_details, FontRole::note, themeColor(look.text));
}

} // namespace tarnquill

#include "jwt/ClaimRow.h"

#include "chrome/Painting.h"
#include "jwt/RegisteredNames.h"

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

} // namespace

void ClaimRow::setClaim(JWTDecoder::TimeClaim::Name name, const TimeClaimTexts& claim) {
    m_name = text(rawText(name));
    m_hasWarning = !claim.warning.empty();
    const auto utc = text(claim.utc);
    const auto local = text(claim.local);
    const auto relative = text(claim.relative);
    // A local clock that shows UTC says nothing new.
    setTexts({.title = text(claim.title),
              .note = {},
              .value = utc,
              .detail = local == utc ? relative : local + u" · "_s + relative});
    setContent(text(claim.title), claim.relative.empty() ? QString() : utc);
    const auto meaning = text(RegisteredNames::ofClaim(rawText(name)));
    setToolTip(m_hasWarning ? text(claim.warning) + u'\n' + meaning : meaning);
    setAccessibleDescription(m_name + u", "_s + utc + u", "_s + relative + u". "_s + toolTip());
}

void ClaimRow::paintText(QPainter& painter, const QRect& area) {
    DetailRow::paintText(painter, area);
    const QRect second(area.left(), 8 + Theme::lineHeight(FontRole::body), area.width(),
                       Theme::lineHeight(FontRole::note));
    Painting::text(painter, second, m_name, FontRole::tableNumber, themeColor(ColorRole::muted));
    if (m_hasWarning) {
        constexpr int kIcon = 14;
        constexpr int kGap = 6;
        const auto right = area.right() - Painting::textWidth(texts().value, FontRole::editor) - kGap;
        Painting::symbol(painter, QRect(right - kIcon, 8, kIcon, Theme::lineHeight(FontRole::body)),
                         u"exclamationmark.triangle.fill"_s, kIcon, themeColor(ColorRole::warnIcon));
    }
}

} // namespace tarnquill

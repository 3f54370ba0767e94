#include "shell/SupportPromptController.h"

#include "common/Settings.h"

#include <QDateTime>
#include <QStringList>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kDaysOfUse = 14;
constexpr qint64 kSecondsBetween = 2'592'000; // 30 days

const QString kLaunchDays = u"supportPromptLaunchDays"_s;
const QString kLastShown = u"supportPromptLastShown"_s;
const QString kOptOut = u"supportPromptOptOut"_s;

} // namespace

void SupportPromptController::recordLaunch(const QDateTime& now) {
    auto days = m_settings.value(kLaunchDays).toStringList();
    const auto day = now.toLocalTime().date().toString(u"yyyy-MM-dd");
    if (days.size() < kDaysOfUse && !days.contains(day)) {
        days.append(day);
        m_settings.setValue(kLaunchDays, days);
    }
}

bool SupportPromptController::shouldShow(const QDateTime& now) const {
    if (m_settings.value(kOptOut).toBool() ||
        m_settings.value(kLaunchDays).toStringList().size() < kDaysOfUse) {
        return false;
    }
    const auto last = m_settings.value(kLastShown).toDateTime();
    // A date to come is one of a clock that was set back since.
    return !last.isValid() || last.secsTo(now) >= kSecondsBetween;
}

void SupportPromptController::recordShown(const QDateTime& now) {
    m_settings.setValue(kLastShown, now.toUTC());
}

void SupportPromptController::optOut() {
    m_settings.setValue(kOptOut, true);
}

} // namespace tarnquill

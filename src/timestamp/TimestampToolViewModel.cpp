#include "timestamp/TimestampToolViewModel.h"

#include "common/DateText.h"
#include "common/ICUTimeZone.h"
#include "common/RelativeTime.h"
#include "common/Settings.h"
#include "timestamp/TimestampLines.h"
#include "timestamp/ZoneCatalogue.h"

#include <chrono>
#include <utility>

namespace tarnquill {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

using Timestamp::Instant;

namespace {

const auto kUnitKey = u"timestamp/unit"_s;
const auto kLocalZoneKey = u"timestamp/localZone"_s;
const auto kZonesKey = u"timestamp/zones"_s;

const auto kSample = u"1790380800"_s;
constexpr qsizetype kLongestText = 4'096;

QStringList firstZones() {
    return {u"Europe/London"_s, u"America/New_York"_s, u"America/Los_Angeles"_s, u"America/Sao_Paulo"_s,
            u"Asia/Kolkata"_s,  u"Asia/Shanghai"_s,    u"Asia/Tokyo"_s,          u"Australia/Sydney"_s};
}

Instant systemTime() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    const auto seconds = std::chrono::floor<std::chrono::seconds>(now);
    const auto rest = std::chrono::duration_cast<std::chrono::nanoseconds>(now - seconds);
    return {.seconds = seconds.count(), .nanoseconds = static_cast<std::int32_t>(rest.count())};
}

} // namespace

TimestampToolViewModel::TimestampToolViewModel(Settings& settings, QObject* parent)
    : TimestampToolViewModel(settings, systemTime, ICUTimeZone::systemZoneName, parent) {}

TimestampToolViewModel::TimestampToolViewModel(Settings& settings, Clock clock, SystemZone systemZone,
                                               QObject* parent)
    : QObject(parent),
      m_settings(settings),
      m_clock(std::move(clock)),
      m_systemZone(std::move(systemZone)),
      m_text(kSample) {
    restore();
    read();
}

void TimestampToolViewModel::restore() {
    const auto unit = Timestamp::unitChoice(m_settings.value(kUnitKey).toString().toStdString());
    m_unit = unit.value_or(Timestamp::UnitChoice::automatic);
    const auto chosenZone = m_settings.value(kLocalZoneKey).toString().toStdString();
    m_chosenZone = ICUTimeZone::find(chosenZone) ? chosenZone : std::string();
    adoptZone();
    const auto names =
        m_settings.contains(kZonesKey) ? m_settings.value(kZonesKey).toStringList() : firstZones();
    for (const auto& name : names) {
        if (auto zone = findZone(name); zone && !otherZoneNames().contains(name)) {
            m_otherZones.push_back(*std::move(zone));
        }
    }
}

bool TimestampToolViewModel::isList(const QString& text) {
    const auto content = QStringView(text).trimmed();
    return content.size() > kLongestText || content.contains(u'\n') || content.contains(u'\r');
}

void TimestampToolViewModel::setText(const QString& text) {
    if (std::exchange(m_text, text) != text && !isListShown()) {
        read();
    }
}

void TimestampToolViewModel::replaceText(const QString& text) {
    m_text = text;
    if (isListShown()) {
        m_listText = QString();
        m_reading.cancel();
        m_lines.setLines(nullptr, nullptr);
        Q_EMIT listShownChanged(false);
    }
    read();
    Q_EMIT textReplaced();
}

void TimestampToolViewModel::take(const QString& text) {
    if (isList(text)) {
        showList(text);
    } else {
        replaceText(text.trimmed());
    }
}

void TimestampToolViewModel::useNow() {
    const auto unit = m_unit == Timestamp::UnitChoice::automatic
                          ? Timestamp::Unit::seconds
                          : static_cast<Timestamp::Unit>(std::to_underlying(m_unit) - 1);
    const auto text = QString::fromStdString(unixText(m_clock(), unit));
    replaceText(text.section(u'.', 0, 0));
}

void TimestampToolViewModel::clear() {
    replaceText(isListShown() ? m_text : QString());
}

void TimestampToolViewModel::setUnit(Timestamp::UnitChoice unit) {
    if (std::exchange(m_unit, unit) == unit) {
        return;
    }
    m_settings.setValue(kUnitKey, QString::fromUtf8(rawText(unit)));
    read();
}

QString TimestampToolViewModel::formName() const {
    return m_result ? QString::fromUtf8(name(m_result->reading)) : QString();
}

QString TimestampToolViewModel::note() const {
    return m_result ? QString::fromStdString(Timestamp::note(m_result->reading, zoneName())) : QString();
}

std::optional<Timestamp::Failure> TimestampToolViewModel::failure() const {
    return m_result ? std::nullopt : std::optional(m_result.error());
}

std::optional<Instant> TimestampToolViewModel::instant() const {
    return m_result ? std::optional(m_result->instant) : std::nullopt;
}

std::optional<Timestamp::Rows> TimestampToolViewModel::rows() const {
    return m_result ? std::optional(Timestamp::rows(m_result->instant, *m_zone)) : std::nullopt;
}

void TimestampToolViewModel::refresh() {
    if (followsSystemZone() && m_systemZone() != m_zoneName) {
        adoptZone();
        read();
        Q_EMIT localZoneChanged();
    }
    updateRelativeText();
}

void TimestampToolViewModel::updateRelativeText() {
    const auto text =
        m_result ? QString::fromStdString(relativeTimeText(m_result->instant.seconds, m_clock().seconds))
                 : QString();
    if (std::exchange(m_relativeText, text) != text) {
        Q_EMIT relativeTextChanged();
    }
}

QString TimestampToolViewModel::localOffset() const {
    return QString::fromStdString(offsetText(m_zone->offsetAt(instantOrNow().seconds).seconds));
}

void TimestampToolViewModel::setLocalZone(const QString& name) {
    const auto chosen = name.toStdString();
    if (chosen == m_chosenZone || (!chosen.empty() && ICUTimeZone::find(chosen) == nullptr)) {
        return;
    }
    m_chosenZone = chosen;
    m_settings.setValue(kLocalZoneKey, name);
    adoptZone();
    read();
    Q_EMIT localZoneChanged();
}

void TimestampToolViewModel::adoptZone() {
    m_zoneName = followsSystemZone() ? m_systemZone() : m_chosenZone;
    m_zone = ICUTimeZone::find(zoneName());
}

std::string TimestampToolViewModel::zoneName() const {
    return m_zoneName.value_or(ICUTimeZone::kFallbackName);
}

std::optional<TimestampToolViewModel::NamedZone> TimestampToolViewModel::findZone(const QString& name) {
    const auto zoneName = name.toStdString();
    auto zone = ICUTimeZone::find(zoneName);
    if (zone == nullptr) {
        return std::nullopt;
    }
    return NamedZone{
        .name = name, .city = QString::fromStdString(Timestamp::cityName(zoneName)), .zone = std::move(zone)};
}

std::vector<TimestampToolViewModel::OtherZone> TimestampToolViewModel::otherZones() const {
    std::vector<OtherZone> zones;
    for (const auto& zone : m_otherZones) {
        zones.push_back({.name = zone.name, .city = zone.city, .time = std::nullopt});
        if (m_result) {
            zones.back().time = zoneTime(m_result->instant, *zone.zone, *m_zone);
        }
    }
    return zones;
}

QStringList TimestampToolViewModel::otherZoneNames() const {
    QStringList names;
    for (const auto& zone : m_otherZones) {
        names.append(zone.name);
    }
    return names;
}

void TimestampToolViewModel::addZone(const QString& name) {
    if (auto zone = findZone(name); zone && !otherZoneNames().contains(name)) {
        m_otherZones.push_back(*std::move(zone));
        storeZones();
    }
}

void TimestampToolViewModel::removeZone(qsizetype index) {
    m_otherZones.erase(m_otherZones.begin() + index);
    storeZones();
}

void TimestampToolViewModel::moveZone(qsizetype from, qsizetype to) {
    auto zone = std::move(m_otherZones[static_cast<std::size_t>(from)]);
    m_otherZones.erase(m_otherZones.begin() + from);
    m_otherZones.insert(m_otherZones.begin() + to, std::move(zone));
    storeZones();
}

void TimestampToolViewModel::storeZones() {
    m_settings.setValue(kZonesKey, otherZoneNames());
    Q_EMIT zonesChanged();
}

void TimestampToolViewModel::showList(const QString& text) {
    const auto wasShown = isListShown();
    m_listText = text;
    m_currentLine = 0;
    if (!wasShown) {
        Q_EMIT listShownChanged(true);
    }
    readList();
}

void TimestampToolViewModel::read() {
    if (isListShown()) {
        readList();
    } else {
        publish(Timestamp::parse(m_text.toStdString(), m_unit, *m_zone));
    }
}

void TimestampToolViewModel::readList() {
    using LinesPointer = std::shared_ptr<const Timestamp::Lines>;
    m_reading.start(
        0ms,
        [text = m_listText, unit = m_unit, zone = m_zone](const std::stop_token& stop) -> LinesPointer {
            return std::make_shared<const Timestamp::Lines>(
                Timestamp::Lines::read(text.toStdString(), unit, *zone, stop));
        },
        [this, zone = m_zone](LinesPointer lines) {
            m_lines.setLines(std::move(lines), zone);
            Q_EMIT listChanged();
            setCurrentLine(m_currentLine);
        });
}

void TimestampToolViewModel::setCurrentLine(int line) {
    if (0 <= line && line < m_lines.rowCount()) {
        m_currentLine = line;
        publish(m_lines.lines()->parsed(static_cast<std::size_t>(line)));
    }
}

void TimestampToolViewModel::publish(Result result) {
    m_result = result;
    updateRelativeText();
    Q_EMIT resultChanged();
}

void TimestampToolViewModel::copyLines(int first, int count) {
    const Timestamp::LineRange range{.first = static_cast<std::size_t>(first),
                                     .count = static_cast<std::size_t>(count)};
    m_copying.start(
        0ms,
        [lines = m_lines.lines(), range, zone = m_zone](const std::stop_token& stop) {
            return QString::fromStdString(tabSeparated(*lines, range, *zone, stop));
        },
        [this](const QString& text) { Q_EMIT linesCopied(text); });
}

Instant TimestampToolViewModel::instantOrNow() const {
    return m_result ? m_result->instant : m_clock();
}

CivilTime TimestampToolViewModel::localTime() const {
    const auto seconds = instantOrNow().seconds;
    return civilFromSeconds(seconds + m_zone->offsetAt(seconds).seconds);
}

void TimestampToolViewModel::setLocalTime(const CivilTime& time) {
    auto text = iso8601Text(secondsFromCivil(time), 0, 0);
    text.pop_back(); // a local time gives no offset
    replaceText(QString::fromStdString(text));
}

} // namespace tarnquill

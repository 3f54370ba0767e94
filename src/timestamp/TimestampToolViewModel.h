// The state of the Timestamp tool: the input and how to read it, the instant that it means, the local zone
// and the other zones that the instant is shown in.
//
// One short line is read at once, for that takes less than a microsecond. Many lines are a list, read in the
// background.
#pragma once

#include "common/CivilDate.h"
#include "common/LatestTask.h"
#include "timestamp/LineTableModel.h"
#include "timestamp/TimestampRows.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace tarnquill {

class Settings;

class TimestampToolViewModel : public QObject {
    Q_OBJECT

public:
    using Clock = std::function<Timestamp::Instant()>;
    using SystemZone = std::function<std::optional<std::string>()>; // its name, if it is known

    struct OtherZone {
        QString name;
        QString city;
        std::optional<Timestamp::ZoneTime> time; // none while there is no instant
    };

    // Remembers the unit choice, the local zone and the other zones in the settings, but never the input.
    explicit TimestampToolViewModel(Settings& settings, QObject* parent = nullptr);
    TimestampToolViewModel(Settings& settings, Clock clock, SystemZone systemZone, QObject* parent = nullptr);

    // Whether a text is taken as a list: it has several lines, or one that is too long for any instant.
    [[nodiscard]] static bool isList(const QString& text);

    // What stands in the input field. The field keeps it while a list is shown.
    [[nodiscard]] const QString& text() const { return m_text; }
    void setText(const QString& text);

    // The list's text while one is shown, and otherwise text().
    [[nodiscard]] const QString& input() const { return isListShown() ? m_listText : m_text; }

    // Takes a pasted text, as a list or in place of the text.
    void take(const QString& text);
    void useNow();
    // The list goes first, so that the text before it is not lost; only then the text.
    void clear();

    [[nodiscard]] Timestamp::UnitChoice unit() const { return m_unit; }
    void setUnit(Timestamp::UnitChoice unit);

    // The name of the form that the input has ("Unix seconds"); empty when it was not read.
    [[nodiscard]] QString formName() const;
    // How the input was read; empty when it was not.
    [[nodiscard]] QString note() const;
    [[nodiscard]] std::optional<Timestamp::Failure> failure() const;
    // The instant of the text, or of the current line of the list.
    [[nodiscard]] std::optional<Timestamp::Instant> instant() const;
    [[nodiscard]] Timestamp::Instant instantOrNow() const;
    [[nodiscard]] std::optional<Timestamp::Rows> rows() const;

    // "2 days ago"; empty while there is no instant. As of the last refresh().
    [[nodiscard]] const QString& relativeText() const { return m_relativeText; }
    // Looks at the clock, and at the system's zone where that is followed. Call it now and then while shown.
    void refresh();

    [[nodiscard]] QString localZone() const { return QString::fromStdString(zoneName()); }
    // Otherwise the system's zone is followed, and UTC is taken for it.
    [[nodiscard]] bool isLocalZoneKnown() const { return m_zoneName.has_value(); }
    [[nodiscard]] QString localOffset() const; // "+02:00" at the instant, or now
    [[nodiscard]] bool followsSystemZone() const { return m_chosenZone.empty(); }
    // An empty name follows the system. A name that is no zone's changes nothing.
    void setLocalZone(const QString& name);

    [[nodiscard]] std::vector<OtherZone> otherZones() const;
    [[nodiscard]] QStringList otherZoneNames() const;
    // Adds the zone at the end, once.
    void addZone(const QString& name);
    void removeZone(qsizetype index);
    void moveZone(qsizetype from, qsizetype to);

    [[nodiscard]] bool isListShown() const { return !m_listText.isNull(); }
    [[nodiscard]] LineTableModel& lines() { return m_lines; }
    [[nodiscard]] LatestTask& listTask() { return m_reading; }
    // The line whose instant is shown everywhere else.
    [[nodiscard]] int currentLine() const { return m_currentLine; }
    void setCurrentLine(int line);
    // Makes the text of some lines' table in the background; then emits linesCopied().
    void copyLines(int first, int count);

    // The instant, or now, on the local clock, and a text for another time on it.
    [[nodiscard]] CivilTime localTime() const;
    void setLocalTime(const CivilTime& time);

Q_SIGNALS:
    void textReplaced(); // by something other than the input field
    void resultChanged();
    void localZoneChanged();
    void zonesChanged();
    void relativeTextChanged();
    void listShownChanged(bool isShown);
    void listChanged();
    void linesCopied(const QString& text);

private:
    struct NamedZone {
        QString name;
        QString city;
        std::shared_ptr<const TimeZone> zone;
    };

    using Result = std::expected<Timestamp::Parsed, Timestamp::Failure>;

    static std::optional<NamedZone> findZone(const QString& name);
    void restore();
    void storeZones();
    void adoptZone();
    [[nodiscard]] std::string zoneName() const;
    void replaceText(const QString& text);
    void showList(const QString& text);
    void read();
    void readList();
    void publish(Result result);
    void updateRelativeText();

    Settings& m_settings;
    Clock m_clock;
    SystemZone m_systemZone;
    QString m_text;
    QString m_listText; // null when no list is shown
    Timestamp::UnitChoice m_unit = Timestamp::UnitChoice::automatic;
    std::string m_chosenZone; // empty to follow the system
    std::optional<std::string> m_zoneName;
    std::shared_ptr<const TimeZone> m_zone;
    std::vector<NamedZone> m_otherZones;
    Result m_result = std::unexpected(Timestamp::Failure::empty);
    QString m_relativeText;
    LineTableModel m_lines;
    int m_currentLine = 0;
    LatestTask m_reading;
    LatestTask m_copying;
};

} // namespace tarnquill

// Lets the user choose a zone by typing a part of what it is known by.
#pragma once

#include "chrome/Popover.h"

class QListView;

namespace tarnquill {

class SearchBar;
class ZoneSearchModel;

class ZonePicker : public Popover {
    Q_OBJECT

public:
    // The model outlives the picker, and may be shared with others as long as one is open at a time.
    ZonePicker(const QString& title, ZoneSearchModel& zones, QWidget* parent);

    // Offsets are those at the instant, in seconds since 1970. Zones that are chosen already cannot be
    // picked.
    void openBelow(QWidget* control, std::int64_t seconds, const QStringList& chosen);

Q_SIGNALS:
    void zonePicked(const QString& name);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void pick(const QModelIndex& index);

    ZoneSearchModel& m_zones;
    SearchBar* m_search;
    QListView* m_list;
};

} // namespace tarnquill

// The zones that fit what the user types into a zone picker, best first.
#pragma once

#include "common/LatestTask.h"
#include "timestamp/ZoneCatalogue.h"

#include <QAbstractListModel>
#include <QStringList>

#include <memory>

namespace tarnquill {

class ZoneSearchModel : public QAbstractListModel {
    Q_OBJECT

public:
    enum Role : std::uint16_t {
        nameRole = Qt::UserRole, // "Europe/Berlin"
        placeRole,               // "Berlin, Germany"
        detailRole,              // "+02:00 · CET, CEST"
        isChosenRole,            // among the zones that the user has already
    };

    using QAbstractListModel::QAbstractListModel;

    // Reads the zones in the background, the first time that it is called. Offsets are those at that instant,
    // in seconds since 1970.
    void load(std::int64_t seconds);

    void setQuery(const QString& query);
    void setChosen(const QStringList& names);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

private:
    void search();

    LatestTask m_loading;
    std::shared_ptr<const Timestamp::ZoneCatalogue> m_catalogue;
    std::vector<const Timestamp::ZoneCatalogue::Zone*> m_found;
    std::int64_t m_seconds = 0;
    QString m_query;
    QStringList m_chosen;
};

} // namespace tarnquill

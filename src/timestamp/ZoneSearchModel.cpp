#include "timestamp/ZoneSearchModel.h"

#include "common/DateText.h"

namespace tarnquill {

using namespace Qt::StringLiterals;

using Timestamp::ZoneCatalogue;

void ZoneSearchModel::load(std::int64_t seconds) {
    m_seconds = seconds;
    if (m_catalogue != nullptr) {
        search();
        return;
    }
    if (m_loading.isPending()) {
        return;
    }
    m_loading.start(
        std::chrono::milliseconds(0),
        [seconds](const std::stop_token&) {
            return std::make_shared<const ZoneCatalogue>(ZoneCatalogue::load(seconds));
        },
        [this](std::shared_ptr<const ZoneCatalogue> catalogue) {
            m_catalogue = std::move(catalogue);
            search();
        });
}

void ZoneSearchModel::setQuery(const QString& query) {
    m_query = query;
    search();
}

void ZoneSearchModel::setChosen(const QStringList& names) {
    m_chosen = names;
    search();
}

void ZoneSearchModel::search() {
    if (m_catalogue == nullptr) {
        return;
    }
    beginResetModel();
    m_found = m_catalogue->search(m_query.toStdString(), m_seconds);
    endResetModel();
}

int ZoneSearchModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_found.size());
}

QVariant ZoneSearchModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    const auto& zone = *m_found[static_cast<std::size_t>(index.row())];
    const auto name = QString::fromStdString(zone.name);
    switch (role) {
    case Qt::DisplayRole: // what assistive technology reads
        return data(index, placeRole).toString() + u", "_s + data(index, detailRole).toString();
    case nameRole:
        return name;
    case placeRole:
        return QString::fromStdString(zone.city + ", " + zone.country);
    case detailRole: {
        const auto offset = offsetText(zone.zone->offsetAt(m_seconds).seconds);
        return QString::fromStdString(zone.abbreviations.empty() ? offset
                                                                 : offset + " · " + zone.abbreviations);
    }
    case isChosenRole:
        return m_chosen.contains(name);
    default:
        return {};
    }
}

} // namespace tarnquill

#include "shell/ChoiceModel.h"

#include "shell/FuzzyMatch.h"

#include <algorithm>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

// Puts what matches only with its detail behind all others.
constexpr int kDetailCost = 100'000;

std::u16string_view view(QStringView text) {
    return {text.utf16(), static_cast<std::size_t>(text.size())};
}

} // namespace

void ChoiceModel::setChoices(QList<Choice> choices) {
    beginResetModel();
    m_choices = std::move(choices);
    m_rows = rowsFor({});
    endResetModel();
}

void ChoiceModel::setQuery(const QString& query) {
    beginResetModel();
    m_rows = rowsFor(query);
    endResetModel();
}

std::vector<ChoiceModel::Row> ChoiceModel::rowsFor(const QString& query) const {
    std::vector<Row> rows;
    for (qsizetype index = 0; index < m_choices.size(); ++index) {
        const auto& choice = m_choices[index];
        if (auto match = FuzzyMatch::match(view(query), view(choice.title))) {
            rows.push_back({.choice = index, .score = match->score, .matched = std::move(match->positions)});
        } else if (match = FuzzyMatch::match(view(query), view(choice.detail + u' ' + choice.title)); match) {
            rows.push_back({.choice = index, .score = match->score - kDetailCost, .matched = {}});
        }
    }
    std::ranges::stable_sort(rows, std::greater(), &Row::score);
    return rows;
}

int ChoiceModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant ChoiceModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const auto& shown = choice(index.row());
    if (role == Qt::DisplayRole) {
        return shown.title;
    }
    if (role == Qt::AccessibleTextRole) {
        QStringList parts{shown.title, shown.detail, shown.shortcut};
        parts.removeAll(QString());
        return parts.join(u", "_s);
    }
    return {};
}

const Choice& ChoiceModel::choice(int row) const {
    return m_choices[m_rows.at(static_cast<std::size_t>(row)).choice];
}

const std::vector<std::size_t>& ChoiceModel::matched(int row) const {
    return m_rows.at(static_cast<std::size_t>(row)).matched;
}

} // namespace tarnquill

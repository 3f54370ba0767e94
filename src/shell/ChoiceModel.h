// What can be chosen in a choice panel, and of that what matches the letters typed, best first.
#pragma once

#include <QAbstractListModel>
#include <QList>
#include <QString>

#include <functional>
#include <vector>

namespace tarnquill {

struct Choice {
    QString title;
    QString detail;   // may be empty, as may the following
    QString symbol;   // of the chrome's symbols
    QString shortcut; // as it is shown
    std::function<void()> choose;
};

class ChoiceModel : public QAbstractListModel {
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    // In the order in which they are shown while nothing is typed.
    void setChoices(QList<Choice> choices);
    // A title that matches comes before one of which only the detail and the title together do.
    void setQuery(const QString& query);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    // The title, and for assistive technology the whole row.
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

    [[nodiscard]] const Choice& choice(int row) const;
    // The letters of the title that matched, in UTF-16 units.
    [[nodiscard]] const std::vector<std::size_t>& matched(int row) const;

private:
    struct Row {
        qsizetype choice;
        int score = 0;
        std::vector<std::size_t> matched;
    };

    [[nodiscard]] std::vector<Row> rowsFor(const QString& query) const;

    QList<Choice> m_choices;
    std::vector<Row> m_rows;
};

} // namespace tarnquill

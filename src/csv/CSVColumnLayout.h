// The widths and the order of the columns of the CSV grid. They are fitted to their content and stand as in
// the file, until the user resizes and moves them; that holds for columns of the same name in whatever is
// read next.
#pragma once

#include "csv/CSVTableModel.h"

#include <QObject>

#include <cstddef>
#include <memory>
#include <unordered_map>
#include <vector>

class QHeaderView;
class QTableView;

namespace tarnquill {

class CSVColumnLayout : public QObject {
    Q_OBJECT

public:
    // The view shows the table already. Both outlive this.
    CSVColumnLayout(const CSVTableModel& table, QTableView& view);

    // Gives the column the width that its content needs, whatever the user chose.
    void fit(int section);
    // Moves the column so many places to the right, or to the left when negative.
    void move(int section, int distance);

private:
    struct Width {
        int pixels = 0;
        bool isChosen = false; // by the user
    };

    [[nodiscard]] QHeaderView& header() const;
    void showTable();
    void showColumns(int first, int last);
    void fitVisible();
    void takeOver(const CSVParser::Document& document);
    [[nodiscard]] bool isByUser() const;
    void takeWidth(int section, int pixels);
    void takeOrder();
    void restoreOrder();

    const CSVTableModel& m_table;
    QTableView& m_view;
    std::shared_ptr<const CSVParser::Document> m_document; // the one that the rest belongs to
    std::unordered_map<std::size_t, Width> m_widths;       // by column
    std::vector<std::size_t> m_order; // all columns as they are shown; empty while none was moved
    bool m_isRestoring = false;
};

} // namespace tarnquill

// The visible rows and columns of the CSV tool as the grid shows them.
#pragma once

#include "csv/CSVToolViewModel.h"

#include <QAbstractTableModel>

#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace tarnquill {

class CSVTableModel : public QAbstractTableModel {
    Q_OBJECT

public:
    // What a grid can count in pixels, and columns that it can lay out while the user looks; a table of more
    // rows or columns ends there.
    static constexpr int kMostRows = 50'000'000;
    static constexpr int kMostColumns = 100'000;

    // The tool's model outlives this one.
    explicit CSVTableModel(CSVToolViewModel& tool, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    // The cell in one line that a grid can show (see lineText()).
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    // Column names, and the numbers of the rows in the file.
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role = Qt::DisplayRole) const override;

    [[nodiscard]] const std::shared_ptr<const CSVParser::Document>& document() const { return m_document; }
    [[nodiscard]] CSVParser::RowID rowID(int row) const;
    [[nodiscard]] std::size_t columnID(int section) const;
    // Nothing when the column is hidden.
    [[nodiscard]] std::optional<int> section(std::size_t column) const;
    [[nodiscard]] std::string_view cell(const QModelIndex& index) const;
    [[nodiscard]] bool isNumeric(int section) const;

    // The first so many bytes of a text, and a sign when there are more.
    [[nodiscard]] static QString beginning(std::string_view text, std::size_t size);
    // The beginning of a text with signs in place of line breaks and of what could not be seen.
    [[nodiscard]] static QString lineText(std::string_view text);
    // A column's name so shown.
    [[nodiscard]] static QString columnTitle(const CSVParser::Document& document, std::size_t column);

Q_SIGNALS:
    // Around the signals of other rows or columns, but not of a reset: what was selected and current may be
    // lost on the way, or be somewhere else.
    void aboutToRearrange();
    void rearranged();

private:
    void takeAll();
    void reset();
    // How many of the tool's rows the views can take.
    [[nodiscard]] int shownRows() const;
    void updateColumns();
    void updateRows();

    CSVToolViewModel& m_tool;
    // Those that the views know of: the tool's may already be the next ones.
    std::shared_ptr<const CSVParser::Document> m_document;
    std::shared_ptr<const CSVToolViewModel::Rows> m_rows;
    std::vector<std::size_t> m_columns;
    int m_rowCount = 0;
};

} // namespace tarnquill

// The table of the CSV tool: cells are selected and copied, columns are sorted, moved, resized and hidden,
// and everything is reached by keyboard as well.
#pragma once

#include "chrome/DataTable.h"
#include "csv/CSVTableModel.h"

#include <optional>
#include <utility>

class QMenu;

namespace tarnquill {

class CSVColumnLayout;

class CSVGrid : public DataTable {
    Q_OBJECT
    // What the Edit menu asks of whatever holds text.
    Q_PROPERTY(bool readOnly READ isReadOnly CONSTANT)
    Q_PROPERTY(bool undoAvailable READ isUndoAvailable)
    Q_PROPERTY(bool redoAvailable READ isRedoAvailable)
    Q_PROPERTY(bool hasSelectedText READ hasSelectedCells)

public:
    // The tool's model outlives the grid.
    explicit CSVGrid(CSVToolViewModel& tool, QWidget* parent = nullptr);

    [[nodiscard]] const CSVTableModel& table() const { return m_table; }

    [[nodiscard]] bool isReadOnly() const { return false; } // a text can be pasted
    [[nodiscard]] bool isUndoAvailable() const { return m_tool.canUndo(); }
    [[nodiscard]] bool isRedoAvailable() const { return m_tool.canRedo(); }
    [[nodiscard]] bool hasSelectedCells() const { return m_tool.selectedRowCount() > 0; }

    // Any cell of it is selected.
    [[nodiscard]] bool isRowSelected(int row) const override;

    // Whether the cell shows less than its whole text.
    [[nodiscard]] bool isCutShort(const QModelIndex& index) const;

    // A typed letter leads nowhere: to look for it in a million rows takes too long.
    void keyboardSearch(const QString& /*search*/) override {}

    Q_SLOT void undo() { m_tool.undo(); }
    Q_SLOT void redo() { m_tool.redo(); }
    // Copies the selected cells as tab-separated values.
    Q_SLOT void copy();
    // Opens the file or reads the text that is on the clipboard.
    Q_SLOT void paste();

Q_SIGNALS:
    void currentCellChanged();
    // By Enter, a double click or the menu.
    void valueRequested();
    void filterRequested(std::size_t column);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    [[nodiscard]] QString longestRowNumber() const override;

private:
    class Delegate;
    struct Cell {
        CSVParser::RowID row;
        std::size_t column;
    };

    void makeHeader();
    void addColumnActions(QMenu& menu, int section);
    void addCellActions(QMenu& menu, const QModelIndex& index);
    void showColumnMenu(int section, const QPoint& position);
    void showCellMenu(const QModelIndex& index, const QPoint& position);

    void showTable();

    void restoreSelection();
    [[nodiscard]] QModelIndex currentPlace() const;
    // The first and the last section of a selection that is the same in every row.
    [[nodiscard]] std::pair<int, int> selectedSections() const;
    [[nodiscard]] std::optional<QItemSelection> piecesOfSelection() const;

    CSVToolViewModel& m_tool;
    CSVTableModel m_table;
    CSVColumnLayout* m_layout;
    CSVParser::Document::ID m_shown{}; // the document
    std::optional<Cell> m_current;
    std::optional<std::pair<std::size_t, std::size_t>> m_selectedColumns; // nothing: whole rows
    bool m_isScattered = false; // the selection, so that the view knows it only by the tool's model
    bool m_isRearranging = false;
};

} // namespace tarnquill

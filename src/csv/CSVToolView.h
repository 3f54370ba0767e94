// The CSV tool on screen: the table with its filters, columns, search and options.
#pragma once

#include "chrome/ToolView.h"
#include "csv/CSVToolViewModel.h"

class QStackedWidget;

namespace tarnquill {

class ComboBox;
class CSVColumnList;
class CSVFilterList;
class CSVGrid;
class CSVValuePanel;
class MessageView;
class PaneButton;
class Popover;
class SearchBar;
class ToolPane;

class CSVToolView : public ToolView {
    Q_OBJECT

public:
    // The model outlives the view.
    explicit CSVToolView(CSVToolViewModel& model, QWidget* parent = nullptr);

    [[nodiscard]] bool canPerform(ToolCommand command) const override;
    void perform(ToolCommand command) override;
    [[nodiscard]] bool isWorking() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void makeToolbar();
    void makeFiltersPopover();
    void makeColumnsPopover();
    void makePaneHeader();
    void makeContent();
    void connectModel();

    [[nodiscard]] bool hasError() const;
    void showWork();
    void showDocument();
    void showError();
    void showColumns();
    void showQuery();
    void showOptions();
    void showRows();
    void showValue();
    void closeValue();
    void openFilters();
    void chooseFile();
    void takeCopied(const QByteArray& text);

    CSVToolViewModel& m_model;
    CSVGrid* m_grid;
    CSVValuePanel* m_value;
    bool m_valueWasClosed = false; // by the user, so that it opens only when asked for
    QStackedWidget* m_content;
    QWidget* m_table; // the grid and the value below it
    MessageView* m_allHidden;
    ToolPane* m_pane;
    PaneButton* m_open;
    PaneButton* m_filters;
    PaneButton* m_columns;
    PaneButton* m_reset;
    SearchBar* m_search;
    ComboBox* m_delimiter;
    PaneButton* m_header;
    PaneButton* m_copy;
    Popover* m_filtersPopover;
    CSVFilterList* m_filterList;
    QStackedWidget* m_filtersContent;
    PaneButton* m_clearFilters;
    Popover* m_columnsPopover;
    CSVColumnList* m_columnList;
};

} // namespace tarnquill

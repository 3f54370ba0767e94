#include "csv/CSVToolView.h"

#include "chrome/ComboBox.h"
#include "chrome/KeyNames.h"
#include "chrome/LabelledControl.h"
#include "chrome/MessageView.h"
#include "chrome/PaneButton.h"
#include "chrome/PaneFooter.h"
#include "chrome/PaneHeader.h"
#include "chrome/PaneText.h"
#include "chrome/Popover.h"
#include "chrome/SearchBar.h"
#include "chrome/Splitter.h"
#include "chrome/TextLabel.h"
#include "chrome/ToolPane.h"
#include "chrome/Toolbar.h"
#include "common/CountText.h"
#include "common/LocalizedInteger.h"
#include "csv/CSVColumnList.h"
#include "csv/CSVFilterList.h"
#include "csv/CSVGrid.h"
#include "csv/CSVValuePanel.h"

#include <QClipboard>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QStackedWidget>

#include <array>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

using CopyFormat = CSVToolViewModel::CopyFormat;
using CopyScope = CSVToolViewModel::CopyScope;
using DelimiterChoice = CSVToolViewModel::DelimiterChoice;

constexpr int kPaneMinimum = 640;
constexpr int kSearchWidth = 280;
constexpr int kNarrowSearchWidth = 160;
constexpr int kDelimiterWidth = 112;
constexpr int kValueHeight = 168;

struct Delimiter {
    DelimiterChoice choice;
    char character;
    const char16_t* title;
};
constexpr std::array kDelimiters{
    Delimiter{.choice = DelimiterChoice::automatic, .character = '\0', .title = u"Auto"},
    Delimiter{.choice = DelimiterChoice::comma, .character = ',', .title = u"Comma"},
    Delimiter{.choice = DelimiterChoice::semicolon, .character = ';', .title = u"Semicolon"},
    Delimiter{.choice = DelimiterChoice::tab, .character = '\t', .title = u"Tab"},
    Delimiter{.choice = DelimiterChoice::pipe, .character = '|', .title = u"Pipe"}};

QString titleOf(char delimiter) {
    const auto* const found = std::ranges::find(kDelimiters, delimiter, &Delimiter::character);
    return found != kDelimiters.end() ? QString::fromUtf16(found->title) : QString();
}

// "128 rows", or "70 of 128 rows" when not all are there.
QString shownOf(std::size_t shown, std::size_t all, std::string_view one, std::string_view many) {
    const auto text = QString::fromStdString(countText(all, one, many));
    return shown == all ? text
                        : QString::fromStdString(localizedInteger(static_cast<std::int64_t>(shown))) +
                              u" of "_s + text;
}

} // namespace

CSVToolView::CSVToolView(CSVToolViewModel& model, QWidget* parent)
    : ToolView(u"CSV"_s, parent), m_model(model) {
    makeContent();
    makeToolbar();
    makeFiltersPopover();
    makeColumnsPopover();
    makePaneHeader();
    connectModel();
    setContent(m_pane);
    setFirstFocus(m_grid);
    showDocument();
    showOptions();
    showError();
}

void CSVToolView::makeContent() {
    m_grid = new CSVGrid(m_model);
    m_value = new CSVValuePanel;
    m_value->hide();
    connect(m_grid, &CSVGrid::currentCellChanged, this, &CSVToolView::showValue);
    connect(m_grid, &CSVGrid::valueRequested, this, [this] {
        m_valueWasClosed = false;
        m_value->setVisible(m_grid->currentIndex().isValid());
        showValue();
    });
    connect(m_value, &CSVValuePanel::closeRequested, this, &CSVToolView::closeValue);

    auto* const split = new Splitter(Qt::Vertical);
    split->addPane(m_grid, 1, 3 * DataTable::kRowHeight);
    split->addPane(m_value, 0, CSVValuePanel::kMinimumHeight);
    split->setSizes({kValueHeight, kValueHeight});
    m_table = split;

    m_allHidden = new MessageView(MessageView::Kind::placeholder);
    m_allHidden->setMessage(u"All columns are hidden"_s,
                            u"Use the Columns menu in the toolbar to show one."_s, u"columns-3"_s);
    m_content = new QStackedWidget;
    m_content->addWidget(m_table);
    m_content->addWidget(m_allHidden);
    m_pane = new ToolPane(u"Table"_s, m_content);
    m_pane->setMinimumWidth(kPaneMinimum);
    connect(m_pane, &ToolPane::errorActivated, &m_model, &CSVToolViewModel::dismissError);
}

void CSVToolView::makeToolbar() {
    m_open = new PaneButton(u"Open"_s, u"folder-open"_s, PaneButton::Look::outlined);
    m_open->setToolTip(KeyNames::forPlatform(u"Open a CSV or TSV file (⌘O)"_s));
    connect(m_open, &PaneButton::clicked, this, &CSVToolView::chooseFile);

    m_filters = new PaneButton(u"Filters"_s, u"funnel"_s, PaneButton::Look::outlined);
    m_filters->setToolTip(u"Per-column filters"_s);
    connect(m_filters, &PaneButton::clicked, this, &CSVToolView::openFilters);

    m_columns = new PaneButton(u"Columns"_s, u"columns-3"_s, PaneButton::Look::outlined);
    m_columns->setToolTip(u"Show or hide columns"_s);
    m_columns->setOpensPopover(true);
    connect(m_columns, &PaneButton::clicked, this, [this] {
        m_columnsPopover->openBelow(m_columns);
        m_columnList->start();
    });

    m_reset = new PaneButton(u"Reset"_s, u"rotate-ccw"_s, PaneButton::Look::outlined);
    m_reset->setToolTip(u"Reset filters, search, and sort"_s);
    connect(m_reset, &PaneButton::clicked, &m_model, &CSVToolViewModel::reset);

    m_search = new SearchBar(SearchBar::Parts::fieldOnly);
    m_search->setWidths(kNarrowSearchWidth, kSearchWidth);
    m_search->field().setAccessibleName(u"Search all visible columns"_s);
    connect(m_search, &SearchBar::textChanged, &m_model, &CSVToolViewModel::setSearchQuery);
    const auto leave = [this] { m_grid->setFocus(); };
    connect(m_search, &SearchBar::cancelled, this, leave);
    connect(m_search, &SearchBar::nextRequested, this, leave);

    toolbar().addControl(m_open);
    toolbar().addGroupGap();
    toolbar().addControl(m_filters);
    toolbar().addControl(m_columns);
    toolbar().addControl(m_reset);
    toolbar().addGroupGap();
    toolbar().addControl(m_search);
    connect(&toolbar(), &Toolbar::narrowChanged, this, [this](bool narrow) {
        m_open->setIconOnly(narrow);
        m_reset->setIconOnly(narrow);
        m_search->setWidths(kNarrowSearchWidth, narrow ? kNarrowSearchWidth : kSearchWidth);
    });
}

void CSVToolView::makeFiltersPopover() {
    m_filterList = new CSVFilterList(m_model);
    auto* const noDocument =
        new TextLabel(u"Open a file to set filters."_s, FontRole::body, ColorRole::muted);
    noDocument->setContentsMargins(16, 16, 16, 16);
    m_filtersContent = new QStackedWidget;
    m_filtersContent->addWidget(m_filterList);
    m_filtersContent->addWidget(noDocument);
    m_filtersPopover = new Popover(u"Column Filters"_s, m_filtersContent, this);
    m_clearFilters = new PaneButton(u"Clear All"_s, {});
    m_filtersPopover->addTitleControl(m_clearFilters);
    connect(m_clearFilters, &PaneButton::clicked, this, [this] {
        m_model.clearColumnFilters();
        m_filterList->editColumn(0);
    });
    connect(m_filterList, &CSVFilterList::escapePressed, m_filtersPopover, &Popover::close);
    connect(m_grid, &CSVGrid::filterRequested, this, [this](std::size_t column) {
        openFilters();
        m_filterList->editColumn(column);
    });
}

void CSVToolView::makeColumnsPopover() {
    m_columnList = new CSVColumnList(m_model);
    m_columnsPopover = new Popover({}, m_columnList, this);
    m_columnsPopover->setAccessibleName(u"Columns"_s);
}

void CSVToolView::makePaneHeader() {
    m_delimiter = new ComboBox;
    m_delimiter->setFixedWidth(kDelimiterWidth);
    m_delimiter->setToolTip(u"What separates the fields of a row"_s);
    for (const auto& delimiter : kDelimiters) {
        m_delimiter->addItem(QString::fromUtf16(delimiter.title));
    }
    connect(m_delimiter, &ComboBox::currentIndexChanged, this, [this](int index) {
        m_model.setDelimiterChoice(kDelimiters[static_cast<std::size_t>(index)].choice);
    });

    m_header = new PaneButton(u"Header row"_s, u"checkmark"_s, PaneButton::Look::outlined);
    m_header->setCheckable(true);
    m_header->setToolTip(u"Treat the first row as the header"_s);
    connect(m_header, &PaneButton::toggled, &m_model, &CSVToolViewModel::setTreatsFirstRowAsHeader);

    m_copy = new PaneButton(u"Copy"_s, u"doc.on.doc"_s);
    m_copy->setToolTip(u"Copy rows to clipboard"_s);
    m_copy->reserveCopied();
    auto* const menu = new QMenu(this);
    const auto add = [this, menu](const QString& title, CopyFormat format, CopyScope scope) {
        auto* const action = menu->addAction(title);
        connect(action, &QAction::triggered, this, [this, format, scope] { m_model.copy(format, scope); });
    };
    add(u"Copy Visible as JSON"_s, CopyFormat::json, CopyScope::visible);
    add(u"Copy Visible as Markdown"_s, CopyFormat::markdown, CopyScope::visible);
    menu->addSeparator();
    add(u"Copy Selection as JSON"_s, CopyFormat::json, CopyScope::selection);
    add(u"Copy Selection as Markdown"_s, CopyFormat::markdown, CopyScope::selection);
    m_copy->setMenu(menu);

    m_pane->header().addOption(new LabelledControl(u"Delimiter"_s, m_delimiter));
    m_pane->header().addOption(m_header);
    m_pane->header().addButton(m_copy);
}

void CSVToolView::connectModel() {
    connect(&m_model, &CSVToolViewModel::documentChanged, this, &CSVToolView::showDocument);
    connect(&m_model, &CSVToolViewModel::errorChanged, this, &CSVToolView::showError);
    connect(&m_model, &CSVToolViewModel::optionsChanged, this, &CSVToolView::showOptions);
    connect(&m_model, &CSVToolViewModel::queryChanged, this, &CSVToolView::showQuery);
    connect(&m_model, &CSVToolViewModel::visibleColumnsChanged, this, &CSVToolView::showColumns);
    connect(&m_model, &CSVToolViewModel::visibleRowsChanged, this, &CSVToolView::showRows);
    connect(&m_model, &CSVToolViewModel::selectionChanged, this, &CSVToolView::showRows);
    connect(&m_model, &CSVToolViewModel::copied, this, &CSVToolView::takeCopied);
    for (auto* const task : {&m_model.parseTask(), &m_model.rowsTask(), &m_model.copyTask()}) {
        connect(task, &LatestTask::longChanged, this, &CSVToolView::showWork);
    }
}

void CSVToolView::showWork() {
    m_pane->setBusy(m_model.parseTask().isLong()  ? u"Reading… (Esc stops)"_s
                    : m_model.rowsTask().isLong() ? u"Finding the rows… (Esc stops)"_s
                    : m_model.copyTask().isLong() ? u"Copying… (Esc stops)"_s
                                                  : QString());
}

void CSVToolView::showDocument() {
    toolbar().setFilePath(m_model.filePath());
    m_valueWasClosed = false;
    m_value->hide();
    m_filtersContent->setCurrentIndex(m_model.document()->columnCount() > 0 ? 0 : 1);
    showError();
    showQuery();
    showColumns();
}

bool CSVToolView::hasError() const {
    return !m_model.parseError().isEmpty();
}

void CSVToolView::showError() {
    if (hasError()) {
        m_pane->showError(m_model.parseError(),
                          m_model.parseErrorReason() + u"\nClick to go back to the table."_s,
                          u"Back to the table (Esc)"_s);
    } else {
        m_pane->showContent();
    }
    showRows();
}

void CSVToolView::showColumns() {
    const auto all = m_model.document()->columnCount();
    const auto shown = m_model.visibleColumns().size();
    m_columns->setEnabled(all > 0);
    m_columns->setTinted(shown < all);
    m_columns->setDetail(shown < all ? u"%1/%2"_s.arg(shown).arg(all) : QString());
    m_content->setCurrentWidget(all > 0 && shown == 0 ? static_cast<QWidget*>(m_allHidden) : m_table);
    showRows();
}

void CSVToolView::showQuery() {
    const auto filters = static_cast<int>(m_model.activeFilterCount());
    m_filters->setCount(filters);
    m_filters->setTinted(filters > 0);
    m_clearFilters->setEnabled(filters > 0);
    m_reset->setEnabled(m_model.canReset());
    if (m_search->text() != m_model.searchQuery()) {
        m_search->setText(m_model.searchQuery());
    }
}

void CSVToolView::showOptions() {
    const auto found = std::ranges::find(kDelimiters, m_model.delimiterChoice(), &Delimiter::choice);
    m_delimiter->setCurrentIndex(static_cast<int>(found - kDelimiters.begin()));
    m_header->setChecked(m_model.treatsFirstRowAsHeader());
}

void CSVToolView::showRows() {
    m_copy->setEnabled(!hasError() && !m_model.visibleRows()->empty() && !m_model.visibleColumns().empty());
    if (hasError()) {
        m_pane->header().setBadge(std::nullopt);
        m_pane->footer().setMetrics({countMetric(0, "row", "rows")});
        return;
    }
    const auto& document = *m_model.document();
    const auto shown = m_model.visibleRows()->size();
    const auto all = document.rowCount();
    const auto rows = shownOf(shown, all, "row", "rows");
    m_pane->header().setBadge(PaneBadge{
        .text = rows.toUpper(), .tint = shown < all ? PaneBadge::Tint::accent : PaneBadge::Tint::neutral});

    QList<Metric> metrics{
        {.text = rows, .symbol = u"rows-3"_s},
        {.text = shownOf(m_model.visibleColumns().size(), document.columnCount(), "column", "columns"),
         .symbol = u"columns-3"_s}};
    if (m_model.selectedRowCount() > 0) {
        metrics.append({.text = QString::fromStdString(
                                    localizedInteger(static_cast<std::int64_t>(m_model.selectedRowCount()))) +
                                u" selected"_s});
    }
    if (document.columnCount() > 0) {
        const auto isDetected = m_model.delimiterChoice() == DelimiterChoice::automatic;
        metrics.append({.text = titleOf(document.delimiter()) + (isDetected ? u", detected"_s : QString())});
    }
    if (!m_model.filePath().isEmpty()) {
        const auto name = CSVText::name(m_model.encoding());
        const auto isGuess = m_model.encoding() == CSVText::Encoding::windows1252;
        metrics.append({.text = (isGuess ? u"Not UTF-8, read as "_s : QString()) +
                                QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()))});
    }
    if (document.paddedRowCount() > 0) {
        metrics.append(countMetric(document.paddedRowCount(), "row padded", "rows padded"));
    }
    if (shown > CSVTableModel::kMostRows) {
        metrics.append(countMetric(CSVTableModel::kMostRows, "row can be shown", "rows can be shown"));
    }
    if (m_model.visibleColumns().size() > CSVTableModel::kMostColumns) {
        metrics.append(
            countMetric(CSVTableModel::kMostColumns, "column can be shown", "columns can be shown"));
    }
    m_pane->footer().setMetrics(metrics);
}

// Opens by itself for a cell that the grid cannot show whole, unless the user has closed it.
void CSVToolView::showValue() {
    const auto index = m_grid->currentIndex();
    if (!index.isValid()) {
        m_value->hide();
        return;
    }
    if (!m_value->isVisible() && !m_valueWasClosed && m_grid->isCutShort(index)) {
        m_value->setVisible(true);
    }
    if (!m_value->isHidden()) {
        const auto& table = m_grid->table();
        m_value->showCell(u"%1, row %2"_s.arg(table.headerData(index.column(), Qt::Horizontal).toString(),
                                              table.headerData(index.row(), Qt::Vertical).toString()),
                          m_model.document(), table.rowID(index.row()), table.columnID(index.column()));
    }
}

void CSVToolView::closeValue() {
    m_valueWasClosed = true;
    m_value->hide();
    m_grid->setFocus();
}

void CSVToolView::openFilters() {
    m_filtersPopover->openBelow(m_filters);
}

void CSVToolView::takeCopied(const QByteArray& text) {
    // As bytes: the text may be hundreds of megabytes, and is converted only when it is pasted.
    auto* const content = new QMimeData;
    content->setData(u"text/plain"_s, text);
    QGuiApplication::clipboard()->setMimeData(content);
    m_copy->flashCopied();
}

void CSVToolView::chooseFile() {
    const auto path =
        QFileDialog::getOpenFileName(this, u"Open a CSV or TSV file"_s, QFileInfo(m_model.filePath()).path(),
                                     u"CSV and TSV files (*.csv *.tsv);;All files (*)"_s);
    if (!path.isEmpty()) {
        m_model.open(path);
    }
}

// Escape takes back, one after the other, whatever has come over the table.
void CSVToolView::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Escape) {
        ToolView::keyPressEvent(event);
    } else if (m_model.isWorking()) {
        m_model.cancelWork();
    } else if (hasError()) {
        m_model.dismissError();
        m_grid->setFocus();
    } else if (m_value->isVisible()) {
        closeValue();
    }
}

bool CSVToolView::canPerform(ToolCommand command) const {
    return command == ToolCommand::openFile || command == ToolCommand::find;
}

void CSVToolView::perform(ToolCommand command) {
    switch (command) {
    case ToolCommand::openFile:
        chooseFile();
        break;
    case ToolCommand::find:
        m_search->focusField();
        break;
    default:
        break;
    }
}

bool CSVToolView::isWorking() const {
    return m_model.isWorking() || m_value->task().isPending();
}

} // namespace tarnquill

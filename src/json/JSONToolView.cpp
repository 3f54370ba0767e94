#include "json/JSONToolView.h"

#include "chrome/ActivePaneLine.h"
#include "chrome/Alert.h"
#include "chrome/CodeEditor.h"
#include "chrome/ComboBox.h"
#include "chrome/EditorZoom.h"
#include "chrome/KeyNames.h"
#include "chrome/LabelledControl.h"
#include "chrome/PaneButton.h"
#include "chrome/PaneFooter.h"
#include "chrome/PaneHeader.h"
#include "chrome/PaneText.h"
#include "chrome/SearchBar.h"
#include "chrome/SegmentedPicker.h"
#include "chrome/ToolPane.h"
#include "chrome/Toolbar.h"
#include "json/JSONHighlighter.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>

#include <array>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

using Indent = JSONFormatter::Indent;
using OutputMode = JSONToolViewModel::OutputMode;
using Pane = JSONToolViewModel::Pane;
using SortMode = JSONFormatter::SortMode;

constexpr int kSearchMinimum = 240;
constexpr int kNarrowSearchWidth = 296;
constexpr int kSearchWidth = 400;

struct IndentChoice {
    const char16_t* title;
    Indent indent;
};
constexpr std::array kIndents{IndentChoice{.title = u"2 spaces", .indent = Indent::spaces(2)},
                              IndentChoice{.title = u"4 spaces", .indent = Indent::spaces(4)},
                              IndentChoice{.title = u"8 spaces", .indent = Indent::spaces(8)},
                              IndentChoice{.title = u"Tabs", .indent = Indent::tabs()}};

struct SortLook {
    QString title;
    QString symbol;
    QString help;
};

SortLook lookOf(SortMode mode) {
    switch (mode) {
    case SortMode::ascending:
        return {u"Sort"_s, u"arrow.up"_s, u"Keys A → Z. Click for descending."_s};
    case SortMode::descending:
        return {u"Desc"_s, u"arrow.down"_s, u"Keys Z → A. Click to clear."_s};
    case SortMode::none:
        break;
    }
    return {u"Sort"_s, u"arrow.up.arrow.down"_s, u"Sort keys — click to cycle (off → asc → desc → off)"_s};
}

SortMode nextMode(SortMode mode) {
    switch (mode) {
    case SortMode::none:
        return SortMode::ascending;
    case SortMode::ascending:
        return SortMode::descending;
    case SortMode::descending:
        break;
    }
    return SortMode::none;
}

} // namespace

JSONToolView::JSONToolView(JSONToolViewModel& model, QWidget* parent)
    : ToolView(u"JSON"_s, parent),
      m_model(model),
      m_inputEditor(new CodeEditor),
      m_outputEditor(new CodeEditor),
      m_inputPane(new ToolPane(u"Input"_s, m_inputEditor)),
      m_outputPane(new ToolPane(u"Output"_s, m_outputEditor)) {
    makeToolbar();
    makeInputPane();
    makeOutputPane();
    m_activeLine = setPanes(m_inputPane, m_outputPane);

    connectModel();
    connectEditors();
    m_inputEditor->setBuffer(m_model.text());
    showInput();
    showVerdict();
    showOutput();
    showOptions();
    showSearch();
    toolbar().setFilePath(m_model.filePath());
}

void JSONToolView::makeToolbar() {
    m_open = new PaneButton(u"Open"_s, u"folder-open"_s, PaneButton::Look::outlined);
    m_open->setToolTip(KeyNames::forPlatform(u"Open a JSON file (⌘O)"_s));
    connect(m_open, &PaneButton::clicked, this, &JSONToolView::chooseFile);

    m_mode = new SegmentedPicker({u"Format"_s, u"Minify"_s});
    m_mode->setAccessibleName(u"Output"_s);
    m_mode->setToolTip(u"Toggle between formatted and minified output"_s);
    connect(m_mode, &SegmentedPicker::currentIndexChanged, this, [this](int index) {
        m_model.setOutputMode(index == 0 ? OutputMode::formatted : OutputMode::minified);
    });

    m_search = new SearchBar(SearchBar::Parts::withNavigation);
    m_search->setWidths(kSearchMinimum, kSearchWidth);
    QStringList scopes;
    for (const auto scope : JSONSearch::kScopes) {
        scopes.append(QString::fromUtf8(JSONSearch::title(scope)));
    }
    m_search->setScopes(scopes, u"Search all text, only keys, or only values"_s);
    const auto search = [this] {
        m_model.setSearch(m_search->text().toStdU16String(),
                          JSONSearch::kScopes[static_cast<std::size_t>(m_search->scope())]);
    };
    connect(m_search, &SearchBar::textChanged, this, search);
    connect(m_search, &SearchBar::scopeChanged, this, search);
    connect(m_search, &SearchBar::nextRequested, &m_model, &JSONToolViewModel::findNext);
    connect(m_search, &SearchBar::previousRequested, &m_model, &JSONToolViewModel::findPrevious);
    connect(m_search, &SearchBar::cancelled, this, [this] { editorOf(m_model.activePane()).setFocus(); });

    toolbar().addControl(m_open);
    toolbar().addControl(m_mode);
    toolbar().addControl(m_search);
    connect(&toolbar(), &Toolbar::narrowChanged, this, [this](bool narrow) {
        m_open->setIconOnly(narrow);
        m_search->setWidths(kSearchMinimum, narrow ? kNarrowSearchWidth : kSearchWidth);
    });
}

void JSONToolView::makeInputPane() {
    m_inputEditor->setAccessibleName(u"JSON input"_s);
    m_inputEditor->setHighlighter(makeJSONHighlighter());
    m_inputEditor->setLineNumbersVisible(true);

    m_copyInput = new PaneButton(u"Copy"_s, u"doc.on.doc"_s);
    m_copyInput->reserveCopied();
    m_copyInput->setToolTip(u"Copy the input"_s);
    connect(m_copyInput, &PaneButton::clicked, this, [this] { copyText(m_model.text(), *m_copyInput); });
    m_clear = new PaneButton(u"Clear"_s, u"trash"_s);
    m_clear->setToolTip(u"Empty the input"_s);
    connect(m_clear, &PaneButton::clicked, &m_model, &JSONToolViewModel::clear);
    m_inputPane->header().addButton(m_copyInput);
    m_inputPane->header().addButton(m_clear);
    m_inputPane->follow(m_model.openingTask(), u"Opening…"_s, ToolPane::Escape::cancels);
}

void JSONToolView::makeOutputPane() {
    m_outputEditor->setAccessibleName(u"JSON output"_s);
    m_outputEditor->setReadOnly(true);
    m_outputEditor->setHighlighter(makeJSONHighlighter());
    m_outputEditor->setLineNumbersVisible(true);

    m_indent = new ComboBox;
    m_indent->setFixedWidth(92);
    m_indent->setToolTip(u"Indentation (Format only)"_s);
    for (const auto& choice : kIndents) {
        m_indent->addItem(QString::fromUtf16(choice.title));
    }
    connect(m_indent, &ComboBox::currentIndexChanged, this,
            [this](int index) { m_model.setIndent(kIndents[static_cast<std::size_t>(index)].indent); });
    m_indentControl = new LabelledControl(u"Indent"_s, m_indent);

    m_sort = new PaneButton(u"Sort"_s, {}, PaneButton::Look::outlined);
    connect(m_sort, &PaneButton::clicked, this,
            [this] { m_model.setSortMode(nextMode(m_model.sortMode())); });

    m_copyOutput = new PaneButton(u"Copy"_s, u"doc.on.doc"_s);
    m_copyOutput->reserveCopied();
    m_copyOutput->setToolTip(u"Copy the output"_s);
    connect(m_copyOutput, &PaneButton::clicked, this, [this] { copyText(m_model.output(), *m_copyOutput); });

    m_outputPane->header().addOption(m_indentControl);
    m_outputPane->header().addOption(m_sort);
    m_outputPane->header().addButton(m_copyOutput);
    m_outputPane->follow(m_model.formattingTask(), u"Formatting…"_s);
    connect(m_outputPane, &ToolPane::errorActivated, &m_model, &JSONToolViewModel::revealError);
}

void JSONToolView::connectModel() {
    connect(&m_model, &JSONToolViewModel::textReplaced, this,
            [this] { m_inputEditor->replaceAll(m_model.text()); });
    connect(&m_model, &JSONToolViewModel::textChanged, this, &JSONToolView::showInput);
    connect(&m_model, &JSONToolViewModel::validationChanged, this, &JSONToolView::showVerdict);
    connect(&m_model, &JSONToolViewModel::outputChanged, this, &JSONToolView::showOutput);
    connect(&m_model, &JSONToolViewModel::optionsChanged, this, &JSONToolView::showOptions);
    connect(&m_model, &JSONToolViewModel::searchChanged, this, &JSONToolView::showSearch);
    connect(&m_model.searchingTask(), &LatestTask::longChanged, this, &JSONToolView::showSearch);
    connect(&m_model, &JSONToolViewModel::revealRequested, this, &JSONToolView::reveal);
    connect(&m_model, &JSONToolViewModel::fileChanged, this,
            [this] { toolbar().setFilePath(m_model.filePath()); });
    connect(&m_model, &JSONToolViewModel::fileFailed, this, [this](const QString& sentence) {
        Alert::say(window(), u"The file could not be opened"_s, sentence);
    });
}

void JSONToolView::connectEditors() {
    // One size for both panes, whichever was asked to change it.
    connect(m_inputEditor, &CodeEditor::zoomChanged, m_outputEditor, &CodeEditor::setZoom);
    connect(m_outputEditor, &CodeEditor::zoomChanged, m_inputEditor, &CodeEditor::setZoom);
    connect(m_inputEditor, &CodeEditor::textEdited, this,
            [this] { m_model.setText(m_inputEditor->buffer()); });
    for (const auto pane : {Pane::input, Pane::output}) {
        auto& editor = editorOf(pane);
        connect(&editor, &CodeEditor::selectionChanged, this,
                [this, pane, &editor] { m_model.setSelection(pane, editor.selection()); });
    }
    connect(m_activeLine, &ActivePaneLine::activePaneChanged, this, [this](QWidget* pane) {
        m_model.setActivePane(pane == m_inputPane ? Pane::input : Pane::output);
    });
}

CodeEditor& JSONToolView::editorOf(Pane pane) const {
    return pane == Pane::input ? *m_inputEditor : *m_outputEditor;
}

void JSONToolView::showInput() {
    const auto& validation = m_model.validation();
    auto metrics = sizeMetrics(m_model.text());
    if (validation.isValid && validation.topLevelKeyCount) {
        metrics.append(countMetric(static_cast<std::size_t>(*validation.topLevelKeyCount), "key", "keys"));
    }
    if (validation.droppedDuplicates > 0) {
        metrics.append(countMetric(static_cast<std::size_t>(validation.droppedDuplicates),
                                   "duplicate key dropped", "duplicate keys dropped"));
    }
    m_inputPane->footer().setMetrics(metrics);
    const bool hasText = !m_model.text().isEmpty();
    m_copyInput->setEnabled(hasText);
    m_clear->setEnabled(hasText);
}

void JSONToolView::showVerdict() {
    const auto& validation = m_model.validation();
    if (validation.isValid) {
        m_inputPane->header().setBadge(PaneBadge{.text = u"VALID"_s, .tint = PaneBadge::Tint::ok});
    } else if (validation.error) {
        m_inputPane->header().setBadge(PaneBadge{.text = u"INVALID"_s, .tint = PaneBadge::Tint::bad});
    } else {
        m_inputPane->header().setBadge(std::nullopt); // A blank text is not wrong, only not there yet.
    }
    m_inputEditor->setErrorMark(validation.errorRange);
    showInput();
}

void JSONToolView::showOutput() {
    const auto& validation = m_model.validation();
    if (validation.error) {
        m_outputPane->showError(u"Invalid JSON"_s, QString::fromStdString(*validation.error),
                                validation.errorRange ? u"Show it in the input"_s : QString());
    } else {
        m_outputPane->showContent();
    }
    if (!m_outputEditor->buffer().isSharedWith(m_model.output())) {
        m_outputEditor->setBuffer(m_model.output());
    }
    m_outputPane->footer().setMetrics(sizeMetrics(m_model.output()));
    m_copyOutput->setEnabled(!m_model.output().isEmpty());
    showOptions();
}

void JSONToolView::showOptions() {
    const bool isFormatted = m_model.outputMode() == OutputMode::formatted;
    m_mode->setCurrentIndex(isFormatted ? 0 : 1);
    if (m_model.output().isEmpty()) {
        m_outputPane->header().setBadge(std::nullopt);
    } else {
        m_outputPane->header().setBadge(PaneBadge{.text = isFormatted ? u"FORMATTED"_s : u"MINIFIED"_s,
                                                  .tint = PaneBadge::Tint::neutral});
    }
    m_indentControl->setEnabled(isFormatted);
    const auto look = lookOf(m_model.sortMode());
    m_sort->setTitle(look.title);
    m_sort->setSymbol(look.symbol);
    m_sort->setToolTip(look.help);
    m_sort->setTinted(m_model.sortMode() != SortMode::none);
}

void JSONToolView::showSearch() {
    for (const auto pane : {Pane::input, Pane::output}) {
        editorOf(pane).setSearchMatches(m_model.matches(pane));
    }
    m_search->setCount(m_model.searchingTask().isLong() ? u"Searching…"_s
                                                        : QString::fromStdString(m_model.searchStatus()),
                       !m_model.matches(m_model.activePane())->empty());
}

void JSONToolView::reveal(Pane pane, const Reveal& reveal) {
    editorOf(pane).reveal(reveal.range);
    if (!m_search->isAncestorOf(QApplication::focusWidget())) {
        editorOf(pane).setFocus();
    }
}

void JSONToolView::chooseFile() {
    const auto path = QFileDialog::getOpenFileName(
        this, u"Open a JSON file"_s, QFileInfo(m_model.filePath()).path(), u"JSON files (*.json)"_s);
    if (!path.isEmpty()) {
        m_model.open(path);
    }
}

bool JSONToolView::canPerform(ToolCommand command) const {
    switch (command) {
    case ToolCommand::findNext:
    case ToolCommand::findPrevious:
        return !m_model.matches(m_model.activePane())->empty();
    default:
        return true;
    }
}

void JSONToolView::perform(ToolCommand command) {
    switch (command) {
    case ToolCommand::openFile:
        chooseFile();
        break;
    case ToolCommand::find:
        m_search->focusField();
        break;
    case ToolCommand::findNext:
        m_model.findNext();
        break;
    case ToolCommand::findPrevious:
        m_model.findPrevious();
        break;
    default:
        performZoom(*m_inputEditor, command);
    }
}

bool JSONToolView::isWorking() const {
    return m_model.formattingTask().isPending() || m_model.openingTask().isPending() ||
           m_model.searchingTask().isPending();
}

void JSONToolView::setDropTarget(bool isTarget) {
    m_inputPane->setDropTarget(isTarget);
}

} // namespace tarnquill

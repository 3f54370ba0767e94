#include "markdown/MarkdownToolView.h"

#include "chrome/ActivePaneLine.h"
#include "chrome/Alert.h"
#include "chrome/CodeEditor.h"
#include "chrome/FileDropTarget.h"
#include "chrome/FindBar.h"
#include "chrome/KeyNames.h"
#include "chrome/PaneButton.h"
#include "chrome/PaneFooter.h"
#include "chrome/PaneHeader.h"
#include "chrome/PaneText.h"
#include "chrome/PromptBar.h"
#include "chrome/ToolPane.h"
#include "chrome/Toolbar.h"
#include "chrome/WebEngine.h"
#include "common/CountText.h"
#include "markdown/MarkdownExport.h"
#include "markdown/MarkdownHighlighter.h"
#include "markdown/MarkdownLocalImages.h"
#include "markdown/MarkdownOutlinePicker.h"
#include "markdown/MarkdownPreviewFind.h"
#include "markdown/MarkdownPreviewView.h"
#include "markdown/MarkdownScrollSync.h"
#include "markdown/MarkdownSourceFind.h"
#include "markdown/MarkdownTaskBox.h"

#include <QAction>
#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMenu>
#include <QMimeData>

#include <cmath>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

constexpr double kZoomStep = 0.1;

QString missingImagesText(std::size_t count) {
    return QString::fromStdString(countText(count, "image", "images")) + u" not loaded"_s;
}

} // namespace

MarkdownToolView::MarkdownToolView(MarkdownToolViewModel& model, QWidget* parent)
    : ToolView(u"Markdown"_s, parent),
      m_model(model),
      m_editor(new CodeEditor),
      m_preview(new MarkdownPreviewView(m_access)),
      m_sourcePane(new ToolPane(u"Source"_s, m_editor)),
      m_previewPane(new ToolPane(u"Preview"_s, m_preview)),
      m_sync(std::make_unique<MarkdownScrollSync>(*m_editor, *m_preview, *this)) {
    makeToolbar();
    makeSourcePane();
    makePreviewPane();
    m_activeLine = setPanes(m_sourcePane, m_previewPane);

    connectModel();
    connectPanes();
    m_editor->setBuffer(m_model.text());
    m_sync->ignoreEditor();
    m_access.setDocumentFolder(m_model.folder());
    m_preview->setFolder(m_model.folder());
    toolbar().setFilePath(m_model.filePath());
    showDocument();
    showRendering();
}

MarkdownToolView::~MarkdownToolView() = default;

void MarkdownToolView::makeToolbar() {
    m_open = new PaneButton(u"Open"_s, u"folder-open"_s, PaneButton::Look::outlined);
    m_open->setToolTip(KeyNames::forPlatform(u"Open a Markdown file (⌘O)"_s));
    connect(m_open, &PaneButton::clicked, this, &MarkdownToolView::chooseFile);

    m_source =
        new PaneButton(u"Source"_s, u"chevron.left.forwardslash.chevron.right"_s, PaneButton::Look::outlined);
    m_source->setCheckable(true);
    connect(m_source, &PaneButton::toggled, this, &MarkdownToolView::setSourceShown);
    m_toggleSource = new QAction(this);
    m_toggleSource->setShortcut(Qt::CTRL | Qt::ALT | Qt::Key_P);
    m_toggleSource->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(m_toggleSource, &QAction::triggered, m_source, &PaneButton::toggle);
    addAction(m_toggleSource);

    m_find = new PaneButton(u"Find"_s, u"search"_s, PaneButton::Look::outlined);
    m_find->setToolTip(KeyNames::forPlatform(u"Find in the focused pane (⌘F)"_s));
    connect(m_find, &PaneButton::clicked, this, [this] {
        if (auto& bar = activeFindBar(); bar.isOpen()) {
            bar.close();
        } else {
            bar.open();
        }
    });

    for (auto* const control : {m_open, m_source, m_find}) {
        toolbar().addControl(control);
    }
    connect(&toolbar(), &Toolbar::narrowChanged, m_open, &PaneButton::setIconOnly);
}

void MarkdownToolView::makeSourcePane() {
    m_editor->setAccessibleName(u"Markdown source"_s);
    m_editor->setHighlighter(makeMarkdownHighlighter());
    m_copy = new PaneButton(u"Copy"_s, u"doc.on.doc"_s);
    m_copy->reserveCopied();
    m_copy->setToolTip(u"Copy the source"_s);
    connect(m_copy, &PaneButton::clicked, this, [this] { copyText(m_model.text(), *m_copy); });
    m_clear = new PaneButton(u"Clear"_s, u"trash"_s);
    m_clear->setToolTip(u"Empty the source"_s);
    connect(m_clear, &PaneButton::clicked, &m_model, &MarkdownToolViewModel::clear);
    m_sourcePane->header().addButton(m_copy);
    m_sourcePane->header().addButton(m_clear);
    m_sourcePane->follow(m_model.openingTask(), u"Opening…"_s, ToolPane::Escape::cancels);

    m_newerFile = new PromptBar(u"Reload"_s, u"Keep"_s);
    connect(m_newerFile, &PromptBar::accepted, this, [this] {
        const auto top = m_editor->lineAt(0);
        m_model.takeNewerFile();
        m_editor->scrollToLine(top, 0);
        m_sync->ignoreEditor();
    });
    connect(m_newerFile, &PromptBar::declined, &m_model, &MarkdownToolViewModel::keepPresentText);
    m_sourcePane->addBar(m_newerFile);
    m_sourceBar = new FindBar;
    m_sourcePane->addBar(m_sourceBar);
    m_sourceFind = std::make_unique<MarkdownSourceFind>(*m_editor, *m_sourceBar);
}

void MarkdownToolView::makePreviewPane() {
    m_previewPane->follow(m_model.renderingTask(), u"Rendering…"_s);
    m_outline = new PaneButton(u"Outline"_s, u"list"_s);
    m_outline->setToolTip(u"Go to a heading"_s);
    m_outlinePicker = new MarkdownOutlinePicker(this);
    connect(m_outline, &PaneButton::clicked, this, [this] {
        const auto line = m_editor->buffer().lineAt(m_editor->textSelection().caret);
        m_outlinePicker->openBelow(m_outline, m_model.rendering()->outline, static_cast<int>(line) + 1);
    });
    connect(m_outlinePicker, &MarkdownOutlinePicker::linePicked, this, [this](int line) {
        if (isSourceShown()) {
            m_editor->setFocus();
        }
        m_sync->goToLine(line);
    });
    m_export = new PaneButton(u"Export"_s, u"share"_s);
    m_export->setToolTip(u"Copy or export the rendered document"_s);
    m_export->reserveCopied();
    m_export->setMenu(makeExportMenu());
    m_previewPane->header().addButton(m_outline);
    m_previewPane->header().addButton(m_export);

    m_folderPrompt = new PromptBar(u"Allow…"_s, u"Not now"_s);
    connect(m_folderPrompt, &PromptBar::accepted, this, &MarkdownToolView::chooseFolder);
    connect(m_folderPrompt, &PromptBar::declined, &m_access, &MarkdownFolderAccess::decline);
    m_previewPane->addBar(m_folderPrompt);
    m_previewBar = new FindBar;
    m_previewPane->addBar(m_previewBar);
    m_previewFind = std::make_unique<MarkdownPreviewFind>(*m_preview, *m_previewBar, *m_sync);
    m_preview->setAccessibleName(u"Markdown preview"_s);
    m_preview->setFileDrop(FileDrop{.open =
                                        [this](const QList<QUrl>& urls) {
                                            Q_EMIT filesDropped(urls);
                                            return !urls.isEmpty();
                                        },
                                    .targeted = [this](bool isTarget) { setDropTarget(isTarget); }});
}

void MarkdownToolView::connectModel() {
    connect(&m_model, &MarkdownToolViewModel::textReplaced, this, [this] {
        m_editor->replaceAll(m_model.text());
        m_sourceFind->search();
    });
    connect(&m_model, &MarkdownToolViewModel::textChanged, this, &MarkdownToolView::showDocument);
    connect(&m_model, &MarkdownToolViewModel::rendered, this, &MarkdownToolView::showRendering);
    connect(&m_model, &MarkdownToolViewModel::fileChanged, this,
            [this] { toolbar().setFilePath(m_model.filePath()); });
    connect(&m_model, &MarkdownToolViewModel::documentOpened, this, [this] {
        m_access.setDocumentFolder(m_model.folder());
        m_preview->setFolder(m_model.folder());
        m_sync->documentOpened();
    });
    connect(&m_model, &MarkdownToolViewModel::newerFileChanged, this, [this] {
        if (m_model.hasNewerFile()) {
            m_newerFile->ask(u"“"_s + QFileInfo(m_model.filePath()).fileName() +
                             u"” has changed on disk. Reload it?"_s);
        } else {
            m_newerFile->hide();
        }
    });
    connect(&m_model, &MarkdownToolViewModel::fileFailed, this, [this](const QString& sentence) {
        Alert::say(window(), u"The file could not be opened"_s, sentence);
    });
    connect(&m_access, &MarkdownFolderAccess::needsAccessChanged, this, &MarkdownToolView::showAccess);
}

void MarkdownToolView::connectPanes() {
    connect(m_editor, &CodeEditor::textEdited, this, [this] {
        m_model.setText(m_editor->buffer());
        m_sourceFind->search();
    });
    connect(m_preview, &MarkdownPreviewView::taskClicked, this, &MarkdownToolView::toggleTask);
    connect(m_preview, &MarkdownPreviewView::scrolled, this, &MarkdownToolView::showPosition);
    connect(m_preview, &MarkdownPreviewView::missingImagesChanged, this, &MarkdownToolView::showPosition);
    connect(m_preview, &MarkdownPreviewView::died, this, [this](bool isReloading) {
        if (!isReloading) {
            if (const auto& failure = WebEngine::instance().failure(); !failure.isEmpty()) {
                m_previewPane->showError(u"No preview"_s, failure);
                return;
            }
            m_previewPane->showError(u"The preview has stopped"_s, u"Show it again"_s,
                                     u"Start the preview anew"_s);
        }
    });
    connect(m_preview, &WebPageView::printed, this, [this](const QString& path, bool isWritten) {
        sayWritingFailed(isWritten ? QString() : u"Could not write “%1”."_s.arg(QFileInfo(path).fileName()));
    });
    connect(m_previewPane, &ToolPane::errorActivated, this, [this] {
        m_previewPane->showContent();
        m_preview->reloadPage();
    });
    const auto showFind = [this] { m_find->setTinted(m_sourceBar->isOpen() || m_previewBar->isOpen()); };
    connect(m_sourceBar, &FindBar::openChanged, this, showFind);
    connect(m_previewBar, &FindBar::openChanged, this, showFind);
    m_source->setChecked(true);
    setSourceShown(true);
}

bool MarkdownToolView::isSourceShown() const {
    return !m_sourcePane->isHidden();
}

void MarkdownToolView::setSourceShown(bool shown) {
    m_source->setChecked(shown);
    m_source->setToolTip(KeyNames::forPlatform(shown ? u"Hide the Markdown source (⌘⌥P)"_s
                                                     : u"Show the Markdown source (⌘⌥P)"_s));
    m_toggleSource->setText(shown ? u"Hide Source"_s : u"Show Source"_s);
    m_sourcePane->setVisible(shown);
    setFirstFocus(shown ? static_cast<QWidget*>(m_editor) : m_preview);
    if (!shown) {
        m_activeLine->setActivePane(m_previewPane);
        m_preview->setFocus();
    }
}

void MarkdownToolView::showDocument() {
    const bool hasText = !m_model.text().isEmpty();
    m_copy->setEnabled(hasText);
    m_clear->setEnabled(hasText);
    m_export->setEnabled(hasText);
}

void MarkdownToolView::showRendering() {
    const auto& rendering = m_model.rendering();
    m_sourcePane->footer().setMetrics({lineMetric(m_model.text().metrics().lines),
                                       countMetric(rendering->counts.words, "word", "words"),
                                       countMetric(rendering->counts.characters, "character", "characters")});
    m_outline->setEnabled(!rendering->outline.empty());
    if (!m_model.renderingTask().isPending()) {
        m_preview->setBody(rendering);
    }
    showPosition();
}

void MarkdownToolView::showPosition() {
    const auto range = m_preview->scrollRange();
    const auto progress = range > 0 ? std::clamp(m_preview->scrollY() / range, 0.0, 1.0) : 1.0;
    const auto bytes = byteCountText(m_model.rendering()->html.size());
    QList<Metric> metrics{{.text = QString::fromStdString(bytes) + u" of HTML"_s},
                          {.text = QString::number(std::lround(progress * 100)) + u" % read"_s}};
    if (const auto missing = static_cast<std::size_t>(m_preview->missingImages()); missing > 0) {
        metrics.append({.text = missingImagesText(missing), .color = ColorRole::badText});
    }
    m_previewPane->footer().setMetrics(metrics);
}

void MarkdownToolView::showAccess() {
    if (m_access.needsAccess()) {
        m_folderPrompt->ask(m_access.request());
    } else {
        m_folderPrompt->hide();
    }
}

void MarkdownToolView::toggleTask(int line) {
    const auto& text = m_editor->buffer();
    if (line < 1 || static_cast<std::size_t>(line) > text.lineCount()) {
        return;
    }
    const auto range = text.lineRange(static_cast<std::size_t>(line) - 1);
    if (const auto box = Markdown::taskBoxIn(text.text(range))) {
        // The caret and what is seen stay where they are.
        const auto selection = m_editor->textSelection();
        const auto top = m_editor->lineAt(0);
        m_editor->replace({.location = range.location + box->position, .length = 1},
                          box->isChecked ? u" " : u"x");
        m_editor->setSelection(selection);
        m_editor->scrollToLine(top, 0);
        m_sync->ignoreEditor();
    }
}

QMenu* MarkdownToolView::makeExportMenu() {
    auto* const menu = new QMenu(this);
    menu->addAction(u"Copy as HTML"_s, this, &MarkdownToolView::copyHTML);
    menu->addAction(u"Copy as Rich Text"_s, this, &MarkdownToolView::copyRichText);
    menu->addSeparator();
    menu->addAction(u"Export as HTML…"_s, this, &MarkdownToolView::exportHTML);
    menu->addAction(u"Export as PDF…"_s, this, &MarkdownToolView::exportPDF);
    return menu;
}

void MarkdownToolView::copyHTML() {
    QGuiApplication::clipboard()->setText(
        QString::fromStdString(Markdown::withoutLineAttributes(m_model.rendering()->html)));
    m_export->flashCopied();
}

void MarkdownToolView::copyRichText() {
    auto* const copied = new QMimeData;
    copied->setHtml(QString::fromStdString(Markdown::withoutLineAttributes(m_model.rendering()->html)));
    copied->setText(QString::fromStdU16String(m_model.text().text()));
    QGuiApplication::clipboard()->setMimeData(copied);
    m_export->flashCopied();
}

QString MarkdownToolView::exportPath(const QString& suffix) const {
    const QFileInfo file(m_model.filePath().isEmpty() ? u"document"_s : m_model.filePath());
    return file.dir().filePath(file.completeBaseName() + suffix);
}

void MarkdownToolView::exportHTML() {
    const auto path = QFileDialog::getSaveFileName(this, u"Export as HTML"_s, exportPath(u".html"_s),
                                                   u"HTML files (*.html *.htm)"_s);
    if (path.isEmpty()) {
        return;
    }
    const auto folder = m_model.folder();
    auto* const writing =
        new MarkdownExport({.rendering = m_model.rendering(),
                            .title = QFileInfo(path).completeBaseName(),
                            .base = folder.isEmpty() ? QUrl() : MarkdownLocalImages::addressOf(folder)},
                           m_access, path, this);
    connect(writing, &MarkdownExport::ended, this, [this](const QString& error, std::size_t missingImages) {
        sayWritingFailed(error);
        if (error.isEmpty() && missingImages > 0) {
            Alert::say(window(), missingImagesText(missingImages),
                       u"The document is written, and refers to them where they are."_s);
        }
    });
    writing->start();
}

void MarkdownToolView::exportPDF() {
    const auto path =
        QFileDialog::getSaveFileName(this, u"Export as PDF"_s, exportPath(u".pdf"_s), u"PDF files (*.pdf)"_s);
    if (!path.isEmpty()) {
        m_preview->print(path);
    }
}

void MarkdownToolView::sayWritingFailed(const QString& error) {
    if (!error.isEmpty()) {
        Alert::say(window(), u"The document could not be written"_s, error);
    }
}

void MarkdownToolView::chooseFile() {
    const auto path = QFileDialog::getOpenFileName(
        this, u"Open a Markdown file"_s, m_model.folder(),
        u"Markdown and text files (*.md *.markdown *.mdown *.mkd *.mkdn *.txt *.text);;All files (*)"_s);
    if (!path.isEmpty()) {
        m_model.open(path);
    }
}

void MarkdownToolView::chooseFolder() {
    const auto folder = QFileDialog::getExistingDirectory(this, MarkdownFolderAccess::panelMessage(),
                                                          m_access.suggestedFolder());
    if (folder.isEmpty()) {
        m_access.decline();
    } else {
        m_access.grant(folder);
    }
}

bool MarkdownToolView::isPreviewActive() const {
    return m_activeLine->activePane() == m_previewPane;
}

FindBar& MarkdownToolView::activeFindBar() const {
    return isPreviewActive() ? *m_previewBar : *m_sourceBar;
}

void MarkdownToolView::zoom(int steps) {
    if (!isPreviewActive()) {
        m_editor->setZoom(steps == 0 ? 0 : m_editor->zoom() + steps);
    } else {
        m_preview->setZoomFactor(steps == 0 ? 1 : m_preview->zoomFactor() + steps * kZoomStep);
    }
}

bool MarkdownToolView::canPerform(ToolCommand command) const {
    switch (command) {
    case ToolCommand::findNext:
    case ToolCommand::findPrevious:
        return isPreviewActive() ? m_previewFind->canNavigate() : m_sourceFind->canNavigate();
    default:
        return true;
    }
}

void MarkdownToolView::perform(ToolCommand command) {
    switch (command) {
    case ToolCommand::openFile:
        chooseFile();
        break;
    case ToolCommand::find:
        activeFindBar().open();
        break;
    case ToolCommand::findNext:
        isPreviewActive() ? m_previewFind->next() : m_sourceFind->next();
        break;
    case ToolCommand::findPrevious:
        isPreviewActive() ? m_previewFind->previous() : m_sourceFind->previous();
        break;
    case ToolCommand::zoomIn:
        zoom(1);
        break;
    case ToolCommand::zoomOut:
        zoom(-1);
        break;
    case ToolCommand::resetZoom:
        zoom(0);
        break;
    }
}

bool MarkdownToolView::isWorking() const {
    return m_model.renderingTask().isPending() || m_model.openingTask().isPending() ||
           m_sourceFind->isWorking() || m_preview->isWorking();
}

} // namespace tarnquill

#include "mermaid/MermaidToolView.h"

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
#include "chrome/Splitter.h"
#include "chrome/ToolPane.h"
#include "chrome/Toolbar.h"
#include "chrome/WebEngine.h"
#include "mermaid/MermaidFence.h"
#include "mermaid/MermaidPreviewView.h"
#include "mermaid/MermaidSyntaxHighlighter.h"
#include "mermaid/MermaidTemplates.h"
#include "mermaid/MermaidThemes.h"
#include "mermaid/ZoomControl.h"

#include <QActionGroup>
#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QFileDialog>
#include <QFileInfo>
#include <QMimeData>
#include <QPainter>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

using Format = MermaidExport::Format;
using Status = MermaidToolViewModel::Status;

constexpr int kSourceWidth = 452;
constexpr int kSourceMinimum = 300;
constexpr int kPreviewMinimum = 340;
constexpr int kThemeWidth = 104;

QString toQString(std::u16string_view text) {
    return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}

QString pasted(const QString& text) {
    const auto document = text.toStdU16String();
    const auto block = MermaidFence::firstBlock(document);
    return block ? toQString(*block) : text;
}

QByteArray onWhite(const QByteArray& png) {
    const auto picture = QImage::fromData(png, "PNG");
    QImage paper(picture.size(), QImage::Format_RGB32);
    paper.fill(Qt::white);
    QPainter(&paper).drawImage(0, 0, picture);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    paper.save(&buffer, "PNG");
    return bytes;
}

QString filterOf(Format format) {
    switch (format) {
    case Format::svg:
        return u"SVG pictures (*.svg)"_s;
    case Format::png:
        return u"PNG pictures (*.png)"_s;
    case Format::source:
        break;
    }
    return u"Plain text (*.mmd *.mermaid *.txt);;All files (*)"_s;
}

} // namespace

MermaidToolView::MermaidToolView(MermaidToolViewModel& model, QWidget* parent)
    : ToolView(u"Mermaid"_s, parent),
      m_model(model),
      m_editor(new CodeEditor),
      m_preview(new MermaidPreviewView(model.viewport(), model.exporting())),
      m_sourcePane(new ToolPane(u"Source"_s, m_editor)),
      m_previewPane(new ToolPane(u"Preview"_s, m_preview)),
      m_activeLine(new ActivePaneLine(this)) {
    makeToolbar();
    makeSourcePane();
    makePreviewPane();
    auto* splitter = new Splitter(Qt::Horizontal);
    splitter->addPane(m_sourcePane, 0, kSourceMinimum);
    splitter->addPane(m_previewPane, 1, kPreviewMinimum);
    splitter->setSizes({kSourceWidth, kPreviewMinimum});
    PaneHeader::alignHeights({&m_sourcePane->header(), &m_previewPane->header()});
    setContent(splitter);
    setFirstFocus(m_editor);
    m_activeLine->addPane(m_sourcePane);
    m_activeLine->addPane(m_previewPane);

    connectModel();
    m_editor->setBuffer(m_model.text());
    showSource();
    showTheme();
    showStatus();
    showFile();
    m_preview->setSource(m_model.source());
}

void MermaidToolView::makeToolbar() {
    m_open = new PaneButton(u"Open"_s, u"folder-open"_s, PaneButton::Look::outlined);
    m_open->setToolTip(KeyNames::forPlatform(u"Open a Mermaid file (⌘O)"_s));
    connect(m_open, &PaneButton::clicked, this, &MermaidToolView::chooseFile);

    m_templates = new PaneButton(u"Templates"_s, u"layout-template"_s, PaneButton::Look::outlined);
    m_templates->setToolTip(u"Begin with a small diagram of any kind; undo brings the present text back"_s);
    makeTemplatesMenu();
    m_templates->setMenu(&m_templatesMenu);

    m_theme = new ComboBox;
    m_theme->setFixedWidth(kThemeWidth);
    m_theme->setToolTip(u"Colours of the diagram; Automatic follows light and dark"_s);
    for (const auto& choice : MermaidThemes::kChoices) {
        m_theme->addItem(toQString(choice.title),
                         QString::fromLatin1(choice.id.data(), static_cast<qsizetype>(choice.id.size())));
    }
    connect(m_theme, &ComboBox::currentIndexChanged, this,
            [this](int index) { m_model.setThemeChoice(m_theme->itemData(index).toString()); });
    auto* theme = new LabelledControl(u"Theme"_s, m_theme);

    m_export = new PaneButton(u"Export"_s, u"share"_s, PaneButton::Look::outlined);
    m_export->setToolTip(u"Copy or export the diagram"_s);
    makeExportMenu();
    m_export->setMenu(&m_exportMenu);

    toolbar().addControl(m_open);
    toolbar().addControl(m_templates);
    toolbar().addGroupGap();
    toolbar().addControl(theme);
    toolbar().addGroupGap();
    toolbar().addControl(m_export);
    connect(&toolbar(), &Toolbar::narrowChanged, this, [this, theme](bool narrow) {
        m_open->setIconOnly(narrow);
        theme->setNameVisible(!narrow);
    });
}

void MermaidToolView::makeTemplatesMenu() {
    std::size_t index = 0;
    for (const auto& starter : MermaidTemplates::all()) {
        m_templatesMenu.addAction(toQString(starter.title), this,
                                  [this, index] { m_model.useTemplate(index); });
        ++index;
    }
}

void MermaidToolView::makeExportMenu() {
    m_exportMenu.setTitle(u"Copy or export the diagram"_s);
    const auto add = [this](const QString& title, void (MermaidToolView::*act)(Format), Format format) {
        auto* const action =
            m_exportMenu.addAction(title, this, [this, act, format] { (this->*act)(format); });
        if (format != Format::source) {
            m_diagramActions.append(action);
        }
    };
    add(u"Copy Diagram as PNG"_s, &MermaidToolView::copyAs, Format::png);
    add(u"Copy Diagram as SVG"_s, &MermaidToolView::copyAs, Format::svg);
    add(u"Copy Mermaid Source"_s, &MermaidToolView::copyAs, Format::source);
    m_exportMenu.addSeparator();
    add(u"Export as PNG…"_s, &MermaidToolView::exportAs, Format::png);
    add(u"Export as SVG…"_s, &MermaidToolView::exportAs, Format::svg);
    add(u"Export Mermaid Source…"_s, &MermaidToolView::exportAs, Format::source);
    m_exportMenu.addSeparator();
    auto* const backgrounds = new QActionGroup(&m_exportMenu);
    const auto addBackground = [this, backgrounds](const QString& title, Background background) {
        auto* const action =
            m_exportMenu.addAction(title, this, [this, background] { m_background = background; });
        action->setCheckable(true);
        action->setChecked(background == m_background);
        backgrounds->addAction(action);
    };
    addBackground(u"PNG on Transparent Background"_s, Background::transparent);
    addBackground(u"PNG on White Background"_s, Background::white);
}

void MermaidToolView::makeSourcePane() {
    m_editor->setAccessibleName(u"Mermaid source"_s);
    m_editor->setHighlighter(makeMermaidHighlighter());
    m_editor->setLineNumbersVisible(true);
    m_editor->setIndentWidth(4);
    m_editor->setPasteFilter(pasted);
    connect(m_editor, &CodeEditor::textEdited, this, [this] { m_model.setText(m_editor->buffer()); });

    m_reload = new PaneButton(u"Reload"_s, u"rotate-ccw"_s);
    m_reload->setIconOnly(true);
    m_reload->setToolTip(u"Read the file again; undo brings the present text back"_s);
    connect(m_reload, &PaneButton::clicked, &m_model, &MermaidToolViewModel::reload);

    m_copy = new PaneButton(u"Copy"_s, u"doc.on.doc"_s);
    m_copy->reserveCopied();
    m_copy->setToolTip(u"Copy the source"_s);
    connect(m_copy, &PaneButton::clicked, this, [this] { copyText(m_model.text(), *m_copy); });
    m_clear = new PaneButton(u"Clear"_s, u"trash"_s);
    m_clear->setToolTip(u"Empty the source"_s);
    connect(m_clear, &PaneButton::clicked, &m_model, &MermaidToolViewModel::clear);
    m_sourcePane->header().addButton(m_reload);
    m_sourcePane->header().addButton(m_copy);
    m_sourcePane->header().addButton(m_clear);
    m_sourcePane->follow(m_model.openingTask(), u"Opening…"_s, ToolPane::Escape::cancels);
}

void MermaidToolView::makePreviewPane() {
    auto& viewport = m_model.viewport();
    m_zoom = new ZoomControl;
    connect(m_zoom, &ZoomControl::zoomOutRequested, &viewport, &MermaidViewportController::zoomOut);
    connect(m_zoom, &ZoomControl::zoomInRequested, &viewport, &MermaidViewportController::zoomIn);
    connect(m_zoom, &ZoomControl::actualSizeRequested, &viewport, &MermaidViewportController::showActualSize);
    connect(&viewport, &MermaidViewportController::changed, m_zoom,
            [this] { m_zoom->setScale(m_model.viewport().scale()); });
    auto* fit = new PaneButton(u"Fit"_s, u"maximize"_s, PaneButton::Look::outlined);
    fit->setToolTip(u"Fit the diagram to the pane, and keep it fitted"_s);
    connect(fit, &PaneButton::clicked, &viewport, &MermaidViewportController::requestAutoFit);
    m_previewPane->header().addButton(m_zoom);
    m_previewPane->header().addButton(fit);
    connect(&toolbar(), &Toolbar::narrowChanged, fit, &PaneButton::setIconOnly);

    m_preview->setFileDrop({.open =
                                [this](const QList<QUrl>& urls) {
                                    if (!urls.isEmpty()) {
                                        m_model.open(urls.first().toLocalFile());
                                    }
                                    return !urls.isEmpty();
                                },
                            .targeted = [this](bool isTarget) { setDropTarget(isTarget); }});
    connect(m_preview, &MermaidPreviewView::outcome, &m_model, &MermaidToolViewModel::setOutcome);
    connect(m_preview, &MermaidPreviewView::errorActivated, &m_model, &MermaidToolViewModel::revealError);
    connect(m_preview, &MermaidPreviewView::longRenderingChanged, this,
            [this](bool isLong) { m_previewPane->setBusy(isLong ? u"Drawing…"_s : QString()); });
}

void MermaidToolView::connectModel() {
    connect(&m_model, &MermaidToolViewModel::textReplaced, this,
            [this] { m_editor->replaceAll(m_model.text()); });
    connect(&m_model, &MermaidToolViewModel::textChanged, this, &MermaidToolView::showSource);
    connect(&m_model, &MermaidToolViewModel::sourceChanged, this,
            [this] { m_preview->setSource(m_model.source()); });
    connect(&m_model, &MermaidToolViewModel::statusChanged, this, &MermaidToolView::showStatus);
    connect(&m_model, &MermaidToolViewModel::themeChoiceChanged, this, &MermaidToolView::showTheme);
    connect(&Theme::instance(), &Theme::changed, this, &MermaidToolView::showTheme);
    connect(&m_model, &MermaidToolViewModel::revealRequested, this, [this](TextRange range) {
        m_editor->reveal(range);
        m_editor->setFocus();
    });
    connect(&m_model, &MermaidToolViewModel::fileChanged, this, &MermaidToolView::showFile);
    connect(&m_model, &MermaidToolViewModel::fileFailed, this, [this](const QString& sentence) {
        Alert::say(window(), u"The file could not be opened"_s, sentence);
    });
    connect(&m_model, &MermaidToolViewModel::savingFailed, this, [this](const QString& sentence) {
        Alert::say(window(), u"The diagram could not be exported"_s, sentence);
    });
}

void MermaidToolView::showSource() {
    m_sourcePane->footer().setMetrics(sizeMetrics(m_model.text()));
    const bool hasText = !m_model.text().isEmpty();
    m_copy->setEnabled(hasText);
    m_clear->setEnabled(hasText);
}

void MermaidToolView::showFile() {
    toolbar().setFilePath(m_model.filePath());
    m_reload->setVisible(!m_model.filePath().isEmpty());
}

void MermaidToolView::showStatus() {
    m_editor->setErrorMark(m_model.errorRange());
    auto& header = m_previewPane->header();
    switch (m_model.status()) {
    case Status::drawing:
        return; // What it was a moment ago stays until it is something else.
    case Status::withoutEngine:
        header.setBadge(std::nullopt);
        m_previewPane->showError(u"No preview"_s, WebEngine::instance().failure().isEmpty()
                                                      ? u"The diagram engine could not be started."_s
                                                      : WebEngine::instance().failure());
        break;
    case Status::blank:
        header.setBadge(std::nullopt);
        m_previewPane->showContent();
        break;
    case Status::rendered:
        header.setBadge(PaneBadge{.text = u"RENDERED"_s, .tint = PaneBadge::Tint::ok});
        m_previewPane->showContent();
        break;
    case Status::failed:
        header.setBadge(PaneBadge{.text = u"ERROR"_s, .tint = PaneBadge::Tint::bad});
        m_previewPane->showContent();
        break;
    }
    const auto bytes = m_model.svgBytes().value_or(0);
    QList<Metric> metrics;
    if (bytes > 0) {
        metrics.append({.text = u"SVG "_s + byteMetric(static_cast<std::size_t>(bytes)).text});
    }
    m_previewPane->footer().setMetrics(metrics);
    for (auto* const action : m_diagramActions) {
        action->setEnabled(bytes > 0);
    }
}

void MermaidToolView::showTheme() {
    const auto choice = m_model.themeChoice().toStdString();
    const auto theme = MermaidThemes::engineTheme(choice, Theme::instance().isDark());
    m_theme->setCurrentIndex(m_theme->findData(m_model.themeChoice()));
    m_preview->setTheme(QString::fromLatin1(theme.data(), static_cast<qsizetype>(theme.size())));
}

void MermaidToolView::chooseFile() {
    const auto path =
        QFileDialog::getOpenFileName(this, u"Open a Mermaid file"_s, QFileInfo(m_model.filePath()).path(),
                                     u"Mermaid files (*.mmd *.mermaid);;All files (*)"_s);
    if (!path.isEmpty()) {
        m_model.open(path);
    }
}

void MermaidToolView::fetch(Format format, const std::function<void(const QByteArray& bytes)>& use) {
    const auto& exporting = m_model.exporting();
    switch (format) {
    case Format::source:
        use(toQString(m_model.text().text()).toUtf8());
        break;
    case Format::svg:
        if (exporting.fetchSVG) {
            exporting.fetchSVG([use](const std::optional<QString>& svg) {
                if (svg) {
                    use(svg->toUtf8());
                }
            });
        }
        break;
    case Format::png:
        if (exporting.fetchPNG) {
            exporting.fetchPNG([this, use](const std::optional<QByteArray>& png) {
                if (png && m_background == Background::white) {
                    m_painting.start(
                        std::chrono::milliseconds{0},
                        [png = *png](const std::stop_token&) { return onWhite(png); }, use);
                } else if (png) {
                    use(*png);
                }
            });
        }
        break;
    }
}

void MermaidToolView::copyAs(Format format) {
    fetch(format, [this, format](const QByteArray& bytes) {
        auto* const copied = new QMimeData;
        if (format == Format::png) {
            copied->setData(u"image/png"_s, bytes);
        } else {
            copied->setText(QString::fromUtf8(bytes));
        }
        QApplication::clipboard()->setMimeData(copied);
        m_export->flashCopied();
    });
}

void MermaidToolView::exportAs(Format format) {
    fetch(format, [this, format](const QByteArray& bytes) {
        window()->raise();
        window()->activateWindow();
        const auto name = MermaidExport::proposedName(format, m_model.filePath());
        const auto path = QFileDialog::getSaveFileName(
            this, u"Export"_s, QFileInfo(m_model.filePath()).dir().filePath(name), filterOf(format));
        if (!path.isEmpty()) {
            m_model.save(path, bytes);
        }
    });
}

bool MermaidToolView::previewIsActive() const {
    return m_activeLine->activePane() == m_previewPane;
}

bool MermaidToolView::canPerform(ToolCommand command) const {
    return command == ToolCommand::openFile || isZoom(command);
}

void MermaidToolView::perform(ToolCommand command) {
    if (command == ToolCommand::openFile) {
        chooseFile();
    } else if (!previewIsActive()) {
        performZoom(*m_editor, command);
    } else if (command == ToolCommand::zoomIn) {
        m_model.viewport().zoomIn();
    } else if (command == ToolCommand::zoomOut) {
        m_model.viewport().zoomOut();
    } else if (command == ToolCommand::resetZoom) {
        m_model.viewport().showActualSize();
    }
}

void MermaidToolView::setDropTarget(bool isTarget) {
    m_sourcePane->setDropTarget(isTarget);
}

bool MermaidToolView::isWorking() const {
    return m_model.sourceTask().isPending() || m_preview->isRendering();
}

} // namespace tarnquill

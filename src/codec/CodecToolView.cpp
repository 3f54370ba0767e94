#include "codec/CodecToolView.h"

#include "chrome/Alert.h"
#include "chrome/CodeEditor.h"
#include "chrome/EditorZoom.h"
#include "chrome/FileDropTarget.h"
#include "chrome/LabelledControl.h"
#include "chrome/PaneButton.h"
#include "chrome/PaneHeader.h"
#include "chrome/PaneText.h"
#include "chrome/SegmentedPicker.h"
#include "chrome/ToolPane.h"
#include "chrome/Toolbar.h"
#include "codec/PictureSplit.h"
#include "json/JSONHighlighter.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QStackedWidget>

#include <algorithm>
#include <array>
#include <utility>

namespace tarnquill {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

using Codec::Content;
using Codec::Direction;
using Codec::Options;
using Codec::Scheme;

constexpr std::array kSchemes{Scheme::base64, Scheme::url, Scheme::html, Scheme::hex};

// Whether the option changes what this scheme and direction give.
bool matters(bool Options::* option, Scheme scheme, Direction direction) {
    const auto givesBytes = scheme == Scheme::base64 || scheme == Scheme::hex;
    if (option == &Options::urlSafe) {
        return scheme == Scheme::base64 && direction == Direction::encode;
    }
    if (option == &Options::plusForSpace) {
        return scheme == Scheme::url;
    }
    return givesBytes && direction == Direction::decode;
}

} // namespace

CodecToolView::CodecToolView(CodecToolViewModel& model, QWidget* parent)
    : ToolView(u"Encode / Decode"_s, parent),
      m_model(model),
      m_inputEditor(new CodeEditor),
      m_fileDump(new CodeEditor),
      m_input(new QStackedWidget),
      m_outputEditor(new CodeEditor),
      m_output(new PictureSplit(m_outputEditor)),
      m_inputPane(new ToolPane(u"Input"_s, m_input)),
      m_outputPane(new ToolPane(u"Output"_s, m_output)) {
    makeToolbar();
    makeInputPane();
    makeOutputPane();
    setPanes(m_inputPane, m_outputPane);
    setFirstFocus(m_inputEditor);

    connectModel();
    connectEditors();
    m_inputEditor->setBuffer(m_model.input());
    showInput();
    showOptions();
    showOutput();
    m_model.start();
}

void CodecToolView::makeToolbar() {
    QStringList schemes;
    for (const auto scheme : kSchemes) {
        schemes.append(title(scheme));
    }
    m_scheme = new SegmentedPicker(schemes);
    m_scheme->setToolTip(u"The encoding to apply or remove"_s);
    connect(m_scheme, &SegmentedPicker::currentIndexChanged, this,
            [this](int index) { m_model.setScheme(kSchemes[static_cast<std::size_t>(index)]); });
    m_direction = new SegmentedPicker({u"Encode"_s, u"Decode"_s});
    m_direction->setToolTip(u"Encode the input, or decode it"_s);
    connect(m_direction, &SegmentedPicker::currentIndexChanged, this,
            [this](int index) { m_model.setDirection(index == 0 ? Direction::encode : Direction::decode); });

    auto* scheme = new LabelledControl(u"Scheme"_s, m_scheme);
    auto* direction = new LabelledControl(u"Direction"_s, m_direction);
    toolbar().addControl(scheme);
    toolbar().addGroupGap();
    toolbar().addControl(direction);
    connect(&toolbar(), &Toolbar::narrowChanged, this, [scheme, direction](bool narrow) {
        scheme->setNameVisible(!narrow);
        direction->setNameVisible(!narrow);
    });
}

void CodecToolView::makeInputPane() {
    m_inputEditor->setAccessibleName(u"Text to encode or decode"_s);
    m_fileDump->setAccessibleName(u"Bytes of the file"_s);
    m_fileDump->setReadOnly(true);
    m_input->addWidget(m_inputEditor);
    m_input->addWidget(m_fileDump);

    auto* open = new PaneButton(u"Open"_s, u"folder-open"_s);
    open->setIconOnly(true);
    open->setToolTip(u"Encode or decode the bytes of a file"_s);
    connect(open, &PaneButton::clicked, this, &CodecToolView::chooseFile);
    m_swap = new PaneButton(u"Swap"_s, u"arrow-right-left"_s);
    m_swap->setToolTip(u"Move the output into the input and reverse the direction"_s);
    connect(m_swap, &PaneButton::clicked, &m_model, &CodecToolViewModel::swap);
    m_copyInput = new PaneButton(u"Copy"_s, u"doc.on.doc"_s);
    m_copyInput->reserveCopied();
    m_copyInput->setToolTip(u"Copy the input"_s);
    connect(m_copyInput, &PaneButton::clicked, this, [this] {
        copyText(m_model.fileBytes() == nullptr ? m_model.input() : m_model.shownFile(), *m_copyInput);
    });
    m_clear = new PaneButton(u"Clear"_s, u"trash"_s);
    m_clear->setToolTip(u"Empty the input"_s);
    connect(m_clear, &PaneButton::clicked, &m_model, &CodecToolViewModel::clear);
    for (auto* const button : {open, m_swap, m_copyInput, m_clear}) {
        m_inputPane->header().addButton(button);
    }
    m_inputPane->follow(m_model.openingTask(), u"Opening…"_s, ToolPane::Escape::cancels);
    new FileDropTarget(m_inputPane,
                       {.open =
                            [this](const QList<QUrl>& urls) {
                                if (!urls.isEmpty()) {
                                    m_model.open(urls.first().toLocalFile());
                                }
                                return !urls.isEmpty();
                            },
                        .targeted = [this](bool isTarget) { m_inputPane->setDropTarget(isTarget); }});
}

PaneButton* CodecToolView::makeToggle(const QString& title, const QString& symbol, const QString& help,
                                      bool Options::* option) {
    auto* toggle = new PaneButton(title, symbol, PaneButton::Look::outlined);
    toggle->setCheckable(true);
    toggle->setToolTip(help);
    connect(toggle, &PaneButton::clicked, this, [this, option](bool isOn) {
        auto options = m_model.options();
        options.*option = isOn;
        m_model.setOptions(options);
    });
    return toggle;
}

void CodecToolView::makeOutputPane() {
    m_outputEditor->setAccessibleName(u"Result"_s);
    m_outputEditor->setReadOnly(true);

    m_toggles = {
        {.button =
             makeToggle(u"URL-safe"_s, u"link"_s,
                        u"Use - and _ in place of + and /, and drop the = padding"_s, &Options::urlSafe),
         .option = &Options::urlSafe},
        {.button =
             makeToggle(u"+ for space"_s, u"plus"_s,
                        u"Treat + as a space, as HTML forms and query strings do"_s, &Options::plusForSpace),
         .option = &Options::plusForSpace},
        {.button = makeToggle(u"Unpack"_s, u"shippingbox"_s,
                              u"Unpack gzip or zlib data found after decoding"_s, &Options::inflate),
         .option = &Options::inflate},
        {.button = makeToggle(u"Format JSON"_s, u"curlybraces"_s,
                              u"Format decoded text that is a JSON object or array"_s, &Options::formatJSON),
         .option = &Options::formatJSON},
    };
    for (const auto& toggle : m_toggles) {
        m_outputPane->header().addOption(toggle.button);
    }

    m_save = new PaneButton(u"Save"_s, u"download"_s);
    m_save->setIconOnly(true);
    m_save->setToolTip(u"Save the bytes to a file"_s);
    connect(m_save, &PaneButton::clicked, this, &CodecToolView::saveOutput);
    m_copyDump = new PaneButton(u"Copy hex dump"_s, u"doc.on.clipboard"_s);
    m_copyDump->setIconOnly(true);
    m_copyDump->setToolTip(u"Copy the hex dump with 16 bytes a row, as hexdump -C prints it"_s);
    connect(m_copyDump, &PaneButton::clicked, this, [this] { copyText(m_model.hexDump(), *m_copyDump); });
    m_copyOutput = new PaneButton(u"Copy"_s, u"doc.on.doc"_s);
    m_copyOutput->reserveCopied();
    m_copyOutput->setToolTip(u"Copy the output"_s);
    connect(m_copyOutput, &PaneButton::clicked, this,
            [this] { copyText(m_model.shownOutput(), *m_copyOutput); });
    for (auto* const button : {m_save, m_copyDump, m_copyOutput}) {
        m_outputPane->header().addButton(button);
    }
}

void CodecToolView::connectModel() {
    connect(&m_model, &CodecToolViewModel::inputReplaced, this,
            [this] { m_inputEditor->replaceAll(m_model.input()); });
    connect(&m_model, &CodecToolViewModel::inputChanged, this, &CodecToolView::showInput);
    connect(&m_model, &CodecToolViewModel::shownFileChanged, this, &CodecToolView::showInput);
    connect(&m_model, &CodecToolViewModel::optionsChanged, this, &CodecToolView::showOptions);
    connect(&m_model, &CodecToolViewModel::outputChanged, this, &CodecToolView::showOutput);
    connect(&m_model, &CodecToolViewModel::openingFailed, this, [this](const QString& sentence) {
        Alert::say(window(), u"The file could not be opened"_s, sentence);
    });
    connect(&m_model, &CodecToolViewModel::savingFailed, this, [this](const QString& sentence) {
        Alert::say(window(), u"The file could not be saved"_s, sentence);
    });
    const auto showWork = [this] {
        const auto isEncoding = m_model.direction() == Direction::encode;
        const auto verb = m_model.savingTask().isLong()       ? u"Saving…"_s
                          : !m_model.transformTask().isLong() ? QString()
                          : isEncoding                        ? u"Encoding…"_s
                                                              : u"Decoding…"_s;
        m_outputPane->setBusy(verb);
    };
    connect(&m_model.transformTask(), &LatestTask::longChanged, this, showWork);
    connect(&m_model.savingTask(), &LatestTask::longChanged, this, showWork);
}

void CodecToolView::connectEditors() {
    connect(m_inputEditor, &CodeEditor::textEdited, this,
            [this] { m_model.setInput(m_inputEditor->buffer()); });
    connect(m_outputEditor, &CodeEditor::columnsChanged, this,
            [this](std::size_t columns) { m_model.setDumpBytesPerRow(Codec::hexDumpBytesPerRow(columns)); });
    connect(m_fileDump, &CodeEditor::columnsChanged, this,
            [this](std::size_t columns) { m_model.setFileBytesPerRow(Codec::hexDumpBytesPerRow(columns)); });
    // One size for all of them, whichever was asked to change it.
    const std::array editors{m_inputEditor, m_fileDump, m_outputEditor};
    for (auto* const changed : editors) {
        for (auto* const editor : editors) {
            if (editor != changed) {
                connect(changed, &CodeEditor::zoomChanged, editor, &CodeEditor::setZoom);
            }
        }
    }
}

void CodecToolView::showInput() {
    const auto hasFile = m_model.fileBytes() != nullptr;
    if (hasFile && !m_fileDump->buffer().isSharedWith(m_model.shownFile())) {
        m_fileDump->setBuffer(m_model.shownFile());
    }
    m_input->setCurrentWidget(hasFile ? m_fileDump : m_inputEditor);
    m_inputPane->header().setBadge(
        hasFile ? std::optional(PaneBadge{.text = u"FILE"_s, .tint = PaneBadge::Tint::neutral})
                : std::nullopt);
    m_inputPane->footer().setMetrics(hasFile ? QList{lineMetric(m_model.shownFile().metrics().lines),
                                                     byteMetric(m_model.fileBytes()->size())}
                                             : sizeMetrics(m_model.input()));
    const auto hasInput = hasFile || !m_model.input().isEmpty();
    m_copyInput->setEnabled(hasInput);
    m_clear->setEnabled(hasInput);
    toolbar().setFilePath(m_model.filePath());
}

void CodecToolView::showOptions() {
    m_scheme->setCurrentIndex(
        static_cast<int>(std::ranges::find(kSchemes, m_model.scheme()) - kSchemes.begin()));
    m_direction->setCurrentIndex(m_model.direction() == Direction::encode ? 0 : 1);
    for (const auto& toggle : m_toggles) {
        toggle.button->setVisible(matters(toggle.option, m_model.scheme(), m_model.direction()));
        toggle.button->setChecked(m_model.options().*toggle.option);
    }
}

void CodecToolView::showOutput() {
    const auto& output = m_model.output();
    auto& header = m_outputPane->header();
    if (const auto& failure = m_model.failure()) {
        m_outputPane->showError(m_model.failureTitle(), QString::fromStdString(Codec::message(*failure)));
    } else {
        m_outputPane->showContent();
    }
    if (!m_outputEditor->buffer().isSharedWith(m_model.shownOutput())) {
        m_outputEditor->setBuffer(m_model.shownOutput());
    }
    const auto isJSON = output && output->content == Content::json;
    if (std::exchange(m_coloursJSON, isJSON) != isJSON) {
        m_outputEditor->setHighlighter(isJSON ? makeJSONHighlighter() : nullptr);
    }
    const auto badge = m_model.badge();
    header.setBadge(badge.isEmpty()
                        ? std::nullopt
                        : std::optional(PaneBadge{.text = badge, .tint = PaneBadge::Tint::neutral}));
    m_save->setVisible(m_model.isOutputBinary());
    m_copyDump->setVisible(m_model.isOutputBinary());
    m_copyOutput->setEnabled(!m_model.shownOutput().isEmpty());
    m_swap->setEnabled(m_model.canSwap());
    showSizes();
    decodePicture();
}

// A failure has no size. The bytes are those of the result, not of its dump or its formatting.
void CodecToolView::showSizes() {
    QList<Metric> metrics{lineMetric(m_model.shownOutput().metrics().lines)};
    if (m_model.output()) {
        metrics.append(byteMetric(m_model.output()->byteCount));
    }
    if (const auto& picture = m_output->picture(); !picture.image.isNull()) {
        metrics.append({.text = u"%1 × %2"_s.arg(picture.size.width()).arg(picture.size.height())});
        metrics.append({.text = QString::fromLatin1(picture.format).toUpper()});
    }
    m_outputPane->footer().setMetrics(metrics);
}

void CodecToolView::decodePicture() {
    const auto& bytes = m_model.outputBytes();
    if (bytes == m_pictureBytes) {
        return; // only the dump's rows have changed
    }
    m_pictureBytes = bytes;
    if (bytes == nullptr) {
        m_decodingPicture.cancel();
        setPicture({});
        return;
    }
    m_decodingPicture.start(
        0ms, [bytes](const std::stop_token&) { return Picture::decode(*bytes); },
        [this](const Picture& picture) { setPicture(picture); });
}

void CodecToolView::setPicture(const Picture& picture) {
    m_output->setPicture(picture);
    showSizes();
}

void CodecToolView::chooseFile() {
    const auto path = QFileDialog::getOpenFileName(this, u"Choose a file to encode or decode"_s,
                                                   QFileInfo(m_model.filePath()).path());
    if (!path.isEmpty()) {
        m_model.open(path);
    }
}

void CodecToolView::saveOutput() {
    const auto& picture = m_output->picture();
    const auto suffix = picture.image.isNull() ? u"bin"_s : QString::fromLatin1(picture.format);
    const auto folder = QFileInfo(m_model.filePath()).dir();
    const auto path = QFileDialog::getSaveFileName(this, u"Save the decoded bytes"_s,
                                                   folder.filePath(u"decoded."_s + suffix));
    if (!path.isEmpty()) {
        m_model.save(path);
    }
}

bool CodecToolView::canPerform(ToolCommand command) const {
    return isZoom(command);
}

void CodecToolView::perform(ToolCommand command) {
    performZoom(*m_inputEditor, command);
}

bool CodecToolView::isWorking() const {
    return m_model.openingTask().isPending() || m_model.transformTask().isPending() ||
           m_model.dumpTask().isPending() || m_decodingPicture.isPending();
}

} // namespace tarnquill

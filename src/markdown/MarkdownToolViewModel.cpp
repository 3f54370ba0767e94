#include "markdown/MarkdownToolViewModel.h"

#include "common/TextFile.h"
#include "markdown/Markdown.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

#include <chrono>
#include <utility>

namespace tarnquill {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// Short, so that the preview seems to change with the keys; long enough for keys that come together.
constexpr auto kRenderingDelay = 10ms;
// Programs write files in several steps.
constexpr auto kFileSettles = 200ms;

#ifdef Q_OS_MACOS
#define TARNQUILL_OPEN_KEYS u"⌘O"
#else
#define TARNQUILL_OPEN_KEYS u"Ctrl+O"
#endif

constexpr std::u16string_view kStartingDocument =
    u"# Markdown\n"
    u"\n"
    u"Open a `.md` file with the **Open** button (" TARNQUILL_OPEN_KEYS u"),\n"
    u"or drag one onto the window.\n"
    u"\n"
    u"- Edit on the **left**\n"
    u"- Live preview on the **right**\n"
    u"- Scrolling stays **in sync**\n"
    u"\n"
    u"> This preview is rendered by Tarnquill’s own parser,\n"
    u"> without outside libraries.\n"
    u"\n"
    u"```js\n"
    u"console.log(\"Hello, Markdown\");\n"
    u"```\n"
    u"\n"
    u"| Feature | Status |\n"
    u"| --- | --- |\n"
    u"| Live preview | Ready |\n"
    u"| Scroll sync | Ready |\n"
    u"\n"
    u"- [x] Open a document\n"
    u"- [ ] Write something of your own";

MarkdownToolViewModel::Rendering render(const TextBuffer& text) {
    const auto source = text.utf8();
    MarkdownToolViewModel::Rendering rendering;
    rendering.html = Markdown::html(source);
    rendering.lineCount = static_cast<int>(text.lineCount());
    const auto json =
        QJsonDocument(QJsonArray{QString::fromStdString(rendering.html)}).toJson(QJsonDocument::Compact);
    rendering.update =
        u"updateBody("_s + QString::fromUtf8(json) + u"[0], "_s + QString::number(rendering.lineCount) + u')';
    rendering.counts = Markdown::counts(source);
    rendering.outline = Markdown::outline(rendering.html);
    return rendering;
}

auto reading(const QString& path) {
    return [path = path.toStdString()](const std::stop_token&) -> std::expected<TextBuffer, std::string> {
        const auto read = readTextFile(path);
        if (!read) {
            return std::unexpected(read.error());
        }
        return TextBuffer(read->text);
    };
}

} // namespace

MarkdownToolViewModel::MarkdownToolViewModel(QObject* parent) : QObject(parent), m_text(kStartingDocument) {
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &MarkdownToolViewModel::checkFile);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &MarkdownToolViewModel::checkFile);
    scheduleRendering();
}

QString MarkdownToolViewModel::folder() const {
    return m_filePath.isEmpty() ? QString() : QFileInfo(m_filePath).absolutePath();
}

void MarkdownToolViewModel::setText(const TextBuffer& text) {
    m_text = text;
    Q_EMIT textChanged();
    scheduleRendering();
}

void MarkdownToolViewModel::clear() {
    replaceText(TextBuffer());
}

void MarkdownToolViewModel::replaceText(const TextBuffer& text) {
    setText(text);
    Q_EMIT textReplaced();
}

void MarkdownToolViewModel::scheduleRendering() {
    m_renderingTask.start(
        kRenderingDelay,
        [text = m_text](const std::stop_token&) { return std::make_shared<const Rendering>(render(text)); },
        [this](std::shared_ptr<const Rendering>&& rendering) {
            m_rendering = std::move(rendering);
            Q_EMIT rendered();
        });
}

void MarkdownToolViewModel::open(const QString& path) {
    m_opening.start(0ms, reading(path), [this, path](const Read& text) {
        if (text) {
            takeFile(path, *text);
        } else {
            Q_EMIT fileFailed(QString::fromStdString(text.error()));
        }
    });
}

void MarkdownToolViewModel::takeFile(const QString& path, const TextBuffer& text) {
    if (const auto watched = m_watcher.files() + m_watcher.directories(); !watched.isEmpty()) {
        m_watcher.removePaths(watched);
    }
    m_filePath = path;
    m_fileText = text;
    m_checking.cancel();
    m_watcher.addPath(path);
    setNewerText(std::nullopt);
    ++m_opens;
    replaceText(text);
    Q_EMIT fileChanged();
    Q_EMIT documentOpened();
}

void MarkdownToolViewModel::checkFile() {
    m_checking.start(kFileSettles, reading(m_filePath), [this](const Read& text) {
        // A file that is gone, or that another one took the place of, is no longer watched.
        m_watcher.addPath(text ? m_filePath : folder());
        if (text) {
            setNewerText(*text == m_fileText ? std::nullopt : std::optional(*text));
        }
    });
}

void MarkdownToolViewModel::takeNewerFile() {
    if (m_newerText) {
        m_fileText = *m_newerText;
        setNewerText(std::nullopt);
        replaceText(m_fileText);
    }
}

void MarkdownToolViewModel::keepPresentText() {
    if (m_newerText) {
        m_fileText = *m_newerText;
        setNewerText(std::nullopt);
    }
}

void MarkdownToolViewModel::setNewerText(std::optional<TextBuffer> text) {
    const bool had = hasNewerFile();
    m_newerText = std::move(text);
    if (had != hasNewerFile()) {
        Q_EMIT newerFileChanged();
    }
}

} // namespace tarnquill

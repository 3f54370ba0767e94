// What the Markdown tool holds: the document, what it renders to, and the file that it came from.
#pragma once

#include "common/LatestTask.h"
#include "common/TextBuffer.h"
#include "markdown/MarkdownCounts.h"
#include "markdown/MarkdownOutline.h"

#include <QFileSystemWatcher>
#include <QObject>
#include <QString>

#include <expected>
#include <memory>
#include <optional>

namespace tarnquill {

class MarkdownToolViewModel : public QObject {
    Q_OBJECT

public:
    // What came of one state of the document.
    struct Rendering {
        std::string html;
        QString update; // the call that gives the page the HTML
        int lineCount = 1;
        Markdown::Counts counts;
        std::vector<Markdown::OutlineEntry> outline;
    };

    explicit MarkdownToolViewModel(QObject* parent = nullptr);

    [[nodiscard]] const TextBuffer& text() const { return m_text; }
    // Of the latest text that has been rendered; never null.
    [[nodiscard]] const std::shared_ptr<const Rendering>& rendering() const { return m_rendering; }
    // Empty while no file is opened, as is the folder that holds it.
    [[nodiscard]] const QString& filePath() const { return m_filePath; }
    [[nodiscard]] QString folder() const;
    // Counts the documents that were opened.
    [[nodiscard]] int opens() const { return m_opens; }
    // Whether the file holds another text now than when it was last read.
    [[nodiscard]] bool hasNewerFile() const { return m_newerText.has_value(); }

    // Rendering is pending while rendering() belongs to an earlier text.
    [[nodiscard]] LatestTask& renderingTask() { return m_renderingTask; }
    [[nodiscard]] LatestTask& openingTask() { return m_opening; }

    void setText(const TextBuffer& text);
    // Takes another document, or an empty one. Like the text of an opened file, this reaches the editor as
    // textReplaced(), which it can undo.
    void replaceText(const TextBuffer& text);
    void clear();

    // Reads the file in the background and takes its text; on failure tells why and keeps the present text.
    void open(const QString& path);
    // Takes the text that the file holds now, or leaves the present one until the file changes again.
    void takeNewerFile();
    void keepPresentText();

Q_SIGNALS:
    void textReplaced(); // by something other than the editor
    void textChanged();  // by whatever it was
    void documentOpened();
    void rendered();
    void fileChanged();
    void newerFileChanged();
    void fileFailed(const QString& sentence);

private:
    using Read = std::expected<TextBuffer, std::string>;

    void takeFile(const QString& path, const TextBuffer& text);
    void scheduleRendering();
    void checkFile();
    void setNewerText(std::optional<TextBuffer> text);

    TextBuffer m_text;
    std::shared_ptr<const Rendering> m_rendering = std::make_shared<const Rendering>();
    QString m_filePath;
    TextBuffer m_fileText; // as it was last read
    std::optional<TextBuffer> m_newerText;
    int m_opens = 0;
    QFileSystemWatcher m_watcher;
    LatestTask m_renderingTask;
    LatestTask m_opening;
    LatestTask m_checking;
};

} // namespace tarnquill

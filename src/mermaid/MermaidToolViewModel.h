// The state of the Mermaid tool: the source, the theme, and what the preview told about them.
#pragma once

#include "common/LatestTask.h"
#include "common/TextBuffer.h"
#include "mermaid/MermaidExportController.h"
#include "mermaid/MermaidOutcome.h"
#include "mermaid/MermaidViewportController.h"

#include <QObject>
#include <QString>

#include <optional>

namespace tarnquill {

class MermaidToolViewModel : public QObject {
    Q_OBJECT

public:
    enum class Status : std::uint8_t { drawing, blank, rendered, failed, withoutEngine };

    explicit MermaidToolViewModel(QObject* parent = nullptr);

    [[nodiscard]] const TextBuffer& text() const { return m_text; }
    // The text as the preview gets it, once the user pauses; empty before that.
    [[nodiscard]] const QString& source() const { return m_source; }
    [[nodiscard]] const QString& filePath() const { return m_filePath; }
    // One of MermaidThemes.
    [[nodiscard]] const QString& themeChoice() const { return m_themeChoice; }

    // Drawing as long as what the preview told last is about an earlier text.
    [[nodiscard]] Status status() const;
    // Of the last good diagram; none before there is one.
    [[nodiscard]] std::optional<qint64> svgBytes() const { return m_svgBytes; }
    // The line that the engine stumbled over, without the white space around it, while it is as it was then.
    [[nodiscard]] std::optional<TextRange> errorRange() const;

    [[nodiscard]] MermaidViewportController& viewport() { return m_viewport; }
    [[nodiscard]] MermaidExportController& exporting() { return m_exporting; }

    [[nodiscard]] LatestTask& openingTask() { return m_opening; }
    [[nodiscard]] LatestTask& savingTask() { return m_saving; }
    // Pending from a change of the text until the source follows it.
    [[nodiscard]] LatestTask& sourceTask() { return m_following; }

    void setText(const TextBuffer& text);
    void setThemeChoice(const QString& choice);
    // These replace the text. Like the text of an opened file, this reaches the editor as textReplaced(),
    // which it can undo.
    void clear();
    void replaceText(const TextBuffer& text);
    void useTemplate(std::size_t index);

    // Reads the file in the background and takes its text, or of a Markdown file its first diagram; on
    // failure tells why and keeps the present text.
    void open(const QString& path);
    // Reads the open file again. Nothing else changes.
    void reload();
    // Writes the file in the background; on failure tells why.
    void save(const QString& path, const QByteArray& bytes);

    // What the preview tells about the present source.
    void setOutcome(const MermaidOutcome& outcome);
    // Asks the editor to show the line of the error, if there is one.
    void revealError();

Q_SIGNALS:
    void textReplaced(); // by something other than the editor
    void textChanged();  // by whatever it was
    void sourceChanged();
    void themeChoiceChanged();
    void statusChanged();
    void fileChanged();
    void fileFailed(const QString& sentence);
    void savingFailed(const QString& sentence);
    void revealRequested(TextRange range);

private:
    void followText(std::chrono::milliseconds delay);

    TextBuffer m_text;
    QString m_source;
    QString m_filePath;
    QString m_themeChoice;
    bool m_engineFailed = false;
    // What the last render of a source came to; none while there is not yet one.
    std::optional<MermaidOutcome> m_render;
    std::optional<qint64> m_svgBytes;
    MermaidViewportController m_viewport;
    MermaidExportController m_exporting;
    LatestTask m_following;
    LatestTask m_opening;
    LatestTask m_saving;
};

} // namespace tarnquill

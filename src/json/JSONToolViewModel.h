// The state of the JSON tool: input text and options, and the verdict, outputs and search matches that follow
// from them. Everything is computed in the background and published only while it still belongs to the latest
// request.
#pragma once

#include "common/LatestTask.h"
#include "common/TextBuffer.h"
#include "json/JSONFormatter.h"
#include "json/JSONSearch.h"

#include <QObject>
#include <QString>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace tarnquill {

// A request to an editor to select a range and scroll it into view, acted on once per serial.
struct Reveal {
    TextRange range;
    int serial = 0;
};

class JSONToolViewModel : public QObject {
    Q_OBJECT

public:
    enum class OutputMode : std::uint8_t { formatted, minified };
    enum class Pane : std::uint8_t { input, output };

    // Sorted by location, without overlaps. Shared, because there may be millions.
    using Matches = std::shared_ptr<const std::vector<TextRange>>;

    // What one formatting depends on. The generation stands for the text.
    struct Inputs {
        int textGeneration = 0;
        JSONFormatter::Indent indent;
        JSONFormatter::SortMode sortMode = JSONFormatter::SortMode::none;

        friend bool operator==(const Inputs&, const Inputs&) = default;
    };

    struct SearchResult {
        std::u16string query;
        JSONSearch::Scope scope = JSONSearch::Scope::all;
        int inputGeneration = 0;
        int outputGeneration = 0;
        Matches inputMatches;
        Matches outputMatches;
    };

    explicit JSONToolViewModel(QObject* parent = nullptr);

    [[nodiscard]] const TextBuffer& text() const { return m_text; }
    [[nodiscard]] JSONFormatter::Indent indent() const { return m_indent; }
    [[nodiscard]] JSONFormatter::SortMode sortMode() const { return m_sortMode; }
    [[nodiscard]] OutputMode outputMode() const { return m_outputMode; }
    [[nodiscard]] const JSONFormatter::Validation& validation() const { return m_validation; }
    [[nodiscard]] const TextBuffer& output() const;
    [[nodiscard]] const QString& filePath() const { return m_filePath; }
    [[nodiscard]] const std::u16string& searchQuery() const { return m_searchQuery; }
    [[nodiscard]] JSONSearch::Scope searchScope() const { return m_searchScope; }
    [[nodiscard]] Pane activePane() const { return m_activePane; }

    // The pane's matches, as long as they belong to the text that it shows; else an empty list. Never null.
    [[nodiscard]] Matches matches(Pane pane) const;
    // "3 of 12 matches" for the active pane; empty while there is no query.
    [[nodiscard]] std::string searchStatus() const;

    // Pending while the verdict and the outputs still belong to an earlier text or other options.
    [[nodiscard]] LatestTask& formattingTask() { return m_formatting; }
    [[nodiscard]] LatestTask& openingTask() { return m_opening; }
    [[nodiscard]] LatestTask& searchingTask() { return m_searching; }

    void setText(const TextBuffer& text);
    void setIndent(JSONFormatter::Indent indent);
    void setSortMode(JSONFormatter::SortMode mode);
    void setOutputMode(OutputMode mode);
    void setSearch(const std::u16string& query, JSONSearch::Scope scope);
    void setActivePane(Pane pane);
    void setSelection(Pane pane, TextRange selection);

    void findNext();
    void findPrevious();
    // Selects the spot of the error that the verdict names, if it names one.
    void revealError();

    // Takes another input, or none. Like the text of an opened file, this reaches the editor as
    // textReplaced(), which it can undo.
    void replaceText(const TextBuffer& text);
    void clear();

    // Reads the file in the background and takes its text; on failure tells why and keeps the present text.
    void open(const QString& path);

Q_SIGNALS:
    void textReplaced();   // by something other than the editor
    void textChanged();    // by whatever it was
    void optionsChanged(); // indentation, sort mode, output mode
    void outputChanged();
    void validationChanged();
    void searchChanged(); // query, matches, current match or active pane
    void fileChanged();
    void fileFailed(const QString& sentence);
    void revealRequested(Pane pane, Reveal reveal);

private:
    struct Formatted;

    void scheduleFormatting();
    void publish(Formatted&& formatted);
    void scheduleSearch();
    void find(JSONSearch::Direction direction);

    TextBuffer m_text;
    JSONFormatter::Indent m_indent;
    JSONFormatter::SortMode m_sortMode = JSONFormatter::SortMode::none;
    OutputMode m_outputMode = OutputMode::formatted;
    JSONFormatter::Validation m_validation;
    TextBuffer m_formattedOutput;
    TextBuffer m_minifiedOutput;
    QString m_filePath;
    std::u16string m_searchQuery;
    JSONSearch::Scope m_searchScope = JSONSearch::Scope::all;
    Pane m_activePane = Pane::input;
    TextRange m_inputSelection;
    TextRange m_outputSelection;
    SearchResult m_searchResult;
    int m_revealSerial = 0;
    int m_textGeneration = 0;
    int m_outputGeneration = 0;
    std::optional<Inputs> m_requestedInputs;
    LatestTask m_formatting;
    LatestTask m_searching;
    LatestTask m_opening;
};

} // namespace tarnquill

Q_DECLARE_METATYPE(tarnquill::Reveal)

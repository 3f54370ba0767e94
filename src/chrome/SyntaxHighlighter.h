// Colours an editor's text from a tokenizer's kinds: line by line, only what is seen, and long lines apart
// from the others; or the text as a whole. One adapter for every language; it stores no format, only kinds.
#pragma once

#include "chrome/LineKinds.h"
#include "chrome/RowText.h"
#include "chrome/Theme.h"
#include "common/LatestTask.h"

#include <QObject>

#include <functional>
#include <optional>
#include <string_view>

namespace tarnquill {

struct SyntaxStyle {
    ColorRole color = ColorRole::text;
    bool bold = false;
    bool italic = false;
};

class SyntaxHighlighter : public QObject {
    Q_OBJECT

public:
    // Gives one kind for every UTF-16 unit of a line, which comes without its line feed, or of the text. Has
    // to be usable from several threads at once.
    using Tokenizer = std::function<SyntaxKinds(std::u16string_view lines)>;
    // What the tokenizer has to see at once: in a language whose tokens run across line ends, everything.
    enum class Scope : std::uint8_t { line, text };
    // Kind 0 is plain text and is not asked for.
    using StyleOf = std::function<SyntaxStyle(SyntaxKind kind)>;

    // A line with more units than this is a long line.
    static constexpr std::size_t kLongLine = 2048;
    // Longer lines still, and texts, are tokenized in the background, and show the kinds that they had until
    // then.
    static constexpr std::size_t kBackgroundLine = std::size_t{64} * 1024;

    SyntaxHighlighter(Tokenizer tokenizer, StyleOf styleOf, Scope scope = Scope::line,
                      QObject* parent = nullptr);

    void setText(const TextBuffer& text, const TextChange& change);

    // The kinds of a part of one line; none while they are not known.
    [[nodiscard]] SyntaxKinds kinds(TextRange range);
    // The same as what to draw the part with.
    [[nodiscard]] RowText::Formats formats(TextRange range);

Q_SIGNALS:
    // Kinds of a long line, or of the text, have become known.
    void kindsChanged();

private:
    [[nodiscard]] const LineKinds::Record* kindsOf(TextRange line);
    void requestKinds(TextRange line, std::chrono::milliseconds delay);

    Tokenizer m_tokenize;
    StyleOf m_styleOf;
    Scope m_scope;
    TextBuffer m_text;
    LineKinds m_coverage;  // of lines that have been in view since they were edited
    LineKinds m_longLines; // or the text
    std::optional<TextRange> m_requested;
    LatestTask m_background;
};

} // namespace tarnquill

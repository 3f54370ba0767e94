#include "chrome/SyntaxHighlighter.h"

#include <utility>

namespace tarnquill {

namespace {

// More lines than any view shows. Without a bound, scrolling through a text would collect all of it.
constexpr std::size_t kCoveredLines = 2000;
constexpr std::size_t kCoveredLongLines = 100;

// Typing into a very long line coalesces for so long.
constexpr std::chrono::milliseconds kTypingPause{100};

} // namespace

SyntaxHighlighter::SyntaxHighlighter(Tokenizer tokenizer, StyleOf styleOf, Scope scope, QObject* parent)
    : QObject(parent), m_tokenize(std::move(tokenizer)), m_styleOf(std::move(styleOf)), m_scope(scope) {}

void SyntaxHighlighter::setText(const TextBuffer& text, const TextChange& change) {
    m_text = text;
    m_coverage.apply(change, text, LineKinds::Edited::forget);
    m_longLines.apply(change, text,
                      m_scope == Scope::text ? LineKinds::Edited::keep : LineKinds::Edited::keepOneLine);
    m_background.cancel();
    m_requested.reset();
}

SyntaxKinds SyntaxHighlighter::kinds(TextRange range) {
    const auto* const known =
        kindsOf(m_scope == Scope::text ? TextRange{.location = 0, .length = m_text.length()}
                                       : m_text.lineRange(m_text.lineAt(range.location)));
    return known != nullptr ? known->kinds(range) : SyntaxKinds();
}

const LineKinds::Record* SyntaxHighlighter::kindsOf(TextRange line) {
    const auto isLong = line.length > kLongLine || m_scope == Scope::text;
    auto& records = isLong ? m_longLines : m_coverage;
    const auto* const known = records.find(line.location);
    if (known != nullptr && known->isCurrent()) {
        return known;
    }
    if (line.length > kBackgroundLine) {
        requestKinds(line, known != nullptr ? kTypingPause : std::chrono::milliseconds{0});
        return known;
    }
    if (records.count() >= (isLong ? kCoveredLongLines : kCoveredLines)) {
        records.clear();
    }
    std::u16string scratch;
    return &records.set(line, m_tokenize(m_text.view(line, scratch)));
}

void SyntaxHighlighter::requestKinds(TextRange line, std::chrono::milliseconds delay) {
    if (m_requested) {
        return; // One line after the other: what is still missing is asked for again when this one shows.
    }
    m_requested = line;
    m_background.start(
        delay,
        [tokenize = m_tokenize, text = m_text, line](const std::stop_token&) {
            return tokenize(text.text(line));
        },
        [this, line](SyntaxKinds kinds) {
            m_longLines.set(line, std::move(kinds));
            m_requested.reset();
            Q_EMIT kindsChanged();
        });
}

RowText::Formats SyntaxHighlighter::formats(TextRange range) {
    RowText::Formats formats;
    for (const auto& run : syntaxRuns(kinds(range))) {
        const auto style = m_styleOf(run.kind);
        QTextLayout::FormatRange format;
        format.start = static_cast<int>(run.range.location);
        format.length = static_cast<int>(run.range.length);
        format.format.setForeground(themeColor(style.color));
        if (style.bold) {
            format.format.setFontWeight(QFont::Bold);
        }
        format.format.setFontItalic(style.italic);
        formats.append(format);
    }
    return formats;
}

} // namespace tarnquill

#include "markdown/MarkdownSourceFind.h"

#include "chrome/FindBar.h"
#include "chrome/SearchBar.h"
#include "common/FoldedSearch.h"

namespace tarnquill {
namespace {

using namespace std::chrono_literals;

constexpr auto kSearchDelay = 60ms;

} // namespace

MarkdownSourceFind::MarkdownSourceFind(CodeEditor& editor, FindBar& bar) : m_editor(editor), m_bar(bar) {
    auto& field = bar.search();
    connect(&field, &SearchBar::textChanged, this, [this] { search(Then::goToFirst); });
    connect(&field, &SearchBar::nextRequested, this, &MarkdownSourceFind::next);
    connect(&field, &SearchBar::previousRequested, this, &MarkdownSourceFind::previous);
    connect(&bar, &FindBar::openChanged, this, [this](bool isOpen) {
        search();
        if (!isOpen) {
            m_editor.setFocus();
        }
    });
    connect(&editor, &CodeEditor::selectionChanged, this, &MarkdownSourceFind::showCount);
}

void MarkdownSourceFind::search() {
    search(Then::stay);
}

void MarkdownSourceFind::search(Then then) {
    const auto query = m_bar.isOpen() ? m_bar.search().text().toStdU16String() : std::u16string();
    if (query.empty()) {
        m_searching.cancel();
        setMatches(std::make_shared<const std::vector<TextRange>>());
        return;
    }
    m_searching.start(
        kSearchDelay,
        [query, text = m_editor.buffer()](const std::stop_token& token) {
            return std::make_shared<const std::vector<TextRange>>(
                FoldedSearch(query).matches(text.text(), token));
        },
        [this, then](CodeEditor::Matches&& matches) {
            setMatches(std::move(matches));
            if (then == Then::goToFirst && canNavigate()) {
                // From where the selection starts, so that a longer query stays where it was.
                const TextRange from{.location = m_editor.selection().location, .length = 0};
                m_editor.reveal(
                    *SearchMatches::nextMatch(from, *m_matches, SearchMatches::Direction::forward));
            }
        });
}

void MarkdownSourceFind::go(SearchMatches::Direction direction) {
    if (const auto match = SearchMatches::nextMatch(m_editor.selection(), *m_matches, direction)) {
        m_editor.reveal(*match);
    }
}

void MarkdownSourceFind::setMatches(CodeEditor::Matches matches) {
    m_matches = std::move(matches);
    m_editor.setSearchMatches(m_matches);
    showCount();
}

void MarkdownSourceFind::showCount() {
    const bool hasQuery = m_bar.isOpen() && !m_bar.search().text().isEmpty();
    m_bar.search().setCount(
        hasQuery ? QString::fromStdString(SearchMatches::statusText(*m_matches, m_editor.selection()))
                 : QString(),
        canNavigate());
}

} // namespace tarnquill

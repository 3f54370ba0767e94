// Finds in the source: marks every match in the editor and walks through them.
#pragma once

#include "chrome/CodeEditor.h"
#include "common/LatestTask.h"
#include "common/SearchMatches.h"

namespace tarnquill {

class FindBar;

class MarkdownSourceFind : public QObject {
    Q_OBJECT

public:
    // Both outlive the find.
    MarkdownSourceFind(CodeEditor& editor, FindBar& bar);

    // The text has changed: its matches are others.
    void search();
    void next() { go(SearchMatches::Direction::forward); }
    void previous() { go(SearchMatches::Direction::backward); }
    [[nodiscard]] bool canNavigate() const { return !m_matches->empty(); }
    [[nodiscard]] bool isWorking() const { return m_searching.isPending(); }

private:
    enum class Then { stay, goToFirst };

    void search(Then then);
    void go(SearchMatches::Direction direction);
    void setMatches(CodeEditor::Matches matches);
    void showCount();

    CodeEditor& m_editor;
    FindBar& m_bar;
    CodeEditor::Matches m_matches = std::make_shared<const std::vector<TextRange>>();
    LatestTask m_searching;
};

} // namespace tarnquill

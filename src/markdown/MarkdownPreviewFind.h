// Finds in the preview's page: the web view marks the matches, and the editor follows to the present one.
#pragma once

#include <QObject>
#include <QString>

class QWebEngineFindTextResult;

namespace tarnquill {

class FindBar;
class MarkdownPreviewView;
class MarkdownScrollSync;

class MarkdownPreviewFind : public QObject {
    Q_OBJECT

public:
    // All outlive the find.
    MarkdownPreviewFind(MarkdownPreviewView& preview, FindBar& bar, MarkdownScrollSync& sync);

    void next() { find(Direction::forward); }
    void previous() { find(Direction::backward); }
    [[nodiscard]] bool canNavigate() const { return m_count > 0; }
    [[nodiscard]] int count() const { return m_count; }

private:
    enum class Direction { forward, backward };

    void find(Direction direction);
    void clear();
    void show(const QWebEngineFindTextResult& result);

    MarkdownPreviewView& m_preview;
    FindBar& m_bar;
    MarkdownScrollSync& m_sync;
    int m_count = 0;
};

} // namespace tarnquill

// Finds in the preview's page: the web view marks the matches, and the editor follows to the present one.
#pragma once

#include "chrome/WebPage.h"

#include <QObject>
#include <QString>

namespace tarnquill {

class FindBar;
class MarkdownPreviewView;
class MarkdownScrollSync;

class MarkdownPreviewFind : public QObject {
    Q_OBJECT

public:
    // All outlive the find.
    MarkdownPreviewFind(MarkdownPreviewView& preview, FindBar& bar, MarkdownScrollSync& sync);

    void next() { find(WebPage::FindDirection::forward); }
    void previous() { find(WebPage::FindDirection::backward); }
    [[nodiscard]] bool canNavigate() const { return m_count > 0; }
    [[nodiscard]] int count() const { return m_count; }

private:
    void find(WebPage::FindDirection direction);
    void clear();
    void show(int count, int active);

    MarkdownPreviewView& m_preview;
    FindBar& m_bar;
    MarkdownScrollSync& m_sync;
    int m_count = 0;
};

} // namespace tarnquill

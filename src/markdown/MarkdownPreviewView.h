// The preview: shows the rendered document in its page, reports where the lines are, and scrolls as it is
// told. Heights and offsets are pixels of the view.
#pragma once

#include "chrome/WebPageView.h"
#include "markdown/MarkdownLineMap.h"
#include "markdown/MarkdownPreviewMessage.h"
#include "markdown/MarkdownToolViewModel.h"

#include <QTimer>

namespace tarnquill {

class MarkdownFolderAccess;

class MarkdownPreviewView : public WebPageView {
    Q_OBJECT

public:
    using Rendering = std::shared_ptr<const MarkdownToolViewModel::Rendering>;

    // The access outlives the view.
    explicit MarkdownPreviewView(MarkdownFolderAccess& access, QWidget* parent = nullptr);

    // Shows the document, or the newest of several: the page gets the next one when it has laid out the last.
    // A page that is long at work on one begins anew for one that is much shorter.
    void setBody(const Rendering& rendering);
    // A document was opened: the folder that relative addresses of images start at; may be empty.
    void setFolder(const QString& folder);

    // Of the last layout; nothing before the first one.
    [[nodiscard]] const std::optional<MarkdownLineMap>& map() const { return m_map; }
    [[nodiscard]] double scrollY() const { return m_scrollY * zoomFactor(); }
    [[nodiscard]] double viewportHeight() const { return m_viewportHeight * zoomFactor(); }
    [[nodiscard]] double scrollRange() const;
    // Between a source line, counted from 1, and a height of the whole page.
    [[nodiscard]] double heightOf(double line) const { return m_map->y(line) * zoomFactor(); }
    [[nodiscard]] double lineAt(double height) const { return m_map->line(height / zoomFactor()); }

    enum class Motion : bool { jump, glide };
    void scrollTo(double offset, Motion motion);

    // The images of the page that could not be had.
    [[nodiscard]] int missingImages() const { return m_missingImages; }

    // Whether what the page shows is not yet what it was given.
    [[nodiscard]] bool isWorking() const;

Q_SIGNALS:
    // The lines are elsewhere. A scroll of the user's that was measured with them may follow.
    void layoutChanged(bool userScrollFollows);
    void userScrolled(double distance);
    void scrolled(); // by whatever it was
    void taskClicked(int line);
    void missingImagesChanged();

private:
    void pushBody();
    void restartStuckPage();
    void setMissingImages(int count);
    void receive(const QString& handler, const QJsonValue& body);
    void take(const MarkdownPreviewMessage::Layout& layout);
    void take(const MarkdownPreviewMessage::Scroll& scroll);

    Rendering m_body;
    Rendering m_shown; // what the page has; null while it has nothing
    bool m_awaitsLayout = false;
    QTimer m_patience; // runs for the first part of the wait
    std::optional<MarkdownLineMap> m_map;
    double m_scrollY = 0;
    double m_viewportHeight = 0;
    double m_documentHeight = 0;
    int m_missingImages = 0;
};

} // namespace tarnquill

// A web view that takes dropped files for its tool, and never lets the page see a drag of anything.
#pragma once

#include "chrome/FileDrop.h"

#include <QWebEngineView>

#include <optional>

namespace tarnquill {

class FileDropWebView : public QWebEngineView {
    Q_OBJECT

public:
    using QWebEngineView::QWebEngineView;

    // Without one, files may be dragged over the view but a drop is refused.
    void setFileDrop(std::optional<FileDrop> drop) { m_fileDrop = std::move(drop); }

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void tell(bool targeted) const;

    std::optional<FileDrop> m_fileDrop;
};

} // namespace tarnquill

// A web view that takes dropped files for its tool, and never lets the page see a drag of anything.
#pragma once

#include "chrome/FileDrop.h"

#include <QWebEngineView>

namespace tarnquill {

class FileDropWebView : public QWebEngineView {
    Q_OBJECT

public:
    using QWebEngineView::QWebEngineView;

    // Without one, files may be dragged over the view but a drop is refused.
    void setFileDrop(std::optional<FileDrop> drop) { m_fileDrop = std::move(drop); }

protected:
    bool event(QEvent* event) override;

private:
    std::optional<FileDrop> m_fileDrop;
};

} // namespace tarnquill

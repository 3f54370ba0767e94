#include "chrome/FileDropWebView.h"

namespace tarnquill {

bool FileDropWebView::event(QEvent* event) {
    return FileDrop::handle(*event, m_fileDrop) || QWebEngineView::event(event);
}

} // namespace tarnquill

#include "csv/CSVNameList.h"

#include "chrome/Painting.h"
#include "chrome/ToolTips.h"

#include <QHelpEvent>

#include <algorithm>

namespace tarnquill {

namespace {

int widthOf(const QModelIndex& index) {
    return Painting::textWidth(index.data().toString(), FontRole::body);
}

} // namespace

CSVNameList::CSVNameList(QWidget* parent) : QListView(parent) {
    setFrameShape(QFrame::NoFrame);
    setSelectionMode(NoSelection);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setMouseTracking(true);
    viewport()->setAutoFillBackground(false);
}

int CSVNameList::widestName() const {
    constexpr int kMeasured = 200;
    int widest = 0;
    for (int row = 0; row < std::min(model()->rowCount(), kMeasured); ++row) {
        widest = std::max(widest, widthOf(model()->index(row, 0)));
    }
    return widest;
}

bool CSVNameList::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) {
        return QListView::viewportEvent(event);
    }
    const auto index = indexAt(static_cast<QHelpEvent*>(event)->pos());
    if (index.isValid() && widthOf(index) > nameWidth()) {
        ToolTips::showForPart(*viewport(), visualRect(index), index.data().toString());
    }
    return true;
}

} // namespace tarnquill

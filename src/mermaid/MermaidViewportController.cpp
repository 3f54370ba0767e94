#include "mermaid/MermaidViewportController.h"

#include <QJsonObject>

namespace tarnquill {

using namespace Qt::StringLiterals;

void MermaidViewportController::zoomIn() {
    Q_EMIT scriptRequested(u"viewport.zoomIn()"_s);
}

void MermaidViewportController::zoomOut() {
    Q_EMIT scriptRequested(u"viewport.zoomOut()"_s);
}

void MermaidViewportController::showActualSize() {
    Q_EMIT scriptRequested(u"viewport.zoomTo(1)"_s);
}

void MermaidViewportController::requestAutoFit() {
    Q_EMIT scriptRequested(u"requestAutoFit()"_s);
}

void MermaidViewportController::receive(const QJsonValue& state) {
    const auto scale = state[u"scale"].toDouble();
    if (scale <= 0 || !state[u"isAutoFit"].isBool()) {
        return;
    }
    m_scale = scale;
    m_isAutoFit = state[u"isAutoFit"].toBool();
    Q_EMIT changed();
}

} // namespace tarnquill

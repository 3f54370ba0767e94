// Zoom of the preview: what the page says it is, and the user's wishes for the page.
#pragma once

#include <QObject>
#include <QString>

class QJsonValue;

namespace tarnquill {

class MermaidViewportController : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    // 1 is the diagram's own size.
    [[nodiscard]] double scale() const { return m_scale; }
    // Whether the page fits every diagram to the view, as it does until the user zooms or moves it.
    [[nodiscard]] bool isAutoFit() const { return m_isAutoFit; }

    void zoomIn();
    void zoomOut();
    void showActualSize();
    void requestAutoFit();

    // A message of the page's handler "viewState". Anything else than a state is ignored.
    void receive(const QJsonValue& state);

Q_SIGNALS:
    void changed();
    // A script for the page to evaluate.
    void scriptRequested(const QString& script);

private:
    double m_scale = 1;
    bool m_isAutoFit = true;
};

} // namespace tarnquill

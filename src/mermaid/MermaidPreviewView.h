// The preview of a diagram: the engine's page, kept at a source and a theme.
#pragma once

#include "chrome/FileDrop.h"
#include "mermaid/MermaidPreviewCoordinator.h"

#include <QWidget>

namespace tarnquill {

class MermaidWebPage;

class MermaidPreviewView : public QWidget {
    Q_OBJECT

public:
    using Outcome = MermaidOutcome;

    // Both outlive the view.
    MermaidPreviewView(MermaidViewportController& viewport, MermaidExportController& exporting,
                       QWidget* parent = nullptr);

    void setSource(const QString& source) { m_coordinator.setSource(source); }
    // The engine's name of the theme.
    void setTheme(const QString& theme) { m_coordinator.setTheme(theme); }
    void setFileDrop(const FileDrop& drop);

    [[nodiscard]] bool isRendering() const { return m_coordinator.isRendering(); }

Q_SIGNALS:
    void outcome(const MermaidOutcome& outcome);
    // Rendering takes long, or no more.
    void longRenderingChanged(bool isLong);
    // The message about the wrong line has been clicked.
    void errorActivated();

protected:
    bool event(QEvent* event) override;

private:
    void followPixelScale();

    MermaidWebPage* m_page;
    MermaidPreviewCoordinator m_coordinator;
    QTimer m_longRendering;
};

} // namespace tarnquill

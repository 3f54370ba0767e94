// Keeps the preview's page at the present source and theme: starts its engine, renders one source at a time,
// brings a page that has died back to where it was, and gives up a render that holds the next one up.
#pragma once

#include "mermaid/MermaidExportController.h"
#include "mermaid/MermaidOutcome.h"
#include "mermaid/MermaidPage.h"

#include <QTimer>

#include <chrono>
#include <optional>

namespace tarnquill {

class MermaidViewportController;

class MermaidPreviewCoordinator : public QObject {
    Q_OBJECT

public:
    // All of them outlive the coordinator. It takes over the functions of the export controller.
    MermaidPreviewCoordinator(MermaidPage& page, MermaidViewportController& viewport,
                              MermaidExportController& exporting, QObject* parent = nullptr);
    ~MermaidPreviewCoordinator() override;

    void setSource(const QString& source);
    // The engine's name of the theme.
    void setTheme(const QString& theme);
    // Pixels of a PNG for each unit of the diagram.
    void setPixelScale(double scale) { m_pixelScale = scale; }
    // For how long a render may hold up the next source.
    void setPatience(std::chrono::milliseconds patience) { m_patience.setInterval(patience); }

    // Whether the page does not show the present source yet, nor why it cannot.
    [[nodiscard]] bool isRendering() const {
        return m_isRendering || (!m_isGone && m_source != m_lastSource);
    }

Q_SIGNALS:
    // Of the engine's start, and of each render whose source is still the present one.
    void outcome(const MermaidOutcome& outcome);
    void renderingChanged();

private:
    void start();
    void finishStart(bool ready);
    void forgetPage();
    void applyTheme();
    void render();
    void finishRender(const QString& source, const MermaidOutcome& result);
    void giveUpRender();
    void installExports();
    // The answer is dropped when the page has been lost since.
    void call(const QString& body, const QJsonObject& arguments, const MermaidPage::Answer& answer);

    MermaidPage& m_page;
    MermaidExportController& m_exporting;
    std::optional<QString> m_source;
    QString m_theme;
    double m_pixelScale = 2;
    bool m_isLoaded = false; // and its engine has started
    bool m_isGone = false;   // until it is restarted
    bool m_isRendering = false;
    int m_life = 0;                      // counts the loads of the page
    std::optional<QString> m_lastSource; // what the page last received
    std::optional<QString> m_lastTheme;
    std::optional<QString> m_drawnSource; // of the diagram that is shown
    QTimer m_patience;
};

} // namespace tarnquill

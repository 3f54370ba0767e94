#include "mermaid/MermaidPreviewCoordinator.h"

#include "mermaid/MermaidExport.h"
#include "mermaid/MermaidViewportController.h"

namespace tarnquill {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

MermaidPreviewCoordinator::MermaidPreviewCoordinator(MermaidPage& page, MermaidViewportController& viewport,
                                                     MermaidExportController& exporting, QObject* parent)
    : QObject(parent), m_page(page), m_exporting(exporting) {
    m_patience.setSingleShot(true);
    m_patience.setInterval(2500ms);
    connect(&m_patience, &QTimer::timeout, this, &MermaidPreviewCoordinator::giveUpRender);
    connect(&page, &MermaidPage::loaded, this, &MermaidPreviewCoordinator::start);
    connect(&page, &MermaidPage::lost, this, [this](bool comesBack) {
        forgetPage();
        m_isGone = !comesBack;
        if (m_isGone) {
            Q_EMIT outcome({MermaidOutcome::Engine{.ready = false}});
        }
    });
    connect(&page, &MermaidPage::messageReceived, &viewport,
            [&viewport](const QString& handler, const QJsonValue& body) {
                if (handler == u"viewState") {
                    viewport.receive(body);
                }
            });
    connect(&viewport, &MermaidViewportController::scriptRequested, &page, &MermaidPage::run);
}

MermaidPreviewCoordinator::~MermaidPreviewCoordinator() {
    m_exporting = {};
}

void MermaidPreviewCoordinator::setSource(const QString& source) {
    m_source = source;
    if (m_isGone) {
        m_isGone = false;
        m_page.restart();
    } else if (m_isRendering && !m_patience.isActive()) {
        giveUpRender();
    }
    render();
}

void MermaidPreviewCoordinator::setTheme(const QString& theme) {
    m_theme = theme;
    applyTheme();
}

void MermaidPreviewCoordinator::forgetPage() {
    ++m_life;
    m_isLoaded = false;
    m_isRendering = false;
    m_lastSource.reset();
    m_lastTheme.reset();
    m_patience.stop();
    m_exporting = {};
    Q_EMIT renderingChanged();
}

void MermaidPreviewCoordinator::call(const QString& body, const QJsonObject& arguments,
                                     const MermaidPage::Answer& answer) {
    m_page.call(body, arguments, [this, life = m_life, answer](const auto& result) {
        if (life == m_life) {
            answer(result);
        }
    });
}

void MermaidPreviewCoordinator::start() {
    forgetPage();
    m_lastTheme = m_theme;
    call(u"return boot(theme);"_s, {{u"theme"_s, m_theme}},
         [this](const auto& result) { finishStart(result && result->toBool()); });
}

void MermaidPreviewCoordinator::finishStart(bool ready) {
    m_isLoaded = ready;
    m_isGone = !ready;
    Q_EMIT outcome({MermaidOutcome::Engine{.ready = ready}});
    if (!ready) {
        return;
    }
    installExports();
    applyTheme();
    // A page that comes back shows the last good diagram first, in case the present source has none.
    if (m_drawnSource && m_drawnSource != m_source) {
        call(u"return await renderDiagram(code);"_s, {{u"code"_s, *m_drawnSource}}, [](const auto&) {});
    }
    render();
}

void MermaidPreviewCoordinator::applyTheme() {
    if (m_isLoaded && m_lastTheme != m_theme) {
        m_lastTheme = m_theme;
        call(u"return setTheme(theme);"_s, {{u"theme"_s, m_theme}}, [](const auto&) {});
    }
}

void MermaidPreviewCoordinator::render() {
    if (!m_isLoaded || m_isRendering || !m_source || m_source == m_lastSource) {
        return;
    }
    m_lastSource = m_source;
    m_isRendering = true;
    m_patience.start();
    Q_EMIT renderingChanged();
    call(u"return await renderDiagram(code);"_s, {{u"code"_s, *m_source}},
         [this, source = *m_source](const auto& result) {
             finishRender(source, result ? MermaidOutcome::fromResult(*result)
                                         : MermaidOutcome{MermaidOutcome::Failed{.message = result.error(),
                                                                                 .line = std::nullopt}});
         });
}

void MermaidPreviewCoordinator::finishRender(const QString& source, const MermaidOutcome& result) {
    m_isRendering = false;
    m_patience.stop();
    if (std::holds_alternative<MermaidOutcome::Rendered>(result.value)) {
        m_drawnSource = source;
    }
    Q_EMIT renderingChanged();
    if (source == m_source) { // else the next render is the one that counts
        Q_EMIT outcome(result);
    }
    render();
}

void MermaidPreviewCoordinator::giveUpRender() {
    if (m_isRendering && m_source != m_lastSource) {
        forgetPage();
        m_page.restart();
    }
}

void MermaidPreviewCoordinator::installExports() {
    m_exporting.fetchSVG = [this](const auto& answer) {
        m_page.call(u"return getSVG();"_s, {}, [answer](const auto& result) {
            answer(result && result->isString() ? std::optional(result->toString()) : std::nullopt);
        });
    };
    m_exporting.fetchPNG = [this](const auto& answer) {
        m_page.call(u"return await getPNG(scale);"_s, {{u"scale"_s, m_pixelScale}},
                    [answer](const auto& result) {
                        answer(result ? MermaidExport::decodePNG(*result) : std::nullopt);
                    });
    };
}

} // namespace tarnquill

#include "mermaid/MermaidPreviewView.h"

#include "chrome/ExternalAddress.h"
#include "chrome/WebPageView.h"
#include "common/LatestTask.h"
#include "mermaid/MermaidWebPage.h"

#include <QEvent>
#include <QUrl>
#include <QVBoxLayout>

#include <algorithm>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

constexpr double kLeastPixelScale = 2;

// A diagram may come from anywhere: nothing but web pages is opened for it.
void openInBrowser(const QUrl& url, QWidget* asker) {
    if (url.scheme() == u"https" || url.scheme() == u"http") {
        openExternally(url, asker);
    }
}

} // namespace

MermaidPreviewView::MermaidPreviewView(MermaidViewportController& viewport,
                                       MermaidExportController& exporting, QWidget* parent)
    : QWidget(parent), m_page(new MermaidWebPage(this)), m_coordinator(*m_page, viewport, exporting) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(&m_page->view());
    setFocusProxy(&m_page->view());
    m_page->view().setAccessibleName(u"Diagram"_s);

    connect(&m_coordinator, &MermaidPreviewCoordinator::outcome, this, &MermaidPreviewView::outcome);
    connect(m_page, &MermaidPage::messageReceived, this,
            [this](const QString& handler, const QJsonValue& body) {
                if (handler == u"errorActivated") {
                    Q_EMIT errorActivated();
                } else if (handler == u"linkActivated") {
                    openInBrowser(QUrl(body.toString()), this);
                }
            });
    m_longRendering.setSingleShot(true);
    m_longRendering.setInterval(LatestTask::kLongWork);
    connect(&m_longRendering, &QTimer::timeout, this, [this] { Q_EMIT longRenderingChanged(true); });
    connect(&m_coordinator, &MermaidPreviewCoordinator::renderingChanged, this, [this] {
        if (!m_coordinator.isRendering()) {
            m_longRendering.stop();
            Q_EMIT longRenderingChanged(false);
        } else if (!m_longRendering.isActive()) {
            m_longRendering.start();
        }
    });
    followPixelScale();
}

void MermaidPreviewView::setFileDrop(const FileDrop& drop) {
    m_page->view().setFileDrop(drop);
}

bool MermaidPreviewView::event(QEvent* event) {
    if (event->type() == QEvent::Show || event->type() == QEvent::ScreenChangeInternal) {
        followPixelScale();
    }
    return QWidget::event(event);
}

void MermaidPreviewView::followPixelScale() {
    m_coordinator.setPixelScale(std::max(devicePixelRatioF(), kLeastPixelScale));
}

} // namespace tarnquill

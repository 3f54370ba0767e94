#include "chrome/WebEngine.h"

#include "chrome/WebPage.h"
#include "common/InstalledFile.h"

#include <QCoreApplication>
#include <QOpenGLContext>
#include <QPluginLoader>

#include <unistd.h>

// Qt exports this for its modules, and has no public header for it.
QT_BEGIN_NAMESPACE
// NOLINTNEXTLINE(readability-identifier-naming): the name is Qt's
Q_GUI_EXPORT void qt_gl_set_global_share_context(QOpenGLContext* context);
QT_END_NAMESPACE

namespace tarnquill {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

QList<QByteArray>& schemes() {
    static QList<QByteArray> list;
    return list;
}

// The engine draws with the graphics processor through the context that all of Qt's share. Where there is
// none, it expects one that is not valid, as Qt makes it.
void shareGraphics() {
    if (QOpenGLContext::globalShareContext() != nullptr) {
        return;
    }
    auto* const context = new QOpenGLContext;
    context->create();
    qt_gl_set_global_share_context(context);
    qAddPostRoutine([] {
        delete QOpenGLContext::globalShareContext();
        qt_gl_set_global_share_context(nullptr);
    });
}

QString modulePath() {
    return installedFile(u"lib/tarnquill/tarnquill-web");
}

} // namespace

WebEngine& WebEngine::instance() {
    static WebEngine engine;
    return engine;
}

void WebEngine::addScheme(const QByteArray& scheme) {
    schemes().append(scheme);
}

void WebEngine::load() {
    if (m_module != nullptr) {
        Q_EMIT ready();
        return;
    }
    if (m_loading.isPending()) {
        return;
    }
    // The engine would end the whole program. Scripts that start it as root on purpose switch its sandbox
    // off.
    if (::geteuid() == 0 && !qEnvironmentVariableIsSet("QTWEBENGINE_DISABLE_SANDBOX")) {
        fail(tr("The web engine works only in its sandbox, which is not there for root. Start Tarnquill as "
                "an ordinary "
                "user."));
        return;
    }
    shareGraphics();
    m_loading.start(
        0ms, [path = modulePath()](const std::stop_token&) { return QPluginLoader(path).load(); },
        [this](bool isLoaded) { finishLoad(isLoaded); });
}

void WebEngine::finishLoad(bool isLoaded) {
    QPluginLoader loader(modulePath());
    auto* const module = isLoaded ? qobject_cast<WebEngineModule*>(loader.instance()) : nullptr;
    if (module == nullptr) {
        fail(tr("The web engine could not be loaded: %1").arg(loader.errorString()));
        return;
    }
    module->registerSchemes(schemes());
    m_loading.start(
        0ms,
        [module](const std::stop_token&) {
            module->readAhead();
            return module;
        },
        [this](WebEngineModule* loaded) {
            m_module = loaded;
            m_failure.clear();
            Q_EMIT ready();
        });
}

void WebEngine::fail(const QString& failure) {
    m_failure = failure;
    qWarning("%s", qUtf8Printable(failure));
    Q_EMIT failed();
}

} // namespace tarnquill

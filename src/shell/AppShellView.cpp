#include "shell/AppShellView.h"

#include "chrome/Alert.h"
#include "chrome/FileDropTarget.h"
#include "chrome/FocusOrder.h"
#include "chrome/MenuSurface.h"
#include "chrome/PaneButton.h"
#include "chrome/Splitter.h"
#include "chrome/Toolbar.h"
#include "common/Settings.h"
#include "shell/PlaceholderView.h"
#include "shell/SidebarView.h"
#include "shell/ToolCatalogue.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QScreen>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kMinimumSize(980, 580);
constexpr QSize kIdealSize(1280, 800);

// The window's own part of the settings.
const QString kSelectedToolID = u"main/selectedToolID"_s;
const QString kGeometry = u"main/geometry"_s;
const QString kSidebarShown = u"main/sidebarShown"_s;
const QString kSidebarWidth = u"main/sidebarWidth"_s;

} // namespace

AppShellView::AppShellView(const ToolCatalogue& catalogue, Settings& settings,
                           const SupportPrompt::Clock& clock)
    : m_catalogue(catalogue),
      m_settings(settings),
      m_host(catalogue, settings),
      m_recentFiles(settings),
      m_sidebar(new SidebarView(catalogue)),
      m_detail(new QStackedWidget),
      m_split(new Splitter(Qt::Horizontal)) {
    setWindowTitle(u"Tarnquill"_s);
    setMinimumSize(kMinimumSize);

    m_split->addPane(m_sidebar, 0, SidebarView::kMinimumWidth);
    m_split->addWidget(m_detail);
    m_split->setStretchFactor(1, 1);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_split);

    connect(m_sidebar, &SidebarView::selectionChanged, this, &AppShellView::selectTool);
    connect(&m_host, &ToolHost::fileOpened, &m_recentFiles,
            [this](const QString& path, const QString& toolID) {
                m_recentFiles.add({.path = path, .toolID = toolID});
            });
    new FileDropTarget(this, {.open =
                                  [this](const QList<QUrl>& urls) {
                                      open(urls);
                                      return !urls.isEmpty();
                                  },
                              .targeted = [this](bool isTarget) { toolView().setDropTarget(isTarget); }});
    new SupportPrompt(this, m_host.supportPrompt(), clock);
    restore();
}

AppShellView::~AppShellView() = default;

void AppShellView::selectTool(const QString& toolID) {
    if (toolID == m_selectedToolID) {
        return;
    }
    m_selectedToolID = toolID;
    m_settings.setValue(kSelectedToolID, toolID);
    showSelectedTool();
    Q_EMIT selectedToolChanged();
}

bool AppShellView::activeToolOpensFiles() const {
    const auto* const tool = m_catalogue.tool(m_selectedToolID);
    return tool != nullptr && tool->opensFiles();
}

ToolView& AppShellView::toolView() const {
    return *static_cast<ToolView*>(m_detail->currentWidget());
}

void AppShellView::focusToolView() {
    toolView().setFocus(Qt::OtherFocusReason);
}

// A tool's view is built when it is first shown, so that the window need not wait for tools that nobody looks
// at.
void AppShellView::showSelectedTool() {
    const auto* const tool = m_catalogue.tool(m_selectedToolID);
    const auto pageID = tool != nullptr ? tool->id : QString();
    auto* page = m_pages.value(pageID);
    if (page == nullptr) {
        page = tool != nullptr ? tool->makeView(m_host) : new PlaceholderView;
        connect(page, &ToolView::sidebarToggleRequested, this,
                [this] { setSidebarShown(!isSidebarShown()); });
        connect(page, &ToolView::filesDropped, this, &AppShellView::open);
        m_detail->addWidget(page);
        m_pages.insert(pageID, page);
    }
    m_sidebar->setSelection(pageID);
    m_detail->setCurrentWidget(page);
    if (!m_sidebar->hasFocus()) {
        focusToolView();
    }
}

void AppShellView::open(const QList<QUrl>& urls) {
    m_waiting += urls;
    openNext();
}

void AppShellView::openNext() {
    while (!m_showsAlert && !m_waiting.isEmpty()) {
        const auto url = m_waiting.takeFirst();
        if (!url.isLocalFile()) {
            continue;
        }
        if (const auto toolID = m_host.open(url)) {
            selectTool(*toolID);
            continue;
        }
        m_showsAlert = true;
        auto* const alert =
            new Alert(this, {.message = tr("Tarnquill cannot open “%1”.").arg(lastPathComponent(url)),
                             .informative = tr("No tool accepts the .%1 extension.").arg(pathExtension(url)),
                             .symbol = {},
                             .buttons = {{.title = tr("OK"), .role = Alert::Role::main}}});
        connect(alert, &Alert::answered, this, [this] {
            m_showsAlert = false;
            openNext();
        });
    }
}

void AppShellView::openAgain(const RecentFiles::File& file) {
    if (!QFileInfo::exists(file.path)) {
        m_recentFiles.remove(file.path);
    }
    if (const auto* const tool = m_catalogue.tool(file.toolID)) {
        tool->open(QUrl::fromLocalFile(file.path), m_host);
        selectTool(tool->id);
    }
}

bool AppShellView::isSidebarShown() const {
    return !m_sidebar->isHidden();
}

void AppShellView::setSidebarShown(bool shown) {
    if (shown == isSidebarShown()) {
        return;
    }
    m_sidebar->setVisible(shown);
    m_settings.setValue(kSidebarShown, shown);
    Q_EMIT sidebarShownChanged(shown);
}

void AppShellView::setMenu(QMenu* menu) {
    m_menu = menu;
    m_sidebar->setMenu(menu);
}

void AppShellView::showMenu() {
    if (m_menu != nullptr) {
        const auto& anchor =
            isSidebarShown() ? m_sidebar->menuButton() : toolView().toolbar().sidebarButton();
        MenuSurface::popUpBelow(*m_menu, anchor);
    }
}

void AppShellView::bringToFront(const QString& activationToken) {
    if (!activationToken.isEmpty()) {
        qputenv("XDG_ACTIVATION_TOKEN",
                activationToken.toUtf8()); // Read by the Wayland plug-in's activateWindow().
    }
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void AppShellView::closeEvent(QCloseEvent* event) {
    save();
    QWidget::closeEvent(event);
}

bool AppShellView::focusNextPrevChild(bool next) {
    return FocusOrder::step(*this, FocusOrder::direction(next));
}

void AppShellView::save() {
    m_settings.setValue(kGeometry, saveGeometry());
    if (isSidebarShown()) {
        m_settings.setValue(kSidebarWidth, m_sidebar->width());
    }
}

void AppShellView::restore() {
    if (!restoreGeometry(m_settings.value(kGeometry).toByteArray())) {
        resize(kIdealSize.boundedTo(QGuiApplication::primaryScreen()->availableSize()));
    }
    const auto sidebarWidth = m_settings.value(kSidebarWidth, SidebarView::kIdealWidth).toInt();
    m_split->setSizes({sidebarWidth, width() - sidebarWidth});
    m_sidebar->setVisible(m_settings.value(kSidebarShown, true).toBool());
    m_selectedToolID = m_settings.value(kSelectedToolID, u"markdown"_s).toString();
    showSelectedTool();
}

} // namespace tarnquill

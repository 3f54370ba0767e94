#include "chrome/Toolbar.h"

#include "chrome/Painting.h"
#include "chrome/PaneButton.h"
#include "chrome/TextLabel.h"

#include <QFileInfo>
#include <QHBoxLayout>

#include <utility>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

constexpr int kGap = 8;
constexpr int kGroupGap = 16;
constexpr int kFileGap = 12;
constexpr int kNarrow = 900;

} // namespace

Toolbar::Toolbar(const QString& title, QWidget* parent)
    : QWidget(parent),
      m_sidebar(new PaneButton(tr("Sidebar"), u"sidebar.left"_s)),
      m_file(new TextLabel({}, FontRole::body, ColorRole::muted)),
      m_layout(new QHBoxLayout(this)),
      m_gapBefore(kGap) {
    setFixedHeight(kHeight);
    m_sidebar->setIconOnly(true);
    m_sidebar->setIconExtent(16);
    m_sidebar->setToolTip(tr("Show or hide the sidebar"));
    m_file->setYields(true);

    m_layout->setContentsMargins(8, 0, 12, 0);
    m_layout->setSpacing(0);
    m_layout->addWidget(m_sidebar);
    m_layout->addSpacing(kGap);
    m_layout->addWidget(new TextLabel(title, FontRole::toolTitle, ColorRole::text));
    m_layout->addSpacing(kFileGap);
    // Takes what is left, and so is the first to give way.
    m_layout->addWidget(m_file, 1);
    connect(m_sidebar, &PaneButton::clicked, this, &Toolbar::sidebarToggleRequested);
}

void Toolbar::setFilePath(const QString& path) {
    m_file->setText(QFileInfo(path).fileName());
    m_file->setToolTip(path);
}

void Toolbar::addControl(QWidget* control) {
    m_layout->addSpacing(std::exchange(m_gapBefore, kGap));
    m_layout->addWidget(control);
}

void Toolbar::addGroupGap() {
    m_gapBefore = kGroupGap;
}

void Toolbar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), themeColor(ColorRole::background));
    painter.fillRect(0, kHeight - 1, width(), 1, themeColor(ColorRole::border));
}

void Toolbar::resizeEvent(QResizeEvent*) {
    const bool narrow = width() < kNarrow;
    if (std::exchange(m_narrow, narrow) != narrow) {
        Q_EMIT narrowChanged(narrow);
    }
}

} // namespace tarnquill

#include "chrome/FindBar.h"

#include "chrome/Painting.h"
#include "chrome/PaneButton.h"
#include "chrome/SearchBar.h"

#include <QHBoxLayout>
#include <QVariantAnimation>

namespace tarnquill {
namespace {

constexpr int kHeight = 44;

} // namespace

FindBar::FindBar(QWidget* parent)
    : QWidget(parent),
      m_search(new SearchBar(SearchBar::Parts::withNavigation)),
      m_slide(new QVariantAnimation(this)) {
    m_search->setEscapeClears(false);
    m_search->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_search->setWidths(120, 400);
    auto* done = new PaneButton(tr("Done"), {});
    done->setToolTip(tr("Close the find bar (Esc)"));

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(12, 8, 10, 8);
    layout->setSpacing(8);
    layout->setSizeConstraint(QLayout::SetNoConstraint);
    layout->addWidget(m_search);
    layout->addWidget(done);
    setFixedHeight(0);
    hide();

    connect(done, &PaneButton::clicked, this, &FindBar::close);
    connect(m_search, &SearchBar::cancelled, this, &FindBar::close);
    connect(m_slide, &QVariantAnimation::valueChanged, this,
            [this](const QVariant& height) { setFixedHeight(height.toInt()); });
    connect(m_slide, &QVariantAnimation::finished, this, [this] { setVisible(m_open); });
}

void FindBar::open() {
    const bool wasOpen = std::exchange(m_open, true);
    show();
    m_search->focusField();
    if (!wasOpen) {
        slide();
        Q_EMIT openChanged(true);
    }
}

void FindBar::close() {
    if (std::exchange(m_open, false)) {
        slide();
        Q_EMIT openChanged(false);
    }
}

void FindBar::slide() {
    const int target = m_open ? kHeight : 0;
    m_slide->stop();
    const int duration = Theme::instance().duration(150);
    if (duration == 0) {
        setFixedHeight(target);
        setVisible(m_open);
        return;
    }
    m_slide->setDuration(duration);
    m_slide->setStartValue(height());
    m_slide->setEndValue(target);
    m_slide->start();
}

void FindBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), themeColor(ColorRole::raised));
    painter.fillRect(0, height() - 1, width(), 1, themeColor(ColorRole::hairline));
}

} // namespace tarnquill

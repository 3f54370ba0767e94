#include "mermaid/ZoomControl.h"

#include "chrome/KeyNames.h"
#include "chrome/PaneButton.h"

#include <QHBoxLayout>
#include <QPainter>

#include <cmath>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

constexpr int kStepWidth = 28;
constexpr int kPercentWidth = 48;
constexpr double kRadius = 6;

} // namespace

ZoomControl::ZoomControl(QWidget* parent)
    : QWidget(parent),
      m_out(new PaneButton(u"Zoom Out"_s, u"minus"_s)),
      m_percent(new PaneButton(u"100%"_s, {})),
      m_in(new PaneButton(u"Zoom In"_s, u"plus"_s)) {
    m_out->setIconOnly(true);
    m_in->setIconOnly(true);
    m_out->setToolTip(KeyNames::forPlatform(u"Zoom out (⌘−)"_s));
    m_in->setToolTip(KeyNames::forPlatform(u"Zoom in (⌘+)"_s));
    m_percent->setToolTip(KeyNames::forPlatform(u"Show the diagram in its own size (⌘0)"_s));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    for (auto* const button : {m_out, m_percent, m_in}) {
        button->setFixedWidth(button == m_percent ? kPercentWidth : kStepWidth);
        layout->addWidget(button);
    }
    connect(m_out, &PaneButton::clicked, this, &ZoomControl::zoomOutRequested);
    connect(m_percent, &PaneButton::clicked, this, &ZoomControl::actualSizeRequested);
    connect(m_in, &PaneButton::clicked, this, &ZoomControl::zoomInRequested);
}

void ZoomControl::setScale(double scale) {
    m_percent->setTitle(u"%1%"_s.arg(std::lround(scale * 100)));
}

void ZoomControl::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setPen(themeColor(ColorRole::border));
    for (const auto* const button : {m_percent, m_in}) {
        painter.drawLine(button->x(), 0, button->x(), height() - 1);
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
}

} // namespace tarnquill

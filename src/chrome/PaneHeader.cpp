#include "chrome/PaneHeader.h"

#include "chrome/Painting.h"
#include "chrome/TextLabel.h"
#include "chrome/WrapLayout.h"

namespace tarnquill {
namespace {

constexpr int kSide = 12;
constexpr int kAbove = 8;
constexpr int kRow = 28;

// The thin line between two groups of controls. It has a preferred size only, so that the layout can hide it.
class GroupRule : public QWidget {
public:
    using QWidget::QWidget;

    [[nodiscard]] QSize sizeHint() const override { return {1, 16}; }

protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(rect(), themeColor(ColorRole::border)); }
};

class Dot : public QWidget {
public:
    explicit Dot(ColorRole color) : m_color(color) { setFixedSize(8, 8); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        Painting::box(painter, rect(), 4, themeColor(m_color));
    }

private:
    ColorRole m_color;
};

// As tall as a control, so that a header without any is as tall as one with.
class RoleLabel : public TextLabel {
public:
    explicit RoleLabel(const QString& role) : TextLabel(role, FontRole::paneRole, ColorRole::text) {}

    [[nodiscard]] QSize sizeHint() const override { return {TextLabel::sizeHint().width(), kRow}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }
};

} // namespace

// Wraps like any row of controls, and takes the height of the tallest header beside it.
class PaneHeader::Layout : public WrapLayout {
public:
    explicit Layout(PaneHeader* header) : WrapLayout(header), m_header(header) {
        setContentsMargins(kSide, kAbove, kSide, kAbove);
    }

    [[nodiscard]] int heightForWidth(int width) const override {
        int height = WrapLayout::heightForWidth(width);
        for (const PaneHeader* neighbour : neighbours) {
            height = std::max(height, neighbour->m_layout->ownHeight());
        }
        return height;
    }

    void invalidate() override {
        WrapLayout::invalidate();
        tellNeighboursOfAnotherHeight();
    }

    void tellNeighboursOfAnotherHeight() {
        const int height = ownHeight();
        if (std::exchange(m_toldHeight, height) == height) {
            return;
        }
        for (PaneHeader* neighbour : neighbours) {
            neighbour->updateGeometry();
        }
    }

    QList<PaneHeader*> neighbours;

private:
    [[nodiscard]] int ownHeight() const { return WrapLayout::heightForWidth(m_header->width()); }

    PaneHeader* m_header;
    int m_toldHeight = 0;
};

PaneHeader::PaneHeader(const QString& role, QWidget* parent)
    : QWidget(parent),
      m_layout(new Layout(this)),
      m_role(new RoleLabel(role)),
      m_badge(new BadgeLabel),
      m_rule(new GroupRule) {
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    m_layout->addWidget(m_role, WrapLayout::Place::pinned);
    m_layout->addWidget(m_badge, WrapLayout::Place::pinned);
    m_layout->addWidget(m_rule, WrapLayout::Place::groupRule);
    m_badge->hide();
}

QString PaneHeader::role() const {
    return m_role->text();
}

void PaneHeader::setDot(ColorRole color) {
    m_layout->insertWidget(0, new Dot(color), WrapLayout::Place::pinned);
}

void PaneHeader::setBadge(const std::optional<PaneBadge>& badge) {
    m_badge->setVisible(badge.has_value());
    if (badge) {
        m_badge->setBadge(*badge);
    }
}

std::optional<PaneBadge> PaneHeader::badge() const {
    return m_badge->isHidden() ? std::nullopt : std::optional(m_badge->badge());
}

void PaneHeader::addOption(QWidget* control) {
    m_layout->insertWidget(m_layout->indexOf(m_rule), control, WrapLayout::Place::flow);
}

void PaneHeader::addButton(QWidget* button) {
    m_layout->addWidget(button, WrapLayout::Place::flow);
}

void PaneHeader::alignHeights(const QList<PaneHeader*>& headers) {
    for (PaneHeader* header : headers) {
        QList<PaneHeader*>& neighbours = header->m_layout->neighbours;
        neighbours = headers;
        neighbours.removeOne(header);
        for (PaneHeader* neighbour : neighbours) {
            connect(neighbour, &QObject::destroyed, header,
                    [header, neighbour] { header->m_layout->neighbours.removeOne(neighbour); });
        }
        header->updateGeometry();
    }
}

void PaneHeader::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), themeColor(ColorRole::background));
    painter.fillRect(0, height() - 1, width(), 1, themeColor(ColorRole::hairline));
}

void PaneHeader::resizeEvent(QResizeEvent*) {
    m_layout->tellNeighboursOfAnotherHeight();
}

} // namespace tarnquill

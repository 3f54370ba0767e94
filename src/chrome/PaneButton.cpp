#include "chrome/PaneButton.h"

#include "chrome/Fade.h"
#include "chrome/FocusRing.h"
#include "chrome/MenuSurface.h"
#include "chrome/Painting.h"

#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>

#include <chrono>

namespace tarnquill {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int kRadius = 6;
constexpr int kCompactRadius = 5;
constexpr int kIconGap = 6;
constexpr int kChevron = 12;
constexpr int kBubble = 16;

// "Copied" stands closer together than a title, so that little room has to be reserved for it.
constexpr int kCopiedGap = 4;
constexpr int kCopiedPadding = 5;
const auto kCopiedSymbol = u"checkmark"_s;

QString copiedTitle() {
    return PaneButton::tr("Copied");
}

int bubbleWidth(int count) {
    return std::max(kBubble, Painting::textWidth(QString::number(count), FontRole::badge) + 8);
}

} // namespace

PaneButton::PaneButton(const QString& title, const QString& symbol, Look look, QWidget* parent)
    : QAbstractButton(parent), m_symbol(symbol), m_look(look), m_hover(new Fade(this, 80)) {
    setText(title);
    setAccessibleName(title);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
    m_flashing.setSingleShot(true);
    m_flashing.setInterval(1200ms);
    connect(&m_flashing, &QTimer::timeout, this, [this] {
        updateGeometry();
        update();
    });
    FocusRing::attach(this, kRadius);
}

void PaneButton::setTitle(const QString& title) {
    setText(title);
    setAccessibleName(title);
    updateGeometry();
}

void PaneButton::setSymbol(const QString& symbol) {
    m_symbol = symbol;
    updateGeometry();
    update();
}

void PaneButton::setLook(Look look) {
    m_look = look;
    updateGeometry();
    update();
}

void PaneButton::setSize(Size size) {
    m_size = size;
    updateGeometry();
}

void PaneButton::setIconOnly(bool iconOnly) {
    m_iconOnly = iconOnly;
    updateGeometry();
    update();
}

void PaneButton::setIconExtent(int extent) {
    m_iconExtent = extent;
    updateGeometry();
    update();
}

void PaneButton::setTinted(bool tinted) {
    m_tinted = tinted;
    update();
}

void PaneButton::setTint(std::optional<ColorRole> tint) {
    m_tint = tint;
    update();
}

void PaneButton::setDetail(const QString& detail) {
    m_detail = detail;
    updateGeometry();
    update();
}

void PaneButton::setCount(int count) {
    m_count = count;
    updateGeometry();
    update();
}

void PaneButton::setMenu(QMenu* menu) {
    m_menu = menu;
    updateGeometry();
    update();
}

void PaneButton::setOpensPopover(bool opens) {
    m_opensPopover = opens;
    updateGeometry();
    update();
}

void PaneButton::showMenu() {
    if (m_menu != nullptr && isEnabled()) {
        setDown(true);
        connect(m_menu, &QMenu::aboutToHide, this, [this] { setDown(false); }, Qt::SingleShotConnection);
        MenuSurface::popUpBelow(*m_menu, *this);
    }
}

void PaneButton::reserveCopied() {
    m_reservesCopied = true;
    updateGeometry();
}

void PaneButton::flashCopied(Flash flash) {
    m_flash = flash;
    m_flashing.start();
    updateGeometry();
    update();
}

bool PaneButton::showsTitle() const {
    return !text().isEmpty() && (!m_iconOnly || (isFlashing() && m_flash == Flash::widens));
}

FontRole PaneButton::fontRole() const {
    if (m_look == Look::primary) {
        return m_size == Size::alert ? FontRole::paneRole : FontRole::controlSelected;
    }
    return m_size == Size::alert ? FontRole::alertButton : FontRole::control;
}

int PaneButton::padding() const {
    constexpr int kBorder = 1; // the plain look's is unseen
    if (m_size == Size::alert) {
        return 14 + kBorder;
    }
    if (m_size == Size::compact) {
        return 8;
    }
    return (m_look == Look::plain ? 8 : 10) + kBorder;
}

int PaneButton::contentWidth() const {
    int width = Painting::textWidth(text(), fontRole());
    if (!m_symbol.isEmpty()) {
        width += m_iconExtent + kIconGap;
    }
    if (!m_detail.isEmpty()) {
        width += kIconGap + Painting::textWidth(m_detail, fontRole());
    }
    if (m_count > 0) {
        width += kIconGap + bubbleWidth(m_count);
    }
    return width;
}

int PaneButton::copiedWidth() const {
    return m_iconExtent + kCopiedGap + Painting::textWidth(copiedTitle(), fontRole());
}

QSize PaneButton::sizeHint() const {
    const int height = m_size == Size::alert ? 32 : m_size == Size::control ? 28 : 24;
    int width = height;
    if (showsTitle()) {
        width = m_iconOnly ? 0 : contentWidth() + 2 * padding();
        if (m_reservesCopied || isFlashing()) {
            width = std::max(width, copiedWidth() + 2 * kCopiedPadding);
        }
    }
    if (showsChevron()) {
        width += showsTitle() ? 14 : 10;
    }
    return {width, height};
}

PaneButton::Colors PaneButton::colors() const {
    using enum ColorRole;
    const Theme& theme = Theme::instance();
    const auto hovered = [&](ColorRole rest, ColorRole hover, ColorRole pressed) {
        return isDown() ? theme.color(pressed)
                        : Painting::mix(theme.color(rest), theme.color(hover), m_hover->value());
    };
    Colors colors;
    if (m_look == Look::primary) {
        colors = {hovered(fill, fillHover, fillPressed), {}, theme.color(fillText), theme.color(fillText)};
    } else if (isOn()) {
        colors = {hovered(accentTint, accentTintHover, accentTintPressed), theme.color(accentLine),
                  theme.color(accentText), theme.color(accent)};
    } else if (m_look == Look::outlined) {
        colors = {hovered(background, hover, pressed), theme.color(border), theme.color(ColorRole::text),
                  theme.color(secondaryText)};
    } else {
        const QColor fillColor =
            isDown() ? theme.color(pressed) : Painting::faded(theme.color(hover), m_hover->value());
        const QColor label = isDown() ? theme.color(secondaryText)
                                      : Painting::mix(theme.color(secondaryText),
                                                      theme.color(ColorRole::text), m_hover->value());
        // An icon that stands alone becomes stronger in the place of its label.
        colors = {fillColor, {}, label, m_iconOnly && underMouse() ? label : theme.color(muted)};
    }
    if (m_tint) {
        colors.label = colors.icon = theme.color(*m_tint);
    }
    if (isFlashing()) {
        colors.label = theme.color(okText);
        colors.icon = theme.color(okIcon);
    }
    return colors;
}

void PaneButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (!isEnabled()) {
        painter.setOpacity(Painting::kDisabledOpacity);
    }
    const Colors ink = colors();
    Painting::box(painter, rect(), m_size == Size::compact ? kCompactRadius : kRadius, ink.fill, ink.border);

    QRect content = rect();
    if (showsChevron()) {
        const int edge = m_look == Look::plain ? 6 : 8;
        const QRect chevron(width() - edge - kChevron, 0, kChevron, height());
        Painting::symbol(painter, chevron, u"chevron-down"_s, kChevron,
                         isOn() ? ink.icon : themeColor(ColorRole::muted));
        content.setRight(chevron.left() - 1);
    }
    if (!showsTitle()) {
        Painting::symbol(painter, content, isFlashing() ? kCopiedSymbol : m_symbol, m_iconExtent, ink.icon);
    } else if (isFlashing()) {
        content.setLeft(std::max(kCopiedPadding, (content.width() - copiedWidth()) / 2));
        paintLabel(painter, content, copiedTitle(), kCopiedSymbol, kCopiedGap, ink);
    } else {
        content.setLeft(padding());
        paintAccessories(painter, paintLabel(painter, content, text(), m_symbol, kIconGap, ink), ink);
    }
}

// Returns where the label ends.
int PaneButton::paintLabel(QPainter& painter, const QRect& area, const QString& title, const QString& symbol,
                           int gap, const Colors& ink) const {
    int x = area.left();
    if (!symbol.isEmpty()) {
        Painting::symbol(painter, QRect(x, 0, m_iconExtent, height()), symbol, m_iconExtent, ink.icon);
        x += m_iconExtent + gap;
    }
    const int titleWidth = Painting::textWidth(title, fontRole());
    Painting::text(painter, QRect(x, 0, titleWidth, height()), title, fontRole(), ink.label);
    return x + titleWidth;
}

void PaneButton::paintAccessories(QPainter& painter, int x, const Colors& ink) const {
    x += kIconGap;
    if (!m_detail.isEmpty()) {
        const int detailWidth = Painting::textWidth(m_detail, fontRole());
        Painting::text(painter, QRect(x, 0, detailWidth, height()), m_detail, fontRole(), ink.label);
        x += detailWidth + kIconGap;
    }
    if (m_count > 0) {
        const QRect bubble(x, (height() - kBubble) / 2, bubbleWidth(m_count), kBubble);
        Painting::box(painter, bubble, kBubble / 2.0, themeColor(ColorRole::fill));
        Painting::text(painter, bubble, QString::number(m_count), FontRole::badge,
                       themeColor(ColorRole::fillText), Qt::AlignCenter);
    }
}

bool PaneButton::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::HoverEnter:
        m_hover->glideTo(isEnabled() ? 1 : 0);
        break;
    case QEvent::HoverLeave:
        m_hover->glideTo(0);
        break;
    case QEvent::EnabledChange:
        m_hover->jumpTo(isEnabled() && underMouse() ? 1 : 0);
        break;
    default:
        break;
    }
    return QAbstractButton::event(event);
}

void PaneButton::keyPressEvent(QKeyEvent* event) {
    const bool opens = event->key() == Qt::Key_Down || event->key() == Qt::Key_Space;
    if (m_menu != nullptr && opens) {
        showMenu();
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        m_menu != nullptr ? showMenu() : click();
    } else {
        QAbstractButton::keyPressEvent(event);
    }
}

void PaneButton::mousePressEvent(QMouseEvent* event) {
    if (m_menu != nullptr && event->button() == Qt::LeftButton) {
        showMenu();
        return;
    }
    QAbstractButton::mousePressEvent(event);
}

} // namespace tarnquill

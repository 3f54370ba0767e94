#include "chrome/ComboBox.h"

#include "chrome/Fade.h"
#include "chrome/FocusRing.h"
#include "chrome/MenuSurface.h"
#include "chrome/Painting.h"

#include <QMenu>
#include <QMouseEvent>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

constexpr int kHeight = 28;
constexpr int kRadius = 6;
constexpr int kPadding = 11; // with the border
constexpr int kIcon = 14;
constexpr int kGap = 6;
constexpr int kChevron = 12;

} // namespace

ComboBox::ComboBox(QWidget* parent) : QComboBox(parent), m_hover(new Fade(this, 80)) {
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
    FocusRing::attach(this, kRadius);
}

void ComboBox::setSymbol(const QString& symbol) {
    m_symbol = symbol;
    update();
}

void ComboBox::showPopup() {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (int index = 0; index < count(); ++index) {
        const QString detail = itemData(index, kDetailRole).toString();
        // What follows a tab stands at the far end of a menu item.
        QAction* action =
            menu->addAction(detail.isEmpty() ? itemText(index) : itemText(index) + u'\t' + detail);
        action->setCheckable(true);
        action->setChecked(index == currentIndex());
        connect(action, &QAction::triggered, this, [this, index] {
            setCurrentIndex(index);
            Q_EMIT activated(index);
        });
    }
    MenuSurface::popUpBelow(*menu, *this);
    if (currentIndex() >= 0) {
        menu->setActiveAction(menu->actions().at(currentIndex()));
    }
}

QSize ComboBox::sizeHint() const {
    int widest = 0;
    for (int index = 0; index < count(); ++index) {
        widest = std::max(widest, Painting::textWidth(itemText(index), FontRole::control));
    }
    return {kPadding + widest + kGap + kChevron + kGap, kHeight};
}

void ComboBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (!isEnabled()) {
        painter.setOpacity(Painting::kDisabledOpacity);
    }
    const QColor fill =
        Painting::mix(themeColor(ColorRole::background), themeColor(ColorRole::hover), m_hover->value());
    Painting::box(painter, rect(), kRadius, fill, themeColor(ColorRole::border));

    int x = kPadding;
    const int end = width() - kGap - kChevron;
    Painting::symbol(painter, QRect(end, 0, kChevron, kHeight), u"chevron-down"_s, kChevron,
                     themeColor(ColorRole::muted));
    if (!m_symbol.isEmpty()) {
        Painting::symbol(painter, QRect(x, 0, kIcon, kHeight), m_symbol, kIcon,
                         themeColor(ColorRole::secondaryText));
        x += kIcon + kGap;
    }
    const int textWidth = std::min(Painting::textWidth(currentText(), FontRole::control), end - x);
    Painting::text(painter, QRect(x, 0, textWidth, kHeight), currentText(), FontRole::control,
                   themeColor(ColorRole::text));
    x += textWidth + kGap;
    const QString detail = currentData(kDetailRole).toString();
    if (x < end) {
        Painting::text(painter, QRect(x, 0, end - x, kHeight), detail, FontRole::note,
                       themeColor(ColorRole::muted));
    }
}

bool ComboBox::event(QEvent* event) {
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverLeave) {
        m_hover->glideTo(event->type() == QEvent::HoverEnter && isEnabled() ? 1 : 0);
    }
    return QComboBox::event(event);
}

void ComboBox::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        showPopup();
    }
}

// Scrolling past a combo box must not change it.
void ComboBox::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

} // namespace tarnquill

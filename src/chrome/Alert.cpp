#include "chrome/Alert.h"

#include "chrome/Fade.h"
#include "chrome/FocusOrder.h"
#include "chrome/Painting.h"
#include "chrome/PaneButton.h"

#include <QApplication>
#include <QKeyEvent>

namespace tarnquill {
namespace {

constexpr int kWidth = 464;
constexpr int kRadius = 12;
constexpr int kTop = 24;
constexpr int kSide = 20;
constexpr int kEmblem = 44;
constexpr int kEmblemRadius = 10;
constexpr int kEmblemSymbol = 22;
constexpr int kEmblemGap = 16;
constexpr int kBelowMessage = 6;
constexpr int kAboveButtons = 32;
constexpr int kButtonHeight = 32;
constexpr int kButtonGap = 8;

PaneButton::Look lookOf(Alert::Role role) {
    switch (role) {
    case Alert::Role::main:
        return PaneButton::Look::primary;
    case Alert::Role::cancel:
        return PaneButton::Look::outlined;
    case Alert::Role::optOut:
        break;
    }
    return PaneButton::Look::plain;
}

} // namespace

Alert::Alert(QWidget* window, const Content& content)
    : QWidget(window->window()), m_content(content), m_focusBefore(QApplication::focusWidget()) {
    setAccessibleName(content.message);
    setAccessibleDescription(content.informative);
    setFocusPolicy(Qt::StrongFocus);
    addButtons();
    setGeometry(parentWidget()->rect());
    placeButtons();
    show();
    raise();
    qApp->installEventFilter(this);
    const int main = indexOf(Role::main);
    (main >= 0 ? static_cast<QWidget*>(m_buttons[main]) : this)->setFocus(Qt::OtherFocusReason);
    fadeIn(this, 120);
}

void Alert::say(QWidget* window, const QString& message, const QString& informative) {
    new Alert(window, {message, informative, {}, {{tr("OK"), Role::main}}});
}

void Alert::addButtons() {
    for (int index = 0; index < m_content.buttons.size(); ++index) {
        const Button& each = m_content.buttons[index];
        auto* button = new PaneButton(each.title, {}, lookOf(each.role), this);
        button->setSize(PaneButton::Size::alert);
        connect(button, &PaneButton::clicked, this, [this, index] { answer(index); });
        m_buttons.append(button);
    }
}

int Alert::indexOf(Role role) const {
    for (int index = 0; index < m_content.buttons.size(); ++index) {
        if (m_content.buttons[index].role == role) {
            return index;
        }
    }
    return -1;
}

void Alert::answer(int index) {
    if (std::exchange(m_answered, true)) {
        return;
    }
    qApp->removeEventFilter(this);
    hide();
    if (m_focusBefore) {
        m_focusBefore->setFocus(Qt::PopupFocusReason);
    }
    deleteLater();
    Q_EMIT answered(index);
}

int Alert::textWidth() const {
    return kWidth - 2 * kSide - (m_content.symbol.isEmpty() ? 0 : kEmblem + kEmblemGap);
}

QRect Alert::card() const {
    const int message =
        Painting::paragraphSize(m_content.message, FontRole::messageTitle, textWidth()).height();
    const int informative =
        Painting::paragraphSize(m_content.informative, FontRole::body, textWidth()).height();
    const int text = message + kBelowMessage + informative;
    const int emblem = m_content.symbol.isEmpty() ? 0 : kEmblem;
    QRect card(0, 0, kWidth, kTop + std::max(text, emblem) + kAboveButtons + kButtonHeight + kSide);
    card.moveCenter(rect().center());
    return card;
}

QRect Alert::textArea() const {
    const QRect box = card();
    return {box.right() + 1 - kSide - textWidth(), box.top() + kTop, textWidth(), box.height()};
}

void Alert::placeButtons() {
    const QRect box = card();
    const int y = box.bottom() + 1 - kSide - kButtonHeight;
    int right = box.right() + 1 - kSide;
    // The plain button's text, not its unseen edge, stands in line with the card's content.
    int left = box.left() + kSide - 14;
    const auto place = [&](Role role) {
        for (int index = 0; index < m_buttons.size(); ++index) {
            if (m_content.buttons[index].role != role) {
                continue;
            }
            const QSize size = m_buttons[index]->sizeHint();
            const bool atEnd = role != Role::optOut;
            m_buttons[index]->setGeometry(QRect(QPoint(atEnd ? right - size.width() : left, y), size));
            (atEnd ? right : left) += (atEnd ? -1 : 1) * (size.width() + kButtonGap);
        }
    };
    place(Role::main);
    place(Role::cancel);
    place(Role::optOut);
}

void Alert::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), themeColor(ColorRole::scrim));
    const QRect box = card();
    Painting::floatingBox(painter, box, kRadius, ColorRole::background);
    if (!m_content.symbol.isEmpty()) {
        const QRect emblem(box.left() + kSide, box.top() + kTop, kEmblem, kEmblem);
        Painting::box(painter, emblem, kEmblemRadius, themeColor(ColorRole::accentTint));
        Painting::symbol(painter, emblem, m_content.symbol, kEmblemSymbol, themeColor(ColorRole::accent));
    }
    QRect area = textArea();
    Painting::paragraph(painter, area, m_content.message, FontRole::messageTitle,
                        themeColor(ColorRole::text));
    area.setTop(area.top() + kBelowMessage +
                Painting::paragraphSize(m_content.message, FontRole::messageTitle, textWidth()).height());
    Painting::paragraph(painter, area, m_content.informative, FontRole::body, themeColor(ColorRole::muted));
}

bool Alert::eventFilter(QObject* object, QEvent* event) {
    if (object == parentWidget() && event->type() == QEvent::Resize) {
        setGeometry(parentWidget()->rect());
        placeButtons();
    } else if (event->type() == QEvent::ShortcutOverride) {
        // Every key is the alert's own: none of the window's shortcuts works meanwhile.
        event->accept();
        return true;
    }
    return QWidget::eventFilter(object, event);
}

void Alert::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Escape: {
        const int cancel = indexOf(Role::cancel);
        answer(cancel >= 0 ? cancel : 0);
        break;
    }
    case Qt::Key_Return:
    case Qt::Key_Enter:
        answer(std::max(0, indexOf(Role::main)));
        break;
    default:
        event->accept();
    }
}

// A click beside the card answers nothing and reaches nothing.
void Alert::mousePressEvent(QMouseEvent* event) {
    event->accept();
}

bool Alert::focusNextPrevChild(bool next) {
    FocusOrder::step(*this, FocusOrder::direction(next));
    return true;
}

} // namespace tarnquill

#include "chrome/MessageView.h"

#include "chrome/FocusRing.h"
#include "chrome/Painting.h"
#include "chrome/Symbols.h"

#include <QAbstractButton>
#include <QKeyEvent>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidest = 360;
constexpr int kSide = 24;
constexpr int kBelowIcon = 12;
constexpr int kBelowTitle = 4;

} // namespace

// The message under the title; a button only where it is a link.
class MessageView::Text : public QAbstractButton {
public:
    explicit Text(QWidget* parent) : QAbstractButton(parent) {
        setObjectName(u"messageLink"_s);
        FocusRing::attach(this, 4);
        setLink(false, {});
    }

    void setLink(bool isLink, const QString& help) {
        setFocusPolicy(isLink ? Qt::TabFocus : Qt::NoFocus);
        setAttribute(Qt::WA_TransparentForMouseEvents, !isLink);
        setAttribute(Qt::WA_Hover, isLink);
        setCursor(isLink ? Qt::PointingHandCursor : Qt::ArrowCursor);
        setToolTip(help);
        m_isLink = isLink;
        update();
    }

    [[nodiscard]] QSize sizeFor(int width) const {
        return Painting::paragraphSize(text(), FontRole::body, width);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const bool lit = m_isLink && underMouse();
        Painting::paragraph(painter, rect(), text(), FontRole::body,
                            themeColor(lit ? ColorRole::link : ColorRole::muted), Qt::AlignHCenter);
    }

    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
            click();
        } else {
            QAbstractButton::keyPressEvent(event);
        }
    }

private:
    bool m_isLink = false;
};

MessageView::MessageView(Kind kind, QWidget* parent) : QWidget(parent), m_kind(kind), m_text(new Text(this)) {
    if (kind == Kind::error) {
        m_symbol = u"exclamationmark.triangle.fill"_s;
    }
    connect(m_text, &QAbstractButton::clicked, this, &MessageView::activated);
}

void MessageView::setMessage(const QString& title, const QString& text, const QString& symbol) {
    m_title = title;
    if (!symbol.isEmpty()) {
        m_symbol = symbol;
    }
    m_text->setText(text);
    m_text->setAccessibleName(text);
    setAccessibleName(title);
    setAccessibleDescription(text);
    placeText();
    update();
}

void MessageView::setLink(bool isLink, const QString& help) {
    m_text->setLink(isLink, help);
}

QSize MessageView::minimumSizeHint() const {
    return {0, 0};
}

int MessageView::iconExtent() const {
    return m_kind == Kind::error ? 28 : 32;
}

// Where the icon, the title and the text stand together; without the icon where there is no room for all.
QRect MessageView::block() const {
    const QSize text = m_text->sizeFor(std::min(kWidest, width() - 2 * kSide));
    const int words = Theme::lineHeight(FontRole::messageTitle) + kBelowTitle + text.height();
    const int all = iconExtent() + kBelowIcon + words;
    const int height = all <= this->height() ? all : words;
    return {0, std::max(0, (this->height() - height) / 2), width(), height};
}

void MessageView::placeText() {
    const QSize size = m_text->sizeFor(std::min(kWidest, width() - 2 * kSide));
    m_text->setGeometry((width() - size.width()) / 2, block().bottom() + 1 - size.height(), size.width(),
                        size.height());
    setToolTip(rect().contains(m_text->geometry()) ? QString() : m_text->text());
}

void MessageView::resizeEvent(QResizeEvent*) {
    placeText();
}

void MessageView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), themeColor(ColorRole::background));
    const QRect area = block();
    const bool isError = m_kind == Kind::error;
    const int titleHeight = Theme::lineHeight(FontRole::messageTitle);
    const QRect title(kSide, m_text->y() - kBelowTitle - titleHeight, width() - 2 * kSide, titleHeight);
    if (title.top() > area.top()) {
        const int icon = iconExtent();
        Symbols::draw(painter, QRectF((width() - icon) / 2.0, area.top(), icon, icon), m_symbol,
                      themeColor(isError ? ColorRole::badIcon : ColorRole::muted),
                      isError ? Symbols::kStroke : Symbols::kThinStroke);
    }
    Painting::text(painter, title, m_title, FontRole::messageTitle, themeColor(ColorRole::text),
                   Qt::AlignCenter);
}

} // namespace tarnquill

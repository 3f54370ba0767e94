#include "chrome/SearchBar.h"

#include "chrome/FocusRing.h"
#include "chrome/KeyNames.h"
#include "chrome/Painting.h"
#include "chrome/PaneButton.h"
#include "chrome/TextLabel.h"

#include <QActionGroup>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

constexpr int kHeight = 28;
constexpr int kRadius = 6;
constexpr int kIcon = 14;

PaneButton* compactButton(const QString& title, const QString& symbol, const QString& help) {
    auto* button = new PaneButton(title, symbol);
    button->setIconOnly(true);
    button->setSize(PaneButton::Size::compact);
    button->setToolTip(help);
    return button;
}

class SearchSymbol : public QWidget {
public:
    SearchSymbol() {
        setFixedSize(kIcon, kIcon);
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        Painting::symbol(painter, rect(), u"search"_s, kIcon, themeColor(ColorRole::muted));
    }
};

} // namespace

class SearchBar::Line : public QWidget {
public:
    Line() { setFixedSize(1, 16); }

protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(rect(), themeColor(ColorRole::border)); }
};

SearchBar::SearchBar(Parts parts, QWidget* parent)
    : QWidget(parent),
      m_scopeButton(new PaneButton({}, {})),
      m_scopeLine(new Line),
      m_field(new QLineEdit),
      m_count(new TextLabel({}, FontRole::note, ColorRole::muted)),
      m_clear(compactButton(tr("Clear search"), u"circle-x"_s, tr("Clear the search"))),
      m_scopes(new QMenu(this)) {
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    setFocusProxy(m_field);
    FocusRing::attach(this, kRadius, FocusRing::Shape::field);

    m_scopeButton->setSize(PaneButton::Size::compact);
    m_scopeButton->setMenu(m_scopes);
    m_scopeButton->hide();
    m_scopeLine->hide();
    m_field->setFrame(false);
    m_field->setPlaceholderText(tr("Search"));
    m_field->setAccessibleName(tr("Search"));
    m_field->installEventFilter(this);
    m_count->hide();
    m_clear->setFixedWidth(20);
    m_clear->hide();

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(3, 0, 3, 0);
    layout->setSpacing(0);
    layout->addWidget(m_scopeButton);
    layout->addWidget(m_scopeLine);
    layout->addSpacing(8);
    layout->addWidget(new SearchSymbol);
    layout->addSpacing(3);
    layout->addWidget(m_field, 1);
    layout->addSpacing(4);
    layout->addWidget(m_count);
    layout->addSpacing(7);
    layout->addWidget(m_clear);
    if (parts == Parts::withNavigation) {
        m_field->setToolTip(KeyNames::forPlatform(tr("Search (⌘F)")));
        m_previous = compactButton(tr("Previous match"), u"chevron-up"_s,
                                   KeyNames::forPlatform(tr("Previous match (⇧⌘G)")));
        m_next =
            compactButton(tr("Next match"), u"chevron-down"_s, KeyNames::forPlatform(tr("Next match (⌘G)")));
        for (PaneButton* button : {m_previous, m_next}) {
            button->setTint(ColorRole::secondaryText);
            button->setEnabled(false);
        }
        layout->addWidget(new Line);
        layout->addWidget(m_previous);
        layout->addWidget(m_next);
        connect(m_previous, &PaneButton::clicked, this, &SearchBar::previousRequested);
        connect(m_next, &PaneButton::clicked, this, &SearchBar::nextRequested);
    }

    connect(m_field, &QLineEdit::textChanged, this, [this](const QString& text) {
        m_clear->setVisible(!text.isEmpty());
        Q_EMIT textChanged(text);
    });
    connect(m_clear, &PaneButton::clicked, this, [this] {
        m_field->clear();
        m_field->setFocus();
    });
}

QString SearchBar::text() const {
    return m_field->text();
}

void SearchBar::setText(const QString& text) {
    m_field->setText(text);
}

void SearchBar::focusField() {
    m_field->setFocus(Qt::ShortcutFocusReason);
    m_field->selectAll();
}

void SearchBar::setScopes(const QStringList& titles, const QString& help) {
    m_scopes->clear();
    auto* group = new QActionGroup(m_scopes);
    for (int index = 0; index < titles.size(); ++index) {
        QAction* action = group->addAction(titles[index]);
        action->setCheckable(true);
        connect(action, &QAction::triggered, this, [this, index] { setScope(index); });
    }
    m_scopes->addActions(group->actions());
    m_scopeButton->setToolTip(help);
    m_scopeButton->setVisible(!titles.isEmpty());
    m_scopeLine->setVisible(!titles.isEmpty());
    m_scope = -1;
    setScope(0);
}

void SearchBar::setScope(int index) {
    if (index == m_scope || index < 0 || index >= m_scopes->actions().size()) {
        return;
    }
    m_scope = index;
    QAction* action = m_scopes->actions().at(index);
    action->setChecked(true);
    m_scopeButton->setTitle(action->text());
    m_scopeButton->setAccessibleName(tr("Search in: %1").arg(action->text()));
    Q_EMIT scopeChanged(index);
}

void SearchBar::setCount(const QString& text, bool canNavigate) {
    m_count->setText(text);
    m_count->setVisible(!text.isEmpty());
    m_field->setAccessibleDescription(text);
    if (m_next != nullptr) {
        m_previous->setEnabled(canNavigate);
        m_next->setEnabled(canNavigate);
    }
}

void SearchBar::setWidths(int minimum, int preferred) {
    m_minimumWidth = minimum;
    m_preferredWidth = preferred;
    updateGeometry();
}

QSize SearchBar::sizeHint() const {
    return {m_preferredWidth, kHeight};
}

QSize SearchBar::minimumSizeHint() const {
    return {m_minimumWidth, kHeight};
}

bool SearchBar::handleKey(int key, Qt::KeyboardModifiers modifiers) {
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Q_EMIT(modifiers.testFlag(Qt::ShiftModifier) ? previousRequested() : nextRequested());
        return true;
    case Qt::Key_Escape:
        if (m_escapeClears && !m_field->text().isEmpty()) {
            m_field->clear();
        } else {
            Q_EMIT cancelled();
        }
        return true;
    default:
        return false;
    }
}

bool SearchBar::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const auto* press = static_cast<QKeyEvent*>(event);
        return handleKey(press->key(), press->modifiers());
    }
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        update();
    }
    return QWidget::eventFilter(object, event);
}

void SearchBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const ColorRole border = m_field->hasFocus() ? ColorRole::accent : ColorRole::field;
    Painting::box(painter, rect(), kRadius, themeColor(ColorRole::background), themeColor(border));
}

// A click on the frame is meant for the field.
void SearchBar::mousePressEvent(QMouseEvent*) {
    m_field->setFocus(Qt::MouseFocusReason);
}

} // namespace tarnquill

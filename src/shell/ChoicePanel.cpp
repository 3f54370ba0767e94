#include "shell/ChoicePanel.h"

#include "chrome/Painting.h"
#include "chrome/TextLabel.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QStyledItemDelegate>
#include <QTextLayout>
#include <QtMath>

#include <algorithm>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidth = 560;
constexpr int kFieldHeight = 44;
constexpr int kSentenceHeight = 40;
constexpr int kRowHeight = 32;
constexpr int kMostRows = 10; // that are seen at once
constexpr int kListPadding = 4;
constexpr int kPadding = 12; // from a row's or the panel's edges to what is in it
constexpr int kRowRadius = 5;
constexpr int kIcon = 16;
constexpr int kLongestQuery = 100;
constexpr int kGap = 12;

// The symbol at the start and the line below.
class FieldRow : public QWidget {
public:
    explicit FieldRow(QLineEdit* field) {
        setFixedHeight(kFieldHeight);
        auto* const layout = new QHBoxLayout(this);
        layout->setContentsMargins(kListPadding + kPadding + kIcon + kGap - 2, 0, kPadding, 1);
        layout->addWidget(field);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(0, height() - 1, width(), 1, themeColor(ColorRole::hairline));
        Painting::symbol(painter, QRect(kListPadding + kPadding, 0, kIcon, height() - 1), u"search"_s, kIcon,
                         themeColor(ColorRole::muted));
    }
};

// Draws the title with the letters that matched in another ink, and returns how wide it is.
int drawTitle(QPainter& painter, const QRect& area, const Choice& choice,
              const std::vector<std::size_t>& matched) {
    const auto font = Theme::instance().font(FontRole::body);
    const auto text = QFontMetrics(font).elidedText(choice.title, Qt::ElideRight, area.width());
    QTextCharFormat hit;
    hit.setForeground(themeColor(ColorRole::accentText));
    hit.setFontWeight(QFont::DemiBold);
    QList<QTextLayout::FormatRange> formats;
    for (const auto position : matched) {
        formats.append({.start = static_cast<int>(position), .length = 1, .format = hit});
    }
    QTextLayout layout(text, font);
    layout.setFormats(formats);
    layout.beginLayout();
    auto line = layout.createLine();
    layout.endLayout();
    painter.setPen(themeColor(ColorRole::text));
    layout.draw(&painter, QPointF(area.left(), area.top() + (area.height() - line.height()) / 2));
    return qCeil(line.naturalTextWidth());
}

class RowDelegate : public QStyledItemDelegate {
public:
    RowDelegate(const ChoiceModel& model, QListView& list) : QStyledItemDelegate(&list), m_model(model) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const auto& choice = m_model.choice(index.row());
        const bool isCurrent = static_cast<const QListView*>(parent())->currentIndex() == index;
        const auto quiet = themeColor(isCurrent ? ColorRole::secondaryText : ColorRole::muted);
        auto area = option.rect.adjusted(kPadding, 0, -kPadding, 0);
        painter->save();
        if (isCurrent) {
            Painting::box(*painter, option.rect, kRowRadius, themeColor(ColorRole::selectedRow));
        }
        if (!choice.symbol.isEmpty()) {
            Painting::symbol(*painter, QRect(area.left(), area.top(), kIcon, area.height()), choice.symbol,
                             kIcon, isCurrent ? themeColor(ColorRole::accentText) : quiet);
        }
        area.setLeft(area.left() + kIcon + kGap);
        if (!choice.shortcut.isEmpty()) {
            Painting::text(*painter, area, choice.shortcut, FontRole::note, quiet,
                           Qt::AlignTrailing | Qt::AlignVCenter);
            area.setRight(area.right() - Painting::textWidth(choice.shortcut, FontRole::note) - kGap);
        }
        area.setLeft(area.left() + drawTitle(*painter, area, choice, m_model.matched(index.row())) + kGap);
        if (area.width() > kGap) {
            Painting::text(*painter, area, choice.detail, FontRole::note, quiet);
        }
        painter->restore();
    }

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& /*option*/,
                                 const QModelIndex& /*index*/) const override {
        return {0, kRowHeight};
    }

private:
    const ChoiceModel& m_model;
};

} // namespace

// The keyboard stays in the field, which walks in the list for it.
class ChoicePanel::List : public QListView {
public:
    List(ChoiceModel& model, const QString& name) {
        setAccessibleName(name);
        setFocusPolicy(Qt::NoFocus);
        setFrameShape(QFrame::NoFrame);
        setViewportMargins(kListPadding, kListPadding, kListPadding, kListPadding);
        setSelectionMode(NoSelection);
        setVerticalScrollMode(ScrollPerPixel);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setUniformItemSizes(true);
        setMouseTracking(true);
        viewport()->setAutoFillBackground(false);
        setModel(&model);
        setItemDelegate(new RowDelegate(model, *this));
    }

    void goTo(int row) {
        setCurrentIndex(model()->index(row, 0));
        viewport()->update();
    }

    void step(int rows) {
        const int count = model()->rowCount();
        if (count > 0) {
            goTo((currentIndex().row() + rows + count) % count);
        }
    }

protected:
    // The row under the pointer is the current one, as in a menu.
    void mouseMoveEvent(QMouseEvent* event) override {
        if (const auto index = indexAt(event->position().toPoint()); index.isValid()) {
            selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
            viewport()->update();
        }
    }
};

ChoicePanel::ChoicePanel(const QString& name, const QString& prompt, QWidget& window)
    : ChoicePanel(name, prompt, window, new QWidget) {}

ChoicePanel::ChoicePanel(const QString& name, const QString& prompt, QWidget& window, QWidget* content)
    : Popover({}, content, &window),
      m_window(window),
      m_content(content),
      m_field(new QLineEdit),
      m_sentence(new TextLabel({}, FontRole::body, ColorRole::muted)),
      m_list(new List(m_model, name)) {
    setAccessibleName(name);
    m_field->setFrame(false);
    m_field->setMaxLength(kLongestQuery);
    m_field->setPlaceholderText(prompt);
    m_field->setAccessibleName(prompt);
    m_field->setFont(Theme::instance().font(FontRole::body));
    m_field->installEventFilter(this);
    m_sentence->setFixedHeight(kSentenceHeight);
    m_sentence->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);

    auto* const sentenceRow = new QHBoxLayout;
    sentenceRow->setContentsMargins(kListPadding + kPadding, 0, kListPadding + kPadding, 0);
    sentenceRow->addWidget(m_sentence);
    content->setFixedWidth(kWidth);
    auto* const column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(new FieldRow(m_field));
    column->addLayout(sentenceRow);
    column->addWidget(m_list);
    column->addStretch();

    connect(m_field, &QLineEdit::textChanged, this, &ChoicePanel::filter);
    connect(m_list, &QAbstractItemView::clicked, this, &ChoicePanel::choose);
    connect(m_list->selectionModel(), &QItemSelectionModel::currentChanged, this, &ChoicePanel::tellCurrent);
    // What is offered may be as large as the clipboard, so nothing of it is kept.
    connect(this, &Popover::closed, &m_model, [this] { m_model.setChoices({}); });
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget* /*before*/, const QWidget* now) {
        if (now == nullptr || !isAncestorOf(now)) {
            close();
        }
    });
}

void ChoicePanel::offer(const QList<Choice>& choices, const QString& sentence) {
    close();
    m_offered = sentence;
    m_model.setChoices(choices);
    m_field->clear();
    filter({});
    // The panel keeps its height while letters narrow the list.
    const auto rows = static_cast<int>(std::min<qsizetype>(choices.size(), kMostRows));
    const int listHeight = rows > 0 ? rows * kRowHeight + 2 * kListPadding : 0;
    m_list->setFixedHeight(listHeight);
    m_content->setFixedHeight(kFieldHeight + (sentence.isEmpty() ? 0 : kSentenceHeight) + listHeight);
    openAtTopOf(&m_window);
}

bool ChoicePanel::encloses(const QWidget& widget) {
    const auto* parent = &widget;
    while (parent != nullptr && qobject_cast<const ChoicePanel*>(parent) == nullptr) {
        parent = parent->parentWidget();
    }
    return parent != nullptr;
}

void ChoicePanel::filter(const QString& query) {
    m_model.setQuery(query);
    const bool isEmpty = m_model.rowCount() == 0;
    m_sentence->setText(isEmpty && !query.isEmpty() ? tr("Nothing matches “%1”.").arg(query) : m_offered);
    m_sentence->setVisible(!m_sentence->text().isEmpty());
    m_list->setVisible(!isEmpty);
    m_list->goTo(0);
    tellCurrent();
}

// A screen reader follows the keyboard, which never is in the list.
void ChoicePanel::tellCurrent() {
    const auto current = m_list->currentIndex();
    m_field->setAccessibleDescription(current.isValid() ? current.data(Qt::AccessibleTextRole).toString()
                                                        : m_sentence->text());
}

void ChoicePanel::choose(const QModelIndex& index) {
    if (index.isValid()) {
        const auto choose = m_model.choice(index.row()).choose;
        close();
        choose();
    }
}

bool ChoicePanel::handleKey(int key) {
    switch (key) {
    case Qt::Key_Down:
        m_list->step(1);
        return true;
    case Qt::Key_Up:
        m_list->step(-1);
        return true;
    case Qt::Key_Home:
        m_list->goTo(0);
        return true;
    case Qt::Key_End:
        m_list->goTo(m_model.rowCount() - 1);
        return true;
    case Qt::Key_PageDown:
        m_list->goTo(std::min(m_list->currentIndex().row() + kMostRows, m_model.rowCount() - 1));
        return true;
    case Qt::Key_PageUp:
        m_list->goTo(std::max(m_list->currentIndex().row() - kMostRows, 0));
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        choose(m_list->currentIndex());
        return true;
    default:
        return false;
    }
}

bool ChoicePanel::eventFilter(QObject* object, QEvent* event) {
    if (object == m_field && event->type() == QEvent::KeyPress) {
        const auto& press = static_cast<QKeyEvent&>(*event);
        const auto modifiers = press.modifiers() & ~Qt::KeypadModifier;
        return modifiers == Qt::NoModifier && handleKey(press.key());
    }
    if (event->type() == QEvent::Shortcut) {
        close(); // so that the command finds the keyboard where it was
    }
    return Popover::eventFilter(object, event);
}

} // namespace tarnquill

#include "shell/SidebarView.h"

#include "chrome/MenuSurface.h"
#include "chrome/Painting.h"
#include "chrome/PaneButton.h"
#include "shell/ToolCatalogue.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

constexpr int kTopRow = 52;
constexpr int kRow = 32;
constexpr int kInset = 8;
constexpr int kRowRadius = 6;
constexpr int kIconX = 18;
constexpr int kIcon = 16;
constexpr int kTextX = 44;
constexpr int kTitle = 16;
constexpr int kAboveTitle = 16;
constexpr int kAboveFirstTitle = 8;
constexpr int kBelowTitle = 4;
constexpr int kFocusLine = 2;

enum ItemRole { toolIDRole = Qt::UserRole, symbolRole };

bool isSection(const QModelIndex& index) {
    return !index.data(toolIDRole).isValid();
}

} // namespace

class SidebarView::List : public QListWidget {
public:
    explicit List(const ToolCatalogue& catalogue, QWidget* parent);

    void select(const QString& toolID);
    [[nodiscard]] QString selection() const { return currentIndex().data(toolIDRole).toString(); }

protected:
    // Home and Page Up would land on a section's title, which cannot be selected: the row under it is meant.
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override {
        const auto index = QListWidget::moveCursor(action, modifiers);
        return isSection(index) ? index.siblingAtRow(index.row() + 1) : index;
    }

private:
    class Delegate;
};

class SidebarView::List::Delegate : public QStyledItemDelegate {
public:
    explicit Delegate(const List& list) : m_list(list) {}

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& /*option*/,
                                 const QModelIndex& index) const override {
        if (!isSection(index)) {
            return {0, kRow};
        }
        return {0, (index.row() == 0 ? kAboveFirstTitle : kAboveTitle) + kTitle + kBelowTitle};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const auto text = index.data().toString();
        if (isSection(index)) {
            const QRect title(kIconX, option.rect.bottom() + 1 - kBelowTitle - kTitle,
                              option.rect.width() - kIconX, kTitle);
            Painting::text(*painter, title, text, FontRole::sidebarSection, themeColor(ColorRole::muted));
            return;
        }
        const bool isSelected = index == m_list.currentIndex();
        const auto row = option.rect.adjusted(kInset, 0, -kInset, 0);
        if (isSelected) {
            Painting::box(*painter, row, kRowRadius, themeColor(ColorRole::selectedRow));
        } else if (option.state.testFlag(QStyle::State_MouseOver)) {
            Painting::box(*painter, row, kRowRadius, themeColor(ColorRole::hover));
        }
        if (isSelected && m_list.hasFocus()) {
            Painting::box(*painter, row, kRowRadius, {}, themeColor(ColorRole::accent), kFocusLine);
        }
        const QRect icon(kIconX, row.top(), kIcon, row.height());
        Painting::symbol(*painter, icon, index.data(symbolRole).toString(), kIcon,
                         themeColor(isSelected ? ColorRole::accent : ColorRole::muted));
        const QRect label(kTextX, row.top(), row.right() - kInset - kTextX, row.height());
        Painting::text(*painter, label, text,
                       isSelected ? FontRole::sidebarRowSelected : FontRole::sidebarRow,
                       themeColor(isSelected ? ColorRole::accentText : ColorRole::text));
    }

private:
    const List& m_list;
};

SidebarView::List::List(const ToolCatalogue& catalogue, QWidget* parent) : QListWidget(parent) {
    setItemDelegate(new Delegate(*this));
    itemDelegate()->setParent(this);
    setFrameShape(QFrame::NoFrame);
    setAccessibleName(tr("Tools"));
    setFocusPolicy(Qt::TabFocus); // a click leaves the keyboard to the tool
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setMouseTracking(true);
    viewport()->setAutoFillBackground(false);
    for (const auto category : kToolCategories) {
        auto* const section = new QListWidgetItem(sectionTitle(category), this);
        section->setFlags(Qt::NoItemFlags);
        for (const auto* const tool : catalogue.tools(category)) {
            auto* const row = new QListWidgetItem(tool->name, this);
            row->setData(toolIDRole, tool->id);
            row->setData(symbolRole, tool->symbol);
        }
    }
}

void SidebarView::List::select(const QString& toolID) {
    const auto found = model()->match(model()->index(0, 0), toolIDRole, toolID, 1,
                                      Qt::MatchExactly | Qt::MatchCaseSensitive);
    setCurrentIndex(found.value(0));
}

SidebarView::SidebarView(const ToolCatalogue& catalogue, QWidget* parent)
    : QWidget(parent),
      m_list(new List(catalogue, this)),
      m_menuButton(new PaneButton(tr("Menu"), u"menu"_s)) {
    setMinimumWidth(kMinimumWidth);
    setMaximumWidth(kMaximumWidth);
    m_menuButton->setIconOnly(true);
    m_menuButton->setIconExtent(kIcon);
    m_menuButton->setToolTip(tr("Menu"));

    auto* const top = new QHBoxLayout;
    top->addStretch();
    top->addWidget(m_menuButton);
    top->setContentsMargins(0, 0, kInset, 0);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    top->addStrut(kTopRow);
    column->addLayout(top);
    column->addWidget(m_list);
    setFocusProxy(m_list);
    setMenu(nullptr);

    connect(m_menuButton, &PaneButton::clicked, this,
            [this] { MenuSurface::popUpBelow(*m_menu, *m_menuButton); });
    connect(m_list, &QListWidget::currentItemChanged, this, [this] { Q_EMIT selectionChanged(selection()); });
}

QString SidebarView::selection() const {
    return m_list->selection();
}

void SidebarView::setSelection(const QString& toolID) {
    const QSignalBlocker onlyTheUserIsReported(m_list);
    m_list->select(toolID);
}

const QWidget& SidebarView::menuButton() const {
    return *m_menuButton;
}

void SidebarView::setMenu(QMenu* menu) {
    m_menu = menu;
    m_menuButton->setVisible(menu != nullptr);
}

void SidebarView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), themeColor(ColorRole::sidebar));
    Painting::symbol(painter, {kIconX, 0, kIcon, kTopRow}, u"feather"_s, kIcon,
                     themeColor(ColorRole::accent));
    const auto nameEnd = m_menuButton->isHidden() ? width() - kInset : m_menuButton->x();
    Painting::text(painter, {kTextX, 0, nameEnd - kTextX, kTopRow}, u"Tarnquill"_s, FontRole::productName,
                   themeColor(ColorRole::text));
}

} // namespace tarnquill

#include "csv/CSVColumnList.h"

#include "chrome/Painting.h"
#include "csv/CSVTableModel.h"

#include <QAbstractListModel>
#include <QKeyEvent>
#include <QStyleOptionMenuItem>
#include <QStyledItemDelegate>

#include <algorithm>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

constexpr int kItemHeight = 28;
constexpr int kSeparatorHeight = 9;
constexpr int kPadding = 4;
constexpr int kNarrowest = 180;
constexpr int kWidest = 320;
constexpr int kNameMargins = 42; // beside the name in a menu's item
constexpr int kTallest = 12 * kItemHeight;

// What follows the columns.
enum Entry { separator, showAll, hideAll, entryCount };

} // namespace

class CSVColumnList::Model : public QAbstractListModel {
public:
    explicit Model(CSVColumnList& list) : QAbstractListModel(&list), m_tool(list.m_tool) {
        connect(&m_tool, &CSVToolViewModel::documentChanged, this, [this] {
            beginResetModel();
            endResetModel();
        });
        connect(&m_tool, &CSVToolViewModel::visibleColumnsChanged, this,
                [this] { Q_EMIT dataChanged(index(0), index(rowCount() - 1)); });
    }

    [[nodiscard]] int columns() const {
        return static_cast<int>(
            std::min<std::size_t>(m_tool.document()->columnCount(), CSVTableModel::kMostColumns));
    }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : columns() + entryCount;
    }

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        const auto isColumn = index.row() < columns();
        if (role == Qt::CheckStateRole && isColumn) {
            return m_tool.isHidden(static_cast<std::size_t>(index.row())) ? Qt::Unchecked : Qt::Checked;
        }
        if (role != Qt::DisplayRole) {
            return {};
        }
        if (isColumn) {
            return CSVTableModel::columnTitle(*m_tool.document(), static_cast<std::size_t>(index.row()));
        }
        return index.row() - columns() == showAll   ? tr("Show All")
               : index.row() - columns() == hideAll ? tr("Hide All")
                                                    : QVariant();
    }

    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override {
        return isSeparator(index) ? Qt::NoItemFlags : Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    }

    [[nodiscard]] bool isSeparator(const QModelIndex& index) const {
        return index.row() == columns() + separator;
    }

private:
    CSVToolViewModel& m_tool;
};

// Draws the rows as those of a menu.
class CSVColumnList::Delegate : public QStyledItemDelegate {
public:
    explicit Delegate(CSVColumnList& list) : QStyledItemDelegate(&list), m_list(list) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyleOptionMenuItem item;
        item.rect = option.rect;
        item.state = option.state;
        item.state.setFlag(QStyle::State_Selected, index == m_list.currentIndex());
        item.menuItemType = m_list.m_model->isSeparator(index) ? QStyleOptionMenuItem::Separator
                                                               : QStyleOptionMenuItem::Normal;
        item.menuHasCheckableItems = true;
        const auto check = index.data(Qt::CheckStateRole);
        item.checkType =
            check.isValid() ? QStyleOptionMenuItem::NonExclusive : QStyleOptionMenuItem::NotCheckable;
        item.checked = check.toInt() == Qt::Checked;
        item.text =
            option.fontMetrics.elidedText(index.data().toString(), Qt::ElideRight, m_list.nameWidth());
        item.text.replace(u'&', u"&&"_s); // or it would mark a key
        m_list.style()->drawControl(QStyle::CE_MenuItem, &item, painter, &m_list);
    }

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& /*option*/,
                                 const QModelIndex& index) const override {
        return {kNarrowest, m_list.m_model->isSeparator(index) ? kSeparatorHeight : kItemHeight};
    }

private:
    CSVColumnList& m_list;
};

CSVColumnList::CSVColumnList(CSVToolViewModel& tool, QWidget* parent)
    : CSVNameList(parent), m_tool(tool), m_model(new Model(*this)) {
    setAccessibleName(tr("Columns"));
    setViewportMargins(kPadding, kPadding, kPadding, kPadding);
    setFont(Theme::instance().font(FontRole::body));
    setModel(m_model);
    setItemDelegate(new Delegate(*this));
    connect(this, &QAbstractItemView::clicked, this, &CSVColumnList::trigger);
}

void CSVColumnList::start() {
    setCurrentIndex(m_model->index(0));
    scrollToTop();
}

QSize CSVColumnList::sizeHint() const {
    const auto width = std::clamp(widestName() + kNameMargins + 2 * kPadding, kNarrowest, kWidest);
    const auto height = (m_model->columns() + 2LL) * kItemHeight + kSeparatorHeight;
    return {width, static_cast<int>(std::min<long long>(height, kTallest)) + 2 * kPadding};
}

int CSVColumnList::nameWidth() const {
    return viewport()->width() - kNameMargins;
}

void CSVColumnList::trigger(const QModelIndex& index) {
    if (!index.isValid()) {
        return;
    }
    const auto column = static_cast<std::size_t>(index.row());
    switch (index.row() - m_model->columns()) {
    case separator:
        break;
    case showAll:
        m_tool.showAllColumns();
        break;
    case hideAll:
        m_tool.hideAllColumns();
        break;
    default:
        m_tool.setHidden(column, !m_tool.isHidden(column));
    }
}

void CSVColumnList::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Space || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        trigger(currentIndex());
    } else if (event->key() == Qt::Key_Escape) {
        event->ignore(); // closes what the list is in
    } else {
        CSVNameList::keyPressEvent(event);
    }
}

// The row under the pointer is the current one, as in a menu.
void CSVColumnList::mouseMoveEvent(QMouseEvent* event) {
    const auto index = indexAt(event->position().toPoint());
    if (index.isValid() && !m_model->isSeparator(index)) {
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
        viewport()->update();
    }
    CSVNameList::mouseMoveEvent(event);
}

} // namespace tarnquill

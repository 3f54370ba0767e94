#include "csv/CSVFilterList.h"

#include "chrome/FocusOrder.h"
#include "chrome/Painting.h"
#include "csv/CSVTableModel.h"

#include <QAbstractListModel>
#include <QFocusEvent>
#include <QLineEdit>
#include <QStyleOptionFrame>
#include <QStyledItemDelegate>

#include <algorithm>

namespace tarnquill {

namespace {

constexpr int kRowHeight = 36;
constexpr int kFieldHeight = 28;
constexpr int kMargin = 16;
constexpr int kTextInset = 8;
constexpr int kNarrowestName = 76;
constexpr int kWidestName = 176;
constexpr int kFieldWidth = 196;
constexpr int kPadding = 8;
constexpr int kMostShownRows = 9;

} // namespace

class CSVFilterList::Model : public QAbstractListModel {
public:
    Model(CSVToolViewModel& tool, QObject* parent) : QAbstractListModel(parent), m_tool(tool) {
        connect(&tool, &CSVToolViewModel::documentChanged, this, [this] {
            beginResetModel();
            endResetModel();
        });
        connect(&tool, &CSVToolViewModel::queryChanged, this, [this] {
            if (rowCount() > 0) {
                Q_EMIT dataChanged(index(0), index(rowCount() - 1));
            }
        });
    }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override {
        const auto columns =
            std::min<std::size_t>(m_tool.document()->columnCount(), CSVTableModel::kMostColumns);
        return parent.isValid() ? 0 : static_cast<int>(columns);
    }

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        const auto column = static_cast<std::size_t>(index.row());
        switch (role) {
        case Qt::DisplayRole:
            return CSVTableModel::columnTitle(*m_tool.document(), column);
        case Qt::EditRole:
            return m_tool.columnFilter(column);
        default:
            return {};
        }
    }

    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override {
        return QAbstractListModel::flags(index) | Qt::ItemIsEditable;
    }

private:
    CSVToolViewModel& m_tool;
};

class CSVFilterList::Delegate : public QStyledItemDelegate {
public:
    Delegate(CSVToolViewModel& tool, CSVFilterList& list)
        : QStyledItemDelegate(&list), m_tool(tool), m_list(list) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const QRect label(option.rect.left() + kMargin, option.rect.top(), m_list.nameWidth(), kRowHeight);
        Painting::text(*painter, label, index.data().toString(), FontRole::body,
                       themeColor(ColorRole::muted));
        QStyleOptionFrame frame;
        frame.initFrom(option.widget);
        frame.rect = fieldOf(option.rect);
        frame.lineWidth = 1;
        frame.state = QStyle::State_Enabled | QStyle::State_Sunken;
        option.widget->style()->drawPrimitive(QStyle::PE_PanelLineEdit, &frame, painter);
        Painting::text(*painter, frame.rect.adjusted(kTextInset, 0, -kTextInset, 0),
                       index.data(Qt::EditRole).toString(), FontRole::body, themeColor(ColorRole::text));
    }

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& /*option*/,
                                 const QModelIndex& /*index*/) const override {
        return {kFieldWidth, kRowHeight};
    }

    [[nodiscard]] QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                                        const QModelIndex& index) const override {
        auto* const field = new QLineEdit(parent);
        field->setAccessibleName(tr("Filter for %1").arg(index.data().toString()));
        field->setFont(Theme::instance().font(FontRole::body));
        // The rows follow while the user types.
        connect(field, &QLineEdit::textEdited, &m_tool,
                [this, column = static_cast<std::size_t>(index.row())](const QString& text) {
                    m_tool.setColumnFilter(column, text);
                });
        return field;
    }

    void setEditorData(QWidget* editor, const QModelIndex& index) const override {
        auto& field = static_cast<QLineEdit&>(*editor);
        const auto filter = index.data(Qt::EditRole).toString();
        // A blank text is no filter, but the user may have just begun to type.
        if (filter != field.text() && !(filter.isEmpty() && field.text().trimmed().isEmpty())) {
            field.setText(filter);
        }
    }

    void setModelData(QWidget* /*editor*/, QAbstractItemModel* /*model*/,
                      const QModelIndex& /*index*/) const override {}

    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& /*index*/) const override {
        editor->setGeometry(fieldOf(option.rect));
    }

private:
    [[nodiscard]] QRect fieldOf(const QRect& row) const {
        const auto before = kMargin + m_list.nameWidth() + kTextInset;
        return {row.left() + before, row.top() + (kRowHeight - kFieldHeight) / 2,
                row.width() - before - kMargin, kFieldHeight};
    }

    CSVToolViewModel& m_tool;
    CSVFilterList& m_list;
};

CSVFilterList::CSVFilterList(CSVToolViewModel& tool, QWidget* parent)
    : CSVNameList(parent), m_model(new Model(tool, this)) {
    setAccessibleName(tr("Column Filters"));
    setViewportMargins(0, kPadding, 0, kPadding);
    setEditTriggers(AllEditTriggers);
    setTabKeyNavigation(true);
    setUniformItemSizes(true);
    setModel(m_model);
    setItemDelegate(new Delegate(tool, *this));
    connect(m_model, &QAbstractItemModel::modelReset, this, &CSVFilterList::fitNames);
    fitNames();
}

void CSVFilterList::editColumn(std::size_t column) {
    if (auto* const open = indexWidget(currentIndex()); open != nullptr && state() == EditingState) {
        CSVNameList::closeEditor(open, QAbstractItemDelegate::NoHint);
    }
    const auto index = m_model->index(static_cast<int>(column));
    setCurrentIndex(index); // which opens its field, if it was not the current one
    if (state() != EditingState) {
        CSVNameList::edit(index);
    }
}

QSize CSVFilterList::sizeHint() const {
    return {2 * kMargin + m_nameWidth + kTextInset + kFieldWidth,
            std::min(m_model->rowCount(), kMostShownRows) * kRowHeight + 2 * kPadding};
}

void CSVFilterList::fitNames() {
    m_nameWidth = std::clamp(widestName(), kNarrowestName, kWidestName);
    updateGeometry();
}

void CSVFilterList::focusInEvent(QFocusEvent* event) {
    CSVNameList::focusInEvent(event);
    if (event->reason() != Qt::OtherFocusReason && m_model->rowCount() > 0) {
        editColumn(static_cast<std::size_t>(
            event->reason() == Qt::BacktabFocusReason ? m_model->rowCount() - 1 : 0));
    }
}

// Tab goes from field to field and, behind the last one, on to the next control.
void CSVFilterList::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
    const auto row = currentIndex().row();
    const auto isNext = hint == QAbstractItemDelegate::EditNextItem;
    const auto isPrevious = hint == QAbstractItemDelegate::EditPreviousItem;
    CSVNameList::closeEditor(editor, QAbstractItemDelegate::NoHint);
    if (hint == QAbstractItemDelegate::RevertModelCache) {
        Q_EMIT escapePressed();
        return;
    }
    const auto target = row + (isNext ? 1 : isPrevious ? -1 : 0);
    if (target == row) {
        return;
    }
    if (target >= 0 && target < m_model->rowCount()) {
        editColumn(static_cast<std::size_t>(target));
    } else {
        FocusOrder::step(*parentWidget(), FocusOrder::direction(isNext));
    }
}

} // namespace tarnquill

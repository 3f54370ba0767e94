#include "markdown/MarkdownOutlinePicker.h"

#include "chrome/Painting.h"

#include <QListWidget>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

#include <algorithm>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidth = 300;
constexpr int kMostRows = 14;
constexpr int kRowHeight = 28;
constexpr int kMargin = 12;
constexpr int kIndent = 14;
constexpr int kLineRole = Qt::UserRole;
constexpr int kLevelRole = Qt::UserRole + 1;

class HeadingDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override {
        return {0, kRowHeight};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const auto isCurrent = option.state.testFlag(QStyle::State_Selected);
        if (isCurrent || option.state.testFlag(QStyle::State_MouseOver)) {
            painter->fillRect(option.rect, themeColor(isCurrent ? ColorRole::selectedRow : ColorRole::hover));
        }
        const auto indent = kMargin + (index.data(kLevelRole).toInt() - 1) * kIndent;
        Painting::text(*painter, option.rect.adjusted(indent, 0, -kMargin, 0), index.data().toString(),
                       FontRole::body, themeColor(ColorRole::text));
    }
};

QWidget* makeContent(QListWidget* list) {
    auto* const content = new QWidget;
    auto* const column = new QVBoxLayout(content);
    column->setContentsMargins(1, 0, 1, kMargin);
    column->addWidget(list);
    return content;
}

} // namespace

MarkdownOutlinePicker::MarkdownOutlinePicker(QWidget* parent)
    : Popover(u"Outline"_s, makeContent(new QListWidget), parent), m_list(findChild<QListWidget*>()) {
    m_list->setItemDelegate(new HeadingDelegate(m_list));
    m_list->setFixedWidth(kWidth);
    m_list->setFrameShape(QFrame::NoFrame);
    m_list->viewport()->setAutoFillBackground(false); // on the popover's own fill
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setUniformItemSizes(true);
    m_list->setMouseTracking(true);
    m_list->setAccessibleName(u"Headings"_s);
    const auto pick = [this](const QListWidgetItem* item) {
        const auto line = item->data(kLineRole).toInt();
        close();
        Q_EMIT linePicked(line);
    };
    connect(m_list, &QListWidget::itemClicked, this, pick);
    connect(m_list, &QListWidget::itemActivated, this, pick);
}

void MarkdownOutlinePicker::openBelow(QWidget* control, const std::vector<Markdown::OutlineEntry>& headings,
                                      int line) {
    m_list->clear();
    for (const auto& heading : headings) {
        auto* const item = new QListWidgetItem(QString::fromStdString(heading.text), m_list);
        item->setData(kLineRole, heading.line);
        item->setData(kLevelRole, heading.level);
        if (heading.line <= line || m_list->count() == 1) {
            m_list->setCurrentItem(item);
        }
    }
    m_list->setFixedHeight(std::clamp(m_list->count(), 1, kMostRows) * kRowHeight);
    Popover::openBelow(control);
    m_list->setFocus();
    m_list->scrollToItem(m_list->currentItem());
}

} // namespace tarnquill

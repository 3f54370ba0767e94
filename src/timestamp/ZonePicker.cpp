#include "timestamp/ZonePicker.h"

#include "chrome/Painting.h"
#include "chrome/SearchBar.h"
#include "timestamp/ZoneSearchModel.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidth = 340;
constexpr int kHeight = 360;
constexpr int kMargin = 12;
constexpr int kRowHeight = 44;
constexpr int kCheck = 14;

// The place in the first line, what it is known by in the second.
class ZoneDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override {
        return {kWidth, kRowHeight};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const auto isCurrent = option.state.testFlag(QStyle::State_Selected);
        if (isCurrent || option.state.testFlag(QStyle::State_MouseOver)) {
            painter->fillRect(option.rect, themeColor(isCurrent ? ColorRole::selectedRow : ColorRole::hover));
        }
        auto area = option.rect.adjusted(kMargin, 4, -kMargin, -4);
        if (index.data(ZoneSearchModel::isChosenRole).toBool()) {
            const QRect check(area.right() - kCheck, area.top(), kCheck, area.height());
            Painting::symbol(*painter, check, u"checkmark"_s, kCheck, themeColor(ColorRole::okIcon));
            area.setRight(check.left() - kMargin);
        }
        const QRect place(area.left(), area.top(), area.width(), 20);
        Painting::text(*painter, place, index.data(ZoneSearchModel::placeRole).toString(), FontRole::body,
                       themeColor(ColorRole::text));
        const auto details = index.data(ZoneSearchModel::nameRole).toString() + u" · "_s +
                             index.data(ZoneSearchModel::detailRole).toString();
        Painting::text(*painter, place.translated(0, 17), details, FontRole::note,
                       themeColor(ColorRole::muted));
    }
};

QWidget* makeContent(QWidget* search, QWidget* list) {
    auto* content = new QWidget;
    content->setFixedWidth(kWidth);
    content->setMinimumHeight(0);
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(1, kMargin, 1, kMargin);
    column->setSpacing(kMargin);
    auto* field = new QVBoxLayout;
    field->setContentsMargins(kMargin, 0, kMargin, 0);
    field->addWidget(search);
    column->addLayout(field);
    column->addWidget(list, 1);
    return content;
}

class ZoneListView : public QListView {
public:
    [[nodiscard]] QSize sizeHint() const override { return {kWidth, kHeight}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return {0, kRowHeight}; }
};

} // namespace

ZonePicker::ZonePicker(const QString& title, ZoneSearchModel& zones, QWidget* parent)
    : Popover(title, makeContent(new SearchBar(SearchBar::Parts::fieldOnly), new ZoneListView), parent),
      m_zones(zones),
      m_search(findChild<SearchBar*>()),
      m_list(findChild<QListView*>()) {
    m_search->setWidths(kWidth - 2 * kMargin, kWidth - 2 * kMargin);
    m_search->field().setPlaceholderText(tr("City, country, abbreviation or offset"));
    m_search->field().setAccessibleName(tr("Search zones"));
    m_search->field().installEventFilter(this);
    connect(m_search, &SearchBar::textChanged, this, [this](const QString& query) {
        m_zones.setQuery(query);
        m_list->setCurrentIndex(m_zones.index(0));
    });
    connect(m_search, &SearchBar::cancelled, this, &Popover::close);

    m_list->setModel(&m_zones);
    m_list->setItemDelegate(new ZoneDelegate(m_list));
    m_list->setFrameShape(QFrame::NoFrame);
    m_list->viewport()->setAutoFillBackground(false); // on the popover's own fill
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setUniformItemSizes(true);
    m_list->setMouseTracking(true);
    m_list->setFocusPolicy(Qt::NoFocus); // the field's arrow keys move in it
    m_list->setAccessibleName(tr("Zones"));
    connect(m_list, &QListView::clicked, this, &ZonePicker::pick);
    connect(&m_zones, &QAbstractItemModel::modelReset, m_list,
            [this] { m_list->setCurrentIndex(m_zones.index(0)); });
}

void ZonePicker::openBelow(QWidget* control, std::int64_t seconds, const QStringList& chosen) {
    m_search->setText({});
    m_zones.setQuery({});
    m_zones.setChosen(chosen);
    m_zones.load(seconds);
    m_list->scrollToTop();
    Popover::openBelow(control);
}

void ZonePicker::pick(const QModelIndex& index) {
    if (index.isValid() && !index.data(ZoneSearchModel::isChosenRole).toBool()) {
        const auto name = index.data(ZoneSearchModel::nameRole).toString();
        close();
        Q_EMIT zonePicked(name);
    }
}

bool ZonePicker::eventFilter(QObject* object, QEvent* event) {
    if (object == &m_search->field() && event->type() == QEvent::KeyPress) {
        switch (static_cast<QKeyEvent*>(event)->key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            QCoreApplication::sendEvent(m_list, event);
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            pick(m_list->currentIndex());
            return true;
        default:
            break;
        }
    }
    return Popover::eventFilter(object, event);
}

} // namespace tarnquill

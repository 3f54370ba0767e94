#include "chrome/Accessibility.h"

#include "chrome/SegmentedPicker.h"

#include <QAccessibleWidget>
#include <QHash>

namespace tarnquill::Accessibility {
namespace {

using namespace Qt::StringLiterals;

// A choice whose value is the title of its current segment.
class Picker : public QAccessibleWidget {
public:
    explicit Picker(SegmentedPicker* picker) : QAccessibleWidget(picker, QAccessible::ComboBox) {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        const auto& picker = static_cast<const SegmentedPicker&>(*widget());
        return kind == QAccessible::Value ? picker.titles().value(picker.currentIndex())
                                          : QAccessibleWidget::text(kind);
    }
};

QAccessibleInterface* interfaceOf(const QString& className, QObject* object) {
    static const QHash<QString, QAccessible::Role> kRoles{
        {u"tarnquill::Alert"_s, QAccessible::AlertMessage},
        {u"tarnquill::BadgeLabel"_s, QAccessible::StaticText},
        {u"tarnquill::MessageView"_s, QAccessible::Grouping},
        {u"tarnquill::PaneFooter"_s, QAccessible::StaticText},
        {u"tarnquill::PaneHeader"_s, QAccessible::Grouping},
        {u"tarnquill::Popover"_s, QAccessible::Dialog},
        {u"tarnquill::SearchBar"_s, QAccessible::Grouping},
        {u"tarnquill::TextLabel"_s, QAccessible::StaticText},
        {u"tarnquill::ToolPane"_s, QAccessible::Grouping},
        {u"tarnquill::Toolbar"_s, QAccessible::ToolBar},
    };
    if (className == "tarnquill::SegmentedPicker"_L1) {
        return new Picker(static_cast<SegmentedPicker*>(object));
    }
    const auto role = kRoles.constFind(className);
    return role != kRoles.cend() && object->isWidgetType()
               ? new QAccessibleWidget(static_cast<QWidget*>(object), *role)
               : nullptr;
}

} // namespace

void install() {
    QAccessible::installFactory(interfaceOf);
}

} // namespace tarnquill::Accessibility

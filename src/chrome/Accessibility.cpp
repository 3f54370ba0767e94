#include "chrome/Accessibility.h"

#include "chrome/ComboBox.h"
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

// Named by what is chosen with it, where the platform's own interface names it by its value.
class Choice : public QAccessibleWidget {
public:
    explicit Choice(ComboBox* box) : QAccessibleWidget(box, QAccessible::ComboBox) {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? box().currentText() : QAccessibleWidget::text(kind);
    }
    [[nodiscard]] QStringList actionNames() const override {
        return QStringList{showMenuAction()} + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& name) override {
        if (name == showMenuAction()) {
            box().showPopup();
        } else {
            QAccessibleWidget::doAction(name);
        }
    }

private:
    [[nodiscard]] ComboBox& box() const { return static_cast<ComboBox&>(*widget()); }
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
    if (className == "tarnquill::ComboBox"_L1) {
        return new Choice(static_cast<ComboBox*>(object));
    }
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

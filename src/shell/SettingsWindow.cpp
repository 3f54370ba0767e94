#include "shell/SettingsWindow.h"

#include "chrome/ComboBox.h"
#include "chrome/EditorOptions.h"
#include "chrome/SegmentedPicker.h"
#include "chrome/TextLabel.h"
#include "timestamp/ZoneSettings.h"

#include <QCheckBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QSignalBlocker>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMargin = 24;
constexpr int kControlHeight = 28;
constexpr int kListHeight = 128;

// Families whose characters all have one width, which the editors lay their lines out by.
QStringList monospaceFamilies() {
    QStringList families;
    for (const auto& family : QFontDatabase::families()) {
        if (QFontDatabase::isFixedPitch(family) && !QFontDatabase::isPrivateFamily(family)) {
            families.append(family);
        }
    }
    return families;
}

void select(ComboBox& box, int index) {
    const QSignalBlocker blocker(box);
    box.setCurrentIndex(index);
}

} // namespace

SettingsWindow::SettingsWindow(QWidget* mainWindow, TimestampToolViewModel& zones)
    : SecondaryWindow(tr("Settings"), mainWindow) {
    auto* const form = new QFormLayout(this);
    form->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    form->setHorizontalSpacing(16);
    form->setVerticalSpacing(12);
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    form->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    const auto addRow = [form](const QString& name, QWidget* control) {
        control->setAccessibleName(name);
        auto* const label = new TextLabel(name, FontRole::control, ColorRole::muted);
        label->setFixedHeight(kControlHeight);
        form->addRow(label, control);
    };
    addRow(tr("Appearance"), appearancePicker());
    addRow(tr("Editor font"), fontPicker());
    addRow(tr("Font size"), sizePicker());
    form->addRow(new QWidget, editorSwitches());
    auto* const zoneSettings = new ZoneSettings(zones);
    zoneSettings->setFixedHeight(kListHeight + 36);
    addRow(tr("Time zones"), zoneSettings);
    setFixedSize(sizeHint());
}

QWidget* SettingsWindow::appearancePicker() {
    auto* const picker =
        new SegmentedPicker({tr("System"), tr("Light"), tr("Dark")}); // as Appearance has them
    const auto show = [picker] { picker->setCurrentIndex(static_cast<int>(Theme::instance().appearance())); };
    connect(&Theme::instance(), &Theme::appearanceChanged, picker, show);
    connect(picker, &SegmentedPicker::currentIndexChanged, this,
            [](int index) { Theme::instance().setAppearance(static_cast<Appearance>(index)); });
    show();
    return picker;
}

QWidget* SettingsWindow::fontPicker() {
    auto* const picker = new ComboBox;
    const auto ownFamily = Theme::instance().font(FontRole::editor).family();
    picker->addItem(ownFamily, QString());
    for (const auto& family : monospaceFamilies()) {
        if (family != ownFamily) {
            picker->addItem(family, family);
        }
    }
    const auto show = [picker] { select(*picker, picker->findData(EditorOptions::instance().fontFamily())); };
    connect(&EditorOptions::instance(), &EditorOptions::changed, picker, show);
    connect(picker, &ComboBox::currentIndexChanged, this,
            [picker] { EditorOptions::instance().setFontFamily(picker->currentData().toString()); });
    show();
    return picker;
}

QWidget* SettingsWindow::sizePicker() {
    auto* const picker = new ComboBox;
    for (int size = EditorOptions::kSmallestFontSize; size <= EditorOptions::kLargestFontSize; ++size) {
        picker->addItem(QString::number(size), size);
    }
    const auto show = [picker] { select(*picker, picker->findData(EditorOptions::instance().fontSize())); };
    connect(&EditorOptions::instance(), &EditorOptions::changed, picker, show);
    connect(picker, &ComboBox::currentIndexChanged, this,
            [picker] { EditorOptions::instance().setFontSize(picker->currentData().toInt()); });
    show();
    return picker;
}

QWidget* SettingsWindow::editorSwitches() {
    auto* const box = new QWidget;
    auto* const layout = new QVBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(6);
    const auto add = [&](const QString& title, bool (EditorOptions::*isOn)() const,
                         void (EditorOptions::*set)(bool)) {
        auto* const check = new QCheckBox(title);
        const auto show = [check, isOn] { check->setChecked((EditorOptions::instance().*isOn)()); };
        connect(&EditorOptions::instance(), &EditorOptions::changed, check, show);
        connect(check, &QCheckBox::toggled, check,
                [set](bool checked) { (EditorOptions::instance().*set)(checked); });
        show();
        layout->addWidget(check);
    };
    add(tr("Line numbers"), &EditorOptions::showsLineNumbers, &EditorOptions::setLineNumbersVisible);
    add(tr("Wrap lines"), &EditorOptions::wrapsLines, &EditorOptions::setWrapsLines);
    return box;
}

} // namespace tarnquill

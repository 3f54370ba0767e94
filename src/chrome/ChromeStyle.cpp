#include "chrome/ChromeStyle.h"

#include "chrome/FocusRing.h"
#include "chrome/MenuSurface.h"
#include "chrome/Painting.h"
#include "chrome/StyleControls.h"
#include "chrome/StyleMenus.h"
#include "chrome/Symbols.h"
#include "chrome/Theme.h"

#include <QAbstractItemView>
#include <QHash>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QStyleFactory>
#include <QStyleOption>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFieldRadius = 6;

bool isDefaultButton(const QStyleOption* option) {
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    return button != nullptr && button->features.testFlag(QStyleOptionButton::DefaultButton);
}

bool isFramedField(const QStyleOption* option) {
    const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
    return frame != nullptr && frame->lineWidth > 0;
}

bool isOverContent(const QWidget* scrollBar) {
    return scrollBar != nullptr && scrollBar->property(ChromeStyle::kOverContentProperty).toBool();
}

} // namespace

ChromeStyle::ChromeStyle() : QProxyStyle(QStyleFactory::create(u"Fusion"_s)) {}

void ChromeStyle::polish(QPalette& palette) {
    Theme& theme = Theme::instance();
    theme.systemPaletteSeen(palette);
    palette = theme.palette();
}

void ChromeStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    if (auto* menu = qobject_cast<QMenu*>(widget)) {
        MenuSurface::prepare(*menu);
    } else if (auto* field = qobject_cast<QLineEdit*>(widget); field != nullptr && field->hasFrame()) {
        FocusRing::attach(field, kFieldRadius, FocusRing::Shape::field);
    } else if (qobject_cast<QScrollBar*>(widget) != nullptr) {
        widget->setAttribute(Qt::WA_OpaquePaintEvent, false); // It has no track: what is behind it shows.
    } else if (widget->inherits("QTipLabel") && MenuSurface::shadowReach() > 0) {
        widget->setAttribute(Qt::WA_TranslucentBackground);
    }
}

int ChromeStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
    case PM_MenuPanelWidth:
        return MenuSurface::shadowReach();
    case PM_MenuHMargin:
    case PM_MenuVMargin:
        return 4;
    case PM_SubMenuOverlap:
        return 2;
    case PM_ScrollBarExtent:
        return StyleControls::kScrollBarExtent;
    case PM_ScrollView_ScrollBarOverlap:
        return isOverContent(widget) ? StyleControls::kScrollBarExtent : 0;
    case PM_ScrollView_ScrollBarSpacing:
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
        return 0;
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
        return StyleControls::kIndicator;
    case PM_SmallIconSize:
    case PM_ButtonIconSize:
        return 14;
    case PM_HeaderMargin:
    case PM_ToolTipLabelFrameWidth:
        return 8;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int ChromeStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                           QStyleHintReturn* returnData) const {
    switch (hint) {
    case SH_ToolTip_WakeUpDelay:
        return 500;
    case SH_EtchDisabledText:
    case SH_UnderlineShortcut:
    case SH_DialogButtonBox_ButtonsHaveIcons:
    case SH_ComboBox_Popup:
        return 0;
    case SH_Menu_MouseTracking:
    case SH_Menu_Scrollable:
    case SH_Menu_KeyboardSearch: // Letters go to the item that begins with them.
    case SH_ItemView_ShowDecorationSelected:
        return 1;
    case SH_Widget_Animation_Duration:
        return Theme::instance().duration(120);
    default:
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
}

QSize ChromeStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                    const QWidget* widget) const {
    switch (type) {
    case CT_MenuItem:
        if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option)) {
            return StyleMenus::itemSize(*item, size);
        }
        break;
    case CT_LineEdit:
        if (isFramedField(option)) {
            return {size.width() + 2 * StyleControls::kFieldPadding, StyleControls::kHeight};
        }
        return size;
    case CT_PushButton:
        return {std::max(size.width() + 24, 64), StyleControls::kHeight};
    case CT_ComboBox:
        return {size.width() + 36, StyleControls::kHeight};
    case CT_ItemViewItem:
        return QProxyStyle::sizeFromContents(type, option, size, widget).expandedTo({0, 24});
    default:
        break;
    }
    return QProxyStyle::sizeFromContents(type, option, size, widget);
}

QRect ChromeStyle::subElementRect(SubElement element, const QStyleOption* option,
                                  const QWidget* widget) const {
    if (element == SE_LineEditContents) {
        const int padding = isFramedField(option) ? StyleControls::kFieldPadding : 0;
        return option->rect.adjusted(padding, 0, -padding, 0);
    }
    return QProxyStyle::subElementRect(element, option, widget);
}

QRect ChromeStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                  SubControl subControl, const QWidget* widget) const {
    if (control == CC_ScrollBar) {
        if (const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option)) {
            return visualRect(bar->direction, bar->rect, StyleControls::scrollBarPart(*bar, subControl));
        }
    }
    if (control == CC_ComboBox && subControl == SC_ComboBoxEditField) {
        return visualRect(option->direction, option->rect, option->rect.adjusted(8, 0, -24, 0));
    }
    return QProxyStyle::subControlRect(control, option, subControl, widget);
}

// The icons of the file dialog, where the desktop brings none of its own.
QIcon ChromeStyle::standardIcon(StandardPixmap which, const QStyleOption* option,
                                const QWidget* widget) const {
    static const QHash<StandardPixmap, QString> kSymbols{
        {SP_FileDialogBack, u"arrow-left"_s},
        {SP_ArrowBack, u"arrow-left"_s},
        {SP_ArrowForward, u"arrow-right"_s},
        {SP_FileDialogToParent, u"arrow-up"_s},
        {SP_FileDialogNewFolder, u"folder-plus"_s},
        {SP_FileDialogListView, u"layout-grid"_s},
        {SP_FileDialogDetailedView, u"list"_s},
        {SP_DirIcon, u"folder"_s},
        {SP_DirHomeIcon, u"house"_s},
        {SP_FileIcon, u"file"_s},
        {SP_ComputerIcon, u"monitor"_s},
        {SP_DriveHDIcon, u"hard-drive"_s},
        {SP_LineEditClearButton, u"circle-x"_s},
    };
    const auto symbol = kSymbols.constFind(which);
    return symbol != kSymbols.cend() ? Symbols::icon(*symbol)
                                     : QProxyStyle::standardIcon(which, option, widget);
}

void ChromeStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                const QWidget* widget) const {
    switch (element) {
    case PE_PanelMenu:
        StyleMenus::drawPanel(*painter, *widget);
        return;
    case PE_PanelLineEdit:
        if (isFramedField(option)) {
            StyleControls::drawField(*painter, *option);
        }
        return;
    case PE_PanelButtonCommand:
        StyleControls::drawButton(*painter, *option, isDefaultButton(option));
        return;
    case PE_PanelButtonTool:
        StyleControls::drawToolButton(*painter, *option);
        return;
    case PE_IndicatorCheckBox:
    case PE_IndicatorItemViewItemCheck:
        StyleControls::drawCheckBox(*painter, *option);
        return;
    case PE_IndicatorRadioButton:
        StyleControls::drawRadioButton(*painter, *option);
        return;
    case PE_PanelTipLabel:
        Painting::box(*painter, option->rect, MenuSurface::shadowReach() > 0 ? kFieldRadius : 0,
                      themeColor(ColorRole::tooltip));
        return;
    case PE_PanelItemViewRow:
        if (const auto* item = qstyleoption_cast<const QStyleOptionViewItem*>(option);
            item != nullptr && item->features.testFlag(QStyleOptionViewItem::Alternate)) {
            painter->fillRect(item->rect, item->palette.color(QPalette::AlternateBase));
        }
        return;
    case PE_PanelItemViewItem:
        if (const auto* item = qstyleoption_cast<const QStyleOptionViewItem*>(option)) {
            painter->fillRect(item->rect, item->backgroundBrush);
            if (item->state.testFlag(State_Selected)) {
                painter->fillRect(item->rect, themeColor(ColorRole::selectedRow));
            }
        }
        return;
    case PE_Frame:
        Painting::box(*painter, option->rect, 0, {}, themeColor(ColorRole::border));
        return;
    case PE_FrameFocusRect:
        // The focus ring marks controls; only the current item of a list is marked inside it.
        if (qobject_cast<const QAbstractItemView*>(widget) != nullptr &&
            option->state.testFlag(State_KeyboardFocusChange)) {
            Painting::box(*painter, option->rect, 0, {}, themeColor(ColorRole::accent), 2);
        }
        return;
    case PE_FrameMenu:
    case PE_FrameLineEdit:
    case PE_PanelScrollAreaCorner:
        return;
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void ChromeStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
    switch (element) {
    case CE_MenuItem:
        if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option)) {
            StyleMenus::drawItem(*painter, *item);
        }
        return;
    case CE_MenuEmptyArea:
        return;
    case CE_PushButtonBevel:
        drawPrimitive(PE_PanelButtonCommand, option, painter, widget);
        return;
    case CE_PushButtonLabel:
        if (isDefaultButton(option)) {
            QStyleOptionButton label = *qstyleoption_cast<const QStyleOptionButton*>(option);
            label.palette.setColor(QPalette::ButtonText, themeColor(ColorRole::fillText));
            QProxyStyle::drawControl(element, &label, painter, widget);
            return;
        }
        break;
    case CE_HeaderSection:
        painter->fillRect(option->rect, themeColor(ColorRole::raised));
        painter->fillRect(option->rect.left(), option->rect.bottom(), option->rect.width(), 1,
                          themeColor(ColorRole::hairline));
        painter->fillRect(option->rect.right(), option->rect.top(), 1, option->rect.height(),
                          themeColor(ColorRole::hairline));
        return;
    default:
        break;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void ChromeStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                     QPainter* painter, const QWidget* widget) const {
    if (const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
        control == CC_ScrollBar && bar != nullptr) {
        StyleControls::drawScrollBar(*painter, *bar);
        return;
    }
    if (const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(option);
        control == CC_ComboBox && combo != nullptr && !combo->editable) {
        StyleControls::drawCombo(*painter, *combo);
        return;
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

} // namespace tarnquill

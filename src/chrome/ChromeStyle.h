// Draws Qt's standard widgets (menus, fields, scroll bars, check boxes, lists, dialogs) with the theme's
// colours and metrics; whatever is not drawn here takes the theme through its palette.
#pragma once

#include <QProxyStyle>

namespace tarnquill {

class ChromeStyle : public QProxyStyle {
    Q_OBJECT

public:
    // A scroll bar with this property takes no room from what it scrolls.
    static constexpr const char* kOverContentProperty = "isOverContent";

    ChromeStyle();

    void polish(QPalette& palette) override;
    void polish(QWidget* widget) override;
    using QProxyStyle::polish;

    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option = nullptr,
                                  const QWidget* widget = nullptr) const override;
    int styleHint(StyleHint hint, const QStyleOption* option = nullptr, const QWidget* widget = nullptr,
                  QStyleHintReturn* returnData = nullptr) const override;
    [[nodiscard]] QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                         const QWidget* widget) const override;
    [[nodiscard]] QRect subElementRect(SubElement element, const QStyleOption* option,
                                       const QWidget* widget) const override;
    [[nodiscard]] QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                       SubControl subControl, const QWidget* widget) const override;
    [[nodiscard]] QIcon standardIcon(StandardPixmap which, const QStyleOption* option = nullptr,
                                     const QWidget* widget = nullptr) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
};

} // namespace tarnquill

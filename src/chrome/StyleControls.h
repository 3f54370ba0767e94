// How the style draws the controls of dialogs and the scroll bars.
#pragma once

#include <QRect>
#include <QStyle>

class QPainter;
class QStyleOption;
class QStyleOptionComboBox;
class QStyleOptionSlider;

namespace tarnquill::StyleControls {

inline constexpr int kScrollBarExtent = 12;
inline constexpr int kIndicator = 16;
inline constexpr int kHeight = 28;
inline constexpr int kFieldPadding = 7; // beside the two pixels that a field adds itself

void drawField(QPainter& painter, const QStyleOption& option);
void drawButton(QPainter& painter, const QStyleOption& option, bool isDefault);
void drawToolButton(QPainter& painter, const QStyleOption& option);
void drawCheckBox(QPainter& painter, const QStyleOption& option);
void drawRadioButton(QPainter& painter, const QStyleOption& option);
void drawCombo(QPainter& painter, const QStyleOptionComboBox& option);

// The thumb alone.
void drawScrollBar(QPainter& painter, const QStyleOptionSlider& option);
[[nodiscard]] QRect scrollBarPart(const QStyleOptionSlider& option, QStyle::SubControl part);

} // namespace tarnquill::StyleControls

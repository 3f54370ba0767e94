// A line of text in one role and colour of the theme, elided when there is too little room.
#pragma once

#include "chrome/Theme.h"

#include <QWidget>

namespace tarnquill {

class TextLabel : public QWidget {
    Q_OBJECT

public:
    TextLabel(const QString& text, FontRole font, ColorRole color, QWidget* parent = nullptr);

    void setText(const QString& text);
    [[nodiscard]] QString text() const { return m_text; }
    void setColor(ColorRole color);

    // Lets the label give up its width before its neighbours do, down to nothing.
    void setYields(bool yields);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_text;
    FontRole m_font;
    ColorRole m_color;
    bool m_yields = false;
};

} // namespace tarnquill

// A control with its name before it.
#pragma once

#include <QWidget>

namespace tarnquill {

class TextLabel;

class LabelledControl : public QWidget {
    Q_OBJECT

public:
    // The name is the control's accessible name too. Takes ownership of the control.
    LabelledControl(const QString& name, QWidget* control, QWidget* parent = nullptr);

    // Where there is little room the name goes first.
    void setNameVisible(bool visible);

private:
    TextLabel* m_name;
};

} // namespace tarnquill

// The top pane of the tool: the unit picker and the buttons, the input field or what was pasted instead, and
// the note on how it was read.
#pragma once

#include "timestamp/TimestampToolViewModel.h"

#include <QWidget>

class QStackedLayout;

namespace tarnquill {

class DateTimePicker;
class PaneButton;
class PaneHeader;
class Popover;
class SegmentedPicker;
class TextLabel;
class TimestampField;

class TimestampInputPane : public QWidget {
    Q_OBJECT

public:
    // The model outlives the pane.
    explicit TimestampInputPane(TimestampToolViewModel& model, QWidget* parent = nullptr);

    [[nodiscard]] QWidget* field() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void makeHeader();
    [[nodiscard]] QWidget* makeInputRow();
    [[nodiscard]] QWidget* makeNoteRow();
    void showResult();
    void showNote(const QString& note);
    void paste();
    void copy();

    TimestampToolViewModel& m_model;
    PaneHeader* m_header;
    SegmentedPicker* m_unit;
    PaneButton* m_copy;
    PaneButton* m_clear;
    QStackedLayout* m_input;
    TimestampField* m_field;
    TextLabel* m_listTitle;
    PaneButton* m_pickTime;
    DateTimePicker* m_picker;
    Popover* m_popover;
    QWidget* m_noteIcon;
    TextLabel* m_note;
};

} // namespace tarnquill

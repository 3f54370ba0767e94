// A row of two lines: a title over a note at its start, a value over a detail at its end.
#pragma once

#include "chrome/CopyRow.h"

namespace tarnquill {

class DetailRow : public CopyRow {
    Q_OBJECT

public:
    static constexpr int kHeight = 52;

    struct Texts {
        QString title;
        QString remark = {};      // quietly after the title; goes first where there is little room
        QString shortRemark = {}; // comes in its place where there is room for that
        QString note;             // elided where there is little room
        QString noteEnd = {};     // right after the note, and never elided
        QString value;
        QString valueRemark = {}; // quietly before the value
        QString detail;

        bool operator==(const Texts&) const = default;
    };

    explicit DetailRow(QWidget* parent = nullptr);

    void setTexts(const Texts& texts);
    [[nodiscard]] const Texts& texts() const { return m_texts; }

protected:
    void paintText(QPainter& painter, const QRect& area) override;

private:
    Texts m_texts;
};

} // namespace tarnquill

// A text view that text can be dropped into. A dragged file passes it by, so that the view around it gets it.
#pragma once

#include "chrome/TextView.h"

class QMimeData;

namespace tarnquill {

class TextDropTextView : public TextView {
    Q_OBJECT

public:
    explicit TextDropTextView(QWidget* parent = nullptr);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    // Plain text, which rich text always comes with.
    [[nodiscard]] bool accepts(const QMimeData& dragged) const;
};

} // namespace tarnquill

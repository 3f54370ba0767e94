// The headings of the document in a list, to go to one of them.
#pragma once

#include "chrome/Popover.h"
#include "markdown/MarkdownOutline.h"

class QListWidget;

namespace tarnquill {

class MarkdownOutlinePicker : public Popover {
    Q_OBJECT

public:
    explicit MarkdownOutlinePicker(QWidget* parent);

    // Opens with the heading selected under which the line stands.
    void openBelow(QWidget* control, const std::vector<Markdown::OutlineEntry>& headings, int line);

Q_SIGNALS:
    void linePicked(int line);

private:
    QListWidget* m_list;
};

} // namespace tarnquill

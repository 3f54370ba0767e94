// Lets a view that is not made for it take dropped files.
#pragma once

#include "chrome/FileDrop.h"

#include <QObject>

class QWidget;

namespace tarnquill {

class FileDropTarget : public QObject {
    Q_OBJECT

public:
    // Lives as long as the view. Widgets inside the view that accept drops themselves must refuse files.
    FileDropTarget(QWidget* view, FileDrop drop);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    std::optional<FileDrop> m_drop;
};

} // namespace tarnquill

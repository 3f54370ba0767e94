#include "shell/SecondaryWindow.h"

#include <QShortcut>

namespace tarnquill {

SecondaryWindow::SecondaryWindow(const QString& title, QWidget* mainWindow)
    : QWidget(mainWindow, Qt::Dialog) {
    setWindowTitle(title);
    setAttribute(Qt::WA_DeleteOnClose);
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    for (const QKeySequence& key : {QKeySequence(Qt::Key_Escape), QKeySequence(QKeySequence::Close)}) {
        connect(new QShortcut(key, this), &QShortcut::activated, this, &QWidget::close);
    }
}

} // namespace tarnquill

// The least that a Qt program with a window can do: what the start of the real program is compared with.
#include "shell/FirstPaint.h"

#include <QApplication>
#include <QWidget>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QWidget window;
    window.resize(1280, 800);
    tarnquill::endAfterFirstPaint(window);
    window.show();
    return QApplication::exec();
}

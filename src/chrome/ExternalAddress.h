// Addresses that are for another program: the web browser, or the one for mail.
#pragma once

class QUrl;
class QWidget;

namespace tarnquill {

// Opens the address in the program that the desktop has for it. Where there is none, the widget's window says
// so.
void openExternally(const QUrl& address, QWidget* asker);

} // namespace tarnquill

#include "chrome/ExternalAddress.h"

#include "chrome/Alert.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QUrl>

namespace tarnquill {

void openExternally(const QUrl& address, QWidget* asker) {
    if (!QDesktopServices::openUrl(address)) {
        Alert::say(asker, QCoreApplication::translate("ExternalAddress", "No program opens this address"),
                   address.toDisplayString());
    }
}

} // namespace tarnquill

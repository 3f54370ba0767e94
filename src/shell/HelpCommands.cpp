#include "shell/HelpCommands.h"

#include "chrome/Alert.h"
#include "chrome/ExternalAddress.h"
#include "common/InstalledFile.h"
#include "shell/AcknowledgementsWindow.h"
#include "shell/AppShellView.h"
#include "shell/LaunchOptions.h"
#include "shell/ProductAddresses.h"
#include "shell/ShortcutsWindow.h"

#include <QApplication>
#include <QClipboard>
#include <QSysInfo>

#include <openssl/crypto.h>
#include <unicode/uvernum.h>
#include <zlib.h>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

QString versions() {
    const auto line = [](const char* name, const char* version) {
        return QString::fromLatin1(name) + u' ' + QString::fromLatin1(version) + u'\n';
    };
    return line("Tarnquill", LaunchOptions::kVersion) + line("Qt and Qt WebEngine", qVersion()) +
           line("ICU", U_ICU_VERSION) + line("OpenSSL", OpenSSL_version(OPENSSL_VERSION_STRING)) +
           line("zlib", zlibVersion()) + QSysInfo::prettyProductName() + u", "_s +
           QSysInfo::currentCpuArchitecture();
}

QUrl feedbackMail() {
    return QUrl(u"mailto:"_s + ProductAddresses::email() + u"?subject=Tarnquill%20"_s +
                QString::fromLatin1(LaunchOptions::kVersion));
}

} // namespace

HelpCommands::HelpCommands(AppShellView& window, const QList<QMenu*>& menus)
    : QMenu(tr("Help"), &window), m_window(window) {
    auto* const keys = addAction(tr("Keyboard Shortcuts"), this, [this, menus] {
        SecondaryWindow::present<ShortcutsWindow>(m_window, menus + QList<QMenu*>{this});
    });
    keys->setShortcut(QKeySequence::HelpContents);
    addSeparator();
    const auto addAddress = [this](const QString& title, const QUrl& address) {
        addAction(title, this, [this, address] { openExternally(address, &m_window); });
    };
    addAddress(tr("Tarnquill Support"), ProductAddresses::support());
    addAddress(tr("Send Feedback…"), feedbackMail());
    addAction(tr("Copy Email Address"), this,
              [] { QApplication::clipboard()->setText(ProductAddresses::email()); });
    addAddress(tr("Follow the Author"), ProductAddresses::author());
    addAddress(tr("Privacy Policy"), ProductAddresses::privacy());
    addSeparator();
    addAction(tr("Acknowledgements"), this,
              [this] { SecondaryWindow::present<AcknowledgementsWindow>(m_window, noticesFile()); });
    auto* const about = addAction(tr("About Tarnquill"), this, &HelpCommands::showAbout);
    about->setMenuRole(QAction::AboutRole);
    window.addAction(keys);
}

void HelpCommands::showAbout() {
    auto* const alert =
        new Alert(&m_window, {.message = tr("Tarnquill"),
                              .informative = versions(),
                              .symbol = u"feather"_s,
                              .buttons = {{.title = tr("OK"), .role = Alert::Role::main},
                                          {.title = tr("Copy Versions"), .role = Alert::Role::optOut}}});
    connect(alert, &Alert::answered, this, [](int index) {
        if (index == 1) {
            QApplication::clipboard()->setText(versions());
        }
    });
}

} // namespace tarnquill

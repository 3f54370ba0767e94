#include "chrome/SystemAppearance.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

const auto kService = u"org.freedesktop.portal.Desktop"_s;
const auto kPath = u"/org/freedesktop/portal/desktop"_s;
const auto kInterface = u"org.freedesktop.portal.Settings"_s;
const auto kAppearanceGroup = u"org.freedesktop.appearance"_s;
const auto kColorScheme = u"color-scheme"_s;
const auto kDesktopGroup = u"org.gnome.desktop.interface"_s;
const auto kAnimations = u"enable-animations"_s;

// The start of the program must not wait for a desktop that is slow to answer.
constexpr int kPatience = 100; // milliseconds

} // namespace

SystemAppearance::SystemAppearance(QObject* parent) : QObject(parent) {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return;
    }
    bus.connect(kService, kPath, kInterface, u"SettingChanged"_s, this,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    read(kAppearanceGroup, kColorScheme);
    read(kDesktopGroup, kAnimations);
}

void SystemAppearance::read(const QString& group, const QString& key) {
    QDBusMessage call = QDBusMessage::createMethodCall(kService, kPath, kInterface, u"Read"_s);
    call.setAutoStartService(false);
    call << group << key;
    const QDBusMessage answer = QDBusConnection::sessionBus().call(call, QDBus::Block, kPatience);
    if (answer.type() == QDBusMessage::ReplyMessage && !answer.arguments().isEmpty()) {
        take(key, answer.arguments().constFirst());
    }
}

void SystemAppearance::settingChanged(const QString& group, const QString& key, const QDBusVariant& value) {
    if (group == kAppearanceGroup || group == kDesktopGroup) {
        take(key, value.variant());
        Q_EMIT changed();
    }
}

void SystemAppearance::take(const QString& key, const QVariant& value) {
    QVariant plain = value;
    while (plain.canConvert<QDBusVariant>()) {
        plain = plain.value<QDBusVariant>().variant();
    }
    if (key == kColorScheme) {
        enum Scheme : unsigned { noPreference, dark, light };
        const unsigned scheme = plain.toUInt();
        m_prefersDark = scheme == dark    ? std::optional(true)
                        : scheme == light ? std::optional(false)
                                          : std::nullopt;
    } else if (key == kAnimations) {
        m_reducesMotion = !plain.toBool();
    }
}

} // namespace tarnquill

// Key names in help texts, written as the platform writes them.
#pragma once

#include <QString>

namespace tarnquill::KeyNames {

enum class Platform { mac, other };

#ifdef Q_OS_MACOS
inline constexpr Platform kThisPlatform = Platform::mac;
#else
inline constexpr Platform kThisPlatform = Platform::other;
#endif

// "Open a JSON file (⌘O)" reads "Open a JSON file (Ctrl+O)" where keys have names instead of signs, in the
// order of that platform. Every character that is no key sign stays.
[[nodiscard]] QString forPlatform(const QString& text, Platform platform = kThisPlatform);

} // namespace tarnquill::KeyNames

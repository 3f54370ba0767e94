// What a start of the program asks for: the files to open. A second start sends it to the running program.
#pragma once

#include <QByteArray>
#include <QMetaType>
#include <QStringList>

#include <optional>

namespace tarnquill {

struct LaunchRequest {
    QStringList files; // absolute paths
    // Lets the running window come to the front, where the desktop asks for such a token. Most requests have
    // none.
    QString activationToken =
        {}; // NOLINT(readability-redundant-member-init): GCC wants it of a field to leave out

    // No message is longer, so that nothing that writes to the socket can make the running program grow.
    static constexpr qsizetype kMaxMessageBytes = 1 << 20;

    // One line of JSON, with its line feed.
    [[nodiscard]] QByteArray message() const;

    // Reads a message; none when it is too long, not a message at all or holds anything but absolute paths.
    [[nodiscard]] static std::optional<LaunchRequest> fromMessage(const QByteArray& message);

    friend bool operator==(const LaunchRequest&, const LaunchRequest&) = default;
};

} // namespace tarnquill

Q_DECLARE_METATYPE(tarnquill::LaunchRequest)

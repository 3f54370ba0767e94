// What a menu item carries (QAction::data()) so that the command palette can show more than its title.
#pragma once

#include <QMetaType>
#include <QString>

#include <cstdint>

namespace tarnquill {

struct CommandNote {
    enum class Kind : std::uint8_t { tool, file, command }; // in the order in which they are listed

    Kind kind = Kind::command;
    QString symbol;
    QString detail;
};

} // namespace tarnquill

Q_DECLARE_METATYPE(tarnquill::CommandNote)

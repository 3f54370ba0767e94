// The files that are installed with the programs. bin/, lib/ and share/ stand side by side, as they do in the
// build tree.
#pragma once

#include <QString>

namespace tarnquill {

// The absolute path of a file that is named from the folder on that holds bin/.
[[nodiscard]] QString installedFile(QStringView name);

// The licences of all that the program is made of, in Markdown. The file is missing where only the program
// was built, and where there is no Debian package to take them from.
[[nodiscard]] QString noticesFile();

} // namespace tarnquill

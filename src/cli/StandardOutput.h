// Writes a command's result to standard output, piece by piece, without a copy.
#pragma once

#include <string_view>

namespace tarnquill::cli {

class StandardOutput {
public:
    // Ends the program when nothing more can be written: silently when the reader has gone, else with a
    // message.
    void write(std::string_view text);

    // Writes a line feed, unless the last thing written was one.
    void endLine();

private:
    char m_last = '\n';
};

} // namespace tarnquill::cli

#include "cli/StandardOutput.h"

#include "cli/Commands.h"

#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace tarnquill::cli {

void StandardOutput::write(std::string_view text) {
    if (!text.empty()) {
        m_last = text.back();
    }
    while (!text.empty()) {
        const auto count = ::write(STDOUT_FILENO, text.data(), text.size());
        if (count >= 0) {
            text.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            if (errno != EPIPE) {
                std::fprintf(stderr, "Cannot write the result: %s.\n", std::strerror(errno));
            }
            std::_Exit(kUnreadable);
        }
    }
}

void StandardOutput::endLine() {
    if (m_last != '\n') {
        write("\n");
    }
}

} // namespace tarnquill::cli

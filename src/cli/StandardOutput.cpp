#include "cli/StandardOutput.h"

#include "cli/Commands.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <system_error>

namespace tarnquill::cli {

namespace {

// Large enough that the two threads seldom wake each other, which takes longer than copying a small block.
constexpr std::size_t kBlockSize = std::size_t{1} << 20;

void writeAll(std::string_view text) {
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

} // namespace

StandardOutput::~StandardOutput() {
    if (!m_thread.joinable()) {
        writeAll(m_blocks.front());
        return;
    }
    if (!m_blocks[m_filling % kBlocks].empty()) {
        handOver();
    }
    m_full.release(); // the empty block ends the thread
    m_thread.join();
}

void StandardOutput::write(std::string_view text) {
    if (!text.empty()) {
        m_last = text.back();
    }
    while (!text.empty()) {
        auto& block = m_blocks[m_filling % kBlocks];
        const auto piece = text.substr(0, kBlockSize - block.size());
        block += piece;
        text.remove_prefix(piece.size());
        if (block.size() == kBlockSize) {
            handOver();
        }
    }
}

void StandardOutput::writeWithoutCopy(std::string_view text) {
    if (!text.empty()) {
        m_last = text.back();
        writeAll(text);
    }
}

void StandardOutput::endLine() {
    if (m_last != '\n') {
        write("\n");
    }
}

void StandardOutput::handOver() {
    if (!m_thread.joinable()) {
        try {
            m_thread = std::thread(&StandardOutput::writeBlocks, this);
        } catch (const std::system_error&) { // There are too many; this one writes, then.
            writeAll(m_blocks.front());
            m_blocks.front().clear();
            return;
        }
    }
    m_full.release();
    m_free.acquire();
    ++m_filling;
}

void StandardOutput::writeBlocks() {
    for (std::size_t next = 0;; ++next) {
        m_full.acquire();
        auto& block = m_blocks[next % kBlocks];
        if (block.empty()) {
            return;
        }
        writeAll(block);
        block.clear();
        m_free.release();
    }
}

} // namespace tarnquill::cli

// Writes a command's result to standard output, piece by piece. What is long is written on a thread, while
// the command makes the next piece.
#pragma once

#include <array>
#include <cstddef>
#include <semaphore>
#include <string>
#include <string_view>
#include <thread>

namespace tarnquill::cli {

class StandardOutput {
public:
    StandardOutput() = default;
    StandardOutput(const StandardOutput&) = delete;
    StandardOutput& operator=(const StandardOutput&) = delete;
    // Returns when all is written.
    ~StandardOutput();

    // The program ends when nothing more can be written: silently when the reader has gone, else with a
    // message.
    void write(std::string_view text);

    // The same at once and on the calling thread, for a whole result and for long pieces that several threads
    // make in turn. To be called before any write(), as what that was given may still wait in a block.
    void writeWithoutCopy(std::string_view text);

    // Writes a line feed, unless the last thing written was one.
    void endLine();

private:
    static constexpr std::size_t kBlocks = 3;

    void handOver();
    void writeBlocks();

    // A ring: the command fills a block that is free, the thread takes the oldest one that is full.
    std::array<std::string, kBlocks> m_blocks;
    std::size_t m_filling = 0;                            // counts on; its remainder is the block's place
    std::counting_semaphore<kBlocks> m_free{kBlocks - 1}; // but for the one that is being filled
    std::counting_semaphore<kBlocks> m_full{0};
    std::thread m_thread; // from the first full block on
    char m_last = '\n';
};

} // namespace tarnquill::cli

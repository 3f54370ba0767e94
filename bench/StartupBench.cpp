// Prints how long the program takes from its start to its first painted window, beside an empty Qt window.
//
// Both end by themselves once they are painted. They are started in turn, so that both meet the same state of
// the machine; the first pair only warms the caches. Needs a display, and the two programs beside this one.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int kRounds = 21;

// Milliseconds from the start of the program to its end.
double run(std::vector<std::string> command) {
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (auto& argument : command) {
        arguments.push_back(argument.data());
    }
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t quietly;
    posix_spawn_file_actions_init(&quietly);
    posix_spawn_file_actions_addopen(&quietly, STDERR_FILENO, "/dev/null", O_WRONLY, 0);

    const auto start = std::chrono::steady_clock::now();
    pid_t process = 0;
    int status = 0;
    if (posix_spawn(&process, arguments[0], &quietly, nullptr, arguments.data(), environ) != 0 ||
        waitpid(process, &status, 0) != process || status != 0) {
        std::fprintf(stderr, "startup_bench: %s did not open its window\n", arguments[0]);
        std::exit(1);
    }
    const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start;
    posix_spawn_file_actions_destroy(&quietly);
    return time.count();
}

double median(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

} // namespace

int main(int /*argc*/, char** argv) {
    const auto folder = std::filesystem::path(argv[0]).parent_path();
    const std::vector<std::string> empty{folder / "empty_window"};
    const std::vector<std::string> program{folder / "tarnquill", "--quit-after-first-paint"};
    run(empty);
    run(program);
    std::vector<double> emptyTimes;
    std::vector<double> programTimes;
    for (int round = 0; round < kRounds; ++round) {
        emptyTimes.push_back(run(empty));
        programTimes.push_back(run(program));
    }
    const auto emptyTime = median(emptyTimes);
    const auto programTime = median(programTimes);
    std::printf(
        "start to first painted window, median of %d: empty Qt window %.0f ms, tarnquill %.0f ms, %.2fx\n",
        kRounds, emptyTime, programTime, programTime / emptyTime);
}

// Prints how long the program takes from its start to its first painted window, beside an empty Qt window.
//
// The program finds fresh settings but for the tool that it showed last. Both end by themselves once they are
// painted. They are started in turn, so that both meet the same state of the machine; the first pair only
// warms the caches. Needs a display, and the two programs beside this one.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
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

// Lets programs that are started from now on find settings that name the tool as the last one.
void keepSettings(const std::filesystem::path& folder, const std::string& toolID) {
    std::filesystem::create_directories(folder / "Tarnquill");
    std::ofstream(folder / "Tarnquill" / "Tarnquill.conf") << "[main]\nselectedToolID=" << toolID << '\n';
    setenv("XDG_CONFIG_HOME", folder.c_str(), 1);
}

} // namespace

int main(int /*argc*/, char** argv) {
    const auto programs = std::filesystem::path(argv[0]).parent_path();
    const std::vector<std::string> empty{programs / "empty_window"};
    const std::vector<std::string> program{programs / "tarnquill", "--quit-after-first-paint"};
    std::string settings = std::filesystem::temp_directory_path() / "startup_bench.XXXXXX";
    if (mkdtemp(settings.data()) == nullptr) {
        std::perror("startup_bench");
        return 1;
    }
    std::printf("start to first painted window, median of %d, against an empty Qt window\n", kRounds);
    for (const auto* const toolID : {"markdown", "json"}) {
        keepSettings(settings, toolID);
        run(empty);
        run(program);
        std::vector<double> emptyTimes(kRounds);
        std::vector<double> programTimes(kRounds);
        for (int round = 0; round < kRounds; ++round) {
            emptyTimes[static_cast<size_t>(round)] = run(empty);
            programTimes[static_cast<size_t>(round)] = run(program);
        }
        const auto emptyTime = median(emptyTimes);
        const auto programTime = median(programTimes);
        std::printf("%-10s %4.0f ms against %4.0f ms: %.2fx\n", toolID, programTime, emptyTime,
                    programTime / emptyTime);
    }
    std::filesystem::remove_all(settings);
}

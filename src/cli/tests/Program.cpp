#include "cli/tests/Program.h"

#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace tarnquill::cli {

namespace {

// A folder of its own for every run of the tests.
class Folder {
public:
    Folder() {
        auto name = (std::filesystem::temp_directory_path() / "tarnquill-cli-XXXXXX").string();
        m_path = ::mkdtemp(name.data());
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder() { std::filesystem::remove_all(m_path); }

    [[nodiscard]] std::string newPath() { return m_path + "/" + std::to_string(++m_count); }

private:
    std::string m_path;
    int m_count = 0;
};

Folder& folder() {
    static Folder folder;
    return folder;
}

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string quoted(const std::string& argument) {
    std::string result = "'";
    for (const auto character : argument) {
        result += character == '\'' ? std::string("'\\''") : std::string(1, character);
    }
    return result + "'";
}

} // namespace

std::ostream& operator<<(std::ostream& stream, const Outcome& outcome) {
    return stream << "status " << outcome.exitStatus << "\n" << outcome.output << outcome.error;
}

Outcome run(const std::vector<std::string>& arguments, const std::string& input) {
    auto line = "cat " + fileWith(input) + " | $CLI";
    for (const auto& argument : arguments) {
        line += " " + quoted(argument);
    }
    return runShell(line);
}

Outcome runShell(const std::string& line) {
    const auto output = folder().newPath();
    const auto error = folder().newPath();
    const auto script = "CLI=" + quoted(TARNQUILL_CLI) + "; exec >" + output + " 2>" + error + "; " + line;
    const auto status = std::system(script.c_str());
    return {.exitStatus = WIFEXITED(status) ? WEXITSTATUS(status) : -1,
            .output = contentOf(output),
            .error = contentOf(error)};
}

std::string fileWith(const std::string& content) {
    auto path = folder().newPath();
    std::ofstream(path, std::ios::binary) << content;
    return path;
}

} // namespace tarnquill::cli

// Runs a fuzz target without a fuzzer: over every file of a folder, every beginning of it, and a fixed series
// of small changes to it, so that the target stays alive and catches what is near to the known inputs.
#include <algorithm>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using Input = std::vector<std::uint8_t>;

constexpr std::size_t kChangedInputs = 20'000;
constexpr std::size_t kLongestInput = 2048;

Input current;

extern "C" void printCurrentInput(int /*signal*/) {
    std::fputs("the input, in hex: ", stderr);
    for (const auto byte : current) {
        std::fprintf(stderr, "%02x", static_cast<unsigned>(byte));
    }
    std::fputc('\n', stderr);
}

void run(Input input) {
    current = std::move(input);
    LLVMFuzzerTestOneInput(current.data(), current.size());
}

std::vector<Input> readAll(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> paths;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        paths.push_back(entry.path());
    }
    std::ranges::sort(paths);
    std::vector<Input> inputs;
    for (const auto& path : paths) {
        std::ifstream file(path, std::ios::binary);
        inputs.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    return inputs;
}

class Changer {
public:
    explicit Changer(const std::vector<Input>& inputs) : m_inputs(inputs) {}

    Input next() {
        auto input = pick();
        for (auto changes = below(4) + 1; changes > 0; --changes) {
            change(input);
        }
        input.resize(std::min(input.size(), kLongestInput));
        return input;
    }

private:
    std::size_t below(std::size_t bound) { return m_random() % bound; }
    Input::iterator place(Input& input) {
        return input.begin() + static_cast<std::ptrdiff_t>(below(input.size() + 1));
    }
    std::uint8_t byte() { return static_cast<std::uint8_t>(m_random()); }
    const Input& pick() { return m_inputs[below(m_inputs.size())]; }

    void change(Input& input) {
        const auto at = place(input);
        switch (below(4)) {
        case 0:
            if (at != input.end()) {
                *at = byte();
            }
            break;
        case 1:
            input.insert(at, byte());
            break;
        case 2:
            input.erase(at, at + static_cast<std::ptrdiff_t>(
                                     std::min(below(8), static_cast<std::size_t>(input.end() - at))));
            break;
        default: {
            auto other = pick();
            const auto from = place(other);
            const auto length = std::min(below(16), static_cast<std::size_t>(other.end() - from));
            input.insert(at, from, from + static_cast<std::ptrdiff_t>(length));
        }
        }
    }

    const std::vector<Input>& m_inputs;
    std::mt19937 m_random{1};
};

} // namespace

int main(int count, char** arguments) {
    const auto inputs = count == 2 ? readAll(arguments[1]) : std::vector<Input>();
    if (inputs.empty()) {
        std::fputs("usage: give a folder of inputs\n", stderr);
        return 2;
    }
    std::signal(SIGABRT, printCurrentInput);
    for (const auto& input : inputs) {
        for (std::size_t length = 0; length < std::min(input.size(), kLongestInput); ++length) {
            run(Input(input.begin(), input.begin() + static_cast<std::ptrdiff_t>(length)));
        }
        run(input);
    }
    Changer changer(inputs);
    for (std::size_t i = 0; i < kChangedInputs; ++i) {
        run(changer.next());
    }
    return 0;
}

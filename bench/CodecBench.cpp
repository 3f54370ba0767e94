// Measures the codec on 64 MB of bytes or mostly plain text; bytes per second are those of the input.
#include "codec/Codec.h"
#include "codec/testing/Pack.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>

namespace tarnquill {

namespace {

constexpr std::size_t kSize = 64'000'000;

std::string randomBytes(std::size_t size) {
    std::mt19937_64 generator(1); // NOLINT(bugprone-random-generator-seed): the same bytes in every run
    std::string bytes(size, '\0');
    for (auto& byte : bytes) {
        byte = static_cast<char>(generator());
    }
    return bytes;
}

// Words, some mark-up and now and then a letter outside ASCII, so that every scheme has something to escape.
std::string plainText(std::size_t size) {
    std::mt19937 generator(1); // NOLINT(bugprone-random-generator-seed): the same text in every run
    constexpr std::array<std::string_view, 12> kWords{"encode", "decode", "bytes",      "the",
                                                      "of",     "a",      "caf\u00E9",  "window",
                                                      "<br>\n", "&",      "\"quoted\"", "configuration"};
    std::string text;
    while (text.size() < size) {
        text += kWords[generator() % kWords.size()];
        text += ' ';
    }
    return text;
}

void run(benchmark::State& state, std::string_view input, Codec::Scheme scheme, Codec::Direction direction,
         const Codec::Options& options = {}) {
    for (auto _ : state) {
        auto output = Codec::run(input, scheme, direction, options);
        benchmark::DoNotOptimize(output);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(input.size()) * state.iterations());
}

void encodeBase64(benchmark::State& state) {
    run(state, randomBytes(kSize), Codec::Scheme::base64, Codec::Direction::encode);
}
void decodeBase64(benchmark::State& state) {
    run(state, Codec::encode(randomBytes(kSize / 4 * 3), Codec::Scheme::base64, {}), Codec::Scheme::base64,
        Codec::Direction::decode);
}
void decodeBase64Text(benchmark::State& state) {
    run(state, Codec::encode(plainText(kSize / 4 * 3), Codec::Scheme::base64, {}), Codec::Scheme::base64,
        Codec::Direction::decode);
}
void decodeBase64Lines(benchmark::State& state) {
    const auto text = Codec::encode(randomBytes(kSize / 4 * 3), Codec::Scheme::base64, {});
    std::string lines;
    for (std::size_t start = 0; start < text.size(); start += 76) {
        lines += text.substr(start, 76) + '\n';
    }
    run(state, lines, Codec::Scheme::base64, Codec::Direction::decode);
}

void encodeText(benchmark::State& state, Codec::Scheme scheme) {
    run(state, plainText(kSize), scheme, Codec::Direction::encode);
}
void decodeText(benchmark::State& state, Codec::Scheme scheme) {
    run(state, Codec::encode(plainText(kSize), scheme, {}), scheme, Codec::Direction::decode);
}
void decodeSpacedHex(benchmark::State& state) {
    std::string text;
    for (const auto byte : randomBytes(kSize / 3)) {
        text += Codec::encode({&byte, 1}, Codec::Scheme::hex, {}) + ' ';
    }
    run(state, text, Codec::Scheme::hex, Codec::Direction::decode);
}

void dump(benchmark::State& state) {
    const auto bytes = randomBytes(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        auto text = Codec::hexDump(bytes, Codec::HexDump::kBytesPerRow, bytes.size());
        benchmark::DoNotOptimize(text);
    }
    state.SetBytesProcessed(state.range(0) * state.iterations());
}

// The peers of the two others: whole programs, from a file to nowhere.
void peer(benchmark::State& state, const char* program, std::string_view file, std::size_t size) {
    const auto path = std::filesystem::temp_directory_path() / "tarnquill-codec-bench";
    std::ofstream(path, std::ios::binary) << file;
    const auto command = program + (' ' + path.string()) + " >/dev/null";
    for (auto _ : state) {
        // NOLINTNEXTLINE(bugprone-command-processor): of this benchmark's own words
        if (std::system(command.c_str()) != 0) {
            state.SkipWithError("not installed");
            break;
        }
    }
    std::filesystem::remove(path);
    state.SetBytesProcessed(static_cast<std::int64_t>(size) * state.iterations());
}
void xxd(benchmark::State& state) {
    const auto size = static_cast<std::size_t>(state.range(0));
    peer(state, "xxd", randomBytes(size), size);
}
void gzip(benchmark::State& state) {
    const auto text = plainText(32'000'000);
    peer(state, "gzip -dc <", pack(text, Inflate::Format::gzip), text.size());
}

// Bytes per second are those of the output here.
void unpack(benchmark::State& state, Inflate::Format format) {
    const auto packed = pack(plainText(32'000'000), format);
    std::size_t size = 0;
    for (auto _ : state) {
        auto output = Inflate::unpack(packed, format, Codec::kMostUnpackedBytes);
        size = output->size();
        benchmark::DoNotOptimize(output);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(size) * state.iterations());
}

BENCHMARK(encodeBase64);
BENCHMARK(decodeBase64);
BENCHMARK(decodeBase64Text);
BENCHMARK(decodeBase64Lines);
BENCHMARK_CAPTURE(encodeText, url, Codec::Scheme::url);
BENCHMARK_CAPTURE(decodeText, url, Codec::Scheme::url);
BENCHMARK_CAPTURE(encodeText, html, Codec::Scheme::html);
BENCHMARK_CAPTURE(decodeText, html, Codec::Scheme::html);
BENCHMARK_CAPTURE(encodeText, hex, Codec::Scheme::hex);
BENCHMARK_CAPTURE(decodeText, hex, Codec::Scheme::hex);
BENCHMARK(decodeSpacedHex);
BENCHMARK(dump)->Arg(65'536)->Arg(16'777'216)->UseRealTime();
BENCHMARK(xxd)->Arg(16'777'216)->UseRealTime();
BENCHMARK_CAPTURE(unpack, gzip, Inflate::Format::gzip)->UseRealTime();
BENCHMARK_CAPTURE(unpack, zlib, Inflate::Format::zlib)->UseRealTime();
BENCHMARK(gzip)->UseRealTime();

} // namespace

} // namespace tarnquill

#include "cli/Choice.h"
#include "cli/Commands.h"
#include "cli/Input.h"
#include "cli/StandardOutput.h"
#include "codec/Codec.h"

#include <CLI/CLI.hpp>

#include <array>
#include <memory>
#include <string>
#include <utility>

namespace tarnquill::cli {

namespace {

using Codec::Scheme;

constexpr std::array kSchemes{std::pair{"base64", Scheme::base64}, std::pair{"url", Scheme::url},
                              std::pair{"html", Scheme::html}, std::pair{"hex", Scheme::hex}};

struct Options {
    std::string file;
    Scheme scheme = Scheme::base64;
    Codec::Options codec;
    bool raw = false;
};

Result encode(const Options& options) {
    const auto input = options.raw ? readBytes(options.file) : readText(options.file);
    if (!input) {
        return failed(input.error());
    }
    // Every scheme writes each three bytes the same, whatever stands around them, so pieces give the same
    // text as the whole, without the memory for it.
    constexpr std::size_t kPiece = std::size_t{3} << 16;
    auto bytes = options.raw ? input->view() : withoutByteOrderMark(input->view());
    StandardOutput output;
    for (; bytes.size() > kPiece; bytes.remove_prefix(kPiece)) {
        output.write(Codec::encode(bytes.substr(0, kPiece), options.scheme, options.codec));
    }
    return lines(Codec::encode(bytes, options.scheme, options.codec));
}

Result decode(const Options& options) {
    // Every scheme but HTML has a sentence of its own for bytes that are no text.
    const auto input =
        options.scheme == Scheme::html ? readText(options.file) : readUncheckedText(options.file);
    if (!input) {
        return failed(input.error());
    }
    auto decoded = Codec::decode(withoutByteOrderMark(input->view()), options.scheme, options.codec);
    if (!decoded) {
        return failed({.exitStatus = kRefused, .message = Codec::message(decoded.error())});
    }
    auto output = Codec::present(*decoded, options.scheme, options.codec);
    const auto asBytes = options.raw && output.dump;
    return {.exitStatus = 0, .output = std::move(asBytes ? decoded->bytes : output.text), .error = {}};
}

CLI::App* addCommand(CLI::App& tool, const char* name, const char* description, const char* raw,
                     Options& options) {
    auto* command = tool.add_subcommand(name, description);
    command->add_option("FILE", options.file, "The file to read; standard input when absent or “-”");
    addChoice<kSchemes>(*command, "--scheme", options.scheme,
                        "The encoding: base64, url, html or hex [base64]");
    command->add_flag("--url-safe", options.codec.urlSafe,
                      "Use - and _ in place of + and /, and drop the = padding");
    command->add_flag("--plus-for-space", options.codec.plusForSpace,
                      "Treat + as a space, as HTML forms and query strings do");
    command->add_flag("--unpack", options.codec.inflate, "Unpack gzip or zlib data found after decoding");
    command->add_flag("--format-json", options.codec.formatJSON,
                      "Format decoded text that is a JSON object or array");
    command->add_flag("--raw", options.raw, raw);
    return command;
}

} // namespace

void addCodecCommands(CLI::App& application, Result& result) {
    auto* tool =
        application.add_subcommand("codec", "Encode and decode Base64, percent-encoding, HTML and hex");
    tool->require_subcommand(1);
    const auto options = std::make_shared<Options>();

    auto* encodeCommand =
        addCommand(*tool, "encode", "Encode the input's text",
                   "Encode the input's bytes as they are, whether they are text or not", *options);
    encodeCommand->callback([options, &result] { result = encode(*options); });

    auto* decodeCommand =
        addCommand(*tool, "decode", "Decode the input, and print a hex dump of what is no text",
                   "Write bytes that are no text themselves instead of their hex dump", *options);
    decodeCommand->callback([options, &result] { result = decode(*options); });
}

} // namespace tarnquill::cli

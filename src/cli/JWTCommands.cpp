#include "cli/Commands.h"
#include "cli/Input.h"
#include "common/WhiteSpace.h"
#include "jwt/JWTDecoder.h"
#include "jwt/JWTVerifier.h"
#include "jwt/PEMKey.h"

#include <CLI/CLI.hpp>
#include <boost/json.hpp>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <memory>
#include <optional>
#include <string>

namespace tarnquill::cli {

namespace {

using JWTDecoder::Payload;
namespace json = boost::json;

struct Options {
    std::string file;
    std::optional<double> now; // in seconds since 1970
    std::string key;
    std::string keyFile;
    bool secretIsBase64 = false;
};

std::expected<Bytes, Failure> readToken(const Options& options) {
    auto input = readText(options.file);
    return input ? std::expected<Bytes, Failure>(Bytes(std::string(withoutByteOrderMark(input->view()))))
                 : input;
}

double systemTime() {
    return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
}

// Whole seconds without a fraction or an exponent.
json::value jsonDate(std::optional<double> date) {
    constexpr double kLargestExact = 9'007'199'254'740'992;
    if (!date) {
        return nullptr;
    }
    const auto isWhole = std::trunc(*date) == *date && std::abs(*date) <= kLargestExact;
    return isWhole ? json::value(static_cast<std::int64_t>(*date)) : json::value(*date);
}

template <typename Value>
json::value orNull(const std::optional<Value>& value) {
    return value ? json::value(*value) : json::value(nullptr);
}

json::object jsonPayload(const Payload& payload) {
    switch (payload.kind) {
    case Payload::Kind::json:
        return {{"kind", "json"}, {"text", payload.text}, {"claimCount", orNull(payload.claimCount)}};
    case Payload::Kind::text:
        return {{"kind", "text"}, {"text", payload.text}};
    case Payload::Kind::binary:
        return {{"kind", "binary"}, {"byteCount", payload.byteCount}};
    case Payload::Kind::detached:
        return {{"kind", "detached"}};
    case Payload::Kind::encrypted:
        return {{"kind", "encrypted"}};
    }
    std::unreachable();
}

Result decode(const Options& options) {
    const auto input = readToken(options);
    if (!input) {
        return failed(input.error());
    }
    const auto token = JWTDecoder::decode(input->view());
    if (!token) {
        return failed({.exitStatus = kRefused, .message = JWTDecoder::message(token.error())});
    }
    json::array timeClaims;
    for (const auto& claim : token->timeClaims) {
        timeClaims.push_back({{"name", JWTDecoder::rawText(claim.name)}, {"date", jsonDate(claim.date)}});
    }
    const auto validity = JWTDecoder::validity(*token, options.now.value_or(systemTime()));
    const json::object output{{"header", token->header},
                              {"algorithm", orNull(token->algorithm)},
                              {"payload", jsonPayload(token->payload)},
                              {"payloadByteCount", token->payloadByteCount},
                              {"signatureByteCount", orNull(token->signatureByteCount)},
                              {"segmentCount", token->segmentCount},
                              {"timeClaims", std::move(timeClaims)},
                              {"validity", orNull(validity.transform([](JWTDecoder::Validity value) {
                                   return JWTDecoder::rawText(value);
                               }))}};
    return lines(json::serialize(output));
}

// A token may hold a line feed in whatever it names.
std::string line(std::string text) {
    std::ranges::replace(text, '\n', ' ');
    return text + '\n';
}

// The text of a key's file, or the PEM of a key in DER.
std::expected<std::string, Failure> readKeyFile(const std::string& path) {
    const auto text = readText(path);
    if (text) {
        return std::string(withoutByteOrderMark(text->view()));
    }
    const auto bytes = readBytes(path);
    const auto pem = bytes ? JWTVerifier::pemFromDER(bytes->view()) : std::nullopt;
    return pem ? std::expected<std::string, Failure>(*pem) : std::unexpected(text.error());
}

Result verify(const Options& options) {
    using JWTVerifier::SecretForm;
    const auto token = readToken(options);
    if (!token) {
        return failed(token.error());
    }
    auto key = options.key;
    if (!options.keyFile.empty()) {
        auto file = readKeyFile(options.keyFile);
        if (!file) {
            return failed(file.error());
        }
        key = std::move(*file);
    }
    const auto outcome = JWTVerifier::verify(token->view(), key,
                                             options.secretIsBase64 ? SecretForm::base64 : SecretForm::text);
    using Kind = JWTVerifier::Outcome::Kind;
    const auto isChecked = outcome.kind == Kind::verified || outcome.kind == Kind::mismatch;
    auto result =
        lines(line(std::string(rawText(outcome.kind))) + line(message(outcome, trimmed(token->view()))) +
              (isChecked ? line(outcome.detail) : std::string()));
    result.exitStatus = outcome.kind == Kind::verified ? 0 : kRefused;
    return result;
}

void addFile(CLI::App& command, Options& options) {
    command.add_option("FILE", options.file, "The token's file; standard input when absent or “-”");
}

} // namespace

void addJWTCommands(CLI::App& application, Result& result) {
    auto* tool = application.add_subcommand("jwt", "Decode JSON Web Tokens and check their signatures");
    tool->require_subcommand(1);
    const auto options = std::make_shared<Options>();

    auto* decodeCommand = tool->add_subcommand("decode", "Print what a token holds as a JSON object");
    addFile(*decodeCommand, *options);
    decodeCommand->add_option("--now", options->now,
                              "The time to judge the token at, in seconds since 1970 [the present]");
    decodeCommand->callback([options, &result] { result = decode(*options); });

    auto* verifyCommand = tool->add_subcommand(
        "verify", "Check a token's signature: the outcome, what it means, and the key that was used");
    addFile(*verifyCommand, *options);
    auto* key = verifyCommand->add_option(
        "--key", options->key, "The shared secret, or a PEM key, a certificate, a JWK or a JWK set");
    verifyCommand->add_option("--key-file", options->keyFile, "A file that holds the key")->excludes(key);
    verifyCommand->add_flag("--secret-base64", options->secretIsBase64,
                            "Read an HMAC secret as Base64 rather than as text");
    verifyCommand->callback([options, &result] { result = verify(*options); });
}

} // namespace tarnquill::cli

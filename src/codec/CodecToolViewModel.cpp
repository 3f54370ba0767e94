#include "codec/CodecToolViewModel.h"

#include "common/SavedFile.h"
#include "common/TextFile.h"
#include "common/UnicodeText.h"

#include <chrono>
#include <utility>

namespace tarnquill {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

using Codec::Content;
using Codec::Direction;
using Codec::Scheme;

namespace {

constexpr auto kTypingDelay = 150ms;

// Gzip data of a small JSON object, so that a new window shows what decoding can do.
constexpr std::u16string_view kSample =
    u"H4sIAAAAAAACA6tWKsnPz1GyUnLNS85PSVXQV3BJBTGUdJSKS1ILipWsopWSEotTzUyAIulVmQVAKqs4P08pthYA3E8JOTsAAAA=";

TextBuffer bufferOf(std::string_view text) {
    return TextBuffer(utf16FromUTF8(text).value_or(std::u16string()));
}

std::shared_ptr<const Codec::HexDump> dumpOf(std::string_view bytes) {
    return std::make_shared<const Codec::HexDump>(Codec::HexDump{
        .bytes = std::string(bytes.substr(0, Codec::HexDump::kMostBytes)), .count = bytes.size()});
}

} // namespace

QString title(Scheme scheme) {
    switch (scheme) {
    case Scheme::base64:
        return u"Base64"_s;
    case Scheme::url:
        return u"URL"_s;
    case Scheme::html:
        return u"HTML"_s;
    case Scheme::hex:
        return u"Hex"_s;
    }
    std::unreachable();
}

// A file that was read: its text, or its bytes and their dump.
struct CodecToolViewModel::File {
    TextBuffer text;
    Bytes bytes;
    DumpText::Dump dump;
    TextBuffer dumpText;
    std::size_t bytesPerRow = 0;
};

struct CodecToolViewModel::Transformed {
    Inputs inputs;
    std::expected<Codec::Output, Codec::Failure> result;
    Bytes bytes; // of a binary result
    TextBuffer text;
    std::size_t bytesPerRow = 0;
};

CodecToolViewModel::CodecToolViewModel(QObject* parent) : QObject(parent), m_input(kSample) {
    connect(&m_outputDump, &DumpText::textChanged, this, &CodecToolViewModel::outputChanged);
    connect(&m_fileDump, &DumpText::textChanged, this, &CodecToolViewModel::shownFileChanged);
}

void CodecToolViewModel::start() {
    schedule(0ms);
}

bool CodecToolViewModel::isOutputBinary() const {
    return m_output && m_output->content == Content::binary;
}

const TextBuffer& CodecToolViewModel::shownOutput() const {
    return isOutputBinary() ? m_outputDump.text() : m_outputText;
}

TextBuffer CodecToolViewModel::hexDump() const {
    return isOutputBinary() ? bufferOf(m_output->text) : TextBuffer();
}

QString CodecToolViewModel::badge() const {
    if (!m_output || m_output->text.empty()) {
        return {};
    }
    if (m_publishedInputs.direction == Direction::encode) {
        return title(m_publishedInputs.scheme).toUpper();
    }
    auto content = m_output->content == Content::binary ? u"BINARY"_s
                   : m_output->content == Content::json ? u"JSON"_s
                                                        : u"TEXT"_s;
    if (!m_output->compression) {
        return content;
    }
    const auto format = Inflate::name(*m_output->compression);
    return QString::fromUtf8(format.data(), static_cast<qsizetype>(format.size())).toUpper() + u" → "_s +
           content;
}

QString CodecToolViewModel::failureTitle() const {
    if (!m_failure) {
        return {};
    }
    return m_failure->format ? u"Could not unpack"_s : u"Not "_s + title(m_publishedInputs.scheme);
}

void CodecToolViewModel::setInput(const TextBuffer& input) {
    m_input = input;
    m_fileBytes = nullptr;
    m_fileDump.clear();
    inputHasChanged();
}

void CodecToolViewModel::setScheme(Scheme scheme) {
    if (std::exchange(m_inputs.scheme, scheme) != scheme) {
        Q_EMIT optionsChanged();
        schedule(kTypingDelay);
    }
}

void CodecToolViewModel::setDirection(Direction direction) {
    if (std::exchange(m_inputs.direction, direction) != direction) {
        Q_EMIT optionsChanged();
        schedule(kTypingDelay);
    }
}

void CodecToolViewModel::setOptions(const Codec::Options& options) {
    if (std::exchange(m_inputs.options, options) != options) {
        Q_EMIT optionsChanged();
        schedule(kTypingDelay);
    }
}

bool CodecToolViewModel::canSwap() const {
    return m_output && m_output->content != Content::binary && !m_output->text.empty();
}

void CodecToolViewModel::swap() {
    if (!canSwap()) {
        return;
    }
    replaceInput(m_outputText, {});
    setDirection(direction() == Direction::encode ? Direction::decode : Direction::encode);
}

void CodecToolViewModel::replaceInput(const TextBuffer& input) {
    replaceInput(input, {});
}

void CodecToolViewModel::clear() {
    replaceInput(TextBuffer());
}

void CodecToolViewModel::replaceInput(const TextBuffer& input, const QString& filePath) {
    m_filePath = filePath;
    setInput(input);
    Q_EMIT inputReplaced();
}

void CodecToolViewModel::inputHasChanged() {
    ++m_inputs.inputGeneration;
    Q_EMIT inputChanged();
    schedule(kTypingDelay);
}

void CodecToolViewModel::open(const QString& path) {
    m_opening.start(
        0ms,
        [path = path.toStdString(),
         bytesPerRow = m_fileDump.bytesPerRow()](const std::stop_token&) -> std::expected<File, std::string> {
            auto bytes = readFile(path);
            if (!bytes) {
                return std::unexpected(bytes.error());
            }
            File file;
            if (isWellFormedUTF8(*bytes)) {
                file.text = bufferOf(*bytes);
                return file;
            }
            file.dump = dumpOf(*bytes);
            file.dumpText = DumpText::textOf(*file.dump, bytesPerRow);
            file.bytesPerRow = bytesPerRow;
            file.bytes = std::make_shared<const std::string>(std::move(*bytes));
            return file;
        },
        [this, path](std::expected<File, std::string>&& file) {
            if (file) {
                take(std::move(*file), path);
                Q_EMIT fileOpened();
            } else {
                Q_EMIT openingFailed(QString::fromStdString(file.error()));
            }
        });
}

void CodecToolViewModel::take(File&& file, const QString& path) {
    if (file.bytes == nullptr) {
        replaceInput(file.text, path);
        return;
    }
    m_filePath = path;
    m_fileBytes = std::move(file.bytes);
    m_fileDump.show(std::move(file.dump), std::move(file.dumpText), file.bytesPerRow);
    inputHasChanged();
}

void CodecToolViewModel::save(const QString& path) {
    if (m_outputBytes == nullptr) {
        return;
    }
    m_saving.start(
        0ms, [path, bytes = m_outputBytes](const std::stop_token&) { return saveFile(path, *bytes); },
        [this](const QString& error) {
            if (!error.isEmpty()) {
                Q_EMIT savingFailed(error);
            }
        });
}

CodecToolViewModel::Transformed CodecToolViewModel::transform(const Inputs& inputs, std::string_view input,
                                                              std::size_t bytesPerRow) {
    Transformed transformed{.inputs = inputs,
                            .result = Codec::Output(),
                            .bytes = nullptr,
                            .text = TextBuffer(),
                            .bytesPerRow = bytesPerRow};
    auto& result = transformed.result;
    if (inputs.direction == Direction::encode) {
        result = Codec::run(input, inputs.scheme, inputs.direction, inputs.options);
    } else if (auto decoded = Codec::decode(input, inputs.scheme, inputs.options)) {
        result = Codec::present(*decoded, inputs.scheme, inputs.options);
        if (result->dump) {
            transformed.bytes = std::make_shared<const std::string>(std::move(decoded->bytes));
        }
    } else {
        result = std::unexpected(decoded.error());
    }
    if (result) {
        transformed.text =
            result->dump ? DumpText::textOf(*result->dump, bytesPerRow) : bufferOf(result->text);
    }
    return transformed;
}

void CodecToolViewModel::schedule(std::chrono::milliseconds delay) {
    if (m_requestedInputs == m_inputs) {
        return;
    }
    m_requestedInputs = m_inputs;
    m_transform.start(
        delay,
        [inputs = m_inputs, input = m_input, fileBytes = m_fileBytes,
         bytesPerRow = m_outputDump.bytesPerRow()](const std::stop_token&) {
            return transform(inputs, fileBytes == nullptr ? input.utf8() : *fileBytes, bytesPerRow);
        },
        [this](Transformed&& transformed) { publish(std::move(transformed)); });
}

void CodecToolViewModel::publish(Transformed&& transformed) {
    m_publishedInputs = transformed.inputs;
    m_output.reset();
    m_failure.reset();
    m_outputDump.clear();
    m_outputBytes = std::move(transformed.bytes);
    m_outputText = std::move(transformed.text);
    if (!transformed.result) {
        m_failure = transformed.result.error();
    } else {
        m_output = std::move(*transformed.result);
    }
    if (isOutputBinary()) {
        m_outputDump.show(std::make_shared<const Codec::HexDump>(*m_output->dump),
                          std::exchange(m_outputText, TextBuffer()), transformed.bytesPerRow);
    } else {
        Q_EMIT outputChanged();
    }
}

} // namespace tarnquill

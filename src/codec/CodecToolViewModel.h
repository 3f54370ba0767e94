// The state of the Encode / Decode tool: the input (a text, or a file's bytes), the scheme, direction and
// options, and the result that follows from them. The result is computed in the background and published only
// while it still belongs to the latest request.
#pragma once

#include "codec/Codec.h"
#include "codec/DumpText.h"
#include "common/LatestTask.h"
#include "common/TextBuffer.h"

#include <QObject>
#include <QString>

#include <chrono>
#include <memory>
#include <optional>
#include <string>

namespace tarnquill {

class CodecToolViewModel : public QObject {
    Q_OBJECT

public:
    using Bytes = std::shared_ptr<const std::string>;

    // What one run of the codec depends on. The generation stands for the input.
    struct Inputs {
        int inputGeneration = 0;
        Codec::Scheme scheme = Codec::Scheme::base64;
        Codec::Direction direction = Codec::Direction::decode;
        Codec::Options options{.inflate = true, .formatJSON = true};

        friend bool operator==(const Inputs&, const Inputs&) = default;
    };

    explicit CodecToolViewModel(QObject* parent = nullptr);

    // Runs the codec at once, if it has not run for this input yet. The view calls it when it appears.
    void start();

    // The text, also while a file stands in its place.
    [[nodiscard]] const TextBuffer& input() const { return m_input; }
    [[nodiscard]] Codec::Scheme scheme() const { return m_inputs.scheme; }
    [[nodiscard]] Codec::Direction direction() const { return m_inputs.direction; }
    [[nodiscard]] const Codec::Options& options() const { return m_inputs.options; }

    // Never both. They belong to the latest request that has finished.
    [[nodiscard]] const std::optional<Codec::Output>& output() const { return m_output; }
    [[nodiscard]] const std::optional<Codec::Failure>& failure() const { return m_failure; }
    [[nodiscard]] bool isOutputBinary() const;
    // All the bytes of a binary output; null when the output is another one.
    [[nodiscard]] const Bytes& outputBytes() const { return m_outputBytes; }

    // What the output pane shows: the output's text, or its dump in rows that fit the pane.
    [[nodiscard]] const TextBuffer& shownOutput() const;
    // With 16 bytes a row, whatever is shown. Empty when the output is not binary.
    [[nodiscard]] TextBuffer hexDump() const;
    // "BASE64" or "GZIP → JSON"; empty when there is no output text.
    [[nodiscard]] QString badge() const;
    // "Not Base64" or "Could not unpack"; empty when nothing failed.
    [[nodiscard]] QString failureTitle() const;

    // The bytes of a file that is no text, which are the input until it is cleared or replaced; null without
    // one.
    [[nodiscard]] const Bytes& fileBytes() const { return m_fileBytes; }
    [[nodiscard]] const TextBuffer& shownFile() const { return m_fileDump.text(); }
    // The file that the input came from; empty when it came from none.
    [[nodiscard]] const QString& filePath() const { return m_filePath; }

    void setInput(const TextBuffer& input);
    void setScheme(Codec::Scheme scheme);
    void setDirection(Codec::Direction direction);
    void setOptions(const Codec::Options& options);
    // How many bytes of a dump's row fit the pane.
    void setDumpBytesPerRow(std::size_t bytesPerRow) { m_outputDump.setBytesPerRow(bytesPerRow); }
    void setFileBytesPerRow(std::size_t bytesPerRow) { m_fileDump.setBytesPerRow(bytesPerRow); }

    // Moves the output into the input and reverses the direction. Does nothing without a text to move.
    void swap();
    [[nodiscard]] bool canSwap() const;
    // Takes another input, or none, as an edit that the editor can undo.
    void replaceInput(const TextBuffer& input);
    void clear();

    // Takes the file's bytes as the input: as text where they are UTF-8, else as they are.
    void open(const QString& path);
    // Writes the bytes of a binary output to the file.
    void save(const QString& path);

    [[nodiscard]] LatestTask& transformTask() { return m_transform; }
    [[nodiscard]] LatestTask& dumpTask() { return m_outputDump.task(); }
    [[nodiscard]] LatestTask& openingTask() { return m_opening; }
    [[nodiscard]] LatestTask& savingTask() { return m_saving; }

Q_SIGNALS:
    void inputReplaced();  // by something other than the editor, which can undo it
    void inputChanged();   // by whatever it was
    void optionsChanged(); // scheme, direction, options
    void outputChanged();
    void shownFileChanged();
    void fileOpened();
    void openingFailed(const QString& sentence);
    void savingFailed(const QString& sentence);

private:
    struct File;
    struct Transformed;

    [[nodiscard]] static Transformed transform(const Inputs& inputs, std::string_view input,
                                               std::size_t bytesPerRow);
    void replaceInput(const TextBuffer& input, const QString& filePath);
    void take(File&& file, const QString& path);
    void inputHasChanged();
    void schedule(std::chrono::milliseconds delay);
    void publish(Transformed&& transformed);

    TextBuffer m_input;
    Bytes m_fileBytes;
    DumpText m_fileDump;
    QString m_filePath;
    Inputs m_inputs;
    std::optional<Inputs> m_requestedInputs;
    Inputs m_publishedInputs;
    std::optional<Codec::Output> m_output;
    std::optional<Codec::Failure> m_failure;
    Bytes m_outputBytes;
    TextBuffer m_outputText;
    DumpText m_outputDump;
    LatestTask m_transform;
    LatestTask m_opening;
    LatestTask m_saving;
};

// "Base64", "URL", "HTML" or "Hex".
[[nodiscard]] QString title(Codec::Scheme scheme);

} // namespace tarnquill

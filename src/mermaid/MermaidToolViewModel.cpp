#include "mermaid/MermaidToolViewModel.h"

#include "common/SavedFile.h"
#include "common/TextFile.h"
#include "mermaid/MermaidFence.h"
#include "mermaid/MermaidTemplates.h"
#include "mermaid/MermaidThemes.h"

#include <chrono>
#include <expected>
#include <utility>

namespace tarnquill {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

constexpr auto kTypingPause = 50ms;

QString toQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace

MermaidToolViewModel::MermaidToolViewModel(QObject* parent)
    : QObject(parent),
      m_text(MermaidTemplates::all().front().source),
      m_themeChoice(toQString(MermaidThemes::kAutomatic)) {
    followText(0ms);
}

void MermaidToolViewModel::setText(const TextBuffer& text) {
    m_text = text;
    followText(kTypingPause);
    Q_EMIT textChanged();
}

void MermaidToolViewModel::replaceText(const TextBuffer& text) {
    m_text = text;
    followText(0ms);
    Q_EMIT textChanged();
    Q_EMIT textReplaced();
}

void MermaidToolViewModel::followText(std::chrono::milliseconds delay) {
    m_following.start(
        delay, [text = m_text](const std::stop_token&) { return QString::fromStdU16String(text.text()); },
        [this](QString&& source) {
            if (std::exchange(m_source, std::move(source)) != m_source) {
                m_render.reset();
                Q_EMIT sourceChanged();
            }
            Q_EMIT statusChanged();
        });
    Q_EMIT statusChanged();
}

void MermaidToolViewModel::setThemeChoice(const QString& choice) {
    if (std::exchange(m_themeChoice, choice) != choice) {
        Q_EMIT themeChoiceChanged();
    }
}

void MermaidToolViewModel::clear() {
    replaceText(TextBuffer());
}

void MermaidToolViewModel::useTemplate(std::size_t index) {
    replaceText(TextBuffer(MermaidTemplates::all()[index].source));
    m_viewport.requestAutoFit();
}

void MermaidToolViewModel::open(const QString& path) {
    m_opening.start(
        0ms,
        [path = path.toStdString()](const std::stop_token&) -> std::expected<TextBuffer, std::string> {
            const auto file = readTextFile(path);
            if (!file) {
                return std::unexpected(file.error());
            }
            const std::u16string_view text = file->text;
            return TextBuffer(MermaidFence::firstBlock(text).value_or(text));
        },
        [this, path](const std::expected<TextBuffer, std::string>& text) {
            if (!text) {
                Q_EMIT fileFailed(QString::fromStdString(text.error()));
                return;
            }
            const bool isOther = std::exchange(m_filePath, path) != path;
            replaceText(*text);
            if (isOther) {
                m_viewport.requestAutoFit();
            }
            Q_EMIT fileChanged();
        });
}

void MermaidToolViewModel::reload() {
    if (!m_filePath.isEmpty()) {
        open(m_filePath);
    }
}

void MermaidToolViewModel::save(const QString& path, const QByteArray& bytes) {
    m_saving.start(
        0ms, [path, bytes](const std::stop_token&) { return saveFile(path, bytes); },
        [this](const QString& failure) {
            if (!failure.isEmpty()) {
                Q_EMIT savingFailed(failure);
            }
        });
}

MermaidToolViewModel::Status MermaidToolViewModel::status() const {
    if (m_engineFailed) {
        return Status::withoutEngine;
    }
    if (m_following.isPending() || !m_render) {
        return Status::drawing;
    }
    if (std::holds_alternative<MermaidOutcome::Failed>(m_render->value)) {
        return Status::failed;
    }
    return m_svgBytes > 0 ? Status::rendered : Status::blank;
}

std::optional<TextRange> MermaidToolViewModel::errorRange() const {
    const auto* const failed = m_render ? std::get_if<MermaidOutcome::Failed>(&m_render->value) : nullptr;
    if (failed == nullptr || !failed->line || m_following.isPending() || *failed->line < 1) {
        return std::nullopt;
    }
    const auto index = static_cast<std::size_t>(*failed->line) - 1;
    if (index >= m_text.lineCount()) {
        return std::nullopt;
    }
    const auto line = m_text.lineRange(index);
    const auto text = m_text.text(line);
    const auto first = text.find_first_not_of(u" \t\r");
    if (first == std::u16string::npos) {
        return line;
    }
    return TextRange{.location = line.location + first,
                     .length = text.find_last_not_of(u" \t\r") - first + 1};
}

void MermaidToolViewModel::setOutcome(const MermaidOutcome& outcome) {
    if (const auto* const engine = std::get_if<MermaidOutcome::Engine>(&outcome.value)) {
        m_engineFailed = !engine->ready;
    } else {
        m_render = outcome;
        if (const auto* const rendered = std::get_if<MermaidOutcome::Rendered>(&outcome.value)) {
            m_svgBytes = rendered->bytes;
        }
    }
    Q_EMIT statusChanged();
}

void MermaidToolViewModel::revealError() {
    if (const auto range = errorRange()) {
        Q_EMIT revealRequested(*range);
    }
}

} // namespace tarnquill

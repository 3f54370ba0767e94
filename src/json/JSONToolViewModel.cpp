#include "json/JSONToolViewModel.h"

#include "common/TextFile.h"
#include "common/UnicodeText.h"

#include <chrono>
#include <utility>

namespace tarnquill {

using namespace std::chrono_literals;

namespace {

constexpr auto kFormattingDelay = 200ms;
constexpr auto kSearchDelay = 120ms;

constexpr std::u16string_view kSample = u"{\n"
                                        u"  \"tool\": \"JSON\",\n"
                                        u"  \"actions\": [\"Format\", \"Minify\", \"Validate\"],\n"
                                        u"  \"indent\": 2,\n"
                                        u"  \"sortKeys\": false\n"
                                        u"}";

// The shown text when it is the same as before, so that an editor has nothing to do and keeps its place.
TextBuffer bufferOf(const std::string& text, const TextBuffer& shown) {
    TextBuffer buffer(utf16FromUTF8(text).value_or(std::u16string()));
    return buffer == shown ? shown : buffer;
}

} // namespace

struct JSONToolViewModel::Formatted {
    JSONFormatter::Validation validation;
    TextBuffer formatted;
    TextBuffer minified;
};

JSONToolViewModel::JSONToolViewModel(QObject* parent) : QObject(parent), m_text(kSample) {
    scheduleFormatting();
}

const TextBuffer& JSONToolViewModel::output() const {
    return m_outputMode == OutputMode::formatted ? m_formattedOutput : m_minifiedOutput;
}

void JSONToolViewModel::setText(const TextBuffer& text) {
    m_text = text;
    ++m_textGeneration;
    Q_EMIT textChanged();
    scheduleFormatting();
    scheduleSearch();
}

void JSONToolViewModel::setIndent(JSONFormatter::Indent indent) {
    if (std::exchange(m_indent, indent) != indent) {
        Q_EMIT optionsChanged();
        scheduleFormatting();
    }
}

void JSONToolViewModel::setSortMode(JSONFormatter::SortMode mode) {
    if (std::exchange(m_sortMode, mode) != mode) {
        Q_EMIT optionsChanged();
        scheduleFormatting();
    }
}

void JSONToolViewModel::setOutputMode(OutputMode mode) {
    if (std::exchange(m_outputMode, mode) != mode) {
        ++m_outputGeneration;
        Q_EMIT optionsChanged();
        Q_EMIT outputChanged();
        scheduleSearch();
    }
}

void JSONToolViewModel::replaceText(const TextBuffer& text) {
    setText(text);
    Q_EMIT textReplaced();
}

void JSONToolViewModel::clear() {
    replaceText(TextBuffer());
}

void JSONToolViewModel::open(const QString& path) {
    m_opening.start(
        0ms,
        [path = path.toStdString()](const std::stop_token&) -> std::expected<TextBuffer, std::string> {
            const auto text = readTextFile(path);
            if (!text) {
                return std::unexpected(text.error());
            }
            return TextBuffer(text->text);
        },
        [this, path](const std::expected<TextBuffer, std::string>& text) {
            if (!text) {
                Q_EMIT fileFailed(QString::fromStdString(text.error()));
                return;
            }
            m_filePath = path;
            setText(*text);
            Q_EMIT textReplaced();
            Q_EMIT fileChanged();
        });
}

void JSONToolViewModel::scheduleFormatting() {
    const Inputs inputs{.textGeneration = m_textGeneration, .indent = m_indent, .sortMode = m_sortMode};
    if (m_requestedInputs == inputs) {
        return;
    }
    m_requestedInputs = inputs;
    m_formatting.start(
        kFormattingDelay,
        [text = m_text, inputs, shownFormatted = m_formattedOutput,
         shownMinified = m_minifiedOutput](const std::stop_token& token) {
            Formatted result;
            const auto bytes = utf8FromUTF16(text.text());
            if (!bytes) {
                result.validation.error = JSONFormatter::kNotEncodable;
                result.validation.byteSize = static_cast<std::int64_t>(text.metrics().bytes);
                return result;
            }
            auto outputs = JSONFormatter::outputs(*bytes, inputs.indent, inputs.sortMode);
            result.validation = std::move(outputs.validation);
            if (!token.stop_requested()) {
                result.formatted = bufferOf(outputs.formatted, shownFormatted);
            }
            if (!token.stop_requested()) {
                result.minified = bufferOf(outputs.minified, shownMinified);
            }
            return result;
        },
        [this](Formatted&& formatted) { publish(std::move(formatted)); });
}

void JSONToolViewModel::publish(Formatted&& formatted) {
    m_validation = std::move(formatted.validation);
    const auto shown = output();
    m_formattedOutput = std::move(formatted.formatted);
    m_minifiedOutput = std::move(formatted.minified);
    Q_EMIT validationChanged();
    if (!output().isSharedWith(shown)) {
        ++m_outputGeneration;
        scheduleSearch();
    }
    Q_EMIT outputChanged();
}

void JSONToolViewModel::setSearch(const std::u16string& query, JSONSearch::Scope scope) {
    if (m_searchQuery == query && m_searchScope == scope) {
        return;
    }
    m_searchQuery = query;
    m_searchScope = scope;
    scheduleSearch();
    Q_EMIT searchChanged();
}

void JSONToolViewModel::scheduleSearch() {
    if (m_searchQuery.empty()) {
        m_searching.cancel();
        if (!m_searchResult.query.empty()) {
            m_searchResult = {};
            Q_EMIT searchChanged();
        }
        return;
    }
    SearchResult request{.query = m_searchQuery,
                         .scope = m_searchScope,
                         .inputGeneration = m_textGeneration,
                         .outputGeneration = m_outputGeneration,
                         .inputMatches = {},
                         .outputMatches = {}};
    m_searching.start(
        kSearchDelay,
        [request = std::move(request), input = m_text, output = output()](const std::stop_token& token) {
            auto result = request;
            const auto matchesIn = [&](const TextBuffer& text) {
                return std::make_shared<const std::vector<TextRange>>(
                    JSONSearch::matches(request.query, text.text(), request.scope, token));
            };
            result.inputMatches = matchesIn(input);
            result.outputMatches = matchesIn(output);
            return result;
        },
        [this](SearchResult&& result) {
            m_searchResult = std::move(result);
            Q_EMIT searchChanged();
        });
}

JSONToolViewModel::Matches JSONToolViewModel::matches(Pane pane) const {
    static const auto kNone = std::make_shared<const std::vector<TextRange>>();
    const auto& result = m_searchResult;
    if (result.query.empty() || result.query != m_searchQuery || result.scope != m_searchScope) {
        return kNone;
    }
    if (pane == Pane::input) {
        return result.inputGeneration == m_textGeneration ? result.inputMatches : kNone;
    }
    return result.outputGeneration == m_outputGeneration ? result.outputMatches : kNone;
}

std::string JSONToolViewModel::searchStatus() const {
    if (m_searchQuery.empty() || m_searching.isPending()) {
        return {};
    }
    return JSONSearch::statusText(*matches(m_activePane),
                                  m_activePane == Pane::input ? m_inputSelection : m_outputSelection);
}

void JSONToolViewModel::setActivePane(Pane pane) {
    if (std::exchange(m_activePane, pane) != pane) {
        Q_EMIT searchChanged();
    }
}

void JSONToolViewModel::setSelection(Pane pane, TextRange selection) {
    auto& present = pane == Pane::input ? m_inputSelection : m_outputSelection;
    if (std::exchange(present, selection) != selection && !m_searchQuery.empty()) {
        Q_EMIT searchChanged();
    }
}

void JSONToolViewModel::findNext() {
    find(JSONSearch::Direction::forward);
}

void JSONToolViewModel::findPrevious() {
    find(JSONSearch::Direction::backward);
}

void JSONToolViewModel::find(JSONSearch::Direction direction) {
    const auto selection = m_activePane == Pane::input ? m_inputSelection : m_outputSelection;
    if (const auto match = JSONSearch::nextMatch(selection, *matches(m_activePane), direction)) {
        Q_EMIT revealRequested(m_activePane, Reveal{.range = *match, .serial = ++m_revealSerial});
    }
}

void JSONToolViewModel::revealError() {
    if (m_validation.errorRange && !m_formatting.isPending()) {
        Q_EMIT revealRequested(Pane::input,
                               Reveal{.range = *m_validation.errorRange, .serial = ++m_revealSerial});
    }
}

} // namespace tarnquill

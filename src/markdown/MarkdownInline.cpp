#include "markdown/MarkdownInline.h"

#include "markdown/MarkdownAddress.h"
#include "markdown/MarkdownEmphasis.h"
#include "markdown/MarkdownText.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <optional>
#include <utility>

namespace tarnquill::Markdown {

namespace {

// A placeholder is this character, a mark, an index in decimal, and this character again. A document cannot
// forge one: the character is replaced before anything else.
constexpr char kGuard = '\x01';
constexpr char kCodeMark = 'C';
constexpr char kSpanMark = 'S';
constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

void appendPlaceholder(std::string& output, char mark, std::size_t index) {
    output += kGuard;
    output += mark;
    output += std::to_string(index);
    output += kGuard;
}

std::string withoutGuards(std::string_view text) {
    std::string result;
    for (const auto character : text) {
        if (character == kGuard) {
            result += kReplacement;
        } else {
            result += character;
        }
    }
    return result;
}

struct Placeholder {
    char mark;
    std::size_t index;
    std::size_t end; // the position after it
};

// The placeholder whose first guard stands at the position.
Placeholder placeholderAt(std::string_view text, std::size_t position) {
    Placeholder placeholder{.mark = text[position + 1], .index = 0, .end = 0};
    const auto* const digits = text.data() + position + 2;
    const auto parsed = std::from_chars(digits, text.data() + text.size(), placeholder.index);
    placeholder.end = static_cast<std::size_t>(parsed.ptr - text.data()) + 1;
    return placeholder;
}

// What follows the label of a link or an image: "(address)" or "(address title)".
struct Destination {
    std::string_view address;
    std::size_t end; // the position after the closing parenthesis
};

// \(((?=[^)\s\x{1}])[^)\s\x{1}\]]*(?:\](?!\()[^)\s\x{1}\]]*)*)
// (?:(?>[\s]+)(?:(?:"[^"]*"|'[^']*?'|\([^()]*?\))[\s]*?)?)?\)
//
// Nothing in it can match in two ways, so one walk decides.
class DestinationReader {
public:
    explicit DestinationReader(std::string_view text) : m_text(text) {}

    // Positions grow from call to call.
    std::optional<Destination> read(std::size_t position) {
        if (position == m_text.size() || m_text[position] != '(') {
            return std::nullopt;
        }
        const auto start = position + 1;
        const auto end = addressEnd(start);
        if (end == start) {
            return std::nullopt;
        }
        position = afterWhiteSpace(end);
        if (position > end && position < m_text.size()) {
            if (const auto closed = titleEnd(position)) {
                position = afterWhiteSpace(*closed);
            }
        }
        if (position == m_text.size() || m_text[position] != ')') {
            return std::nullopt;
        }
        return Destination{.address = m_text.substr(start, end - start), .end = position + 1};
    }

private:
    [[nodiscard]] std::size_t addressEnd(std::size_t position) const {
        while (position < m_text.size()) {
            const auto character = m_text[position];
            if (character == ')' || character == kGuard || whiteSpaceAt(m_text, position) > 0) {
                break;
            }
            if (character == ']' && position + 1 < m_text.size() && m_text[position + 1] == '(') {
                break;
            }
            ++position;
        }
        return position;
    }

    [[nodiscard]] std::size_t afterWhiteSpace(std::size_t position) const {
        while (position < m_text.size()) {
            const auto length = whiteSpaceAt(m_text, position);
            if (length == 0) {
                break;
            }
            position += length;
        }
        return position;
    }

    std::optional<std::size_t> titleEnd(std::size_t position) {
        const auto opening = m_text[position];
        if (opening == '(') {
            const auto end = m_text.find_first_of("()", position + 1);
            return end != std::string_view::npos && m_text[end] == ')' ? std::optional(end + 1)
                                                                       : std::nullopt;
        }
        if (opening != '"' && opening != '\'') {
            return std::nullopt;
        }
        // A quotation mark that is missing once is missing for good: without this, each link would look for
        // it again.
        auto& missing = opening == '"' ? m_noDoubleQuote : m_noSingleQuote;
        const auto end = missing ? std::string_view::npos : m_text.find(opening, position + 1);
        missing = missing || end == std::string_view::npos;
        return missing ? std::nullopt : std::optional(end + 1);
    }

    std::string_view m_text;
    bool m_noDoubleQuote = false;
    bool m_noSingleQuote = false;
};

// The text is escaped already but for quotation marks, which would end the attribute it goes into.
void appendQuotesEscaped(std::string& output, std::string_view text) {
    for (std::size_t quote = text.find('"'); quote != std::string_view::npos; quote = text.find('"')) {
        output.append(text, 0, quote);
        output += "&quot;";
        text.remove_prefix(quote + 1);
    }
    output += text;
}

// The end of the run without square brackets that begins at the position.
std::size_t labelEnd(std::string_view text, std::size_t position) {
    const auto end = text.find_first_of("[]", position);
    return end == std::string_view::npos ? text.size() : end;
}

bool isClosingBracket(std::string_view text, std::size_t position) {
    return position < text.size() && text[position] == ']';
}

} // namespace

void InlineRenderer::protect(std::string html) {
    appendPlaceholder(m_next, kSpanMark, m_spans.size());
    m_spans.push_back(std::move(html));
}

// `([^`]+)` ; what lies between the spans is escaped on the way.
void InlineRenderer::takeOutCode(std::string_view text) {
    m_text.clear();
    std::size_t done = 0;
    auto opening = text.find('`');
    while (opening != std::string_view::npos) {
        const auto closing = text.find('`', opening + 1);
        if (closing == std::string_view::npos) {
            break;
        }
        if (closing == opening + 1) {
            opening = closing;
            continue;
        }
        appendEscaped(m_text, text.substr(done, opening - done));
        appendPlaceholder(m_text, kCodeMark, m_code.size());
        m_code.push_back(text.substr(opening + 1, closing - opening - 1));
        done = closing + 1;
        opening = text.find('`', done);
    }
    appendEscaped(m_text, text.substr(done));
}

// !\[([^\]\[]*)\] and a destination
void InlineRenderer::takeOutImages() {
    DestinationReader reader(m_text);
    m_next.clear();
    std::size_t done = 0;
    for (auto start = m_text.find("!["); start != std::string::npos; start = m_text.find("![", start)) {
        const auto alternative = start + 2;
        const auto end = labelEnd(m_text, alternative);
        const auto destination = isClosingBracket(m_text, end) ? reader.read(end + 1) : std::nullopt;
        if (!destination) {
            ++start;
            continue;
        }
        m_next.append(m_text, done, start - done);
        std::string html = "<img ";
        if (isAllowedAddress(destination->address, AddressUse::image)) {
            html += "src=\"";
            appendQuotesEscaped(html, destination->address);
            html += "\" ";
        }
        html += "alt=\"";
        html += plainAlternative(std::string_view(m_text).substr(alternative, end - alternative));
        html += "\">";
        protect(std::move(html));
        start = done = destination->end;
    }
    m_next.append(m_text, done);
    m_text.swap(m_next);
}

// \[([^\]\[]+)\] and a destination
void InlineRenderer::takeOutLinks() {
    DestinationReader reader(m_text);
    m_next.clear();
    std::size_t done = 0;
    for (auto start = m_text.find('['); start != std::string::npos; start = m_text.find('[', start)) {
        const auto label = start + 1;
        const auto end = labelEnd(m_text, label);
        const auto destination =
            end > label && isClosingBracket(m_text, end) ? reader.read(end + 1) : std::nullopt;
        if (!destination) {
            ++start;
            continue;
        }
        m_next.append(m_text, done, start - done);
        auto html = m_text.substr(label, end - label);
        if (isAllowedAddress(destination->address, AddressUse::link)) {
            std::string opening = "<a href=\"";
            appendQuotesEscaped(opening, destination->address);
            opening += "\">";
            html.insert(0, opening);
            html += "</a>";
        }
        protect(std::move(html));
        start = done = destination->end;
    }
    m_next.append(m_text, done);
    m_text.swap(m_next);
}

// \bhttps?://(?:(?!&lt;|&gt;)[^\s<>"\x{1}])+ , less the punctuation at its end
void InlineRenderer::takeOutAddresses() {
    const std::string_view text = m_text;
    m_next.clear();
    std::size_t done = 0;
    for (auto colon = text.find("://"); colon != std::string_view::npos;
         colon = text.find("://", colon + 1)) {
        const auto before = text.substr(done, colon - done);
        const auto scheme = before.ends_with("https") ? 5U : before.ends_with("http") ? 4U : 0U;
        const auto start = colon - scheme;
        if (scheme == 0 || !isWordStart(text, start)) {
            continue;
        }
        const auto first = colon + 3;
        auto end = first;
        while (end < text.size() && text[end] != '"' && text[end] != kGuard && whiteSpaceAt(text, end) == 0 &&
               text.compare(end, 4, "&lt;") != 0 && text.compare(end, 4, "&gt;") != 0) {
            ++end;
        }
        if (end == first) {
            continue;
        }
        constexpr std::string_view kPeeled = ".,;:!?)]";
        while (kPeeled.contains(text[end - 1]) && !text.substr(start, end - start).ends_with("&amp;")) {
            --end;
        }
        m_next.append(text, done, start - done);
        const auto address = text.substr(start, end - start);
        std::string html = "<a href=\"";
        html += address;
        html += "\">";
        html += address;
        html += "</a>";
        protect(std::move(html));
        done = end;
        colon = end - 1;
    }
    m_next.append(text, done);
    m_text.swap(m_next);
}

// Code spans in an alternative text give their plain text: an attribute holds no mark-up.
std::string InlineRenderer::plainAlternative(std::string_view text) const {
    std::string plain;
    for (std::size_t position = 0; position < text.size();) {
        const auto guard = std::min(text.find(kGuard, position), text.size());
        appendQuotesEscaped(plain, text.substr(position, guard - position));
        if (guard == text.size()) {
            break;
        }
        const auto placeholder = placeholderAt(text, guard);
        appendEscaped(plain, m_code[placeholder.index], Quotes::escape);
        position = placeholder.end;
    }
    return plain;
}

// Links hold images and code, images hold neither, so this nests two deep at most.
void InlineRenderer::putBack(std::string_view text, std::string& output) const {
    for (std::size_t position = 0; position < text.size();) {
        const auto guard = std::min(text.find(kGuard, position), text.size());
        output.append(text, position, guard - position);
        if (guard == text.size()) {
            break;
        }
        const auto placeholder = placeholderAt(text, guard);
        if (placeholder.mark == kSpanMark) {
            putBack(m_spans[placeholder.index], output);
        } else {
            output += "<code>";
            appendEscaped(output, m_code[placeholder.index], Quotes::escape);
            output += "</code>";
        }
        position = placeholder.end;
    }
}

void InlineRenderer::render(std::string_view text, std::string& output) {
    m_code.clear();
    m_spans.clear();
    if (text.contains(kGuard)) {
        m_source = withoutGuards(text);
        text = m_source;
    }
    takeOutCode(text);
    if (m_text.find("](") != std::string::npos) {
        takeOutImages();
        takeOutLinks();
    }
    if (m_text.find("://") != std::string::npos) {
        takeOutAddresses();
    }
    markEmphasis(m_text, m_next);
    if (m_code.empty() && m_spans.empty()) {
        output += m_text;
    } else {
        putBack(m_text, output);
    }
}

} // namespace tarnquill::Markdown

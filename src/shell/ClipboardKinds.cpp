#include "shell/ClipboardKinds.h"

#include "common/CountText.h"
#include "common/DateText.h"
#include "common/JSONReader.h"
#include "common/UnicodeText.h"
#include "common/WhiteSpace.h"
#include "csv/CSVParser.h"
#include "jwt/JWTDecoder.h"
#include "jwt/TokenParts.h"
#include "mermaid/MermaidFence.h"
#include "mermaid/MermaidVocabulary.h"
#include "shell/EncodedText.h"
#include "shell/MarkdownMarks.h"
#include "timestamp/Timestamp.h"
#include "json/JSONFormatter.h"

#include <algorithm>
#include <optional>

namespace tarnquill::ClipboardKinds {

namespace {

enum class Certainty : std::uint8_t { sure, likely, possible };

struct Judgement {
    Certainty certainty;
    std::string reason;
};
using Verdict = std::optional<Judgement>;

// A text that is at hand in the ways in which the judges look at it.
struct Sample {
    std::string_view text; // without white space around it
    std::u16string wide;
    Extent extent;
};

constexpr auto kNone = std::string_view::npos;

// A head may end inside of a character.
std::string_view withoutCutCharacter(std::string_view text) {
    constexpr std::size_t kMostCutOff = 3;
    for (std::size_t cut = 0; cut <= std::min(kMostCutOff, text.size()); ++cut) {
        if (const auto rest = text.substr(0, text.size() - cut); isWellFormedUTF8(rest)) {
            return rest;
        }
    }
    return text;
}

template <typename Values, typename Value>
bool contains(const Values& values, const Value& value) {
    return std::ranges::find(values, value) != values.end();
}

bool startsWithAnyOf(std::string_view text, std::string_view characters) {
    return !text.empty() && characters.find(text.front()) != kNone;
}

// Without the last line when it may be cut off.
std::string_view wholeLines(const Sample& sample) {
    const auto end = sample.text.rfind('\n');
    return sample.extent == Extent::whole || end == kNone ? sample.text : sample.text.substr(0, end);
}

Verdict judgeJWT(const Sample& sample) {
    if (sample.extent == Extent::whole) {
        const auto token = JWTDecoder::decode(sample.text);
        if (!token) {
            return std::nullopt;
        }
        const std::string kind =
            token->segmentCount == TokenParts::kEncrypted ? "An encrypted token" : "A signed token";
        return Judgement{.certainty = Certainty::sure,
                         .reason = token->algorithm ? kind + ", " + *token->algorithm : kind};
    }
    const auto cleaned = cleanedToken(sample.text);
    const TokenParts parts(cleaned);
    // With an empty payload and signature, the header is judged alone.
    const auto header = std::string(parts[0]) + "..";
    return parts.count() > 1 && JWTDecoder::decode(header)
               ? Verdict({.certainty = Certainty::sure, .reason = "A token"})
               : std::nullopt;
}

// The word that the first line of a diagram begins with, which front matter and comments may stand before.
std::u16string_view firstDiagramLine(std::u16string_view source) {
    bool isInFrontMatter = false;
    for (std::size_t start = 0, number = 0; start < source.size(); ++number) {
        const auto end = std::min(source.find(u'\n', start), source.size());
        auto line = source.substr(start, end - start);
        start = end + 1;
        line.remove_prefix(std::min(line.find_first_not_of(u" \t\r"), line.size()));
        line = line.substr(0, line.find_last_not_of(u" \t\r;") + 1);
        if (line == u"---" && (number == 0 || isInFrontMatter)) {
            isInFrontMatter = number == 0;
        } else if (!isInFrontMatter && !line.empty() && !line.starts_with(u"%%")) {
            return line;
        }
    }
    return {};
}

// Some types are everyday words, which what follows them has to tell from a sentence.
bool isDiagram(std::u16string_view source) {
    const auto line = firstDiagramLine(source);
    const auto word = line.substr(0, line.find_first_of(u" \t:"));
    if (!contains(MermaidVocabulary::kDiagramTypes, word)) {
        return false;
    }
    const bool isEverydayWord =
        std::ranges::all_of(word, [](char16_t letter) { return letter >= u'a' && letter <= u'z'; });
    const auto rest = line.substr(std::min(line.find_first_not_of(u" \t:", word.size()), line.size()));
    if (!isEverydayWord || rest.empty()) {
        return source.find(u'\n') != std::u16string_view::npos || !isEverydayWord;
    }
    const auto next = rest.substr(0, rest.find_first_of(u" \t;"));
    constexpr std::array<std::u16string_view, 8> kArguments{u"TB", u"TD",    u"BT",       u"LR",
                                                            u"RL", u"title", u"showData", u"horizontal"};
    return contains(kArguments, next);
}

Verdict judgeMermaid(const Sample& sample) {
    if (isDiagram(sample.wide)) {
        return Judgement{.certainty = Certainty::sure, .reason = "A diagram's source"};
    }
    if (!MermaidFence::firstBlock(sample.wide)) {
        return std::nullopt;
    }
    const auto isAll = startsWithAnyOf(sample.text, "`~") &&
                       startsWithAnyOf(sample.text.substr(sample.text.size() - 1), "`~");
    return Judgement{.certainty = isAll ? Certainty::sure : Certainty::possible,
                     .reason = isAll ? "A diagram's source" : "The first diagram in this Markdown"};
}

bool looksLikeJSON(std::string_view text) {
    if (!startsWithAnyOf(text, "{[")) {
        return false;
    }
    const auto next = trimmed(text.substr(1));
    return text.front() == '{' ? startsWithAnyOf(next, "\"}") : startsWithAnyOf(next, "\"{[]");
}

Verdict judgeJSON(const Sample& sample) {
    const bool isObject = sample.text.starts_with('{');
    const std::string kind = isObject ? "An object" : "An array";
    if (!isObject && !startsWithAnyOf(sample.text, "[\"")) {
        return std::nullopt;
    }
    if (sample.extent == Extent::head) {
        // The end of the head is the end of no document, so that is where reading may fail.
        constexpr std::size_t kLongestWord = 8;
        const auto document = JSONReader::read(sample.text);
        if (!document && document.error().offset + kLongestWord >= sample.text.size()) {
            return Judgement{.certainty = Certainty::sure, .reason = kind};
        }
        return looksLikeJSON(sample.text)
                   ? Verdict({.certainty = Certainty::likely, .reason = kind + ", not valid"})
                   : std::nullopt;
    }
    const auto validation = JSONFormatter::validate(sample.text);
    if (validation.isValid && sample.text.starts_with('"')) {
        return Judgement{.certainty = Certainty::possible, .reason = "A quoted text"};
    }
    if (validation.isValid) {
        const auto count = static_cast<std::size_t>(validation.topLevelKeyCount.value_or(0));
        return Judgement{.certainty = Certainty::sure,
                         .reason = kind + " with " +
                                   (isObject ? countText(count, "member", "members")
                                             : countText(count, "element", "elements"))};
    }
    return looksLikeJSON(sample.text)
               ? Verdict({.certainty = Certainty::likely, .reason = kind + ", not valid"})
               : std::nullopt;
}

class UTC final : public TimeZone {
public:
    [[nodiscard]] ZoneOffset offsetAt(std::int64_t /*seconds*/) const override { return {}; }
};

std::optional<Timestamp::Parsed> readTime(std::string_view text) {
    constexpr std::size_t kLongest = 100;
    const auto parsed = text.size() <= kLongest
                            ? Timestamp::parse(text, Timestamp::UnitChoice::automatic, UTC())
                            : std::unexpected(Timestamp::Failure::unrecognised);
    return parsed ? std::optional(*parsed) : std::nullopt;
}

// A number of seconds, milliseconds and so on of our days; any other number may count anything.
Certainty certaintyOf(const Timestamp::Parsed& time) {
    constexpr std::int64_t kFirst = 315'532'800;  // 1980
    constexpr std::int64_t kLast = 4'102'444'800; // 2100
    return !std::holds_alternative<Timestamp::Number>(time.reading) ||
                   (time.instant.seconds >= kFirst && time.instant.seconds < kLast)
               ? Certainty::sure
               : Certainty::possible;
}

Verdict judgeTimes(const Sample& sample) {
    constexpr std::size_t kLooked = 20;
    auto rest = wholeLines(sample);
    std::size_t count = 0;
    auto certainty = Certainty::sure;
    std::optional<Timestamp::Parsed> time;
    while (!rest.empty() && count < kLooked) {
        const auto end = std::min(rest.find('\n'), rest.size());
        const auto line = trimmed(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
        if (line.empty()) {
            continue;
        }
        time = readTime(line);
        if (!time) {
            return std::nullopt;
        }
        certainty = std::max(certainty, certaintyOf(*time));
        ++count;
    }
    if (!time) {
        return std::nullopt;
    }
    if (count > 1) {
        return Judgement{.certainty = certainty, .reason = "A time on each line"};
    }
    auto reason = std::string(Timestamp::name(time->reading));
    if (std::holds_alternative<Timestamp::Number>(time->reading) && certainty == Certainty::sure) {
        reason += ", " + iso8601Text(time->instant.seconds, time->instant.nanoseconds, 0);
    }
    return Judgement{.certainty = certainty, .reason = std::move(reason)};
}

Verdict judgeEncoded(const Sample& sample, Codec::Scheme scheme) {
    auto found = EncodedText::find(sample.text, scheme, sample.extent);
    return found ? Verdict({.certainty = found->isClear ? Certainty::likely : Certainty::possible,
                            .reason = std::move(found->reason)})
                 : std::nullopt;
}

std::string_view nameOfDelimiter(char delimiter) {
    switch (delimiter) {
    case '\t':
        return "tabs";
    case ';':
        return "semicolons";
    case '|':
        return "bars";
    default:
        return "commas";
    }
}

// In sentences a space follows every comma.
bool hasProse(std::string_view text, char delimiter) {
    std::size_t delimiters = 0;
    std::size_t spaces = 0;
    for (auto at = text.find(delimiter); at != kNone; at = text.find(delimiter, at + 1)) {
        ++delimiters;
        spaces += at + 1 < text.size() && text[at + 1] == ' ' ? 1U : 0U;
    }
    return delimiter != '\t' && delimiters == spaces;
}

Verdict judgeCSV(const Sample& sample, bool hasMarkdownTable) {
    const auto text = wholeLines(sample);
    const auto table = CSVParser::parse(text, {.header = CSVParser::HeaderRow::none});
    const auto rows = table.rowCount();
    const auto columns = table.columnCount();
    if (columns < 2 || (table.delimiter() == '|' && hasMarkdownTable)) {
        return std::nullopt;
    }
    // A row too short now and then is a slip; more of them are no table.
    constexpr std::size_t kFewestForSlips = 5;
    const auto padded = table.paddedRowCount();
    if (padded > 0 && (rows < kFewestForSlips || padded * kFewestForSlips > rows)) {
        return std::nullopt;
    }
    const bool isTabbed = table.delimiter() == '\t';
    if (rows < 2 && !isTabbed && columns < 3) {
        return std::nullopt;
    }
    const auto certainty = hasProse(text, table.delimiter()) || rows < 2 ? Certainty::possible
                           : rows > 2 || isTabbed                        ? Certainty::sure
                                                                         : Certainty::likely;
    auto reason = countText(columns, "column", "columns");
    if (sample.extent == Extent::whole) {
        reason += " and " + countText(rows, "row", "rows");
    }
    return Judgement{.certainty = certainty,
                     .reason = reason + ", separated by " + std::string(nameOfDelimiter(table.delimiter()))};
}

Verdict judgeMarkdown(const MarkdownMarks& marks) {
    return marks.isEmpty() ? std::nullopt
                           : Verdict({.certainty = marks.areClear() ? Certainty::likely : Certainty::possible,
                                      .reason = marks.names()});
}

} // namespace

std::vector<Fit> fitting(std::string_view text, Extent extent) {
    if (text.size() > kHeadSize) {
        text = text.substr(0, kHeadSize);
        extent = Extent::head;
    }
    if (extent == Extent::head) {
        text = withoutCutCharacter(text);
    }
    text = trimmed(text);
    const Sample sample{.text = text, .wide = utf16FromUTF8(text).value_or(u""), .extent = extent};
    if (sample.text.empty()) {
        return {};
    }

    struct Candidate {
        Certainty certainty;
        Fit fit;
    };
    std::vector<Candidate> candidates;
    const auto add = [&](Kind kind, Verdict verdict) {
        if (verdict) {
            candidates.push_back({.certainty = verdict->certainty,
                                  .fit = {.kind = kind, .reason = std::move(verdict->reason)}});
        }
    };
    const MarkdownMarks marks(sample.wide);
    add(Kind::jwt, judgeJWT(sample));
    add(Kind::mermaid, judgeMermaid(sample));
    add(Kind::json, judgeJSON(sample));
    // What is surely one of these has commas and letters only by the way.
    const auto isSettled = std::ranges::any_of(
        candidates, [](const Candidate& each) { return each.certainty == Certainty::sure; });
    if (!isSettled) {
        add(Kind::time, judgeTimes(sample));
        add(Kind::hex, judgeEncoded(sample, Codec::Scheme::hex));
        add(Kind::base64, judgeEncoded(sample, Codec::Scheme::base64));
        add(Kind::percentEncoding, judgeEncoded(sample, Codec::Scheme::url));
        add(Kind::htmlEntities, judgeEncoded(sample, Codec::Scheme::html));
        add(Kind::csv, judgeCSV(sample, marks.hasTable()));
    }
    if (!isSettled || marks.areClear()) {
        add(Kind::markdown, judgeMarkdown(marks));
    }
    std::ranges::stable_sort(candidates, {}, &Candidate::certainty);

    std::vector<Fit> fits;
    fits.reserve(candidates.size() + 1);
    for (auto& candidate : candidates) {
        fits.push_back(std::move(candidate.fit));
    }
    if (std::ranges::find(fits, Kind::markdown, &Fit::kind) == fits.end()) {
        fits.push_back({.kind = Kind::plainText, .reason = "Plain text"});
    }
    return fits;
}

} // namespace tarnquill::ClipboardKinds
